-- Two crews on one rope; whoever drags the other past the mark has won.
local Tow = { mark = 15 }

function Tow:update()
    local offset = self.rope:offset()
    if math.abs(offset) >= self.mark then
        self:finish(offset > 0 and self.crews[1] or self.crews[2])
    end
end

return Tow
