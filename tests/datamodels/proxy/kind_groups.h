#pragma once

#include <datamodels/proxy/group_by_proxy_model.h>

#include <support/scripted_tree.h>

/// The rows of a source in groups of one kind.
class KindGroups : public qelm::datamodels::proxy::GroupByProxyModel
{
public:
    explicit KindGroups(QAbstractItemModel& source)
    {
        setSourceModel(&source);
        setRole(ScriptedTree::KindRole, "kind");
    }
};
