texture = textures/effects/wake.png
rate = 47
life = 0.7
size = 0.7 .. 1.7
