#include <host/bridge/script_class.h>

#include <host/bridge/script_object_base.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>

#include <private/qmetaobjectbuilder_p.h>

#include <map>
#include <utility>

namespace qelm {
namespace {

QByteArray signatureOf(const zarn::MetaProperty& method)
{
    QByteArray arguments("QVariant");
    arguments = method.argumentCount() == 0 ? QByteArray() : arguments + QByteArray(",QVariant").repeated(static_cast<int>(method.argumentCount()) - 1);
    return QByteArray::fromStdString(method.name()) + '(' + arguments + ')';
}

bool isCollection(const zarn::ReflectedObject& object)
{
    return object.annotations().contain<Meta::Collection>();
}

/// What tells objects of one class apart that have properties of their own; empty where the class has them all.
std::string shapeOf(const zarn::ReflectedObject& object)
{
    std::string shape;
    const zarn::MetaObject* metaObject = object.metaObject();
    const std::size_t count = object.propertyCount();
    if (!metaObject || isCollection(object) || metaObject->propertyCount(zarn::ReflectedObject()) == count)
        return shape;
    for (std::size_t index = 0; index < count; ++index) {
        const zarn::BoundProperty property = object.propertyAt(index);
        shape += property.name() + (property.isMethod() ? '(' : property.isReadOnly() ? '=' : ';');
    }
    return shape;
}

} // namespace

const ScriptClass& ScriptClass::of(const zarn::ReflectedObject& object)
{
    static std::map<std::pair<const zarn::MetaObject*, std::string>, std::unique_ptr<ScriptClass>> classes;
    std::unique_ptr<ScriptClass>& known = classes[{object.metaObject(), shapeOf(object)}];
    if (!known)
        known.reset(new ScriptClass(object));
    return *known;
}

ScriptClass::ScriptClass(const zarn::ReflectedObject& object)
{
    const zarn::MetaObject* metaObject = object.metaObject();
    QMetaObjectBuilder builder;
    builder.setSuperClass(&ScriptObjectBase::staticMetaObject);
    builder.setClassName(metaObject ? QByteArray::fromStdString(metaObject->name()) : QByteArray("qelm::QtScriptObject"));
    std::vector<zarn::BoundProperty> methods;
    const std::size_t count = isCollection(object) ? 0 : object.propertyCount();
    for (std::size_t index = 0; index < count; ++index) {
        const zarn::BoundProperty property = object.propertyAt(index);
        if (!(object.findPropertyByName(property.name()) == property))
            continue; // hidden by one of a base
        if (property.isMethod()) {
            methods.push_back(property);
            continue;
        }
        const QByteArray name = QByteArray::fromStdString(property.name());
        const int signal = builder.addSignal(name + "Changed()").index();
        QMetaPropertyBuilder added = builder.addProperty(name, "QVariant", signal);
        added.setWritable(!property.isReadOnly());
        added.setConstant(property.isConst());
        m_values.push_back(property.name());
    }
    for (const zarn::BoundProperty& method : methods) {
        builder.addMethod(signatureOf(*method.metaProperty()), "QVariant");
        m_methods.push_back(method.name());
    }
    m_metaObject.reset(builder.toMetaObject());
}

} // namespace qelm
