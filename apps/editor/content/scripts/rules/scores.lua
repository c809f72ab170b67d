-- What a race is worth, in bricks for the quay.
local scores = { won = 40, finished = 15, perBrick = 1, perBump = -2 }

return function(result)
    local total = result.bricks * scores.perBrick + result.bumps * scores.perBump
    if result.won then
        total = total + scores.won
    elseif result.finished then
        total = total + scores.finished
    end
    return math.max(0, total)
end
