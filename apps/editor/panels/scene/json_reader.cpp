#include "json_reader.h"

#include "panels/form/form_annotations.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/variant/variant_converter.h>

#include <QJsonArray>

#include <cmath>
#include <limits>

namespace editor {
namespace {

struct Refusal
{
    QString reason;
};

QString nameOf(QJsonValue::Type type)
{
    switch (type) {
    case QJsonValue::Bool: return QStringLiteral("yes or no");
    case QJsonValue::Double: return QStringLiteral("a number");
    case QJsonValue::String: return QStringLiteral("a text");
    case QJsonValue::Array: return QStringLiteral("a list");
    case QJsonValue::Object: return QStringLiteral("an object");
    default: return QStringLiteral("nothing");
    }
}

class Reader
{
public:
    void readObject(const QJsonObject& json, const zarn::ReflectedObject& object)
    {
        const QString className = shortClassName(*object.metaObject());
        const QString told = json.value(QLatin1String("class")).toString(className);
        if (told != className)
            refuse(QStringLiteral("expected an object of class \"%1\", found \"%2\"").arg(className, told));
        if (++m_depth > deepestObject)
            refuse(QStringLiteral("objects lie deeper than %1 in each other").arg(deepestObject));
        for (auto member = json.begin(); member != json.end(); ++member) {
            if (member.key() == QLatin1String("class"))
                continue;
            const int length = m_place.size();
            m_place += (length > 0 ? QStringLiteral(".") : QString()) + member.key();
            readProperty(member.value(), propertyOf(object, member.key()));
            m_place.truncate(length);
        }
        --m_depth;
    }

private:
    [[noreturn]] void refuse(const QString& reason) const
    {
        throw Refusal{m_place.isEmpty() ? reason : m_place + QStringLiteral(": ") + reason};
    }

    QJsonValue expect(const QJsonValue& value, QJsonValue::Type type) const
    {
        if (value.type() != type)
            refuse(QStringLiteral("expected %1, found %2").arg(nameOf(type), nameOf(value.type())));
        return value;
    }

    zarn::BoundProperty propertyOf(const zarn::ReflectedObject& object, const QString& name) const
    {
        const zarn::BoundProperty property = object.findPropertyByName(name.toStdString());
        // A path would be followed into other objects.
        if (!property.isValue() || property.name() != name.toStdString())
            refuse(QStringLiteral("the class \"%1\" has no such property").arg(shortClassName(*object.metaObject())));
        return property;
    }

    void readProperty(const QJsonValue& value, const zarn::BoundProperty& property)
    {
        const zarn::ReflectedObject nested(property);
        if (!nested.isValid())
            readValue(value, property);
        else if (nested.annotations().contain<Meta::Collection>())
            readCollection(expect(value, QJsonValue::Array).toArray(), nested);
        else
            readObject(expect(value, QJsonValue::Object).toObject(), nested);
    }

    void readCollection(const QJsonArray& list, const zarn::ReflectedObject& collection)
    {
        const auto [fewest, most] =
            collection.annotations().valueOr(Meta::CollectionSize{[](const zarn::ReflectedObject&) {
                return std::pair<std::size_t, std::size_t>(0, std::numeric_limits<int>::max());
            }}).bounds(collection);
        const auto count = static_cast<std::size_t>(list.size());
        if (count < fewest || count > most)
            refuse(QStringLiteral("expected %1 to %2 elements, found %3").arg(fewest).arg(most).arg(count));
        while (collection.removePropertyAt(0)) { // what the class puts there
        }
        const int length = m_place.size();
        for (int index = 0; index < list.size(); ++index) {
            m_place += QStringLiteral("[%1]").arg(index);
            readElement(list.at(index), collection);
            m_place.truncate(length);
        }
    }

    void readElement(const QJsonValue& value, const zarn::ReflectedObject& collection)
    {
        const auto classes = collection.annotations().find<ElementClasses>();
        const qelm::Variant element =
            classes.isValid() ? made(expect(value, QJsonValue::Object).toObject(), classes->value<ElementClasses>())
                              : qelm::Variant();
        readProperty(value, collection.addProperty({}, element));
    }

    qelm::Variant made(const QJsonObject& json, const ElementClasses& classes) const
    {
        const QString name = json.value(QLatin1String("class")).toString();
        for (const zarn::MetaObject* metaObject : classes.list()) {
            if (shortClassName(*metaObject) == name)
                return metaObject->createInstance();
        }
        refuse(QStringLiteral("there is no class \"%1\" here").arg(name));
    }

    void readValue(const QJsonValue& value, const zarn::BoundProperty& property)
    {
        if (property.isReadOnly())
            refuse(QStringLiteral("cannot be set"));
        if (!property.set(converted(value, property), {}))
            refuse(QStringLiteral("\"%1\" is refused").arg(value.toVariant().toString()));
    }

    qelm::Variant converted(const QJsonValue& value, const zarn::BoundProperty& property) const
    {
        using qelm::Kind;
        const Kind kind = property.get().type()->kind();
        switch (kind) {
        case Kind::Bool: return qelm::Variant(expect(value, QJsonValue::Bool).toBool());
        case Kind::Signed:
        case Kind::Unsigned:
        case Kind::Real: return number(expect(value, QJsonValue::Double).toDouble(), kind == Kind::Real, property);
        default: return qelm::Variant(expect(value, QJsonValue::String).toString().toStdString());
        }
    }

    qelm::Variant number(double number, bool isReal, const zarn::BoundProperty& property) const
    {
        if (!isReal && number != std::floor(number))
            refuse(QStringLiteral("expected a whole number, found %1").arg(number));
        const auto range = property.annotations().valueOr<Meta::MinMax>().range(property);
        const auto bound = [](const qelm::Variant& end) {
            return qelm::VariantConverter::convertTo<double>(end).value_or(0);
        };
        if (range && (number < bound(range->first) || number > bound(range->second)))
            refuse(QStringLiteral("expected a number from %1 to %2, found %3")
                       .arg(bound(range->first)).arg(bound(range->second)).arg(number));
        return qelm::Variant(number);
    }

    QString m_place;
    int m_depth = 0;
};

} // namespace

QString fillFromJson(const QJsonObject& json, const zarn::ReflectedObject& object)
{
    try {
        Reader().readObject(json, object);
        return {};
    } catch (const Refusal& refusal) {
        return refusal.reason;
    }
}

} // namespace editor
