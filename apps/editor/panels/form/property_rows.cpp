#include "property_rows.h"

#include <host/base/debug.h>
#include <host/reflection/meta_object.h>
#include <host/undo/changes_controller.h>

#include <algorithm>
#include <iterator>

namespace editor {

PropertyRows::PropertyRows(Ozy::ChangesController& history, QObject* parent)
    : QAbstractListModel(parent), m_history(history)
{
}

PropertyRows::~PropertyRows() = default;

int PropertyRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

void PropertyRows::setObjects(std::vector<zarn::ReflectedObject> objects, const zarn::ReflectedObject& merged,
                              const QString& subject)
{
    end();
    m_objects = std::move(objects);
    m_merged = merged;
    m_subject = subject;
    refresh();
}

void PropertyRows::setReadOnly(bool readOnly)
{
    if (m_isReadOnly == readOnly)
        return;
    m_isReadOnly = readOnly;
    Q_EMIT readOnlyChanged();
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

const PropertyRow* PropertyRows::at(int row) const
{
    return row >= 0 && row < rowCount() ? &m_rows[static_cast<std::size_t>(row)] : nullptr;
}

int PropertyRows::find(const QString& path) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&path](const PropertyRow& row) { return row.path == path; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

void PropertyRows::toggle(int row)
{
    const PropertyRow* heading = at(row);
    if (!heading || heading->editor != "heading")
        return;
    if (heading->isOpen)
        m_closed.insert(heading->path);
    else
        m_closed.remove(heading->path);
    refresh();
}

// Who tells of the change may still be in the middle of it, and belong to a row that goes.
void PropertyRows::refreshLater()
{
    if (m_isStale)
        return;
    m_isStale = true;
    QMetaObject::invokeMethod(this, &PropertyRows::refresh, Qt::QueuedConnection);
}

void PropertyRows::refresh()
{
    m_isStale = false;
    m_objects.erase(std::remove_if(m_objects.begin(), m_objects.end(),
                                   [](const zarn::ReflectedObject& object) { return !object.isValid(); }),
                    m_objects.end());
    m_connections.clear();
    PropertyRowBuilder::Selections selections;
    PropertyRowBuilder builder(m_closed, selections);
    if (!m_objects.empty() && m_merged.isValid())
        builder.addObject(m_objects, m_merged, QString(), 0);
    std::vector<PropertyRow> rows = builder.take();
    replaceRows(rows);
    m_selections = std::move(selections); // the rows of the old ones are gone
    watch();
}

/// Rows at the beginning and the end that look the same stay, and only what is in them changes.
void PropertyRows::replaceRows(std::vector<PropertyRow>& rows)
{
    const auto alike = [](const PropertyRow& one, const PropertyRow& other) { return one.looksLike(other); };
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(rows.size(), m_rows.size()));
    const auto head =
        std::mismatch(m_rows.begin(), m_rows.begin() + shorter, rows.begin(), alike).first - m_rows.begin();
    const auto tail = std::mismatch(m_rows.rbegin(), m_rows.rbegin() + (shorter - head), rows.rbegin(), alike).first
                      - m_rows.rbegin();

    const auto lastOld = static_cast<std::ptrdiff_t>(m_rows.size()) - tail;
    const auto lastNew = static_cast<std::ptrdiff_t>(rows.size()) - tail;
    if (lastOld > head) {
        beginRemoveRows({}, static_cast<int>(head), static_cast<int>(lastOld) - 1);
        m_rows.erase(m_rows.begin() + head, m_rows.begin() + lastOld);
        endRemoveRows();
    }
    if (lastNew > head) {
        beginInsertRows({}, static_cast<int>(head), static_cast<int>(lastNew) - 1);
        m_rows.insert(m_rows.begin() + head, rows.begin() + head, rows.begin() + lastNew);
        endInsertRows();
    }
    m_rows = std::move(rows);
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void PropertyRows::watch()
{
    const auto tell = [this](std::size_t row) {
        return [this, row] {
            if (row < m_rows.size())
                Q_EMIT dataChanged(index(static_cast<int>(row)), index(static_cast<int>(row)));
        };
    };
    const auto later = [this] { refreshLater(); };
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const PropertyRow& one = m_rows[row];
        m_connections.emplace_back(one.property.connectPropertyChanged(tell(row)));
        for (const zarn::BoundProperty& field : one.fields)
            m_connections.emplace_back(field.connectPropertyChanged(tell(row)));
        if (one.isElement)
            continue;
        for (const zarn::ReflectedObject& collection : one.collections) {
            m_connections.emplace_back(collection.connectPropertyAdded(later));
            m_connections.emplace_back(collection.connectPropertyRemoved(later));
            m_connections.emplace_back(collection.connectPropertiesReset(later));
        }
    }
}

} // namespace editor
