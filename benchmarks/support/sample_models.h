#pragma once

#include <QAbstractListModel>
#include <QString>

#include <memory>
#include <vector>

class SimpleTreeModel;

namespace bench {

/// Reproducible numbers; the same sequence for the same seed everywhere.
unsigned nextRandom(unsigned& seed);

/// Asset paths of some 33 characters in mixed case; about 23 % hold "tree", 0.01 % "TREE_0007".
QString assetName(unsigned& seed, int number);

/// A flat list of asset names, with a number under `Qt::UserRole`.
class FlatModel : public QAbstractListModel
{
public:
    explicit FlatModel(int rows, int numbers = 1000);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    const std::vector<QString>& names() const { return m_names; }

private:
    std::vector<QString> m_names;
    std::vector<int> m_numbers;
};

/// A tree of asset names, `fan` children at each of `depth` levels.
std::unique_ptr<SimpleTreeModel> treeOfAssets(int fan, int depth);

/// Asks for every row of a model through rowCount and index; returns how many there are.
long long walk(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex());

} // namespace bench
