#pragma once

#include "map_drag.h"

#include <QQuickPaintedItem>

namespace editor {

/// The level from above: what stands where, what is selected, hovered and locked, and what was framed last.
///
/// North is up. The whole level shows at first; the wheel zooms at the pointer, dragging the sheet moves it. A click
/// selects the object under it, with Control it turns it; a double click frames it; dragging it moves all that is
/// selected. Hidden objects are left out, disabled ones are pale. Cost: a paint goes through all objects.
class LevelMap : public QQuickPaintedItem
{
    Q_OBJECT
    Q_PROPERTY(editor::SceneOutliner* outliner READ outliner WRITE setOutliner NOTIFY outlinerChanged)
    Q_PROPERTY(editor::LevelDocument* document READ document WRITE setDocument NOTIFY documentChanged)
    Q_PROPERTY(QPointF centre READ centre NOTIFY viewChanged) ///< in metres
    Q_PROPERTY(QString framedName READ framedName NOTIFY viewChanged)

public:
    explicit LevelMap(QQuickItem* parent = nullptr);
    ~LevelMap() override;

    void paint(QPainter* painter) override;

    SceneOutliner* outliner() const { return m_outliner; }
    void setOutliner(SceneOutliner* outliner);
    LevelDocument* document() const { return m_document; }
    void setDocument(LevelDocument* document);
    QPointF centre() const { return m_centre; }
    QString framedName() const;

    /// The whole level in view.
    Q_INVOKABLE void fit();
    /// An object in the middle, near enough to tell it from its neighbours.
    void frame(const zarn::ReflectedObject& object);
    /// After a change that nobody has told of yet, as in the middle of a gesture.
    Q_INVOKABLE void repaint() { update(); }
    /// Where a place of the level is in the item.
    Q_INVOKABLE QPointF toItem(const QPointF& metres) const;

Q_SIGNALS:
    void outlinerChanged();
    void documentChanged();
    void viewChanged();

protected:
    void geometryChanged(const QRectF& now, const QRectF& before) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QPointF toMetres(const QPointF& point) const;
    double fittingScale() const;
    LevelObject* objectAt(const QPointF& point) const;
    void setHovered(LevelObject* object);
    void beginDrag();
    void lookAt(const QPointF& centre, double scale);
    void paintGrid(QPainter& painter) const;
    void paintObject(QPainter& painter, LevelObject& object, bool isEnabled) const;
    void paintPath(QPainter& painter, const Path& path) const;
    bool isSelected(LevelObject& object) const;

    SceneOutliner* m_outliner = nullptr;
    LevelDocument* m_document = nullptr;
    QPointF m_centre;
    double m_scale = 0; // pixels a metre; 0 while the whole level is in view
    zarn::ReflectedObject m_framed;
    bool m_isFraming = false; // as long as nobody has looked elsewhere
    zarn::ReflectedObject m_hovered;
    std::optional<MapDrag> m_drag; // while objects are moved
    QPointF m_pressed;
    QPointF m_last;
    bool m_isDragging = false;
};

} // namespace editor
