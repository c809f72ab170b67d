#include <host/jobs/job_record.h>

#include <algorithm>

namespace Ozy {

bool JobRecord::familyHas(const JobRecord& job) const
{
    return this == &job ||
           std::any_of(added.begin(), added.end(), [&](const Pointer& each) { return each->familyHas(job); });
}

bool JobRecord::familyRunsHere() const
{
    return runsHere() || std::any_of(added.begin(), added.end(),
                                     [](const Pointer& each) { return each->familyRunsHere(); });
}

bool JobRecord::isQuiet() const
{
    const bool waitsForMe = stopping && stopping->familyRunsHere();
    return (!hasTask || runsHere() || waitsForMe) &&
           std::all_of(added.begin(), added.end(), [](const Pointer& each) { return each->isQuiet(); });
}

bool JobRecord::isNeededBy(const JobRecord& job) const
{
    // A task may wait for a job that it was added to itself, so that this walk can meet the same one again.
    std::vector<const JobRecord*> met{this};
    const auto meet = [&met](const JobRecord* one) {
        if (std::find(met.begin(), met.end(), one) == met.end())
            met.push_back(one);
    };
    for (std::size_t next = 0; next < met.size(); ++next) {
        const JobRecord* const one = met[next];
        if (one == &job)
            return true;
        for (const Pointer& parent : one->parents)
            meet(parent.get());
        for (const JobRecord* waiter : one->waiting)
            meet(waiter);
    }
    return false;
}

} // namespace Ozy
