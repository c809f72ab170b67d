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

SceneItem::SceneItem(PrivateCtor, SceneItemModel& model, SceneItem* parent) : m_parent(parent), m_model(model) {}

SceneItem::~SceneItem()
{
    m_rootObject.reset();
    for (std::size_t row = 0; row < m_children.size(); ++row)
        m_children[row].reset();
}

void SceneItem::init(zarn::ReflectedObject object, const zarn::BoundProperty& property, Object* collection)
{
    const zarn::Annotations annotations = property.annotations();
    if (const auto text = annotations.find<Meta::Label::Text>(); text.isValid())
        m_name = QString::fromStdString(text->value<Meta::Label::Text>()(property));
    if (const auto expanded = annotations.find<Meta::Expanded>(); expanded.isValid() && !expanded->value<Meta::Expanded>()(object))
        m_expanded = false;
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

void SceneItem::numberChildren() const
{
    for (; m_numberedRows < m_children.size(); ++m_numberedRows)
        m_children[m_numberedRows]->m_row = m_numberedRows;
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
    const auto row = static_cast<std::size_t>(index);
    m_numberedRows = std::min(m_numberedRows, row);
    m_children[row]->m_row = SIZE_MAX; // it still goes on for a while
    m_children.erase(row);
}

SceneItemButtonsModel& SceneItem::buttons()
{
    if (!m_buttonsModel)
        m_buttonsModel = std::make_unique<SceneItemButtonsModel>(&m_model);
    return *m_buttonsModel;
}

SceneItem* SceneItem::findSceneItemByItsReflectedObject(const zarn::ReflectedObject& object)
{
    // Objects know who follows them, unless they are dead, and then all alike, or have no data.
    if (!object.isValid() || !object.data())
        return searchFor(object);
    SceneItem* first = nullptr;
    object.data()->observers.lookAt([&](const zarn::ObjectObserver& observer) {
        const auto* const watch = dynamic_cast<const Watch*>(&observer);
        if (!watch || &watch->item().m_model != &m_model || !(watch->item().reflectedObject() == object))
            return;
        if (watch->item().isWithin(*this) && (!first || watch->item().isBefore(*first)))
            first = &watch->item();
    });
    return first;
}

SceneItem* SceneItem::searchFor(const zarn::ReflectedObject& object)
{
    if (reflectedObject() == object)
        return this;
    SceneItem* found = nullptr;
    for (std::size_t row = 0; !found && row < m_children.size(); ++row)
        found = m_children[row]->searchFor(object);
    return found;
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
