-- Pulls boats towards the edge and lets light ones over it.
local Weir = { reach = 12, heaviest = 900 }

function Weir:pull(boat)
    local distance = self:distanceTo(boat)
    if distance > self.reach then
        return 0
    end
    if distance < 1 and boat.mass > self.heaviest then
        boat:strand(self)
    end
    return (self.reach - distance) * 0.3
end

return Weir
