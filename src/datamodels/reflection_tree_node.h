#pragma once

#include <datamodels/reflection_tree_model.h>

#include <host/reflection/bound_property.h>
#include <host/signals/connection.h>

#include <array>
#include <memory>
#include <vector>

namespace qelm {
class QtScriptObject;
}

/// One row of the tree: the property that it shows, the object behind it if there is one, and a slot for each property of
/// that object, empty until its row is first touched.
class ReflectionTreeModel::Node
{
public:
    /// The root over an object.
    Node(ReflectionTreeModel& model, zarn::ReflectedObject object);
    /// Any other row, and the root over a property.
    Node(ReflectionTreeModel& model, Node* parent, zarn::BoundProperty property);
    /// A root above another one.
    Node(ReflectionTreeModel& model, std::unique_ptr<Node> child);
    ~Node();
    Q_DISABLE_COPY_MOVE(Node)

    int count() const { return static_cast<int>(children_.size()); }
    /// The node of a row, made at the first need; null for a row that there is not.
    Node* child(int row);
    QModelIndex index() const;

    QVariant value();
    QVariant objectAnnotations();
    QVariant propertyAnnotations();
    bool isEditable() const;
    bool setValue(const QVariant& value);

private:
    int row() const;
    void connectSignals(bool notify);
    void connectStructure();
    void beginDropping();
    void dropChildren();
    void onPropertyChanged();
    void onPropertiesReset(const zarn::ReflectedObject& object);
    void onPropertyAdded(std::size_t first, std::size_t count);
    void onPropertyRemoved(std::size_t first, std::size_t count);

    Node* parent_ = nullptr;
    ReflectionTreeModel& model_;
    zarn::BoundProperty property_;
    zarn::ReflectedObject object_;
    std::unique_ptr<qelm::QtScriptObject> value_;
    std::vector<std::unique_ptr<Node>> children_;
    std::unique_ptr<qelm::QtScriptObject> propertyAnnotations_;
    std::unique_ptr<qelm::QtScriptObject> objectAnnotations_;
    mutable std::size_t row_ = 0; // where it stood when last asked
    int openRemovals_ = 0;        // announced, and not yet made
    std::shared_ptr<const bool> life_ = std::make_shared<bool>();
    std::array<ryk::ScopedConnection, 8> connections_; // last, so that nothing calls a node that is half gone
};
