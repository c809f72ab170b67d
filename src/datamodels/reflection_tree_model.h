#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractItemModel>

#include <memory>

struct ModelScopes;

namespace zarn {
class BoundProperty;
class ReflectedObject;
} // namespace zarn

/// A reflected object, or one property, as a tree: a row for each property, and below a row whose value is an object the
/// rows of that. One column. What a generic property panel stands on.
///
/// Roles: "value", with Qt's display and edit roles as the same: the value, or for an object a script object by which QML
/// reads, writes and calls its members; "objectAnnotations" and "propertyAnnotations": what is said of the class of the
/// row's object, and of the row's property, as script objects. Script objects belong to their row and live until its
/// next change.
///
/// Lazy: a row costs nothing until it is touched, so that opening one node of a large graph costs that node only.
///
/// Signals: when a value changes, the rows below go, `dataChanged` without roles follows, and the rows of the new value
/// come, whatever the value was before. Properties that are added, removed or reset are followed. `setData` sends nothing
/// itself. Persistent indexes below a changed value become invalid.
///
/// Intended: an index belongs to the node of its parent and to any row, so that `index` checks nothing; column 1 has
/// data though there is one column; the invalid index has flags and answers for the root. `QAbstractItemModelTester`
/// objects to the flags, and to `dataChanged` with invalid indexes when the root's own value changes. Rows of a
/// collection of plain values show shifted values after an insertion in its middle, until they change.
///
/// Bad input: an index of another model, or with a row past the end, fails an assertion and has no data. `setData`
/// refuses with false, without a message, what is an object, a method, constant or read-only, or does not convert.
/// Does not own the object; when it dies, its rows answer nothing. Thread: GUI only.
class DATAMODELS_API ReflectionTreeModel : public QAbstractItemModel
{
public:
    enum Role
    {
        ValueRole = Qt::UserRole,
        ObjectAnnotationsRole,
        PropertyAnnotationsRole,
    };

    /// With `wrapRoot` the object is the one top-level row, otherwise its properties are the top level. The replacement
    /// of the object as a whole is followed if it was reached through a property.
    explicit ReflectionTreeModel(zarn::ReflectedObject object, bool wrapRoot = false, QObject* parent = nullptr);
    explicit ReflectionTreeModel(zarn::BoundProperty property, bool wrapRoot = false, QObject* parent = nullptr);
    ~ReflectionTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    friend struct ::ModelScopes;

    class Node;

    Node* parentNode(const QModelIndex& index) const;
    Node* node(const QModelIndex& index) const;

    std::unique_ptr<Node> root_; // never null
};
