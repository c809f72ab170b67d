#pragma once

#include "asset_list_model.h"
#include "controls/tree_cursor.h"
#include "library_groups.h"
#include "panels/panel_table.h"

#include <datamodels/helpers/model_elements_counter.h>
#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

namespace editor {

/// The panel "Library": all assets of the project in groups, which follow the disk.
///
/// The way of a row: `AssetListModel`, `LibraryGroups`, a filter by words that also sorts, `TreeRows`, view.
class LibraryPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::LibraryGroups* groups READ groups CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* words READ words CONSTANT)
    Q_PROPERTY(editor::TreeRows* rows READ rows CONSTANT)
    Q_PROPERTY(editor::TreeCursor* cursor READ cursor CONSTANT)
    Q_PROPERTY(QStringList needles READ needles NOTIFY needlesChanged)
    Q_PROPERTY(QString sortedBy READ sortedBy NOTIFY sortingChanged)
    Q_PROPERTY(bool isDescending READ isDescending NOTIFY sortingChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY statusChanged)
    Q_PROPERTY(QString emptyReason READ emptyReason NOTIFY statusChanged)

public:
    explicit LibraryPanel(const PanelContext& context);
    ~LibraryPanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;

    LibraryGroups* groups() { return &m_groups; }
    qelm::datamodels::proxy::TextPredicate* words() const { return m_words; }
    TreeRows* rows() { return &m_rows; }
    TreeCursor* cursor() { return &m_cursor; }
    QStringList needles() const;

    /// The name of the role that groups and assets are sorted by.
    QString sortedBy() const;
    bool isDescending() const;
    /// Sorts by a role, or turns the order round if it is that role already.
    Q_INVOKABLE void sortOrTurn(const QString& roleName);

    bool isEmpty() const { return m_shownGroups.value() == 0; }
    QString emptyReason() const;
    /// Looks at the disk now.
    Q_INVOKABLE void reload() { m_assets.synchronise(); }

Q_SIGNALS:
    void needlesChanged();
    void sortingChanged();

private:
    bool isFiltered() const { return !needles().isEmpty(); }
    void queueStatus();

    AssetListModel m_assets;
    LibraryGroups m_groups;
    qelm::datamodels::proxy::TokensPredicate* m_words; // owned by the filter
    qelm::datamodels::proxy::FilterProxyModel m_filter;
    TreeRows m_rows;
    TreeCursor m_cursor;
    ModelElementsCounter m_shownGroups;
    ModelElementsCounter m_shown; // groups and assets
    bool m_isStatusQueued = false;
};

} // namespace editor
