-- A gate follows its timetable, and waits for boats under it.
local Gate = {}

function Gate:update(time)
    local phase = time % (self.opens + self.closes)
    local wanted = phase < self.opens
    if not wanted and self:boatBelow() then
        return
    end
    if wanted ~= self.open then
        self.open = wanted
        play(wanted and "canal/gate_open" or "canal/gate_close", self.position)
    end
end

return Gate
