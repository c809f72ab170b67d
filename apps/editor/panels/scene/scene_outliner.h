#pragma once

#include "controls/tree_cursor.h"
#include "level_document.h"
#include "scene_filter.h"

#include <datamodels/scene_item_model.h>
#include <host/asset/item_asset_selection.h>

#include <QPointF>

namespace editor {

/// The level as an outliner: rows, filter, what is selected and what is done to it.
///
/// The way of a row: `SceneItemModel`, `SceneFilter`, `TreeRows`, view. The selection is one of the model's rows, so it
/// outlives filtering and closing of branches; and since rows are made anew when elements of a collection move, it
/// finds the selected objects again after each step of the history. Every edit is one step. Locked objects are not
/// edited. `framed` tells that an object is wanted in sight. The document must outlive it. Thread: GUI.
class SceneOutliner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(editor::SceneFilter* filter READ filter CONSTANT)
    Q_PROPERTY(editor::TreeRows* rows READ rows CONSTANT)
    Q_PROPERTY(editor::TreeCursor* cursor READ cursor CONSTANT)
    Q_PROPERTY(QPointF newPlace MEMBER m_newPlace) ///< where objects are added, in metres
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY rowsChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY selectionChanged)

public:
    explicit SceneOutliner(LevelDocument& document);
    ~SceneOutliner() override;

    SceneItemModel& model() { return m_model; }
    SceneFilter* filter() { return &m_filter; }
    TreeRows* rows() { return &m_rows; }
    TreeCursor* cursor() { return &m_cursor; }
    QItemSelectionModel* selection() { return &m_selection; }
    bool isEmpty() const { return m_rows.rowCount() == 0; }
    int selectedCount() const { return m_selection.selectedIndexes().size(); }
    bool canRemove() const;
    /// Whether it is, or stands in, what is locked.
    bool isLocked(const zarn::ReflectedObject& object);
    /// In the order of the rows.
    std::vector<zarn::ReflectedObject> selectedObjects();

    /// What a click on a row does: selects it alone, turns it with Control, up to it with Shift.
    Q_INVOKABLE void press(int row, int modifiers);
    /// What a key does, with Shift along with the rows on the way. False for keys that mean nothing here.
    Q_INVOKABLE bool navigate(int key, int modifiers, int page);
    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void hover(int row, bool isHovered);
    Q_INVOKABLE void frame(int row);
    /// Selects all rows that the filter leaves, in closed branches too.
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void clearSelection();
    /// What a click on a button of a row does, on all selected rows if that is one of them. Of locked objects the locks and
    /// the eyes can be turned and nothing else: the document then says so.
    Q_INVOKABLE void pressButton(int row, QObject* button, bool exchanges);

    /// Adds an object of a class ("Actor", "Group", "Light", "SpawnPoint", "Path") where the current one is: in it if
    /// it is a group, else beside it; and selects it.
    Q_INVOKABLE void add(const QString& className);
    /// Removes what is selected, as far as it is not locked and its collection does not become too small.
    Q_INVOKABLE void remove();

    void selectObject(const zarn::ReflectedObject& object, Qt::KeyboardModifiers modifiers = {});

Q_SIGNALS:
    void rowsChanged();
    void selectionChanged();
    void framed(const zarn::ReflectedObject& object);

private:
    using Command = QItemSelectionModel::SelectionFlags;

    void show();
    void openExpanded();
    void selectRange(int row, Command command);
    void selectOnly(const QModelIndex& sourceIndex);
    void remember();
    void restore();
    QModelIndexList acceptedRows(const QModelIndex& parent) const;
    zarn::ReflectedObject collectionFor(const QModelIndex& sourceIndex);
    QModelIndex lockedAmongPressed(int row) const;

    LevelDocument& m_document;
    SceneItemModel m_model;
    QItemSelectionModel m_selection;
    ItemAssetSelection m_assetSelection;
    SceneFilter m_filter;
    TreeRows m_rows;
    TreeCursor m_cursor;
    QPersistentModelIndex m_anchor; // where a range begins, in the model
    std::vector<zarn::ReflectedObject> m_remembered;
    QPointF m_newPlace;
};

} // namespace editor
