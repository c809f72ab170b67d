-- Pushes off when the barge is slow; rests when the current carries it.
local Poler = { stamina = 100 }

function Poler:think(barge, dt)
    local speed = barge:speedThroughWater()
    if speed < 1.2 and self.stamina > 15 then
        barge:push(0.6 * dt)
        self.stamina = self.stamina - 4 * dt
    else
        self.stamina = math.min(100, self.stamina + 2 * dt)
    end
end

return Poler
