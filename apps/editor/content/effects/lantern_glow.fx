texture = textures/effects/lantern_glow.png
rate = 47
life = 1.9
size = 0.4 .. 1.5
