#include <datamodels/scene/scene_item.h>

#include <datamodels/scene/scene_item_buttons_model.h>
#include <datamodels/scene/scene_item_object.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>
#include <host/reflection/meta.h>
#include <host/variant/variant_converter.h>

#include <algorithm>
#include <stdexcept>

namespace {

template <class T>
T read(const zarn::ReflectedObject& object, const char* name, T fallback)
{
    return qelm::VariantConverter::convertTo<T>(object.findPropertyByName(name).get()).value_or(std::move(fallback));
}

QString readText(const zarn::ReflectedObject& object, const char* name, const char* fallback)
{
    return QString::fromStdString(read<std::string>(object, name, fallback));
}

bool readFlag(const zarn::BoundProperty& property)
{
    return qelm::VariantConverter::convertTo<bool>(property.get()).value_or(false);
}

} // namespace

SceneItem::SceneItem(zarn::ReflectedObject object, SceneItemModel& model) : m_model(model)
{
    init(std::move(object), zarn::BoundProperty(), nullptr);
}

SceneItem::SceneItem(PrivateCtor, SceneItemModel& model, SceneItem* parent) : m_model(model), m_parent(parent) {}

SceneItem::~SceneItem()
{
    m_rootObject.reset();
    for (std::size_t row = 0; row < m_children.size(); ++row)
        m_children[row].reset();
    const auto known = m_model.m_itemsByObject.equal_range(m_address);
    const auto own = std::find_if(known.first, known.second, [this](const auto& entry) { return entry.second == this; });
    if (own != known.second)
        m_model.m_itemsByObject.erase(own);
}

void SceneItem::init(zarn::ReflectedObject object, const zarn::BoundProperty& property, Object* collection)
{
    const zarn::Annotations annotations = property.annotations();
    if (const auto text = annotations.find<Meta::Label::Text>(); text.isValid())
        m_name = QString::fromStdString(text->value<Meta::Label::Text>()(property));
    if (const auto expanded = annotations.find<Meta::Expanded>(); expanded.isValid() && !expanded->value<Meta::Expanded>()(object))
        m_expanded = false;
    m_address = object.address();
    m_model.m_itemsByObject.emplace(m_address, this);
    initState(object);
    m_watch.observe(object);
    // Walks, and so makes the rows below. Until it is done there is no root node.
    m_rootObject = std::make_unique<Object>(*this, std::move(object), collection);
}

void SceneItem::initState(const zarn::ReflectedObject& object)
{
    m_followed = {};
    m_parentEnabled = !m_parent || m_parent->isEnabled();
    if (const zarn::BoundProperty enabled = object.findPropertyByName("_isEnabled"); enabled.isValid()) {
        m_enabled = readFlag(enabled);
        pushEnabledDown();
        m_followed.isEnabled = enabled.metaProperty().get();
    }
    if (m_name.isEmpty())
        m_followed.name = object.findPropertyByName("_objectName").metaProperty().get();
    m_followed.icon = object.findPropertyByName("_objectIcon").metaProperty().get();
    m_followed.state = object.findPropertyByName("_objectState").metaProperty().get();
    initModifiableState(object);
}

void SceneItem::initModifiableState(const zarn::ReflectedObject& object)
{
    const zarn::BoundProperty modified = object.findPropertyByName("_isModified");
    if (!modified.isValid())
        return;
    m_modified = readFlag(modified);
    m_followed.isModified = modified.metaProperty().get();
}

void SceneItem::Watch::propertyChanged(const zarn::BoundProperty& property, ryk::Flags<zarn::SetterFlag> setterFlags,
                                       ryk::Flags<zarn::NotifyFlag> notifyFlags)
{
    m_item.onValueChanged(property, !setterFlags.test(zarn::SetterFlag::Unseen) && notifyFlags.test(zarn::NotifyFlag::Value));
}

void SceneItem::Watch::propertiesReset()
{
    if (m_item.m_rootObject)
        m_item.initState(m_item.reflectedObject());
}

void SceneItem::onValueChanged(const zarn::BoundProperty& property, bool isTold)
{
    const zarn::MetaProperty* const changed = property.metaProperty().get();
    if (changed == m_followed.isModified) {
        // Intended: whatever the flags.
        m_modified = readFlag(property);
        m_model.onItemDataChanged(*this, *this, {SceneRoles::Modified});
    } else if (!isTold) {
        return;
    } else if (changed == m_followed.isEnabled) {
        m_enabled = readFlag(property);
        pushEnabledDown();
        m_model.onItemDataChanged(*this, *this, {SceneRoles::Enabled});
    } else if (changed == m_followed.name) {
        m_model.onItemDataChanged(*this, *this, {Qt::DisplayRole});
    } else if (changed == m_followed.icon) {
        m_model.onItemDataChanged(*this, *this, {Qt::DecorationRole});
    } else if (changed == m_followed.state) {
        m_model.onItemDataChanged(*this, *this, {Qt::CheckStateRole});
    }
}

QString SceneItem::name() const
{
    return m_name.isEmpty() ? readText(reflectedObject(), "_objectName", "<unnamed scene item>") : m_name;
}

QString SceneItem::icon() const
{
    static const QString folder = QStringLiteral("resources/maps/gui/");
    QString icon = readText(reflectedObject(), "_objectIcon", "<unnamed type>");
    // Intended: the dot of a directory counts as well.
    if (const int dot = icon.lastIndexOf(QLatin1Char('.')); dot >= 0)
        icon.truncate(dot);
    return icon.startsWith(folder) ? icon.mid(folder.size()) : icon;
}

QString SceneItem::objectType() const
{
    return readText(reflectedObject(), "_typeName", "<unknown type>");
}

int SceneItem::state() const
{
    return read<int>(reflectedObject(), "_objectState", 0);
}

QVariant SceneItem::object() const
{
    return QVariant::fromValue(reflectedObject());
}

const zarn::ReflectedObject& SceneItem::reflectedObject() const
{
    static const zarn::ReflectedObject none;
    return m_rootObject ? m_rootObject->object() : none;
}

void SceneItem::setHovered(bool hovered)
{
    if (m_hovered == hovered)
        return;
    m_hovered = hovered;
    m_model.onItemDataChanged(*this, *this, {SceneRoles::Hover});
}

void SceneItem::pushEnabledDown()
{
    const bool enabled = isEnabled();
    for (std::size_t row = 0; row < m_children.size(); ++row)
        m_children[row]->setParentEnabled(enabled);
}

void SceneItem::setParentEnabled(bool enabled)
{
    m_parentEnabled = enabled;
    pushEnabledDown();
    m_model.onItemDataChanged(*this, *this, {SceneRoles::Enabled});
}

const SceneItem* SceneItem::childAt(int index) const
{
    if (m_children.empty())
        return nullptr;
    const auto row = static_cast<std::size_t>(index);
    if (row >= m_children.size())
        throw std::out_of_range("SceneItem::childAt");
    return m_children[row].get();
}

int SceneItem::childIndex(const SceneItem* child) const
{
    if (child->m_parent != this)
        return -1;
    const auto isNumbered = [&] { return child->m_row < m_numberedRows && m_children[child->m_row].get() == child; };
    if (!isNumbered()) {
        for (; m_numberedRows < m_children.size(); ++m_numberedRows)
            m_children[m_numberedRows]->m_row = m_numberedRows;
    }
    return isNumbered() ? static_cast<int>(child->m_row) : -1;
}

int SceneItem::selfIndexInParent() const
{
    return m_parent ? m_parent->childIndex(this) : -1;
}

SceneItem::Object& SceneItem::insertChild(int index, zarn::ReflectedObject object, const zarn::BoundProperty& property,
                                          Object* collection)
{
    auto made = std::make_unique<SceneItem>(PrivateCtor(), m_model, this);
    SceneItem& child = *made;
    child.m_collectionObject = collection;
    m_children.insert(static_cast<std::size_t>(index), std::move(made));
    m_numberedRows = std::min(m_numberedRows, static_cast<std::size_t>(index));
    child.init(std::move(object), property, collection);
    return *child.m_rootObject;
}

void SceneItem::eraseChild(int index)
{
    m_numberedRows = std::min(m_numberedRows, static_cast<std::size_t>(index));
    m_children.erase(static_cast<std::size_t>(index));
}

SceneItemButtonsModel& SceneItem::buttons()
{
    if (!m_buttonsModel)
        m_buttonsModel = std::make_unique<SceneItemButtonsModel>(&m_model);
    return *m_buttonsModel;
}

SceneItem* SceneItem::findSceneItemByItsReflectedObject(const zarn::ReflectedObject& object)
{
    SceneItem* first = nullptr;
    // An object that has died is found by no address, and equals all others that have.
    if (!object.isValid()) {
        if (!reflectedObject().isValid())
            return this;
        for (std::size_t row = 0; !first && row < m_children.size(); ++row)
            first = m_children[row]->findSceneItemByItsReflectedObject(object);
        return first;
    }
    const auto known = m_model.m_itemsByObject.equal_range(object.address());
    for (auto entry = known.first; entry != known.second; ++entry) {
        SceneItem* const item = entry->second;
        if (item->reflectedObject() == object && item->isWithin(*this) && (!first || item->isBefore(*first)))
            first = item;
    }
    return first;
}

bool SceneItem::isWithin(const SceneItem& ancestor) const
{
    const SceneItem* item = this;
    while (item && item != &ancestor)
        item = item->m_parent;
    return item != nullptr;
}

/// From the top down to this item.
std::vector<const SceneItem*> SceneItem::path() const
{
    std::vector<const SceneItem*> items;
    for (const SceneItem* item = this; item; item = item->m_parent)
        items.push_back(item);
    std::reverse(items.begin(), items.end());
    return items;
}

bool SceneItem::isBefore(const SceneItem& other) const
{
    const std::vector<const SceneItem*> own = path();
    const std::vector<const SceneItem*> others = other.path();
    const auto [fork, otherFork] = std::mismatch(own.begin(), own.end(), others.begin(), others.end());
    if (fork == own.end() || otherFork == others.end())
        return fork == own.end() && otherFork != others.end();
    return (*fork)->selfIndexInParent() < (*otherFork)->selfIndexInParent();
}
