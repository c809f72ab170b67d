#pragma once

#include <host/bridge/script_object_base.h>
#include <host/reflection/reflected_object.h>
#include <host/signals/connection.h>

#include <QPointer>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Ozy {
class ChangesController;
}

namespace qelm {

class ScriptClass;

/// A reflected object as QML sees it: its values are properties that can be read, written and bound to, its methods can
/// be called, all by their names. A value that is an object itself is another script object, which belongs to this one.
///
/// With a document each write and each call is one step of its undo history; nested objects take it over.
/// Signals: the NOTIFY signal of a property follows each of its changes, whoever made it; when the object dies, all that
/// were read are sent, and every question has an empty answer from then on.
/// What a method throws is logged and ends the call, since a script could not catch it.
/// Owner: its `QObject` parent, else who made it; a script engine that is handed one without a parent takes it over.
/// A generic object is seen with the properties that it has when this is made; those that go read as undefined, and are
/// told, as all are when it is reset. Properties added later, and elements of collections, are reached by `reflectedValue`.
/// Cost: one Qt meta-object a class, shared; connections only to what is read or listened to. Thread: GUI only.
class DATAMODELS_HOST_API QtScriptObject : public ScriptObjectBase
{
public:
    QtScriptObject(zarn::ReflectedObject object, QObject* parent);
    ~QtScriptObject() override;

    const zarn::ReflectedObject& object() const { return m_object; }
    /// Null, as at the start, leaves the recording to whoever has a scope open.
    void setDocument(Ozy::ChangesController* document);

    QStringList reflectedNames() const override;
    QVariant reflectedValue(const QString& name) override;
    bool setReflectedValue(const QString& name, const QVariant& value) override;
    QVariantMap reflectedAnnotations(const QString& name) const override;

    const QMetaObject* metaObject() const override;
    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

protected:
    void connectNotify(const QMetaMethod& signal) override;

private:
    struct Member;

    QVariant read(const std::string& name);
    bool write(const zarn::BoundProperty& property, const QVariant& value);
    QVariant invoke(const std::string& name, void** arguments);
    void watch(int value);
    void tell(int value);
    void tellAll();

    zarn::ReflectedObject m_object;
    const ScriptClass* m_class;
    QPointer<Ozy::ChangesController> m_document;
    std::unordered_map<std::string, Member> m_members; // those that were read or listened to
    std::vector<ryk::ScopedConnection> m_connections;
};

} // namespace qelm
