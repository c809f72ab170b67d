#pragma once

#include <datamodels/datamodels_export.h>
#include <host/reflection/bound_property.h>

#include <string>
#include <vector>

class IAssetModel;
class IAssetSelection;

/// What the button of a property does: it calls a method, or turns a switch, of its object, or of all selected objects if
/// that is one of them. Inverted it turns to the unselected siblings instead: a method is called for each of them, and the
/// values of a switch are exchanged between the two.
///
/// The property is found by its dotted path from the object. Where there is none, or a hidden one, or one that is neither
/// a method nor anything like a bool, nothing happens; the same decides which other objects take part.
/// Thread: GUI only.
struct DATAMODELS_API UserButtonHandler
{
    void operator()(IAssetSelection* selection, bool inversion) const;

    zarn::ReflectedObject m_object;
    std::string m_name;
    IAssetModel* m_model = nullptr; ///< not owned

private:
    enum class Kind
    {
        Nothing,
        Switch,
        Method,
    };
    using Properties = std::vector<zarn::BoundProperty>;

    zarn::BoundProperty propertyOf(const zarn::ReflectedObject& object) const;
    static Kind kindOf(const zarn::BoundProperty& property);
    Properties selectionTargets(IAssetSelection* selection, Kind kind, bool siblingsOnly) const;
    Properties siblingComplement(const Properties& selected, Kind kind) const;
    void exchange(const Properties& selected, const Properties& others) const;
};
