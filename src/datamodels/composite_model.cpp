#include <datamodels/composite_model.h>

#include <datamodels/composite_bracket.h>
#include <datamodels/composite_model_item.h>
#include <datamodels/composite_retired_items.h>
#include <datamodels/model_scopes.h>
#include <host/base/debug.h>

#include <utility>

CompositeModel::CompositeModel(QObject* parent)
    : QAbstractItemModel(parent)
    , root_(std::make_unique<PathItem>(QString()))
    , retiredItems_(std::make_unique<RetiredItems>())
    , life_(std::make_unique<QObject>())
{
}

CompositeModel::~CompositeModel() = default;

QModelIndex CompositeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    Item* item = getItem(parent);
    Item* child = item->child(row);
    if (!child)
        child = makeChild(*item, row, column);
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex CompositeModel::parent(const QModelIndex& child) const
{
    const Item* item = child.isValid() ? getItem(child) : nullptr;
    if (!item)
        return {};
    Item* parent = item->parent_;
    if (!OZY_ASSERT(parent) || parent == root_.get())
        return {};
    return indexOf(*parent);
}

int CompositeModel::rowCount(const QModelIndex& parent) const
{
    const Item* item = getItem(parent);
    return item ? item->rowCount() : 0;
}

int CompositeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant CompositeModel::data(const QModelIndex& index, int role) const
{
    const Item* item = index.isValid() ? getItem(index) : nullptr;
    if (!item)
        return {};
    if (item->type() == Item::ModelIndex) {
        const QPersistentModelIndex& modelIndex = static_cast<const ModelIndexItem*>(item)->modelIndex_;
        QVariant value = modelIndex.data(mapRoleToSource(modelIndex.model(), role));
        if (value.isValid())
            return value;
    }
    const int ownRole = mapRoleToSource(this, role);
    return ownRole == -1 ? QVariant() : item->data_.value(ownRole);
}

bool CompositeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    Item* item = getItem(index);
    if (!item)
        return false;
    if (item->type() == Item::ModelIndex) {
        const QPersistentModelIndex& modelIndex = static_cast<const ModelIndexItem*>(item)->modelIndex_;
        // An index hands out its model for reading only.
        auto* model = const_cast<QAbstractItemModel*>(modelIndex.model());
        if (model && model->setData(modelIndex, value, mapRoleToSource(model, role)))
            return true;
    }
    item->data_[role] = value;
    Q_EMIT dataChanged(index, index);
    return true;
}

QHash<int, QByteArray> CompositeModel::roleNames() const
{
    return roleNames_;
}

void CompositeModel::addSubmodel(const std::string& path, std::shared_ptr<QAbstractItemModel> model)
{
    OZY_ASSERT(!path.empty());
    const std::size_t lastPos = path.empty() || path.back() == '/' ? std::string::npos : path.rfind('/') + 1;
    if (!OZY_ASSERT(std::string::npos != lastPos) || !OZY_ASSERT(model))
        return;

    Item* item = root_.get();
    const QStringList segments = QString::fromStdString(path.substr(0, lastPos)).split('/', Qt::SkipEmptyParts);
    for (const QString& segment : segments)
        item = directory(*item, segment);

    QAbstractItemModel* mounted = model.get();
    auto mount = std::make_unique<ModelItem>(QString::fromStdString(path.substr(lastPos)), std::move(model));
    listenModelItem(mount.get());
    addItemChild(item, std::move(mount), -1);
    // Intended: after the rows, which have no roles while they are announced.
    mapRoles(mounted, mounted->roleNames());
}

int CompositeModel::mapRoleFromSorce(QModelIndex index, int sourceRole) const
{
    const Item* item = getItem(index);
    const QAbstractItemModel* model = this;
    if (item && item->type() == Item::ModelIndex)
        model = static_cast<const ModelIndexItem*>(item)->modelIndex_.model();
    return mapRoleFromSorce(model, sourceRole);
}

int CompositeModel::mapRoleFromSorce(const QAbstractItemModel* model, int sourceRole) const
{
    for (const auto& [role, sourceRoles] : roleMap_) {
        const auto found = sourceRoles.find(model);
        if (found != sourceRoles.end() && found->second == sourceRole)
            return role;
    }
    return -1;
}

int CompositeModel::mapRoleToSource(const QAbstractItemModel* model, int role) const
{
    const auto sourceRoles = roleMap_.find(role);
    if (sourceRoles == roleMap_.end())
        return -1;
    const auto found = sourceRoles->second.find(model);
    return found == sourceRoles->second.end() ? -1 : found->second;
}

void CompositeModel::mapRoles(const QAbstractItemModel* model, const QHash<int, QByteArray>& roleNames)
{
    for (auto name = roleNames.begin(); name != roleNames.end(); ++name) {
        if (mapRoleFromSorce(model, name.key()) != -1)
            continue;
        const int role = name.key() < Qt::UserRole ? name.key() : freeRole(name.value());
        if (!roleNames_.contains(role))
            roleNames_.insert(role, name.value());
        roleMap_[role][model] = name.key();
    }
}

/// The user role of that name, or the next one that there is not.
int CompositeModel::freeRole(const QByteArray& name)
{
    const int role = roleNames_.key(name, -1);
    return role >= Qt::UserRole ? role : nextRole_++;
}

CompositeModel::Item* CompositeModel::getItem(const QModelIndex& index) const
{
    if (!index.isValid())
        return root_.get();
    return index.model() == this ? static_cast<Item*>(index.internalPointer()) : nullptr;
}

QModelIndex CompositeModel::indexOf(Item& item) const
{
    return createIndex(item.row(), 0, &item);
}

/// Makes a row of a model known.
CompositeModel::Item* CompositeModel::makeChild(Item& parent, int row, int column) const
{
    const QAbstractItemModel* submodel = nullptr;
    QModelIndex sourceParent;
    if (parent.type() == Item::Model) {
        submodel = static_cast<ModelItem&>(parent).model();
    } else if (parent.type() == Item::ModelIndex) {
        sourceParent = static_cast<ModelIndexItem&>(parent).modelIndex_;
        submodel = sourceParent.model();
    }
    if (!OZY_ASSERT(submodel != nullptr))
        return nullptr;

    Item* mount = &parent;
    while (mount->type() == Item::ModelIndex)
        mount = mount->parent_;
    std::unique_ptr<ModelIndexItem> item = retiredItems_->make(submodel->index(row, column, sourceParent));
    static_cast<ModelItem*>(mount)->itemAdded(*item);
    parent.addChild(std::move(item), row);
    return parent.child(row);
}

/// The first row of that name for a segment of a path; a new one if there is none.
CompositeModel::Item* CompositeModel::directory(Item& parent, const QString& name)
{
    for (const auto& child : parent.children_) {
        if (child && child->type() == Item::Path && child->data_[Qt::DisplayRole].toString() == name)
            return child.get();
    }
    addItemChild(&parent, std::make_unique<PathItem>(name), -1);
    return parent.children_.back().get();
}

void CompositeModel::addItemChild(Item* parent, std::unique_ptr<Item> child, int row)
{
    const int position = row == -1 ? parent->slotCount() : row;
    // Intended: the row of the child in place of the parent's, and for the root an index that is not invalid.
    const ModelScopes::InsertRows scope(*this, createIndex(position, 0, parent), static_cast<std::size_t>(position), 1);
    parent->addChild(std::move(child), position);
}
