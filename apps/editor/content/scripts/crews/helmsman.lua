-- Steers towards the next gate and keeps off the banks.
local Helmsman = {}

function Helmsman:think(barge, dt)
    local gate = barge:nextGate()
    if not gate then
        return barge:holdPosition()
    end
    local turn = barge:bearingTo(gate.position) * 0.8
    for _, bank in ipairs(barge:banksWithin(6)) do
        turn = turn + barge:awayFrom(bank) / bank.distance
    end
    barge:setRudder(clamp(turn, -1, 1), dt)
end

return Helmsman
