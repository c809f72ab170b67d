#include <host/bridge/qt_script_object.h>

#include <host/base/debug.h>
#include <host/bridge/annotation_values.h>
#include <host/bridge/script_class.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
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
    if (!m_object.isValid())
        return;
    const auto tell = [this] { tellAll(); };
    m_connections.emplace_back(m_object.metaObject()->connectObjectDeleted(m_object, tell));
    m_connections.emplace_back(m_object.connectPropertiesReset(tell));
    m_connections.emplace_back(m_object.connectPropertyAdded(tell));
    m_connections.emplace_back(m_object.connectPropertyRemoved(tell));
}

QtScriptObject::~QtScriptObject() = default;

void QtScriptObject::setDocument(Ozy::ChangesController* document)
{
    m_document = document;
    for (auto& [name, member] : m_members) {
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
    return read(name.toStdString());
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
            write(m_object.findPropertyByName(m_class->valueAt(id)), *static_cast<const QVariant*>(arguments[0]));
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

QVariant QtScriptObject::read(const std::string& name)
{
    const zarn::BoundProperty property = m_object.findPropertyByName(name);
    if (!property.isValid())
        return {};
    const zarn::ReflectedObject value(property);
    if (!value.isValid())
        return zarn::cast<zarn::Annotations>(m_object) ? annotationValue(property.get(), nullptr) : toQVariant(property.get());

    std::unique_ptr<QtScriptObject>& nested = m_members[name].nested;
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

QVariant QtScriptObject::invoke(const std::string& name, void** arguments)
{
    const zarn::BoundProperty method = m_object.findPropertyByName(name);
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

void QtScriptObject::watch(int value)
{
    const std::string& name = m_class->valueAt(value);
    ryk::ScopedConnection& changed = m_members[name].changed;
    if (!changed.isConnected())
        changed = m_object.findPropertyByName(name).connectPropertyChanged([this, value] { tell(value); });
}

void QtScriptObject::tell(int value)
{
    QMetaObject::activate(this, metaObject(), value, nullptr);
}

void QtScriptObject::tellAll()
{
    const QPointer<QtScriptObject> self(this);
    for (int value = 0; self && value < m_class->valueCount(); ++value) {
        if (m_members.count(m_class->valueAt(value)) == 0)
            continue;
        watch(value);
        tell(value);
    }
}

} // namespace qelm
