#include <host/images/tessen_image_request_desc.h>

#include <host/images/image_revisions.h>

#include <QStringList>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr float mostStops = 64;
constexpr char channelLetters[] = "argb"; // by channel
constexpr int writtenOrder[] = {TessenImageRequestDesc::Red, TessenImageRequestDesc::Green, TessenImageRequestDesc::Blue,
                                TessenImageRequestDesc::Alpha};
const QString noChannels = QStringLiteral("none");

constexpr bool isChannel(int channel)
{
    return channel >= TessenImageRequestDesc::Alpha && channel <= TessenImageRequestDesc::Blue;
}

bool isPlain(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == '-'
           || code == '_' || code == '.';
}

/// Writes a name with characters that no URL ever changes. Dots that begin a part and slashes that follow each other are
/// escaped too, since URLs are tidied when they are resolved.
QString escaped(const QString& name)
{
    QString text;
    text.reserve(name.size() + 8);
    QChar before = '/';
    for (const QChar character : name) {
        const bool beginsPart = before == '/';
        const bool isKept = character == '/' ? !beginsPart : isPlain(character) && !(beginsPart && character == '.');
        if (isKept)
            text += character;
        else if (character.unicode() < 0x100)
            text += '~' + QString::number(character.unicode(), 16).rightJustified(2, '0');
        else
            text += "~u" + QString::number(character.unicode(), 16).rightJustified(4, '0');
        before = character;
    }
    return text;
}

QString shortest(float number)
{
    char text[32];
    const char* const end = std::to_chars(std::begin(text), std::end(text), number).ptr;
    return QString::fromLatin1(text, int(end - text));
}

/// Of texts that `escaped` does not give it makes something else; the caller compares.
QString unescaped(const QString& text)
{
    QString name;
    name.reserve(text.size());
    for (int at = 0; at < text.size(); ++at) {
        if (text[at] != '~') {
            name += text[at];
            continue;
        }
        const bool isWide = text.mid(at + 1, 1) == "u";
        const int digits = isWide ? 4 : 2;
        at += isWide ? 1 : 0;
        name += QChar(text.mid(at + 1, digits).toUShort(nullptr, 16));
        at += digits;
    }
    return name;
}

} // namespace

void TessenImageRequestDesc::setChannelVisible(int channel, bool isVisible)
{
    if (!isChannel(channel))
        return;
    if (isVisible)
        m_channels |= 1u << channel;
    else
        m_channels &= ~(1u << channel);
}

bool TessenImageRequestDesc::isChannelVisible(int channel) const
{
    return isChannel(channel) && (m_channels & 1u << channel);
}

void TessenImageRequestDesc::setExposure(float stops)
{
    // Adding zero takes the sign from a negative one, which is the same exposure.
    m_exposure = std::isnan(stops) ? 0 : std::clamp(stops, -mostStops, mostStops) + 0.0f;
}

QString TessenImageRequestDesc::id(unsigned revision) const
{
    QString text = QString::number(m_imageIndex) + '_';
    for (const int channel : writtenOrder) {
        if (isChannelVisible(channel))
            text += channelLetters[channel];
    }
    if (!hasVisibleChannels())
        text += noChannels;
    if (m_mip != 0)
        text += "_m" + QString::number(m_mip);
    if (m_exposure != 0)
        text += "_e" + shortest(m_exposure);
    if (revision != 0)
        text += "_v" + QString::number(revision);
    return text + '/' + escaped(m_fileName);
}

QUrl TessenImageRequestDesc::toUrl() const
{
    return QUrl("image://" + providerId() + '/' + id(Tessen::imageRevision(m_fileName)));
}

std::optional<TessenImageRequestDesc> TessenImageRequestDesc::fromUrl(const QUrl& url)
{
    const QString text = url.toString(QUrl::FullyEncoded);
    const QString start = "image://" + providerId() + '/';
    return text.startsWith(start) ? fromId(text.mid(start.size())) : std::nullopt;
}

std::optional<TessenImageRequestDesc> TessenImageRequestDesc::fromId(const QString& id)
{
    const int end = id.indexOf('/');
    const QStringList parts = id.left(std::max(end, 0)).split('_');
    if (parts.size() < 2)
        return std::nullopt;

    TessenImageRequestDesc desc;
    unsigned revision = 0;
    desc.setFileName(unescaped(id.mid(end + 1)));
    desc.setImageIndex(parts[0].toInt());
    const QString channels = parts[1] == noChannels ? QString() : parts[1];
    for (int channel = Alpha; channel <= Blue; ++channel)
        desc.setChannelVisible(channel, channels.contains(channelLetters[channel]));
    for (const QString& part : parts.mid(2)) {
        const QString value = part.mid(1);
        if (part.startsWith('m'))
            desc.setMip(value.toInt());
        else if (part.startsWith('e'))
            desc.setExposure(value.toFloat());
        else
            revision = value.toUInt();
    }
    // Writing is exact, so that reading need not be: whatever does not come out again was not written here.
    return desc.id(revision) == id ? std::optional(desc) : std::nullopt;
}
