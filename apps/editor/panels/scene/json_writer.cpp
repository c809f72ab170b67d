#include "json_writer.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/variant/variant_converter.h>

#include <QLocale>

namespace editor {
namespace {

QByteArray quoted(const std::string& text)
{
    QByteArray quoted("\"");
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < ' ')
            quoted += "\\u00" + QByteArray(1, character).toHex();
        else if (character == '"' || character == '\\')
            quoted += QByteArray("\\") + character;
        else
            quoted += character;
    }
    return quoted + '"';
}

QByteArray valueText(const qelm::Variant& value)
{
    using qelm::Kind;
    switch (value.isVoid() ? Kind::Other : value.type()->kind()) {
    case Kind::Bool: return value.value<bool>() ? "true" : "false";
    case Kind::Signed:
    case Kind::Unsigned: return QByteArray::number(qelm::VariantConverter::convertTo<qint64>(value).value_or(0));
    case Kind::Real:
        return QByteArray::number(qelm::VariantConverter::convertTo<double>(value).value_or(0), 'g',
                                  QLocale::FloatingPointShortest);
    case Kind::Enumeration:
    case Kind::String:
    case Kind::QtString: return quoted(qelm::VariantConverter::convertTo<std::string>(value).value_or(std::string()));
    default: return {};
    }
}

class Writer
{
public:
    explicit Writer(bool withRows) : m_withRows(withRows) { m_text.reserve(1024); }

    /// `head` goes ahead of the properties.
    void writeObject(const zarn::ReflectedObject& object, const QByteArray& head)
    {
        if (++m_depth <= deepestObject) {
            m_text += '{' + head;
            for (std::size_t index = 0; index < object.propertyCount(); ++index)
                writeProperty(object.propertyAt(index));
            m_text += '}';
        } else {
            m_isTooDeep = true;
        }
        --m_depth;
    }

    static QByteArray classOf(const zarn::ReflectedObject& object)
    {
        return "\"class\": " + quoted(shortClassName(*object.metaObject()).toStdString());
    }

    std::optional<QByteArray> text() const { return m_isTooDeep ? std::nullopt : std::optional(m_text); }

private:
    void writeProperty(const zarn::BoundProperty& property)
    {
        const qelm::Variant value = property.get();
        const zarn::ReflectedObject nested(property);
        const QByteArray plain = nested.isValid() || property.isReadOnly() ? QByteArray() : valueText(value);
        if (!nested.isValid() && plain.isEmpty())
            return;
        m_text += (m_text.endsWith('{') ? "" : ", ") + quoted(property.name()) + ": " + plain;
        if (!nested.isValid())
            return;
        if (nested.annotations().contain<Meta::Collection>())
            writeCollection(nested);
        else
            writeObject(nested, {});
    }

    void writeCollection(const zarn::ReflectedObject& collection)
    {
        const std::size_t count = collection.propertyCount();
        m_text += '[';
        for (std::size_t index = 0; index < count; ++index) {
            const zarn::BoundProperty element = collection.propertyAt(index);
            const zarn::ReflectedObject object(element);
            if (!m_withRows && element.annotations().contain<Meta::SceneItem>()) {
                m_text += QByteArray::number(qulonglong(count));
                break;
            }
            if (index > 0)
                m_text += object.isValid() ? "," : ", ";
            if (object.isValid()) {
                m_text += '\n' + QByteArray(2 * m_depth, ' ');
                writeObject(object, classOf(object));
            } else {
                m_text += valueText(element.get());
            }
        }
        m_text += ']';
    }

    bool m_withRows;
    int m_depth = 0;
    bool m_isTooDeep = false;
    QByteArray m_text;
};

} // namespace

std::optional<QByteArray> toJson(const zarn::ReflectedObject& object)
{
    Writer writer(true);
    writer.writeObject(object, Writer::classOf(object));
    return writer.text();
}

QByteArray ownJson(const zarn::ReflectedObject& object)
{
    Writer writer(false);
    writer.writeObject(object, Writer::classOf(object));
    return writer.text().value_or(QByteArray());
}

QString shortClassName(const zarn::MetaObject& metaObject)
{
    return QString::fromStdString(metaObject.name()).section(QLatin1Char(':'), -1);
}

} // namespace editor
