-- A crew without players: three plans, the one that pays most.
local plans = {
    race = function(crew) return 100 - crew.barge:distanceHome() / 10 end,
    fire = function(crew) return crew.clay * 4 end,
    hinder = function(crew) return crew:lead() < 0 and 35 or 0 end,
}

return function(crew)
    local best, worth = "race", -1
    for name, value in pairs(plans) do
        local v = value(crew)
        if v > worth then
            best, worth = name, v
        end
    end
    crew:follow(best)
end
