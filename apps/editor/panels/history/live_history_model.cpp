#include "live_history_model.h"

#include <host/undo/changes_controller.h>

#include <algorithm>

namespace editor {

LiveHistoryModel::LiveHistoryModel(Ozy::ChangesController& history)
    : HistoryModel(&history), m_history(history), m_current(history.index())
{
    for (int step = 0; step < history.count(); ++step)
        m_names << stepName(step);
    if (history.isClean())
        m_saved = m_current;
    connect(&history, &Ozy::ChangesController::indexChanged, this, &LiveHistoryModel::follow);
    connect(&history, &Ozy::ChangesController::cleanChanged, this, &LiveHistoryModel::followSaved);
}

int LiveHistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_names.size() + 1;
}

QVariant LiveHistoryModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const int row = index.row();
    switch (role) {
    case NameRole:
        return row == 0 ? QStringLiteral("Opened") : m_names[row - 1];
    case IsCurrentRole:
        return row == m_current;
    case IsUndoneRole:
        return row > m_current;
    case IsSavedRole:
        return row == m_saved;
    default:
        return {};
    }
}

QHash<int, QByteArray> LiveHistoryModel::roleNames() const
{
    return {{NameRole, "name"},
            {IsCurrentRole, "isCurrent"},
            {IsUndoneRole, "isUndone"},
            {IsSavedRole, "isSaved"}};
}

QString LiveHistoryModel::stepName(int step) const
{
    const Ozy::BasicStringRef<char> name = m_history.barrierName(static_cast<std::size_t>(step));
    return QString::fromUtf8(name.data(), static_cast<int>(name.size()));
}

void LiveHistoryModel::follow()
{
    followSteps();
    followCurrent();
    followSaved();
}

// A new step takes the place of all that were undone; undo and redo leave the steps as they are.
void LiveHistoryModel::followSteps()
{
    const int count = m_history.count();
    const int index = m_history.index();
    if (count == 0) {
        replaceFrom(0);
    } else if (index == m_current) { // at its limit
        dropFirst();
        replaceFrom(m_current);
    } else if (index == m_current + 1 && index == count && !isKnown(m_current)) {
        replaceFrom(m_current);
    }
}

// A step like the one that it replaces looks the same, but does not lead to the saved state.
bool LiveHistoryModel::isKnown(int step) const
{
    const bool isSaved = m_saved == step + 1;
    return m_names.size() == m_history.count() && m_names[step] == stepName(step) &&
           (!isSaved || m_history.isClean());
}

// What the first step led to is now the state that the document was opened in.
void LiveHistoryModel::dropFirst()
{
    beginRemoveRows({}, 1, 1);
    m_names.removeFirst();
    --m_current;
    m_saved = std::max(m_saved - 1, -1);
    endRemoveRows();
    Q_EMIT dataChanged(index(0), index(0), {IsSavedRole});
}

void LiveHistoryModel::replaceFrom(int step)
{
    if (m_saved > step)
        m_saved = -1;
    if (step < m_names.size()) {
        beginRemoveRows({}, step + 1, m_names.size());
        m_names.erase(m_names.begin() + step, m_names.end());
        endRemoveRows();
    }
    if (step < m_history.count()) {
        beginInsertRows({}, step + 1, m_history.count());
        while (m_names.size() < m_history.count())
            m_names << stepName(m_names.size());
        endInsertRows();
    }
}

void LiveHistoryModel::followCurrent()
{
    const int before = std::exchange(m_current, m_history.index());
    const int last = std::min(std::max(before, m_current), rowCount() - 1);
    if (before != m_current)
        Q_EMIT dataChanged(index(std::min(before, m_current)), index(last), {IsCurrentRole, IsUndoneRole});
}

void LiveHistoryModel::followSaved()
{
    if (!m_history.isClean() || m_saved == m_current)
        return;
    const int before = std::exchange(m_saved, m_current);
    if (before >= 0)
        Q_EMIT dataChanged(index(before), index(before), {IsSavedRole});
    Q_EMIT dataChanged(index(m_saved), index(m_saved), {IsSavedRole});
}

} // namespace editor
