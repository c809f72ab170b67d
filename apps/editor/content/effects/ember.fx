texture = textures/effects/ember.png
rate = 26
life = 0.2
size = 0.3 .. 1.6
