#include "atlas_panel.h"

#include "panels/content_files.h"
#include "panels/texts.h"

#include <host/reflection/static_meta_object.h>
#include <host/undo/commit_changes_scope.h>

#include <QDir>

#include <algorithm>

namespace editor {

AtlasPanel::AtlasPanel(const PanelContext& context)
    : m_content(context.content), m_document(context.content), m_rows(*m_document.history())
{
    m_selector.setSelection(&selection());
    m_selector.setSelectionMode(QtGridViewSelector::MultiSelection);
    connect(&selection(), &QItemSelectionModel::selectionChanged, this, &AtlasPanel::showSelected);
    connect(&m_document, &AtlasDocument::gridChanged, this, &AtlasPanel::showSelected);
    for (const auto signal : {&AtlasDocument::atlasChanged, &AtlasDocument::gridChanged, &AtlasDocument::problemsChanged})
        connect(&m_document, signal, this, &Panel::statusChanged);
    connect(m_document.history(), &Ozy::ChangesController::indexChanged, this, &Panel::statusChanged);
    connect(m_document.history(), &Ozy::ChangesController::cleanChanged, this, &Panel::statusChanged);
    m_rows.close(QStringLiteral("tiles")); // they are what the grid is for
    m_document.view()->setZoom(1.5);
    showSelected();
}

AtlasPanel::~AtlasPanel() = default;

QString AtlasPanel::status() const
{
    if (!hasAtlas())
        return QStringLiteral("No atlas");
    const AtlasAsset::Descriptor& data = m_document.asset()->data();
    QString text = QStringLiteral("%1 \u00d7 %2 slots, %3 free")
                       .arg(data.tilesCount.x).arg(data.tilesCount.y).arg(m_document.freeSlots());
    if (selectedCount() > 0)
        text += QStringLiteral(", %1 selected").arg(selectedCount());
    if (!m_document.problems().isEmpty())
        text += QStringLiteral(", ") + counted(m_document.problems().size(), "problem", "problems");
    return text + (isModified() ? QStringLiteral(", modified") : QStringLiteral(", saved"));
}

bool AtlasPanel::isModified() const
{
    return !const_cast<AtlasDocument&>(m_document).history()->isClean();
}

QString AtlasPanel::title() const
{
    const std::vector<std::size_t> slots = selected();
    if (!hasAtlas())
        return {};
    if (slots.empty())
        return QDir(m_content).relativeFilePath(QString::fromStdString(m_document.asset()->basePath()));
    return slots.size() == 1 ? QStringLiteral("Slot %1").arg(slots.front()) : QStringLiteral("%1 slots").arg(slots.size());
}

std::vector<std::size_t> AtlasPanel::selected() const
{
    std::vector<std::size_t> slots;
    for (const QModelIndex& index : selection().selectedIndexes())
        slots.push_back(static_cast<std::size_t>(index.row()));
    std::sort(slots.begin(), slots.end());
    return slots;
}

void AtlasPanel::selectAll()
{
    const QAbstractItemModel* slots = selection().model();
    if (slots && slots->rowCount() > 0)
        selection().select({slots->index(0, 0), slots->index(slots->rowCount() - 1, 0)}, QItemSelectionModel::Select);
}

void AtlasPanel::selectSlot(int slot)
{
    if (const QAbstractItemModel* slots = selection().model())
        selection().setCurrentIndex(slots->index(slot, 0), QItemSelectionModel::ClearAndSelect);
}

void AtlasPanel::clearSelected()
{
    m_document.clear(selected());
}

void AtlasPanel::crop()
{
    if (!hasAtlas())
        return;
    const Ozy::CommitChangesScope step("Crop", m_document.history());
    m_document.asset()->crop();
}

QStringList AtlasPanel::files(const QString& folder, const QString& pattern) const
{
    return contentFiles(m_content, folder, pattern);
}

void AtlasPanel::showSelected()
{
    std::vector<zarn::ReflectedObject> objects;
    if (!hasAtlas()) {
        m_rows.setObjects({}, {}, {}); // what it showed may be about to go
        return;
    }
    for (const std::size_t slot : selected()) {
        if (const std::shared_ptr<AtlasTile> tile = m_document.asset()->getTile(slot))
            objects.push_back(zarn::reflect(*tile));
    }
    if (objects.empty())
        objects = {zarn::reflect(*m_document.asset())};
    auto merged = std::make_unique<zarn::MultiSelection>();
    if (objects.size() > 1) {
        for (const zarn::ReflectedObject& object : objects)
            merged->merge(object, {});
    }
    m_rows.setObjects(objects, objects.size() > 1 ? zarn::reflect(*merged) : objects.front(), title());
    m_merged = std::move(merged);
    Q_EMIT subjectChanged();
    Q_EMIT statusChanged();
}

std::vector<Panel::Shot> AtlasPanel::shots()
{
    const auto edit = [this] {
        if (!hasAtlas())
            return;
        selectSlot(2);
        m_document.view()->setType(1);
        zarn::reflect(*m_document.asset())
            .findPropertyByName("tilesCountY")
            .set(m_document.asset()->data().tilesCount.y + 1, {});
    };
    return {{QString(), [this] { selectSlot(1); }}, {QStringLiteral("edited"), edit}};
}

} // namespace editor
