#pragma once

#include <QModelIndex>
#include <QtGlobal>

#include <cstddef>

/// The notification brackets of item models as objects: opened by the constructor, closed by the destructor, so that no
/// path leaves one open. A model opens itself to them with `friend struct ModelScopes;`. Counts are at least 1.
struct ModelScopes
{
    template <class Model>
    class InsertRows
    {
    public:
        InsertRows(Model& model, const QModelIndex& parent, std::size_t row, std::size_t count) : m_model(model)
        {
            m_model.beginInsertRows(parent, static_cast<int>(row), static_cast<int>(row + count - 1));
        }
        ~InsertRows() { m_model.endInsertRows(); }
        Q_DISABLE_COPY_MOVE(InsertRows)

    private:
        Model& m_model;
    };

    template <class Model>
    class RemoveRows
    {
    public:
        RemoveRows(Model& model, const QModelIndex& parent, std::size_t row, std::size_t count) : m_model(model)
        {
            m_model.beginRemoveRows(parent, static_cast<int>(row), static_cast<int>(row + count - 1));
        }
        ~RemoveRows() { m_model.endRemoveRows(); }
        Q_DISABLE_COPY_MOVE(RemoveRows)

    private:
        Model& m_model;
    };

    template <class Model>
    class Reset
    {
    public:
        explicit Reset(Model& model) : m_model(model) { m_model.beginResetModel(); }
        ~Reset() { m_model.endResetModel(); }
        Q_DISABLE_COPY_MOVE(Reset)

    private:
        Model& m_model;
    };
};
