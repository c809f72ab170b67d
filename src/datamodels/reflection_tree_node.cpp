#include <datamodels/reflection_tree_node.h>

#include <datamodels/model_scopes.h>
#include <host/base/debug.h>
#include <host/bridge/qt_script_object.h>
#include <host/variant/variant_converter.h>

#include <QQmlEngine>

#include <algorithm>

namespace {

std::unique_ptr<qelm::QtScriptObject> scriptObject(zarn::ReflectedObject object)
{
    auto wrapper = std::make_unique<qelm::QtScriptObject>(std::move(object), nullptr);
    // Without a parent it would be the script engine's to delete as soon as a script has seen it.
    QQmlEngine::setObjectOwnership(wrapper.get(), QQmlEngine::CppOwnership);
    return wrapper;
}

std::unique_ptr<qelm::QtScriptObject> scriptObject(const zarn::Annotations& annotations)
{
    zarn::ReflectedObject object;
    const std::type_info& type = typeid(zarn::Annotations);
    object.init(qelm::Variant(std::make_shared<zarn::Annotations>(annotations)), zarn::TypeInfo(true, type, type, type),
                nullptr);
    return scriptObject(std::move(object));
}

QVariant toQVariant(const std::unique_ptr<qelm::QtScriptObject>& wrapper)
{
    return wrapper ? QVariant::fromValue<QObject*>(wrapper.get()) : QVariant();
}

} // namespace

ReflectionTreeModel::Node::Node(ReflectionTreeModel& model, zarn::ReflectedObject object)
    : model_(model), property_(object.reference()), object_(std::move(object))
{
    connectSignals(false);
}

ReflectionTreeModel::Node::Node(ReflectionTreeModel& model, Node* parent, zarn::BoundProperty property)
    : parent_(parent), model_(model), property_(std::move(property)), object_(property_)
{
    connectSignals(false);
}

ReflectionTreeModel::Node::Node(ReflectionTreeModel& model, std::unique_ptr<Node> child) : model_(model)
{
    OZY_ASSERT(child->parent_ == nullptr);
    child->parent_ = this;
    children_.push_back(std::move(child));
}

ReflectionTreeModel::Node::~Node()
{
    // Dropped by its parent between the announcement of a change and the change.
    while (openRemovals_-- > 0)
        model_.endRemoveRows();
}

ReflectionTreeModel::Node* ReflectionTreeModel::Node::child(int row)
{
    if (row < 0 || row >= count())
        return nullptr;
    std::unique_ptr<Node>& slot = children_[static_cast<std::size_t>(row)];
    if (!slot && OZY_ASSERT_AS("object_", object_.isValid())) {
        slot = std::make_unique<Node>(model_, this, object_.propertyAt(static_cast<std::size_t>(row)));
        slot->row_ = static_cast<std::size_t>(row);
    }
    return slot.get();
}

QModelIndex ReflectionTreeModel::Node::index() const
{
    if (!parent_)
        return {};
    const int row = this->row();
    OZY_ASSERT(row >= 0);
    return model_.createIndex(row, 0, parent_);
}

int ReflectionTreeModel::Node::row() const
{
    const auto& siblings = parent_->children_;
    if (row_ >= siblings.size() || siblings[row_].get() != this) {
        const auto found = std::find_if(siblings.begin(), siblings.end(), [this](const auto& it) { return it.get() == this; });
        if (found == siblings.end())
            return -1;
        row_ = static_cast<std::size_t>(found - siblings.begin());
    }
    return static_cast<int>(row_);
}

QVariant ReflectionTreeModel::Node::value()
{
    if (!object_.isValid())
        return property_.isValid() ? qelm::toQVariant(property_.get()) : QVariant();
    if (!value_)
        value_ = scriptObject(object_);
    return toQVariant(value_);
}

QVariant ReflectionTreeModel::Node::objectAnnotations()
{
    if (!objectAnnotations_ && object_.isValid())
        objectAnnotations_ = scriptObject(object_.annotations());
    return toQVariant(objectAnnotations_);
}

QVariant ReflectionTreeModel::Node::propertyAnnotations()
{
    if (!propertyAnnotations_ && property_.isValid())
        propertyAnnotations_ = scriptObject(property_.annotations());
    return toQVariant(propertyAnnotations_);
}

bool ReflectionTreeModel::Node::isEditable() const
{
    return !object_.isValid() && property_.isValue() && !property_.isConst() && !property_.isReadOnly();
}

bool ReflectionTreeModel::Node::setValue(const QVariant& value)
{
    if (!isEditable())
        return false;
    const zarn::BoundProperty property = property_; // the change rebuilds the row, and may remove it
    return property.set(qelm::Variant(value), {});
}

/// Follows the value of the row: the property for another value, the object for its own properties.
void ReflectionTreeModel::Node::connectSignals(bool notify)
{
    OZY_ASSERT(children_.empty());
    const zarn::BoundProperty reference = object_.reference();
    connections_[0] = reference.connectPropertyAboutToBeChanged([this] { beginDropping(); });
    connections_[1] = reference.connectPropertyChanged([this] { onPropertyChanged(); });
    if (!object_.isValid())
        return;

    if (const std::size_t count = object_.propertyCount()) {
        if (notify) {
            const ModelScopes::InsertRows scope(model_, index(), 0, count);
            children_.resize(count);
        } else {
            children_.resize(count);
        }
    }
    connectStructure();
}

void ReflectionTreeModel::Node::connectStructure()
{
    connections_[2] = object_.connectPropertiesAboutToBeReset([this] { beginDropping(); });
    connections_[3] = object_.connectPropertiesReset([this](const zarn::ReflectedObject& object) { onPropertiesReset(object); });
    connections_[4] = object_.connectPropertyAboutToBeAdded(
        [this](const zarn::ReflectedObject&, std::size_t first, std::size_t count) {
            model_.beginInsertRows(index(), static_cast<int>(first), static_cast<int>(first + count - 1));
        });
    connections_[5] = object_.connectPropertyAdded([this](const zarn::ReflectedObject&, std::size_t first, std::size_t count) {
        onPropertyAdded(first, count);
    });
    connections_[6] = object_.connectPropertyAboutToBeRemoved(
        [this](const zarn::ReflectedObject&, std::size_t first, std::size_t count) {
            model_.beginRemoveRows(index(), static_cast<int>(first), static_cast<int>(first + count - 1));
        });
    connections_[7] = object_.connectPropertyRemoved(
        [this](const zarn::ReflectedObject&, std::size_t first, std::size_t count) { onPropertyRemoved(first, count); });
}

void ReflectionTreeModel::Node::beginDropping()
{
    if (children_.empty())
        return;
    model_.beginRemoveRows(index(), 0, count() - 1);
    ++openRemovals_;
}

/// Ends what `beginDropping` announced. Rows that came in between, inside a setter, were not announced, and rows that
/// went then are gone: either way one bracket closes for each that opened.
void ReflectionTreeModel::Node::dropChildren()
{
    if (openRemovals_ == 0)
        beginDropping();
    if (openRemovals_ == 0)
        return;
    children_.clear();
    --openRemovals_;
    model_.endRemoveRows();
}

void ReflectionTreeModel::Node::onPropertyChanged()
{
    // Whoever hears of it may change the parent's value, which ends this node.
    const std::weak_ptr<const bool> life = life_;
    dropChildren();
    if (life.expired())
        return;
    object_ = zarn::ReflectedObject(property_);
    value_.reset();
    propertyAnnotations_.reset();
    objectAnnotations_.reset();
    for (ryk::ScopedConnection& connection : connections_)
        connection.disconnect();

    const QModelIndex changed = index();
    Q_EMIT model_.dataChanged(changed, changed);
    if (!life.expired())
        connectSignals(true);
}

void ReflectionTreeModel::Node::onPropertiesReset(const zarn::ReflectedObject& object)
{
    const std::weak_ptr<const bool> life = life_;
    dropChildren();
    const std::size_t count = object.propertyCount();
    if (life.expired() || count == 0)
        return;
    const ModelScopes::InsertRows scope(model_, index(), 0, count);
    children_.resize(count);
}

void ReflectionTreeModel::Node::onPropertyAdded(std::size_t first, std::size_t count)
{
    std::vector<std::unique_ptr<Node>> added(count);
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(std::min(first, children_.size())),
                     std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    model_.endInsertRows();
}

void ReflectionTreeModel::Node::onPropertyRemoved(std::size_t first, std::size_t count)
{
    const std::size_t begin = std::min(first, children_.size());
    const std::size_t end = std::min(first + count, children_.size());
    children_.erase(children_.begin() + static_cast<std::ptrdiff_t>(begin), children_.begin() + static_cast<std::ptrdiff_t>(end));
    model_.endRemoveRows();
}
