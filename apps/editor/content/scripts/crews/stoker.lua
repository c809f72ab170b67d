-- Keeps the kiln between its two temperatures.
local Stoker = { low = 820, high = 980 }

function Stoker:think(kiln)
    if kiln.temperature < self.low and kiln.fuel > 0 then
        kiln:stoke()
    elseif kiln.temperature > self.high then
        kiln:openVent()
    end
end

return Stoker
