-- Height of the tide at a time of the race.
local period = 745

return function(time, range)
    local t = (time % period) / period
    local rising = t < 0.5 and t * 2 or 2 - t * 2
    return (rising * rising * (3 - 2 * rising) - 0.5) * range
end
