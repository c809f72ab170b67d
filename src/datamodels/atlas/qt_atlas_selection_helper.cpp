#include <datamodels/atlas/qt_atlas_selection_helper.h>

QtAtlasSelectionHelper::QtAtlasSelectionHelper(QObject* parent) : QObject(parent) {}

void QtAtlasSelectionHelper::setSelection(QItemSelectionModel* selection)
{
    if (m_selection == selection)
        return;
    if (m_selection)
        static_cast<QObject*>(m_selection)->disconnect(this); // it may be half destroyed
    m_selection = selection;
    if (m_selection) {
        connect(m_selection, &QItemSelectionModel::selectionChanged, this, &QtAtlasSelectionHelper::refresh);
        connect(m_selection, &QObject::destroyed, this, &QtAtlasSelectionHelper::onSelectionDestroyed);
    }
    if (!m_componentLoading)
        refresh();
    Q_EMIT selectionChanged();
}

void QtAtlasSelectionHelper::setIndex(int index)
{
    if (m_index == index)
        return;
    m_index = index;
    if (!m_componentLoading)
        refresh();
    Q_EMIT indexChanged();
}

void QtAtlasSelectionHelper::onSelectionDestroyed()
{
    setSelection(nullptr);
}

void QtAtlasSelectionHelper::classBegin()
{
    m_componentLoading = true;
}

void QtAtlasSelectionHelper::componentComplete()
{
    m_componentLoading = false;
    refresh();
}

void QtAtlasSelectionHelper::refresh()
{
    const QAbstractItemModel* const model = m_index != -1 && m_selection ? m_selection->model() : nullptr;
    const bool selected = model && m_selection->isSelected(model->index(m_index, 0, QModelIndex()));
    if (m_selected == selected)
        return;
    m_selected = selected;
    Q_EMIT selectedChanged();
}
