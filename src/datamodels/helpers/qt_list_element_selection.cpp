#include <datamodels/helpers/qt_list_element_selection.h>

QtListElementSelection::QtListElementSelection(QObject* parent) : QObject(parent) {}

QtListElementSelection::~QtListElementSelection() = default;

void QtListElementSelection::setSelectionModel(QItemSelectionModel* model)
{
    if (m_selectionModel == model)
        return;
    while (!m_connections.empty())
        m_connections.pop_back();
    m_selectionModel = model;
    Q_EMIT selectionModelChanged();
    if (m_selectionModel) {
        m_connections.emplace_back(connect(m_selectionModel, &QItemSelectionModel::selectionChanged, this,
                                           &QtListElementSelection::onSelectionChanged));
        m_connections.emplace_back(connect(m_selectionModel, &QItemSelectionModel::currentChanged, this,
                                           &QtListElementSelection::onCurrentChanged));
    }
    if (m_complete)
        update();
}

void QtListElementSelection::setRow(int row)
{
    if (m_row == row)
        return;
    m_row = row;
    Q_EMIT rowChanged();
    if (m_complete)
        update();
}

void QtListElementSelection::classBegin()
{
    m_complete = false;
}

void QtListElementSelection::componentComplete()
{
    m_complete = true;
    update();
}

QModelIndex QtListElementSelection::getModelIndex() const
{
    const QAbstractItemModel* const model = m_selectionModel ? m_selectionModel->model() : nullptr;
    return model && m_row != -1 ? model->index(m_row, 0) : QModelIndex();
}

void QtListElementSelection::onSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    const QModelIndex index = getModelIndex();
    const bool isSelected = selected.contains(index);
    if (isSelected || deselected.contains(index))
        setSelected(isSelected);
}

void QtListElementSelection::onCurrentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    const QModelIndex index = getModelIndex();
    if (index == current || index == previous)
        setCurrent(index == current);
}

void QtListElementSelection::setSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    Q_EMIT selectedChanged();
}

void QtListElementSelection::setCurrent(bool current)
{
    if (m_current == current)
        return;
    m_current = current;
    Q_EMIT currentChanged();
}

void QtListElementSelection::update()
{
    const QModelIndex index = getModelIndex();
    setSelected(index.isValid() && m_selectionModel->isSelected(index));
    // Intended: no row is the current one where there is none.
    setCurrent(m_selectionModel && m_selectionModel->currentIndex() == index);
}
