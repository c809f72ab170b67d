#include <host/reflection/object_observer.h>

#include <host/reflection/reflected_object.h>

#include <iterator>
#include <utility>

namespace zarn {

void ObjectObserver::observe(const ReflectedObject& object)
{
    stopObserving();
    if (object.isValid() && object.data())
        object.data()->observers.add(*this);
}

void ObjectObserver::stopObserving()
{
    if (m_observers)
        m_observers->remove(*this);
}

ObjectObservers::~ObjectObservers()
{
    m_observers.clear_and_dispose([](ObjectObserver* observer) { observer->m_observers = nullptr; });
}

void ObjectObservers::add(ObjectObserver& observer)
{
    observer.m_observers = this;
    m_observers.push_back(observer);
}

void ObjectObservers::remove(ObjectObserver& observer)
{
    for (Walk* walk = m_walk; walk; walk = walk->outer())
        walk->leave(observer);
    m_observers.erase(m_observers.iterator_to(observer));
    observer.m_observers = nullptr;
}

ObjectObservers::Walk::Walk(ObjectObservers& observers)
    : m_observers(observers)
    , m_next(&observers.m_observers.front())
    , m_last(&observers.m_observers.back())
    , m_outer(std::exchange(observers.m_walk, this))
{
}

ObjectObservers::Walk::~Walk()
{
    m_observers.m_walk = m_outer;
}

ObjectObserver* ObjectObservers::Walk::next()
{
    ObjectObserver* const current = m_next;
    if (current)
        m_next = current == m_last ? nullptr : &*std::next(m_observers.m_observers.iterator_to(*current));
    return current;
}

void ObjectObservers::Walk::leave(ObjectObserver& observer)
{
    if (&observer == m_next)
        next();
    else if (&observer == m_last && m_next)
        m_last = &*std::prev(m_observers.m_observers.iterator_to(observer));
}

} // namespace zarn
