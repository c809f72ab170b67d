#pragma once

#include <QMetaObject>

#include <cstdlib>
#include <memory>
#include <vector>

namespace zarn {
class MetaObject;
class ReflectedObject;
} // namespace zarn

namespace qelm {

/// The meta-object by which QML sees all objects of one reflected class: a property of type `QVariant` with a NOTIFY
/// signal for each value, an invokable for each method. Made once a class, at the first need.
class ScriptClass
{
public:
    static const ScriptClass& of(const zarn::ReflectedObject& object);

    const QMetaObject& metaObject() const { return *m_metaObject; }
    std::size_t signalCount() const { return m_values.size(); }
    /// The index in the reflected class of the nth Qt property, which is also that of its signal.
    std::size_t valueAt(int property) const { return m_values[static_cast<std::size_t>(property)]; }
    int valueCount() const { return static_cast<int>(m_values.size()); }
    /// The same for the nth method behind the signals.
    std::size_t methodAt(int method) const { return m_methods[static_cast<std::size_t>(method)]; }
    int methodCount() const { return static_cast<int>(m_methods.size()); }

private:
    explicit ScriptClass(const zarn::MetaObject* metaObject);

    struct Free
    {
        void operator()(QMetaObject* metaObject) const { std::free(metaObject); }
    };

    std::unique_ptr<QMetaObject, Free> m_metaObject;
    std::vector<std::size_t> m_values;
    std::vector<std::size_t> m_methods;
};

} // namespace qelm
