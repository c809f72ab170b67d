#include <datamodels/scene/scene_item_object.h>

#include <datamodels/scene_item_model.h>
#include <host/base/debug.h>
#include <host/reflection/meta.h>

#include <QScopeGuard>

namespace {

constexpr int deepestLevel = 512;

} // namespace

/// Structural work of which only the outermost is told: what comes or goes inside is part of that.
class SceneItem::Object::Suppression
{
public:
    explicit Suppression(SceneItemModel& model) : m_model(model) { ++m_model.m_suppressCounter; }
    ~Suppression() { --m_model.m_suppressCounter; }
    Q_DISABLE_COPY_MOVE(Suppression)

private:
    SceneItemModel& m_model;
};

SceneItem::Object::Object(SceneItem& item, zarn::ReflectedObject object, Object* parent)
    : m_sceneItem(item)
    , m_object(std::move(object))
    , m_parent(parent)
    , m_level(parent ? parent->m_level + 1 : 0)
    , m_isRoot(true)
{
    init();
}

SceneItem::Object::Object(SceneItem& item, const zarn::BoundProperty& property, Object* parent, std::size_t place)
    : m_sceneItem(item), m_object(property), m_parent(parent), m_level(parent->m_level + 1), m_isRoot(false), m_place(place)
{
}

SceneItem::Object::~Object()
{
    fini();
}

const zarn::BoundProperty& SceneItem::Object::property() const
{
    static const zarn::BoundProperty none;
    return m_isRoot ? none : m_object.reference();
}

void SceneItem::Object::init()
{
    if (property().isValid() && !property().visibility().test(zarn::meta_property::VisibilityFlag::Outliner))
        return;
    const zarn::Annotations annotations = property().annotations();
    if (annotations.contain<Meta::Value>() || !isWalkable())
        return;

    const auto sceneItem = annotations.find<Meta::SceneItem>();
    m_isSceneItem = sceneItem.isValid() && sceneItem->value<Meta::SceneItem>()(property()) && parentInItem();
    if (m_isSceneItem)
        makeRow();
    else
        walk(annotations);
}

/// Whether the object may be walked into: it neither contains itself nor lies too deep.
bool SceneItem::Object::isWalkable() const
{
    if (!m_object.isValid() || !property().isValid())
        return true;
    const bool isLoop = m_parent->contains(m_object);
    if (!isLoop && m_level <= deepestLevel)
        return true;
    Ozy::DebugMessageHelper(Ozy::Priority::structural, "datamodels")
        .message(isLoop ? "SceneItem: \"%s\" contains itself and is not shown below itself\n"
                        : "SceneItem: \"%s\" lies deeper than 512 levels and is not shown\n",
                 fullPath().c_str());
    return false;
}

bool SceneItem::Object::contains(const zarn::ReflectedObject& object) const
{
    const Object* node = this;
    while (node && !(node->m_object == object))
        node = node->m_parent;
    return node != nullptr;
}

/// Also where the walk of the row throws: the row is there then, with what it had got.
void SceneItem::Object::makeRow()
{
    SceneItemModel& model = m_sceneItem.m_model;
    const bool isTold = model.m_suppressCounter == 0;
    const auto row = static_cast<int>(sceneRow());
    if (isTold)
        model.onItemsAboutToBeAdded(m_sceneItem, row, row);
    const auto tell = qScopeGuard([&] {
        if (isTold)
            model.onItemsAdded();
    });
    const Suppression suppression(model);
    const auto countRow = qScopeGuard([this] { addSceneItems(+1); });
    m_childRootObject = &m_sceneItem.insertChild(row, m_object, property(), this);
}

void SceneItem::Object::dropRow()
{
    SceneItemModel& model = m_sceneItem.m_model;
    const auto row = static_cast<int>(sceneRow());
    if (model.m_suppressCounter == 0)
        model.onItemsAboutToBeRemoved(m_sceneItem, row, row);
    {
        const Suppression suppression(model);
        m_childRootObject = nullptr;
        m_sceneItem.eraseChild(row);
        addSceneItems(-1);
    }
    if (model.m_suppressCounter == 0)
        model.onItemsRemoved();
    m_isSceneItem = false;
}

void SceneItem::Object::walk(const zarn::Annotations& annotations)
{
    if (annotations.contain<Meta::IconButton>())
        addIconButton();
    if (!m_object.isValid())
        return;
    updateDeleteButton();
    observe(m_object); // the children hear of their properties through it
    insertChildren(0, m_object.propertyCount());
    m_followsStructure = true;
}

void SceneItem::Object::propertyChanged(const zarn::BoundProperty& property, ryk::Flags<zarn::SetterFlag> setterFlags,
                                        ryk::Flags<zarn::NotifyFlag>)
{
    if (Object* const child = childOver(*property.metaProperty(), property.key()))
        child->onPropertyChanged(setterFlags);
}

/// Null for a property without a node. An element of a collection stands where its key says.
SceneItem::Object* SceneItem::Object::childOver(const zarn::MetaProperty& property, const qelm::Variant& key) const
{
    const auto isOver = [&](const std::unique_ptr<Object>& child) {
        return child && child->property().metaProperty().get() == &property;
    };
    if (const std::size_t* place = key.as<std::size_t>(); place && *place < m_children.size() && isOver(m_children[*place]))
        return m_children[*place].get();
    std::size_t place = 0;
    while (place < m_children.size() && !isOver(m_children[place]))
        ++place;
    return place < m_children.size() ? m_children[place].get() : nullptr;
}

void SceneItem::Object::propertyAdded(std::size_t index, std::size_t count)
{
    if (!m_followsStructure)
        return;
    insertChildren(index, count);
    fixChildrenReferences(index + count);
}

void SceneItem::Object::propertyAboutToBeRemoved(std::size_t index, std::size_t count)
{
    if (m_followsStructure)
        removeChildren(index, count);
}

void SceneItem::Object::propertyRemoved(std::size_t index, std::size_t)
{
    if (m_followsStructure)
        fixChildrenReferences(index);
}

void SceneItem::Object::propertiesAboutToBeReset()
{
    if (m_followsStructure)
        removeChildren(0, m_children.size());
}

void SceneItem::Object::propertiesReset()
{
    if (m_followsStructure)
        insertChildren(0, m_object.propertyCount());
}

void SceneItem::Object::onPropertyChanged(ryk::Flags<zarn::SetterFlag> setterFlags)
{
    if (setterFlags.test(zarn::SetterFlag::Unseen))
        return;
    fini();
    m_object = m_object.reread();
    init();
    if (!parentInItem() && m_sceneItem.m_model.m_suppressCounter == 0)
        m_sceneItem.m_model.onItemDataChanged(m_sceneItem, m_sceneItem, {});
}

void SceneItem::Object::fini()
{
    removeButton(m_iconButton);
    removeButton(m_deleteButton);
    if (m_isSceneItem)
        dropRow();
    removeChildren(0, m_children.size());
    OZY_ASSERT(m_sceneItemCount == 0);
    OZY_ASSERT(m_children.empty());
    // Last: the removal of the children has just asked whether it is wanted.
    removeButton(m_addButton);
    stopObserving();
    m_followsStructure = false;
}

void SceneItem::Object::insertChildren(std::size_t index, std::size_t count)
{
    if (!OZY_ASSERT(index <= m_children.size()))
        return;
    m_children.reserve(count);
    for (std::size_t place = index; place < index + count; ++place) {
        m_children.insert(place, makeChild(place));
        forgetRowsBefore(place);
        if (m_children[place])
            m_children[place]->init();
    }
    renumberChildren(index + count);
    updateAddButton();
}

/// Null where nothing can ever come of the property.
std::unique_ptr<SceneItem::Object> SceneItem::Object::makeChild(std::size_t place)
{
    zarn::BoundProperty property = m_object.propertyAt(place);
    if (property.isValid() && !property.metaProperty()->canHoldObject()) {
        const zarn::Annotations annotations = property.annotations();
        if (!annotations.contain<Meta::IconButton>() && !annotations.contain<Meta::SceneItem>())
            return nullptr;
    }
    return std::make_unique<Object>(m_sceneItem, std::move(property), this, place);
}

void SceneItem::Object::removeChildren(std::size_t index, std::size_t count)
{
    if (!OZY_ASSERT(index + count <= m_children.size()))
        return;
    for (std::size_t place = index; place < index + count; ++place) {
        if (m_children[place])
            m_children[place]->fini();
    }
    forgetRowsBefore(index);
    m_children.erase(index, count);
    renumberChildren(index);
    updateAddButton();
}

void SceneItem::Object::fixChildrenReferences(std::size_t from)
{
    OZY_ASSERT(m_children.size() <= m_object.propertyCount());
    for (std::size_t place = from; place < m_children.size(); ++place) {
        Object* const child = m_children[place].get();
        if (!child)
            continue;
        const zarn::BoundProperty property = m_object.propertyAt(place);
        // The keys first, which cost less to compare than values.
        if (child->property().key() == property.key() || !(child->m_object == zarn::ReflectedObject(property)))
            continue;
        child->fini();
        forgetRowsBefore(place);
        m_children[place] = std::make_unique<Object>(m_sceneItem, property, this, place);
        m_children[place]->init();
    }
}

void SceneItem::Object::renumberChildren(std::size_t from)
{
    for (std::size_t place = from; place < m_children.size(); ++place) {
        if (m_children[place])
            m_children[place]->m_place = place;
    }
}

void SceneItem::Object::addSceneItems(std::ptrdiff_t delta)
{
    m_sceneItemCount += static_cast<std::size_t>(delta);
    const Object* node = this;
    for (Object* parent = parentInItem(); parent; parent = parent->parentInItem()) {
        parent->forgetRowsBefore(parent->indexOf(*node) + 1);
        parent->m_sceneItemCount += static_cast<std::size_t>(delta);
        node = parent;
    }
}

/// What the children from `place` on know is no longer true.
void SceneItem::Object::forgetRowsBefore(std::size_t place)
{
    if (m_countedChildren < place)
        return;
    m_countedChildren = place;
    m_countedRows = 0;
    while (place > 0 && !m_children[place - 1])
        --place;
    if (place > 0)
        m_countedRows = m_children[place - 1]->m_rowsBefore + m_children[place - 1]->m_sceneItemCount;
}

/// How many rows the earlier siblings make.
std::size_t SceneItem::Object::rowsBefore() const
{
    const Object* const parent = parentInItem();
    if (!parent)
        return 0;
    for (const std::size_t place = parent->indexOf(*this); parent->m_countedChildren <= place; ++parent->m_countedChildren) {
        if (const Object* const sibling = parent->m_children[parent->m_countedChildren].get()) {
            sibling->m_rowsBefore = parent->m_countedRows;
            parent->m_countedRows += sibling->m_sceneItemCount;
        }
    }
    return m_rowsBefore;
}

std::size_t SceneItem::Object::indexOf(const Object& child) const
{
    if (child.m_place < m_children.size() && m_children[child.m_place].get() == &child)
        return child.m_place;
    std::size_t place = 0;
    while (place < m_children.size() && m_children[place].get() != &child)
        ++place;
    OZY_ASSERT_AS("it != m_children.end()", place < m_children.size());
    child.m_place = place;
    return place;
}

std::size_t SceneItem::Object::sceneRow() const
{
    std::size_t row = rowsBefore();
    for (const Object* parent = parentInItem(); parent && parent->parentInItem(); parent = parent->m_parent)
        row += parent->rowsBefore();
    return row;
}

/// The dotted path of the property from the top of the item.
std::string SceneItem::Object::fullPath() const
{
    // Intended: a root node begins with the name of its parent, which then stands there twice.
    std::string path = property().isValid() ? property().name() : m_parent ? m_parent->property().name() : std::string();
    for (const Object* parent = m_parent; parent && parent->property().isValid(); parent = parent->m_parent)
        path = path.empty() ? parent->property().name() : parent->property().name() + "." + path;
    return path;
}
