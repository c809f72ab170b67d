#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractListModel>
#include <QVector>

struct ModelScopes;

/// The game's maps by name, each with a check mark, so that a tool can pick some of them. The names are those of the
/// entries of the resource directory "scripts/arena_defs", without extension and in the order of the file system.
///
/// Roles: "name" (`Qt::DisplayRole`), and "checked" (`Qt::CheckStateRole`), a bool and no `Qt::CheckState`.
/// Bad input: a directory that is missing is an empty list. Thread: GUI only; `load` waits for the disk.
class DATAMODELS_API MapsListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit MapsListModel(QObject* parent = nullptr);

    /// Intended: the number of maps, whatever the parent.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Sends `dataChanged` for a value that differs. Intended: true for every role of a map, also for those that the
    /// model does not know.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;

    /// Reads the directory, inside one reset; the check marks are gone then.
    void load();
    void clear();
    /// Checks each map or none; rows that change send a `dataChanged` each.
    void setCheckedAll(bool checked);

private:
    friend struct ModelScopes;

    struct Item
    {
        QString name;
        bool checked = false;
    };

    Item* getItem(const QModelIndex& index);
    const Item* getItem(const QModelIndex& index) const;

    QVector<Item> m_items;
};
