#include <host/jobs/job_record.h>

#include <algorithm>

namespace Ozy {

bool JobRecord::familyHas(const JobRecord& job) const
{
    return this == &job ||
           std::any_of(added.begin(), added.end(), [&](const Pointer& each) { return each->familyHas(job); });
}

bool JobRecord::needs(const JobRecord& job) const
{
    // Upwards from the other one, which is a short way. A task may wait for a job that it was added to
    // itself, so that the walk can meet the same one again.
    std::vector<const JobRecord*> met{&job};
    const auto meet = [&met](const JobRecord* one) {
        if (std::find(met.begin(), met.end(), one) == met.end())
            met.push_back(one);
    };
    for (std::size_t next = 0; next < met.size(); ++next) {
        const JobRecord* const one = met[next];
        if (one == this)
            return true;
        for (const Pointer& parent : one->parents)
            meet(parent.get());
        for (const JobRecord* waiter : one->waiting)
            meet(waiter);
    }
    return false;
}

bool JobRecord::needsMe() const
{
    for (const JobRecord* mine = current(); mine; mine = mine->outer) {
        if (needs(*mine))
            return true;
    }
    return false;
}

bool JobRecord::isStoppingMe() const
{
    return (stopping && stopping->needsMe()) ||
           std::any_of(added.begin(), added.end(), [](const Pointer& each) { return each->isStoppingMe(); });
}

bool JobRecord::isQuiet() const
{
    const bool waitsForMe = stopping && stopping->needsMe();
    return (!hasTask || runsHere() || waitsForMe) &&
           std::all_of(added.begin(), added.end(), [](const Pointer& each) { return each->isQuiet(); });
}

JobRecord*& JobRecord::current()
{
    thread_local JobRecord* innermost = nullptr;
    return innermost;
}

} // namespace Ozy
