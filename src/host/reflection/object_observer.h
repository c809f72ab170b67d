#pragma once

#include <host/base/host_export.h>
#include <host/reflection/reflection_flags.h>

#include <boost/intrusive/list.hpp>

#include <cstddef>

namespace zarn {

class BoundProperty;
class ObjectObservers;
class ReflectedObject;

/// Follows one object: its structure, the changes of any of its properties, and its death.
///
/// For what follows a great many objects: it costs the observer a few pointers and the object no more than it has without
/// one, where each signal takes a record of its own. Whoever follows a single property, or a few objects, connects to the
/// signals. Observers are told ahead of the slots of the signal of the same name, in the order in which they began. One that
/// stops meanwhile is not told any more, one that begins meanwhile is told from the next time on; each may be destroyed in
/// any of these. Thread: GUI only.
class DATAMODELS_HOST_API ObjectObserver : public boost::intrusive::list_base_hook<>
{
public:
    ObjectObserver() = default;
    ObjectObserver(const ObjectObserver&) = delete;
    ObjectObserver& operator=(const ObjectObserver&) = delete;

    /// Follows the object from now on, and no other. Nothing is ever told of an invalid one, or of one without data.
    void observe(const ReflectedObject& object);
    void stopObserving();

    virtual void objectDeleted() {}
    virtual void propertyAboutToBeChanged(const BoundProperty&, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) {}
    virtual void propertyChanged(const BoundProperty&, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) {}
    virtual void propertyAdded(std::size_t /*first*/, std::size_t /*count*/) {}
    virtual void propertyAboutToBeRemoved(std::size_t /*first*/, std::size_t /*count*/) {}
    virtual void propertyRemoved(std::size_t /*first*/, std::size_t /*count*/) {}
    virtual void propertiesAboutToBeReset() {}
    virtual void propertiesReset() {}

protected:
    virtual ~ObjectObserver() { stopObserving(); }

private:
    friend class ObjectObservers;

    ObjectObservers* m_observers = nullptr; // those of the object that it follows
};

/// Who follows an object. Observers that are left at the end follow nothing any more.
class DATAMODELS_HOST_API ObjectObservers
{
public:
    ObjectObservers() = default;
    ~ObjectObservers();
    ObjectObservers(const ObjectObservers&) = delete;
    ObjectObservers& operator=(const ObjectObservers&) = delete;

    bool empty() const { return m_observers.empty(); }
    void add(ObjectObserver& observer);
    void remove(ObjectObserver& observer);

    /// Calls the operation of each. The observers have to outlast the call; who takes part in them need not.
    template <class... Parameters, class... Arguments>
    void tell(void (ObjectObserver::*operation)(Parameters...), const Arguments&... arguments)
    {
        if (m_observers.empty())
            return;
        for (Walk walk(*this); ObjectObserver* const observer = walk.next();)
            (observer->*operation)(arguments...);
    }

    /// Looks at each, in their order, without telling anything; they must not change meanwhile.
    template <class Look>
    void lookAt(Look look) const
    {
        for (const ObjectObserver& observer : m_observers)
            look(observer);
    }

private:
    using List = boost::intrusive::list<ObjectObserver, boost::intrusive::constant_time_size<false>>;

    /// Goes from the first to the one that is the last now, past whatever comes and leaves on the way.
    class DATAMODELS_HOST_API Walk
    {
    public:
        explicit Walk(ObjectObservers& observers);
        ~Walk();
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        ObjectObserver* next();
        void leave(ObjectObserver& observer);
        Walk* outer() const { return m_outer; }

    private:
        ObjectObservers& m_observers;
        ObjectObserver* m_next; // null at the end
        ObjectObserver* m_last;
        Walk* m_outer;
    };

    List m_observers;
    Walk* m_walk = nullptr; // the innermost
};

} // namespace zarn
