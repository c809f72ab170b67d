#include "icon_provider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace editor {

IconProvider::IconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(id.section(QLatin1Char('/'), 0, 0)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray svg = file.readAll();
    svg.replace("currentColor", '#' + id.section(QLatin1Char('/'), 1).toLatin1());

    QImage image(requestedSize.isEmpty() ? QSize(16, 16) : requestedSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    *size = image.size();
    return image;
}

} // namespace editor
