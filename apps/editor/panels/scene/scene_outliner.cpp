#include "scene_outliner.h"

#include <datamodels/scene_roles.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>

#include <algorithm>

namespace editor {

using Selection = QItemSelectionModel;

SceneOutliner::SceneOutliner(LevelDocument& document)
    : m_document(document)
    , m_model(zarn::reflect(document.level()))
    , m_selection(&m_model)
    , m_assetSelection(m_selection, SceneRoles::Object, document.sharedHistory())
    , m_filter(m_model, m_selection)
    , m_rows(SceneFilter::KeyRole)
    , m_cursor(m_rows)
{
    m_rows.setSourceModel(&m_filter);
    openExpanded();
    connect(&document, &LevelDocument::levelChanged, this, &SceneOutliner::show);
    connect(document.history(), &Ozy::ChangesController::indexChanged, this, &SceneOutliner::restore);
    connect(&m_filter, &SceneFilter::activeChanged, this, [this] { m_cursor.followFilter(m_filter.isActive()); });
    connect(&m_selection, &QItemSelectionModel::selectionChanged, this, &SceneOutliner::selectionChanged);
    connect(&m_rows, &QAbstractItemModel::modelReset, this, &SceneOutliner::rowsChanged);
    connect(&m_rows, &QAbstractItemModel::rowsInserted, this, &SceneOutliner::rowsChanged);
    connect(&m_rows, &QAbstractItemModel::rowsRemoved, this, &SceneOutliner::rowsChanged);
    m_filter.connectOnDoubleClicked([this](const QModelIndex& index) { Q_EMIT framed(m_model.objectAt(index)); });
}

SceneOutliner::~SceneOutliner() = default;

std::vector<zarn::ReflectedObject> SceneOutliner::selectedObjects()
{
    std::vector<zarn::ReflectedObject> objects;
    for (const QModelIndex& index : m_selection.selectedIndexes())
        objects.push_back(m_model.objectAt(index));
    return objects;
}

void SceneOutliner::press(int row, int modifiers)
{
    m_cursor.setRow(row);
    const QModelIndex index = m_filter.mapToSource(m_cursor.sourceIndex());
    if (modifiers & Qt::ShiftModifier) {
        selectRange(row, modifiers & Qt::ControlModifier ? Selection::Select : Selection::ClearAndSelect);
    } else if (modifiers & Qt::ControlModifier) {
        m_anchor = index;
        m_selection.select(index, Selection::Toggle);
    } else {
        selectOnly(index);
    }
    remember();
}

bool SceneOutliner::navigate(int key, int modifiers, int page)
{
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
        frame(m_cursor.row());
        return true;
    }
    const int before = m_cursor.row();
    if (!m_cursor.navigate(key, page))
        return false;
    if (m_cursor.row() != before && m_cursor.row() >= 0)
        press(m_cursor.row(), modifiers & Qt::ShiftModifier);
    return true;
}

void SceneOutliner::toggle(int row)
{
    m_rows.toggle(row);
    m_filter.setData(m_rows.mapToSource(m_rows.index(row, 0)), m_rows.isOpen(row), SceneRoles::Expanded);
}

void SceneOutliner::hover(int row, bool isHovered)
{
    const QModelIndex index = m_rows.index(row, 0);
    if (index.isValid())
        m_filter.updateHoverRole(index.data(SceneRoles::Object).value<zarn::ReflectedObject>(), isHovered);
}

void SceneOutliner::frame(int row)
{
    const QModelIndex index = m_rows.mapToSource(m_rows.index(row, 0));
    if (index.isValid())
        m_filter.onDoubleClicked(index);
}

void SceneOutliner::selectAll()
{
    QItemSelection all;
    for (const QModelIndex& index : acceptedRows({}))
        all.select(index, index);
    m_selection.select(all, Selection::ClearAndSelect);
    remember();
}

void SceneOutliner::clearSelection()
{
    m_selection.clearSelection();
    remember();
}

void SceneOutliner::selectObject(const zarn::ReflectedObject& object, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex index = m_model.indexOf(object);
    if (!index.isValid())
        return;
    if (modifiers & Qt::ControlModifier)
        m_selection.select(index, Selection::Toggle);
    else
        selectOnly(index);
    const QModelIndex shown = m_filter.mapFromSource(index);
    if (shown.isValid())
        m_cursor.reveal(shown);
    remember();
}

void SceneOutliner::show()
{
    m_selection.clearSelection();
    m_remembered.clear();
    m_model.setObject(zarn::reflect(m_document.level()));
    openExpanded();
}

void SceneOutliner::openExpanded()
{
    for (int row = 0; row < m_rows.rowCount(); ++row)
        m_rows.setOpen(row, m_rows.index(row, 0).data(SceneRoles::Expanded).toBool());
}

void SceneOutliner::selectRange(int row, Command command)
{
    const int from = m_rows.mapFromSource(m_filter.mapFromSource(m_anchor)).row();
    if (from < 0)
        m_anchor = m_filter.mapToSource(m_rows.mapToSource(m_rows.index(row, 0)));
    const auto [first, last] = std::minmax(from < 0 ? row : from, row);
    QItemSelection range;
    for (int i = first; i <= last; ++i) {
        const QModelIndex index = m_filter.mapToSource(m_rows.mapToSource(m_rows.index(i, 0)));
        range.select(index, index);
    }
    m_selection.select(range, command);
}

void SceneOutliner::selectOnly(const QModelIndex& sourceIndex)
{
    m_anchor = sourceIndex;
    m_selection.select(sourceIndex, Selection::ClearAndSelect);
}

void SceneOutliner::remember()
{
    m_remembered = selectedObjects();
}

// Rows that were made anew have lost their selection, and objects that are gone must not come back selected.
void SceneOutliner::restore()
{
    QItemSelection lost;
    for (const zarn::ReflectedObject& object : m_remembered) {
        const QModelIndex index = m_model.indexOf(object);
        if (index.isValid() && !m_selection.isSelected(index))
            lost.select(index, index);
    }
    if (!lost.isEmpty())
        m_selection.select(lost, Selection::Select);
    remember();
}

QModelIndexList SceneOutliner::acceptedRows(const QModelIndex& parent) const
{
    QModelIndexList rows;
    for (int row = 0; row < m_filter.rowCount(parent); ++row) {
        const QModelIndex index = m_filter.index(row, 0, parent);
        rows << m_filter.mapToSource(index) << acceptedRows(index);
    }
    return rows;
}

} // namespace editor
