texture = textures/effects/kiln_smoke.png
rate = 17
life = 3.7
size = 0.8 .. 1.1
