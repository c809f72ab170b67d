#include <host/engine/atlas_file.h>

#include <host/engine/atlas_content.h>

#include <QFile>
#include <QtEndian>

#include <zlib.h>

namespace Ozy::Fennel {
namespace {

constexpr char signature[] = "\x89"
                             "ATL\r\n\x1a\n";
constexpr qint64 signatureLength = 8;
constexpr qint64 headLength = signatureLength + 4 + 4;
constexpr qint64 checksumLength = 4;
constexpr quint32 version = 1;

QByteArray asBytes(quint32 number)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 numberAt(const QByteArray& bytes, qint64 offset)
{
    return qFromBigEndian<quint32>(bytes.constData() + offset);
}

quint32 checksum(const QByteArray& bytes, qint64 length)
{
    return static_cast<quint32>(
        crc32_z(0, reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<z_size_t>(length)));
}

enum class CborType : unsigned char
{
    Number = 0x00,
    Bytes = 0x40,
    Array = 0x80
};

/// The start of a CBOR item, in the shortest form. Written here, since a stream writer takes longer for the many small
/// items of an atlas than the disk.
void appendHead(QByteArray& bytes, CborType type, quint64 value)
{
    const auto first = static_cast<unsigned char>(type);
    if (value < 24) {
        bytes.append(static_cast<char>(first | value));
        return;
    }
    const int power = value <= 0xff ? 0 : value <= 0xffff ? 1 : value <= 0xffffffff ? 2 : 3;
    char head[9] = {static_cast<char>(first | (24 + power))};
    const int length = 1 << power;
    for (int i = length; i > 0; --i, value >>= 8)
        head[i] = static_cast<char>(value & 0xff);
    bytes.append(head, 1 + length);
}

QByteArray content(const AtlasTexture::AtlasData& data)
{
    QByteArray bytes;
    bytes.reserve(static_cast<int>(data.tiles.size() * 96));
    appendHead(bytes, CborType::Array, 5);
    for (const std::uint32_t number : {data.leadingFlag, data.fullSizeFlag, data.width, data.height})
        appendHead(bytes, CborType::Number, number);
    appendHead(bytes, CborType::Array, data.tiles.size());
    for (const auto& [rect, path] : data.tiles) {
        appendHead(bytes, CborType::Array, 5);
        for (const std::uint32_t number : {rect.left, rect.top, rect.right, rect.bottom})
            appendHead(bytes, CborType::Number, number);
        appendHead(bytes, CborType::Bytes, path.size());
        bytes.append(path.data(), static_cast<int>(path.size()));
    }
    return bytes;
}

/// What is wrong with the frame around the content; empty if nothing is.
std::string frameFault(const QByteArray& bytes)
{
    if (!bytes.startsWith(QByteArray::fromRawData(signature, signatureLength)))
        return "is no atlas file";
    if (bytes.size() < headLength + checksumLength)
        return "is cut off";
    if (numberAt(bytes, signatureLength) != version)
        return "has version " + std::to_string(numberAt(bytes, signatureLength)) + ", and only 1 is known";
    const qint64 length = headLength + qint64(numberAt(bytes, signatureLength + 4)) + checksumLength;
    if (bytes.size() != length)
        return bytes.size() < length ? "is cut off" : "goes on behind its end";
    if (numberAt(bytes, length - checksumLength) != checksum(bytes, length - checksumLength))
        return "is damaged: its checksum does not fit";
    return {};
}

} // namespace

const char* AtlasFile::fault(const AtlasTexture::AtlasData& data)
{
    constexpr auto largest = static_cast<std::uint32_t>(AtlasTexture::MAX_SIZE);
    return data.width > largest || data.height > largest ? "is larger than 16384 pixels" : nullptr;
}

QByteArray AtlasFile::encode(const AtlasTexture::AtlasData& data)
{
    const QByteArray inner = content(data);
    QByteArray bytes = QByteArray(signature, signatureLength) + asBytes(version) + asBytes(quint32(inner.size())) + inner;
    return bytes + asBytes(checksum(bytes, bytes.size()));
}

AtlasFile::Decoded AtlasFile::decode(const QByteArray& bytes)
{
    if (const std::string fault = frameFault(bytes); !fault.empty())
        return {{}, fault};
    const int length = bytes.size() - static_cast<int>(headLength + checksumLength);
    auto data = decodeContent(QByteArray::fromRawData(bytes.constData() + headLength, length));
    if (!data)
        return {{}, "holds no readable list of tiles"};
    if (const char* reason = fault(*data))
        return {{}, reason};
    return {std::move(data), {}};
}

std::optional<AtlasTexture::AtlasData> AtlasFile::decodeContent(const QByteArray& content)
{
    return AtlasContent(content).read();
}

AtlasFile::Decoded AtlasFile::read(const std::string& path)
{
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        return {{}, "could not be read: " + file.errorString().toStdString()};
    if (file.size() > maximumLength)
        return {{}, "is larger than 64 MiB"};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {{}, "could not be read: " + file.errorString().toStdString()};
    return decode(bytes);
}

} // namespace Ozy::Fennel
