#include <host/reflection/generic_object.h>

#include <host/reflection/cast.h>
#include <host/reflection/container_commands.h>
#include <host/reflection/generic_meta_object.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/object_data.h>
#include <host/undo/commit_changes_scope.h>
#include <host/variant/variant_converter.h>

#include <algorithm>

namespace zarn {

/// Undoes a removal: the very property comes back.
class GenericObject::Insert final : public UndoContainerBase
{
public:
    Insert(const ReflectedObject& object, std::size_t index, std::shared_ptr<MetaProperty> property)
        : UndoContainerBase("Remove property from object", object, index)
        , m_index(index)
        , m_property(std::move(property))
    {
    }

    bool execute() override
    {
        auto* object = zarn::cast<GenericObject>(m_container.object());
        if (object && !object->indexOf(m_property->key()) && object->insertProperty(m_property, m_index) >= 0)
            return true;
        Ozy::DebugMessageHelper(Ozy::Priority::refusal, "").message("Failed to insert into a container");
        return false;
    }

private:
    std::size_t m_index;
    std::shared_ptr<MetaProperty> m_property;
};

/// Undoes a reset.
class GenericObject::Restore final : public UndoContainerBase
{
public:
    Restore(const ReflectedObject& object, Properties properties)
        : UndoContainerBase("Clear object", object, 0), m_properties(std::move(properties))
    {
    }

    bool execute() override
    {
        auto* object = zarn::cast<GenericObject>(m_container.object());
        if (object)
            object->resetProperties(m_properties);
        return object;
    }

private:
    Properties m_properties;
};

GenericObject::~GenericObject() = default;

void GenericObject::clear()
{
    const ReflectedObject self = reflect(*this);
    if (!m_properties.empty())
        resetProperties({});
    if (self.isValid())
        cleared();
}

void GenericObject::resetProperties(Properties properties)
{
    const ReflectedObject self = reflect(*this);
    if (isRecorded())
        Ozy::CommitChangesScope::makeUndo<Restore>(self, m_properties);
    const PropertiesResetNotifier notifier(self);
    if (!self.isValid())
        return;
    m_properties.swap(properties);
    for (const auto& gone : properties) {
        if (std::find(m_properties.begin(), m_properties.end(), gone) == m_properties.end())
            self.data()->dropPropertyData(*gone);
    }
}

int GenericObject::insertProperty(const std::shared_ptr<MetaProperty>& property, std::size_t index)
{
    const ReflectedObject self = reflect(*this);
    index = std::min(index, m_properties.size());
    if (isRecorded())
        Ozy::CommitChangesScope::makeUndo<RemoveFromContainer>("Add property to object", self, property->key());
    const PropertiesAddNotifier notifier(self, index, 1);
    if (!self.isValid())
        return -1;
    index = std::min(index, m_properties.size());
    m_properties.insert(m_properties.begin() + static_cast<std::ptrdiff_t>(index), property);
    return static_cast<int>(index);
}

bool GenericObject::removeProperty(std::size_t index)
{
    if (index >= m_properties.size())
        return false;
    const ReflectedObject self = reflect(*this);
    const std::shared_ptr<MetaProperty> property = m_properties[index];
    const PropertiesRemoveNotifier notifier(self, index, 1);
    // A listener may have been faster, or have destroyed the object.
    if (!self.isValid() || index >= m_properties.size() || m_properties[index] != property)
        return false;
    if (isRecorded())
        Ozy::CommitChangesScope::makeUndo<Insert>(self, index, property);
    m_properties.erase(m_properties.begin() + static_cast<std::ptrdiff_t>(index));
    self.data()->dropPropertyData(*property);
    return true;
}

std::optional<std::size_t> GenericObject::indexOf(const qelm::Variant& key) const
{
    const auto position = [this](const auto& matches) -> std::optional<std::size_t> {
        const auto found = std::find_if(m_properties.begin(), m_properties.end(), matches);
        return found == m_properties.end() ? std::nullopt
                                           : std::optional<std::size_t>(std::size_t(found - m_properties.begin()));
    };
    if (const auto byKey = position([&](const auto& property) { return property->key() == key; }))
        return byKey;
    const std::string* name = key.as<std::string>();
    return name ? position([name](const auto& property) { return property->name() == *name; }) : std::nullopt;
}

} // namespace zarn
