-- The usual rules: the first crew home with a full load of fired bricks.
local Race = { load = 24 }

function Race:onHome(crew)
    if crew.bricks >= self.load then
        self:finish(crew)
    else
        crew:tell("race/not_enough", self.load - crew.bricks)
    end
end

function Race:onTimeout()
    self:finish(self:crewWithMost("bricks"))
end

return Race
