#include "curve_item.h"

#include <QPainter>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>

namespace editor {

CurveItem::CurveItem(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void CurveItem::paint(QPainter* painter)
{
    painter->setPen(QPen(m_color, m_lineWidth, Qt::SolidLine, Qt::RoundCap));
    painter->drawPath(m_path);
}

bool CurveItem::contains(const QPointF& point) const
{
    QPainterPathStroker stroker;
    stroker.setWidth(2 * reach);
    return stroker.createStroke(m_path).contains(point);
}

// Leads away from both ends far enough to be seen, also where it has to turn back.
void CurveItem::follow()
{
    const qreal distance = std::abs(m_to.x() - m_from.x());
    const qreal ease = std::clamp(distance / 2, 24.0, 120.0);
    QPainterPath path(m_from);
    path.cubicTo(m_from + QPointF(ease, 0), m_to - QPointF(ease, 0), m_to);

    const QRectF area = path.boundingRect().adjusted(-reach, -reach, reach, reach).toAlignedRect();
    m_path = path.translated(-area.topLeft());
    setPosition(area.topLeft());
    setSize(area.size());
    update();
}

} // namespace editor
