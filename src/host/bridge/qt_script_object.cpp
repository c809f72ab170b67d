#include <host/bridge/qt_script_object.h>

#include <host/base/debug.h>
#include <host/bridge/annotation_values.h>
#include <host/bridge/script_class.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/meta_object.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <host/variant/variant_converter.h>

#include <QMetaMethod>

#include <optional>

namespace qelm {

/// What is kept of a member that somebody uses.
struct QtScriptObject::Member
{
    ryk::ScopedConnection changed;
    std::unique_ptr<QtScriptObject> nested; // while the value is an object
};

QtScriptObject::QtScriptObject(zarn::ReflectedObject object, QObject* parent)
    : ScriptObjectBase(parent), m_object(std::move(object)), m_class(&ScriptClass::of(m_object))
{
    if (m_object.isValid())
        m_death = m_object.metaObject()->connectObjectDeleted(m_object, [this] { tellDeath(); });
}

QtScriptObject::~QtScriptObject() = default;

void QtScriptObject::setDocument(Ozy::ChangesController* document)
{
    m_document = document;
    for (auto& [index, member] : m_members) {
        if (member.nested)
            member.nested->setDocument(document);
    }
}

QStringList QtScriptObject::reflectedNames() const
{
    QStringList names;
    for (std::size_t index = 0; index < m_object.propertyCount(); ++index)
        names << QString::fromStdString(m_object.propertyAt(index).name());
    return names;
}

QVariant QtScriptObject::reflectedValue(const QString& name)
{
    const int index = m_object.isValid() ? m_object.metaObject()->indexOfProperty(m_object, Variant(name)) : -1;
    return index < 0 ? QVariant() : read(static_cast<std::size_t>(index));
}

bool QtScriptObject::setReflectedValue(const QString& name, const QVariant& value)
{
    return write(m_object.findPropertyByName(name.toStdString()), value);
}

QVariantMap QtScriptObject::reflectedAnnotations(const QString& name) const
{
    return annotationValues(m_object.findPropertyByName(name.toStdString()));
}

const QMetaObject* QtScriptObject::metaObject() const
{
    return &m_class->metaObject();
}

int QtScriptObject::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    id = ScriptObjectBase::qt_metacall(call, id, arguments);
    if (id < 0)
        return id;

    switch (call) {
    case QMetaObject::InvokeMetaMethod:
        if (id < m_class->valueCount())
            QMetaObject::activate(this, metaObject(), id, nullptr);
        else if (id - m_class->valueCount() < m_class->methodCount())
            *static_cast<QVariant*>(arguments[0]) = invoke(m_class->methodAt(id - m_class->valueCount()), arguments);
        return id - m_class->valueCount() - m_class->methodCount();
    case QMetaObject::RegisterMethodArgumentMetaType:
        *static_cast<int*>(arguments[0]) = QMetaType::QVariant;
        return id - m_class->valueCount() - m_class->methodCount();
    case QMetaObject::ReadProperty:
        if (id < m_class->valueCount()) {
            watch(id);
            *static_cast<QVariant*>(arguments[0]) = read(m_class->valueAt(id));
        }
        return id - m_class->valueCount();
    case QMetaObject::WriteProperty:
        if (id < m_class->valueCount())
            write(m_object.propertyAt(m_class->valueAt(id)), *static_cast<const QVariant*>(arguments[0]));
        return id - m_class->valueCount();
    default: return id - m_class->valueCount();
    }
}

void QtScriptObject::connectNotify(const QMetaMethod& signal)
{
    const int value = signal.methodIndex() - metaObject()->methodOffset();
    if (value >= 0 && value < m_class->valueCount())
        watch(value);
}

QVariant QtScriptObject::read(std::size_t index)
{
    const zarn::BoundProperty property = m_object.propertyAt(index);
    if (!property.isValid())
        return {};
    const zarn::ReflectedObject value(property);
    if (!value.isValid())
        return toQVariant(property.get());

    std::unique_ptr<QtScriptObject>& nested = member(index).nested;
    if (!nested || !(nested->object() == value)) {
        // A binding may still be reading the old one.
        if (nested)
            nested.release()->deleteLater();
        nested = std::make_unique<QtScriptObject>(value, this);
        nested->setDocument(m_document);
    }
    return QVariant::fromValue<QObject*>(nested.get());
}

bool QtScriptObject::write(const zarn::BoundProperty& property, const QVariant& value)
{
    std::optional<Ozy::CommitChangesScope> step;
    if (m_document)
        step.emplace("Set " + property.name(), m_document);
    try {
        return property.set(Variant(value), {});
    } catch (const std::exception& error) {
        Ozy::DebugMessageHelper(Ozy::Priority::refusal, "script").message("%s: %s\n", property.name().c_str(), error.what());
        return false;
    }
}

QVariant QtScriptObject::invoke(std::size_t index, void** arguments)
{
    const zarn::BoundProperty method = m_object.propertyAt(index);
    std::vector<Variant> converted;
    for (std::size_t i = 0; method.isMethod() && i < method.metaProperty()->argumentCount(); ++i)
        converted.emplace_back(*static_cast<const QVariant*>(arguments[i + 1]));

    std::optional<Ozy::CommitChangesScope> step;
    if (m_document)
        step.emplace(method.name(), m_document);
    try {
        return toQVariant(method.genericInvoke({}, converted.size(), converted.data()));
    } catch (const std::exception& error) {
        Ozy::DebugMessageHelper(Ozy::Priority::refusal, "script").message("%s: %s\n", method.name().c_str(), error.what());
        return {};
    }
}

QtScriptObject::Member& QtScriptObject::member(std::size_t index)
{
    return m_members[index];
}

void QtScriptObject::watch(int value)
{
    const std::size_t index = m_class->valueAt(value);
    ryk::ScopedConnection& changed = member(index).changed;
    if (!changed.isConnected())
        changed = m_object.propertyAt(index).connectPropertyChanged([this, value] { tell(value); });
}

void QtScriptObject::tell(int value)
{
    QMetaObject::activate(this, metaObject(), value, nullptr);
}

void QtScriptObject::tellDeath()
{
    const QPointer<QtScriptObject> self(this);
    for (int value = 0; self && value < m_class->valueCount(); ++value) {
        if (m_members.count(m_class->valueAt(value)))
            tell(value);
    }
}

} // namespace qelm
