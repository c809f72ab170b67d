-- Levels the water of two basins; the faster, the further they differ.
local Sluice = { rate = 0.05 }

function Sluice:update(dt)
    local difference = self.upper.level - self.lower.level
    local flow = self.rate * difference * dt
    self.upper.level = self.upper.level - flow / self.upper.area
    self.lower.level = self.lower.level + flow / self.lower.area
end

return Sluice
