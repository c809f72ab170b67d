#include <datamodels/proxy/link_item_selection_model.h>

#include <host/base/debug.h>
#include <host/base/profiler.h>

#include <KModelIndexProxyMapper>

#include <QScopedValueRollback>

#include <algorithm>

namespace qelm::datamodels::proxy {
namespace {

bool isOf(const QAbstractItemModel* model, const QItemSelection& selection)
{
    return std::all_of(selection.begin(), selection.end(), [model](const QItemSelectionRange& range) {
        return !range.isValid() || range.model() == model;
    });
}

} // namespace

LinkItemSelectionModel::LinkItemSelectionModel(QAbstractItemModel* model, QItemSelectionModel* linked, QObject* parent)
    : QItemSelectionModel(model, parent), m_model(model), m_linkedItemSelectionModel(linked)
{
    init();
}

LinkItemSelectionModel::LinkItemSelectionModel(QObject* parent) : QItemSelectionModel(nullptr, parent) {}

LinkItemSelectionModel::~LinkItemSelectionModel() = default;

void LinkItemSelectionModel::setLinkedItemSelectionModel(QItemSelectionModel* linked)
{
    m_linkedItemSelectionModel = linked;
    init();
}

void LinkItemSelectionModel::init()
{
    const RYK::Profiler::Scope scope("qelm::datamodels::proxy::LinkItemSelectionModel::init");
    m_connections.clear();
    m_indexMapper.reset();
    if (!m_model || !m_linkedItemSelectionModel || !m_linkedItemSelectionModel->model()) {
        // Not clearSelection(), which would come back through the override and its assertion.
        QItemSelectionModel::select(QItemSelection(), Clear);
        return;
    }

    m_indexMapper =
        std::make_unique<KModelIndexProxyMapper>(m_model.data(), m_linkedItemSelectionModel->model(), nullptr);
    rebuild();

    using Self = LinkItemSelectionModel;
    using Selection = QItemSelectionModel;
    using Model = QAbstractItemModel;
    QItemSelectionModel* const linked = m_linkedItemSelectionModel;
    QAbstractItemModel* const model = m_model;
    const auto keep = [this](QMetaObject::Connection connection) { m_connections.emplace_back(std::move(connection)); };
    keep(connect(linked, &Selection::selectionChanged, this, &Self::sourceSelectionChanged));
    keep(connect(linked, &Selection::currentChanged, this, &Self::sourceCurrentChanged));
    keep(connect(this, &Selection::currentChanged, this, &Self::slotCurrentChanged));
    keep(connect(this, &Selection::modelChanged, this, &Self::init));
    keep(connect(model, &Model::rowsInserted, this, &Self::rowsInserted));
    keep(connect(model, &Model::columnsInserted, this, &Self::columnsInserted));
    keep(connect(model, &Model::modelReset, this, &Self::modelReset));
    keep(connect(model, &Model::layoutChanged, this, &Self::layoutChanged));
}

/// Takes the linked selection over. Through the base: the override would send it back.
void LinkItemSelectionModel::rebuild()
{
    if (!OZY_ASSERT_DETAIL("qelm::datamodels::proxy::LinkItemSelectionModel::rebuild: unexpected state", m_indexMapper)
        || !m_linkedItemSelectionModel)
        return;
    QItemSelectionModel::select(m_indexMapper->mapSelectionRightToLeft(m_linkedItemSelectionModel->selection()),
                                ClearAndSelect);
}

void LinkItemSelectionModel::select(const QItemSelection& selection, SelectionFlags flags)
{
    const bool linked =
        OZY_ASSERT_DETAIL("qelm::datamodels::proxy::LinkItemSelectionModel::select: unexpected state", m_indexMapper);
    // Neither Qt nor the proxies that map survive rows of another model.
    if (!isOf(model(), selection))
        return;
    const QScopedValueRollback<bool> forwarding(m_forwarding, true);
    QItemSelectionModel::select(selection, flags);
    if (linked && m_indexMapper && m_linkedItemSelectionModel && isOf(m_model, selection))
        m_linkedItemSelectionModel->select(m_indexMapper->mapSelectionLeftToRight(selection), flags);
}

void LinkItemSelectionModel::select(const QModelIndex& index, SelectionFlags flags)
{
    const QItemSelection selection(index, index);
    if (m_forwarding || !isOf(model(), selection))
        return;
    QItemSelectionModel::select(selection, flags);
    if (!m_indexMapper || !m_linkedItemSelectionModel || !isOf(m_model, selection))
        return;
    // Intended: an invalid index clears the other side whatever the flags.
    if (index.isValid())
        m_linkedItemSelectionModel->select(m_indexMapper->mapSelectionLeftToRight(selection), flags);
    else
        m_linkedItemSelectionModel->clearSelection();
}

/// Always through the base, so that the side that started it hears no echo.
void LinkItemSelectionModel::sourceSelectionChanged(QItemSelection selected, QItemSelection deselected)
{
    if (!OZY_ASSERT_DETAIL("qelm::datamodels::proxy::LinkItemSelectionModel::sourceSelectionChanged: unexpected state",
                           m_indexMapper))
        return;
    const QItemSelection mappedDeselected = m_indexMapper->mapSelectionRightToLeft(deselected);
    const QItemSelection mappedSelected = m_indexMapper->mapSelectionRightToLeft(selected);
    QItemSelectionModel::select(mappedDeselected, Deselect);
    QItemSelectionModel::select(mappedSelected, Select);
}

void LinkItemSelectionModel::sourceCurrentChanged(QModelIndex current)
{
    if (!OZY_ASSERT_DETAIL("qelm::datamodels::proxy::LinkItemSelectionModel::sourceCurrentChanged: unexpected state",
                           m_indexMapper)
        || !m_currentSyncEnabled)
        return;
    if (const QModelIndex mapped = m_indexMapper->mapRightToLeft(current); mapped.isValid())
        setCurrentIndex(mapped, NoUpdate);
}

void LinkItemSelectionModel::slotCurrentChanged(QModelIndex current)
{
    if (!OZY_ASSERT_DETAIL("qelm::datamodels::proxy::LinkItemSelectionModel::slotCurrentChanged: unexpected state",
                           m_indexMapper)
        || !m_currentSyncEnabled || !m_linkedItemSelectionModel)
        return;
    if (const QModelIndex mapped = m_indexMapper->mapLeftToRight(current); mapped.isValid())
        m_linkedItemSelectionModel->setCurrentIndex(mapped, NoUpdate);
}

void LinkItemSelectionModel::rowsInserted(QModelIndex, int, int)
{
    rebuild();
}

void LinkItemSelectionModel::columnsInserted(QModelIndex, int, int)
{
    rebuild();
}

void LinkItemSelectionModel::modelReset()
{
    rebuild();
}

void LinkItemSelectionModel::layoutChanged()
{
    // Intended: setCurrentIndex enters the override for an index, so that the selection of both sides shrinks to the
    // current row.
    const QItemSelection selected = selection();
    QItemSelectionModel::select(QItemSelection(), ClearAndSelect);
    QItemSelectionModel::select(selected, ClearAndSelect);
    const QModelIndex current = currentIndex();
    QItemSelectionModel::setCurrentIndex(QModelIndex(), ClearAndSelect);
    QItemSelectionModel::setCurrentIndex(current, ClearAndSelect);
}

} // namespace qelm::datamodels::proxy
