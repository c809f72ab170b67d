#pragma once

#include <datamodels/proxy/group_by_proxy_model.h>

namespace editor {

class AssetListModel;

/// The assets of a list in groups of one kind, one folder or one extension.
///
/// Group rows have the roles of assets where all of theirs agree, "count", "isGroup", and a "key" of their
/// own. The list must outlive it. Thread: GUI.
class LibraryGroups : public qelm::datamodels::proxy::GroupByProxyModel
{
    Q_OBJECT
    Q_PROPERTY(int by READ by WRITE setBy NOTIFY byChanged)

public:
    enum By
    {
        ByKind,
        ByFolder,
        ByExtension,
    };

    explicit LibraryGroups(AssetListModel& assets);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    int by() const { return m_by; }
    /// One of `By`; anything else changes nothing.
    void setBy(int by);

Q_SIGNALS:
    void byChanged();

private:
    int m_by = -1;
};

} // namespace editor
