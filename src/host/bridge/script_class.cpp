#include <host/bridge/script_class.h>

#include <host/bridge/script_object_base.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/meta_object.h>

#include <private/qmetaobjectbuilder_p.h>

#include <map>

namespace qelm {
namespace {

QByteArray signatureOf(const zarn::MetaProperty& method)
{
    QByteArray arguments("QVariant");
    arguments = method.argumentCount() == 0 ? QByteArray() : arguments + QByteArray(",QVariant").repeated(static_cast<int>(method.argumentCount()) - 1);
    return QByteArray::fromStdString(method.name()) + '(' + arguments + ')';
}

} // namespace

const ScriptClass& ScriptClass::of(const zarn::ReflectedObject& object)
{
    static std::map<const zarn::MetaObject*, std::unique_ptr<ScriptClass>> classes;
    std::unique_ptr<ScriptClass>& known = classes[object.metaObject()];
    if (!known)
        known.reset(new ScriptClass(object.metaObject()));
    return *known;
}

ScriptClass::ScriptClass(const zarn::MetaObject* metaObject)
{
    // Asked about no object, a class gives what all its objects have in common.
    const zarn::ReflectedObject none;
    const std::size_t count = metaObject ? metaObject->propertyCount(none) : 0;
    std::size_t remaining = 0;

    QMetaObjectBuilder builder;
    builder.setSuperClass(&ScriptObjectBase::staticMetaObject);
    builder.setClassName(metaObject ? QByteArray::fromStdString(metaObject->name()) : QByteArray("qelm::QtScriptObject"));
    for (std::size_t index = 0; index < count; ++index) {
        const auto property = metaObject->property(none, index, &remaining);
        if (property->kind() != zarn::MetaProperty::Kind::Value) {
            m_methods.push_back(index);
            continue;
        }
        const QByteArray name = QByteArray::fromStdString(property->name());
        const int signal = builder.addSignal(name + "Changed()").index();
        QMetaPropertyBuilder added = builder.addProperty(name, "QVariant", signal);
        added.setWritable(!property->isReadOnly());
        added.setConstant(property->isConst());
        m_values.push_back(index);
    }
    for (const std::size_t index : m_methods)
        builder.addMethod(signatureOf(*metaObject->property(none, index, &remaining)), "QVariant");
    m_metaObject.reset(builder.toMetaObject());
}

} // namespace qelm
