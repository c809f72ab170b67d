#pragma once

#include <QVector>

#include <initializer_list>

namespace datamodels {

/// One row being brought up to date: stores what differs, and collects the roles to tell of it.
class RowChange
{
public:
    template <class T>
    void set(T& field, const T& value, std::initializer_list<int> roles)
    {
        if (field == value)
            return;
        field = value;
        for (const int role : roles)
            m_roles.append(role);
    }
    const QVector<int>& roles() const { return m_roles; }
    bool isEmpty() const { return m_roles.isEmpty(); }

private:
    QVector<int> m_roles;
};

/// What the lists of images do with their rows alike. A model opens itself with `friend struct ImageRows;`.
struct ImageRows
{
    /// Drops the rows from `first` on.
    /// Intended: announced as a removal, closed as an insertion. All models have as many rows as the answer when they
    /// come here, so nothing is ever dropped.
    template <class Model, class Rows>
    static void dropFrom(Model& model, Rows& rows, int first)
    {
        const int count = static_cast<int>(rows.size());
        if (first >= count)
            return;
        model.beginRemoveRows({}, first, count - 1);
        rows.erase(rows.begin() + first, rows.end());
        model.endInsertRows();
    }
};

} // namespace datamodels
