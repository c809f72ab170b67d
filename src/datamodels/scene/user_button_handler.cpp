#include <datamodels/scene/user_button_handler.h>

#include <datamodels/i_asset_model.h>
#include <datamodels/scene_roles.h>
#include <host/asset/asset_selection.h>
#include <host/variant/variant_converter.h>

#include <QAbstractItemModel>

#include <algorithm>

namespace {

using Properties = std::vector<zarn::BoundProperty>;

std::optional<bool> asBool(const zarn::BoundProperty& property)
{
    return qelm::VariantConverter::convertTo<bool>(property.get());
}

/// What does not convert counts as on.
bool isOn(const zarn::BoundProperty& property)
{
    return asBool(property).value_or(true);
}

void invoke(const Properties& methods, IAssetSelection* selection)
{
    for (const zarn::BoundProperty& method : methods) {
        if (selection && !method.isStateless())
            selection->onMethodAboutToRun(method);
        method.genericInvoke({}, 0, nullptr);
    }
}

void set(const Properties& switches, bool value)
{
    for (const zarn::BoundProperty& property : switches) {
        if (!property.isReadOnly() && asBool(property) != value)
            property.set(value, {});
    }
}

/// What all that can be set agree on.
std::optional<bool> commonValue(const Properties& switches)
{
    std::optional<bool> common;
    for (const zarn::BoundProperty& property : switches) {
        if (property.isReadOnly())
            continue;
        const bool value = isOn(property);
        if (common && *common != value)
            return std::nullopt;
        common = value;
    }
    return common;
}

} // namespace

void UserButtonHandler::operator()(IAssetSelection* selection, bool inversion) const
{
    const zarn::BoundProperty clicked = propertyOf(m_object);
    const Kind kind = kindOf(clicked);
    if (kind == Kind::Nothing)
        return;
    const Properties targets = selectionTargets(selection, kind, inversion);
    if (!inversion) {
        if (kind == Kind::Method)
            invoke(targets, selection);
        else
            set(targets, !isOn(clicked));
        return;
    }
    const Properties others = siblingComplement(targets, kind);
    if (kind == Kind::Method)
        invoke(others, selection);
    else
        exchange(targets, others);
}

void UserButtonHandler::exchange(const Properties& selected, const Properties& others) const
{
    const std::optional<bool> ofSelected = commonValue(selected);
    const std::optional<bool> ofOthers = commonValue(others);
    const bool isSwap = ofSelected && ofOthers && *ofSelected != *ofOthers;
    const bool value = isSwap ? *ofOthers : isOn(propertyOf(m_object));
    set(selected, value);
    set(others, !value);
}

zarn::BoundProperty UserButtonHandler::propertyOf(const zarn::ReflectedObject& object) const
{
    return object.findPropertyByName(m_name);
}

UserButtonHandler::Kind UserButtonHandler::kindOf(const zarn::BoundProperty& property)
{
    if (!property.isValid() || !property.visibility().test(zarn::meta_property::VisibilityFlag::Outliner))
        return Kind::Nothing;
    if (!property.isMethod())
        return asBool(property) ? Kind::Switch : Kind::Nothing;
    return Kind::Method;
}

/// The clicked property, or those of all selected objects if its object is one of them.
UserButtonHandler::Properties UserButtonHandler::selectionTargets(IAssetSelection* selection, Kind kind,
                                                                  bool siblingsOnly) const
{
    if (!selection || !selection->isSelected(m_object))
        return {propertyOf(m_object)};
    const QModelIndex parent = siblingsOnly ? m_model->indexOf(m_object).parent() : QModelIndex();
    Properties targets;
    for (const zarn::PersistentObject& selected : selection->selectedObjects()) {
        const zarn::ReflectedObject object = selected.object();
        const zarn::BoundProperty property = propertyOf(object);
        if (kindOf(property) == kind && (!siblingsOnly || m_model->indexOf(object).parent() == parent))
            targets.push_back(property);
    }
    return targets;
}

/// Those of the siblings that are not among the selected.
UserButtonHandler::Properties UserButtonHandler::siblingComplement(const Properties& selected, Kind kind) const
{
    const QAbstractItemModel& model = *m_model->itemModel();
    const QModelIndex parent = m_model->indexOf(m_object).parent();
    Properties others;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        QVariant value = model.index(row, 0, parent).data(SceneRoles::Object);
        value.convert(qMetaTypeId<zarn::ReflectedObject>());
        const zarn::BoundProperty property = propertyOf(value.value<zarn::ReflectedObject>());
        if (kindOf(property) == kind && std::find(selected.begin(), selected.end(), property) == selected.end())
            others.push_back(property);
    }
    return others;
}
