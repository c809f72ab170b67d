#pragma once

#include <QMetaObject>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace zarn {
class ReflectedObject;
} // namespace zarn

namespace qelm {

/// The meta-object by which QML sees all objects of one reflected class: a property of type `QVariant` with a NOTIFY
/// signal for each value, an invokable for each method. Made once a class, at the first need; generic objects share one
/// as long as they have the same properties. Collections have none, since their elements have no names of their own.
class ScriptClass
{
public:
    static const ScriptClass& of(const zarn::ReflectedObject& object);

    const QMetaObject& metaObject() const { return *m_metaObject; }
    /// The name of the nth Qt property, whose signal is the nth as well.
    const std::string& valueAt(int property) const { return m_values[static_cast<std::size_t>(property)]; }
    int valueCount() const { return static_cast<int>(m_values.size()); }
    /// The same for the nth method behind the signals.
    const std::string& methodAt(int method) const { return m_methods[static_cast<std::size_t>(method)]; }
    int methodCount() const { return static_cast<int>(m_methods.size()); }

private:
    explicit ScriptClass(const zarn::ReflectedObject& object);

    struct Free
    {
        void operator()(QMetaObject* metaObject) const { std::free(metaObject); }
    };

    std::unique_ptr<QMetaObject, Free> m_metaObject;
    std::vector<std::string> m_values;
    std::vector<std::string> m_methods;
};

} // namespace qelm
