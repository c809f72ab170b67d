texture = textures/effects/marsh_mist.png
rate = 2
life = 2.1
size = 0.1 .. 1.4
