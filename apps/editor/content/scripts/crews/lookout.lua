-- Calls out what the helmsman cannot see from the stern.
local Lookout = { range = 40 }

function Lookout:think(barge)
    for _, other in ipairs(barge:boatsWithin(self.range)) do
        if other:closing() > 0.5 then
            barge:call(other:side() == "left" and "call_port" or "call_starboard")
            return
        end
    end
end

return Lookout
