texture = textures/effects/spray.png
rate = 12
life = 3.6
size = 0.8 .. 1.8
