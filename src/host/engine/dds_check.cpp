#include <host/engine/dds_check.h>

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>

namespace Ozy {
namespace {

constexpr int headLength = 128;
constexpr int extensionLength = 20; // of files that name their format by number

constexpr quint32 fourCc(const char (&text)[5])
{
    return quint32(quint8(text[0])) | quint32(quint8(text[1])) << 8 | quint32(quint8(text[2])) << 16
           | quint32(quint8(text[3])) << 24;
}

quint32 wordAt(const QByteArray& head, int index)
{
    return qFromLittleEndian<quint32>(head.constData() + 4 * index);
}

/// How pixels are laid out: bytes for each square of `side` pixels; 0 bytes if not known.
struct Layout
{
    quint64 side = 1;
    quint64 bytes = 0;
};

Layout layoutOfNumber(quint32 format)
{
    if ((format >= 70 && format <= 72) || (format >= 79 && format <= 81))
        return {4, 8}; // BC1, BC4
    if ((format >= 73 && format <= 78) || (format >= 82 && format <= 84) || (format >= 94 && format <= 99))
        return {4, 16}; // BC2, BC3, BC5, BC6, BC7
    if ((format >= 27 && format <= 32) || (format >= 87 && format <= 93))
        return {1, 4}; // eight bits for each of four channels
    return {};
}

Layout layoutOf(const QByteArray& head)
{
    switch (wordAt(head, 21)) {
    case 0: return {1, wordAt(head, 22) / 8};
    case fourCc("DXT1"):
    case fourCc("ATI1"):
    case fourCc("BC4U"): return {4, 8};
    case fourCc("DXT2"):
    case fourCc("DXT3"):
    case fourCc("DXT4"):
    case fourCc("DXT5"):
    case fourCc("ATI2"):
    case fourCc("BC5U"): return {4, 16};
    case fourCc("DX10"): return head.size() >= headLength + extensionLength ? layoutOfNumber(wordAt(head, 32)) : Layout();
    default: return {};
    }
}

quint64 faces(const QByteArray& head)
{
    const quint32 sides = wordAt(head, 28) >> 10 & 0x3f;
    const bool isNumbered = wordAt(head, 21) == fourCc("DX10") && head.size() >= headLength + extensionLength;
    const bool isCube = isNumbered && wordAt(head, 34) & 4;
    return isCube ? 6 : std::max<quint64>(1, static_cast<quint64>(__builtin_popcount(sides)));
}

quint64 pixelBytes(const QByteArray& head, const Layout& layout)
{
    quint64 width = wordAt(head, 4);
    quint64 height = wordAt(head, 3);
    quint64 sum = 0;
    for (quint32 level = std::clamp(wordAt(head, 7), 1U, 32U); level > 0; --level) {
        sum += (width + layout.side - 1) / layout.side * ((height + layout.side - 1) / layout.side) * layout.bytes;
        width = std::max<quint64>(width / 2, 1);
        height = std::max<quint64>(height / 2, 1);
    }
    return sum * faces(head);
}

} // namespace

bool isAsLongAsItsDdsHeaderSays(QIODevice& file)
{
    const QByteArray head = file.peek(headLength + extensionLength);
    if (!head.startsWith("DDS ") || head.size() < headLength)
        return true;
    const Layout layout = layoutOf(head);
    const bool isNumbered = wordAt(head, 21) == fourCc("DX10");
    const quint64 start = headLength + (isNumbered ? extensionLength : 0);
    const bool isBounded = wordAt(head, 3) <= 65536 && wordAt(head, 4) <= 65536;
    return layout.bytes == 0 || (isBounded && start + pixelBytes(head, layout) <= static_cast<quint64>(file.size()));
}

} // namespace Ozy
