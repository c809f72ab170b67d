#include <host/variant/basic_stream.h>

#include <host/variant/variant.h>

#include <QByteArray>
#include <QDataStream>
#include <QScopedValueRollback>

#include <utility>

namespace qelm {
namespace {

constexpr int deepest = 64;
constexpr const char* voidName = "void";

} // namespace

BasicStream::~BasicStream() = default;

bool BasicStream::fail(std::string error)
{
    if (ok())
        m_error = std::move(error);
    return false;
}

bool BasicStream::write(const Variant& value)
{
    const QScopedValueRollback<int> deeper(m_depth, m_depth + 1);
    if (m_depth > deepest)
        return fail("variants are nested too deeply");
    if (!ok())
        return false;
    if (!value.isVoid() && !value.type()->isStreamable())
        return fail(std::string("values of \"") + value.type()->name() + "\" cannot be written");

    beginValue(value.isVoid() ? voidName : value.type()->name());
    if (!value.isVoid())
        value.type()->operations().write(*this, value.address());
    endValue();
    return ok();
}

bool BasicStream::read(Variant& value)
{
    const QScopedValueRollback<int> deeper(m_depth, m_depth + 1);
    if (m_depth > deepest)
        return fail("variants are nested too deeply");
    std::string name;
    if (!ok() || !beginReadingValue(name))
        return false;

    Variant made;
    if (name != voidName) {
        const MetaType* type = MetaType::find(name);
        if (!type || !type->isStreamable())
            return fail("there is no type \"" + name + "\" to be read");
        made = Variant::makeDefault(*type);
        if (!type->operations().read(*this, made.mutableAddress()))
            return fail("a value of \"" + name + "\" cannot be read");
    }
    if (!endReadingValue())
        return false;
    value = std::move(made);
    return true;
}

void StreamTraits<Variant>::write(BasicStream& stream, const Variant& value)
{
    stream.write(value);
}

bool StreamTraits<Variant>::read(BasicStream& stream, Variant& value)
{
    return stream.read(value);
}

void StreamTraits<QString>::write(BasicStream& stream, const QString& value)
{
    stream.writeText(value.toStdString());
}

bool StreamTraits<QString>::read(BasicStream& stream, QString& value)
{
    std::string text;
    if (!stream.readText(text))
        return false;
    value = QString::fromStdString(text);
    return true;
}

void StreamTraits<QVariant>::write(BasicStream& stream, const QVariant& value)
{
    QByteArray bytes;
    QDataStream data(&bytes, QIODevice::WriteOnly);
    data.setVersion(QDataStream::Qt_5_10);
    const QByteArray name = value.typeName();
    if (value.isValid() && !QMetaType::save(data, value.userType(), value.constData())) {
        stream.fail(std::string("values of \"") + name.constData() + "\" cannot be written by Qt");
        return;
    }
    stream.writeText(name.toStdString());
    stream.writeText(bytes.toBase64().toStdString());
}

bool StreamTraits<QVariant>::read(BasicStream& stream, QVariant& value)
{
    std::string name;
    std::string text;
    if (!stream.readText(name) || !stream.readText(text))
        return false;
    if (name.empty()) {
        value = QVariant();
        return true;
    }
    const int type = QMetaType::type(name.c_str());
    if (type == QMetaType::UnknownType)
        return stream.fail("Qt knows no type \"" + name + '"');

    QVariant read(type, nullptr);
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromStdString(text));
    QDataStream data(bytes);
    data.setVersion(QDataStream::Qt_5_10);
    if (!QMetaType::load(data, type, read.data()) || data.status() != QDataStream::Ok || !data.atEnd())
        return stream.fail("a value of \"" + name + "\" cannot be read by Qt");
    value = read;
    return true;
}

} // namespace qelm
