#pragma once

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>

namespace editor {

/// A curve that leaves one point to the right and enters another from the left, as the wires of a graph do.
///
/// QML: `CurveItem` of the module Editor.Items. The points are in the coordinates of its parent; it takes the
/// place and size that the curve needs. It contains the points near the curve only, so it can be the mask of
/// a mouse area.
class CurveItem : public QQuickPaintedItem
{
    Q_OBJECT
    Q_PROPERTY(QPointF from READ from WRITE setFrom NOTIFY changed)
    Q_PROPERTY(QPointF to READ to WRITE setTo NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(qreal lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)

public:
    explicit CurveItem(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;
    /// Whether a point is within `reach` of the curve.
    bool contains(const QPointF& point) const override;

    static constexpr qreal reach = 6; ///< pixels

    QPointF from() const { return m_from; }
    void setFrom(const QPointF& from) { set(m_from, from); }
    QPointF to() const { return m_to; }
    void setTo(const QPointF& to) { set(m_to, to); }
    QColor color() const { return m_color; }
    void setColor(const QColor& color) { set(m_color, color); }
    qreal lineWidth() const { return m_lineWidth; }
    void setLineWidth(qreal lineWidth) { set(m_lineWidth, lineWidth); }

Q_SIGNALS:
    void changed();

private:
    template <class T>
    void set(T& field, const T& value)
    {
        if (field == value)
            return;
        field = value;
        follow();
        Q_EMIT changed();
    }
    void follow();

    QPointF m_from;
    QPointF m_to;
    QColor m_color = Qt::white;
    qreal m_lineWidth = 2;
    QPainterPath m_path; // in its own coordinates
};

} // namespace editor
