#pragma once

#include <datamodels/composite_model.h>

#include <support/scripted_tree.h>

/// A composite whose path rows show their names, and whose roles can be asked for.
class TitledComposite : public CompositeModel
{
public:
    TitledComposite() { mapRoles(this, {{Qt::DisplayRole, "display"}}); }

    using CompositeModel::mapRoleFromSorce;
    using CompositeModel::mapRoles;
    using CompositeModel::mapRoleToSource;

    std::shared_ptr<ScriptedTree> mount(const std::string& path, const QStringList& lines)
    {
        auto model = std::make_shared<ScriptedTree>(lines);
        addSubmodel(path, model);
        return model;
    }

    int role(const char* name) const { return roleNames().key(name, -1); }
};
