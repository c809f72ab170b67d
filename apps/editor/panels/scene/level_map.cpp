#include "level_map.h"

#include "level_actor.h"

#include <datamodels/scene_roles.h>
#include <host/reflection/cast.h>

#include <QCursor>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace editor {
namespace {

constexpr double margin = 24;       // pixels around the level
constexpr double near = 9;          // pixels from which an object is hit
constexpr double framedScale = 8;   // pixels a metre
constexpr double largestScale = 60; // pixels a metre

const QColor sheet("#17191c");
const QColor gridLine("#2a2e34");
const QColor text("#d6dae0");
const QColor selected("#5c9fe0");

QColor colourOf(const LevelObject& object)
{
    if (const auto* light = dynamic_cast<const Light*>(&object))
        return QColor(QString::fromStdString(light->colour));
    return dynamic_cast<const SpawnPoint*>(&object) ? QColor("#7fc8a9") : QColor("#7d93ad");
}

/// Shows the objects that are to be seen, and whether they are enabled.
template <class Visitor>
void visitShown(LevelObject& object, bool isEnabled, const Visitor& visitor)
{
    if (!object.isVisible)
        return;
    visitor(object, isEnabled && object.isEnabled);
    if (const LevelObject::Children* children = object.childObjects()) {
        for (const std::shared_ptr<LevelObject>& child : **children)
            visitShown(*child, isEnabled && object.isEnabled, visitor);
    }
}

} // namespace

LevelMap::LevelMap(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton);
    setAcceptHoverEvents(true);
    setAntialiasing(true);
    setFillColor(sheet);
}

LevelMap::~LevelMap() = default;

void LevelMap::setOutliner(SceneOutliner* outliner)
{
    if (m_outliner == outliner)
        return;
    m_outliner = outliner;
    connect(outliner, &SceneOutliner::selectionChanged, this, [this] { update(); });
    connect(outliner, &SceneOutliner::framed, this, &LevelMap::frame);
    connect(&outliner->model(), &QAbstractItemModel::dataChanged, this, [this] { update(); });
    Q_EMIT outlinerChanged();
}

void LevelMap::setDocument(LevelDocument* document)
{
    if (m_document == document)
        return;
    m_document = document;
    connect(document->history(), &Ozy::ChangesController::indexChanged, this, [this] { update(); });
    connect(document, &LevelDocument::levelChanged, this, &LevelMap::fit);
    fit();
    Q_EMIT documentChanged();
}

QString LevelMap::framedName() const
{
    const auto* object = zarn::cast<LevelObject>(m_framed);
    return object ? QString::fromStdString(object->name) : QString();
}

void LevelMap::fit()
{
    m_framed = {};
    m_isFraming = false;
    if (m_document)
        lookAt({m_document->level().width / 2, m_document->level().height / 2}, 0);
}

void LevelMap::frame(const zarn::ReflectedObject& object)
{
    const auto* point = zarn::cast<PathPoint>(object);
    auto* shown = zarn::cast<LevelObject>(object);
    QRectF extent;
    if (point) {
        extent = QRectF(point->position.x, point->position.y, 0, 0);
    } else if (shown) {
        visitObjects(*shown, [&extent](LevelObject& one) {
            if (const Vector* place = one.place())
                extent |= QRectF(place->x - 4, place->y - 4, 8, 8);
        });
    }
    if (!point && extent.isEmpty())
        return;
    m_framed = object;
    m_isFraming = true;
    if (width() <= 2 * margin) // not laid out yet
        return;
    const double fits = std::min((width() - 2 * margin) / std::max(extent.width(), 1.0),
                                 (height() - 2 * margin) / std::max(extent.height(), 1.0));
    lookAt(extent.center(), std::min(fits, framedScale));
}

QPointF LevelMap::toItem(const QPointF& metres) const
{
    const double scale = m_scale > 0 ? m_scale : fittingScale();
    return {width() / 2 + (metres.x() - m_centre.x()) * scale, height() / 2 - (metres.y() - m_centre.y()) * scale};
}

QPointF LevelMap::toMetres(const QPointF& point) const
{
    const double scale = m_scale > 0 ? m_scale : fittingScale();
    return {m_centre.x() + (point.x() - width() / 2) / scale, m_centre.y() - (point.y() - height() / 2) / scale};
}

double LevelMap::fittingScale() const
{
    if (!m_document)
        return 1;
    return std::max(0.05, std::min((width() - 2 * margin) / m_document->level().width,
                                   (height() - 2 * margin) / m_document->level().height));
}

void LevelMap::lookAt(const QPointF& centre, double scale)
{
    m_centre = centre;
    m_scale = scale;
    if (m_outliner)
        m_outliner->setProperty("newPlace", QPointF(std::round(centre.x()), std::round(centre.y())));
    update();
    Q_EMIT viewChanged();
}

void LevelMap::geometryChanged(const QRectF& now, const QRectF& before)
{
    QQuickPaintedItem::geometryChanged(now, before);
    if (m_isFraming)
        frame(m_framed);
    update();
}

LevelObject* LevelMap::objectAt(const QPointF& point) const
{
    LevelObject* found = nullptr;
    double nearest = near;
    visitShown(m_document->level(), true, [&](LevelObject& object, bool) {
        const Vector* place = object.place();
        if (!place)
            return;
        const QPointF away = toItem({place->x, place->y}) - point;
        const double distance = std::hypot(away.x(), away.y());
        if (distance < nearest) {
            nearest = distance;
            found = &object;
        }
    });
    return found;
}

void LevelMap::setHovered(LevelObject* object)
{
    const zarn::ReflectedObject now = object ? zarn::reflect(*object) : zarn::ReflectedObject();
    if (now == m_hovered)
        return;
    if (m_hovered.isValid())
        m_outliner->model().updateHoverRole(m_hovered, false);
    m_hovered = now;
    if (object)
        m_outliner->model().updateHoverRole(now, true);
    setCursor(object ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LevelMap::mousePressEvent(QMouseEvent* event)
{
    forceActiveFocus();
    m_pressed = m_last = event->localPos();
    m_isDragging = false;
}

void LevelMap::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isDragging && (event->localPos() - m_pressed).manhattanLength() <= 4)
        return;
    if (!m_isDragging && event->buttons() & Qt::LeftButton)
        beginDrag();
    m_isDragging = true;
    if (m_drag) {
        m_drag->moveBy(toMetres(event->localPos()) - toMetres(m_pressed));
        update();
        return;
    }
    m_isFraming = false;
    const QPointF by = toMetres(m_last) - toMetres(event->localPos());
    m_last = event->localPos();
    lookAt(m_centre + by, m_scale > 0 ? m_scale : fittingScale());
}

/// An object under the pointer is moved, and all that is selected with it.
void LevelMap::beginDrag()
{
    LevelObject* object = objectAt(m_pressed);
    if (!object)
        return;
    if (!isSelected(*object))
        m_outliner->selectObject(zarn::reflect(*object));
    m_drag.emplace(*m_document, *m_outliner);
}

void LevelMap::mouseUngrabEvent()
{
    m_drag.reset();
}

void LevelMap::mouseReleaseEvent(QMouseEvent* event)
{
    m_drag.reset();
    if (m_isDragging || event->button() != Qt::LeftButton)
        return;
    LevelObject* object = objectAt(event->localPos());
    if (object)
        m_outliner->selectObject(zarn::reflect(*object), event->modifiers());
    else if (!(event->modifiers() & Qt::ControlModifier))
        m_outliner->clearSelection();
}

void LevelMap::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (LevelObject* object = objectAt(event->localPos()))
        frame(zarn::reflect(*object));
}

void LevelMap::hoverMoveEvent(QHoverEvent* event)
{
    setHovered(objectAt(event->posF()));
}

void LevelMap::hoverLeaveEvent(QHoverEvent*)
{
    setHovered(nullptr);
}

void LevelMap::wheelEvent(QWheelEvent* event)
{
    m_isFraming = false;
    const QPointF under = toMetres(event->position());
    const double before = m_scale > 0 ? m_scale : fittingScale();
    const double scale =
        std::clamp(before * std::pow(1.2, event->angleDelta().y() / 120.0), fittingScale() / 2, largestScale);
    lookAt(under + (m_centre - under) * (before / scale), scale);
}

bool LevelMap::isSelected(LevelObject& object) const
{
    return m_outliner->selection()->isSelected(m_outliner->model().indexOf(zarn::reflect(object)));
}

void LevelMap::paint(QPainter* painter)
{
    if (!m_document || !m_outliner)
        return;
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(11);
    painter->setFont(font);
    paintGrid(*painter);
    visitShown(m_document->level(), true,
               [&](LevelObject& object, bool isEnabled) { paintObject(*painter, object, isEnabled); });
}

void LevelMap::paintGrid(QPainter& painter) const
{
    const Level& level = m_document->level();
    const QRectF area(toItem({0, level.height}), toItem({level.width, 0}));
    QColor water(QString::fromStdString(level.waterColour));
    water.setAlphaF(0.35);
    painter.fillRect(area, water);
    painter.setPen(gridLine);
    const double step = area.width() / level.width > 2 ? 10 : 50;
    for (double x = 0; x <= level.width; x += step)
        painter.drawLine(toItem({x, 0}), toItem({x, level.height}));
    for (double y = 0; y <= level.height; y += step)
        painter.drawLine(toItem({0, y}), toItem({level.width, y}));
}

void LevelMap::paintObject(QPainter& painter, LevelObject& object, bool isEnabled) const
{
    const Vector* place = object.place();
    if (!place)
        return;
    const QPointF at = toItem({place->x, place->y});
    const bool isChosen = isSelected(object);
    const bool isHovered = zarn::reflect(object) == m_hovered
        || m_outliner->model().indexOf(zarn::reflect(object)).data(SceneRoles::Hover).toBool();
    painter.setOpacity(isEnabled ? 1 : 0.3);
    if (const auto* path = dynamic_cast<const Path*>(&object))
        paintPath(painter, *path);

    painter.setPen(isChosen ? QPen(selected, 2) : isHovered ? QPen(text, 1.5) : QPen(sheet, 1));
    painter.setBrush(colourOf(object));
    if (const auto* light = dynamic_cast<const Light*>(&object)) {
        painter.drawEllipse(at, 4, 4);
        if (isChosen) {
            const double radius = light->range * (m_scale > 0 ? m_scale : fittingScale());
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(colourOf(object), 1, Qt::DashLine));
            painter.drawEllipse(at, radius, radius);
        }
    } else if (dynamic_cast<const Actor*>(&object)) {
        painter.drawRect(QRectF(at.x() - 3.5, at.y() - 3.5, 7, 7));
    } else {
        painter.drawPolygon(QVector<QPointF>{at + QPointF(0, -6), at + QPointF(5, 4), at + QPointF(-5, 4)});
    }
    if (isChosen || isHovered) {
        painter.setPen(text);
        painter.drawText(at + QPointF(9, 4), QString::fromStdString(object.name));
    }
    if (zarn::reflect(object) == m_framed) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(text, 1, Qt::DotLine));
        painter.drawRect(QRectF(at.x() - 14, at.y() - 14, 28, 28));
    }
    painter.setOpacity(1);
}

void LevelMap::paintPath(QPainter& painter, const Path& path) const
{
    QPolygonF line;
    for (const std::shared_ptr<PathPoint>& point : *path.points)
        line << toItem({point->position.x, point->position.y});
    painter.setPen(QPen(QColor(QString::fromStdString(path.colour)), 1.5));
    painter.setBrush(Qt::NoBrush);
    if (path.isClosed)
        painter.drawPolygon(line);
    else
        painter.drawPolyline(line);
    painter.setBrush(QColor(QString::fromStdString(path.colour)));
    for (const QPointF& point : line)
        painter.drawEllipse(point, 2.5, 2.5);
}

} // namespace editor
