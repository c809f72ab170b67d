#pragma once

#include "panels/library/asset_list_model.h"
#include "panels/panel_table.h"

#include <datamodels/helpers/model_elements_counter.h>
#include <datamodels/helpers/qt_grid_view_selector.h>
#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <QItemSelectionModel>
#include <QUrl>

namespace editor {

/// The panel "Assets": the assets of the project as a grid of pictures, of which any number can be selected.
///
/// The way of a row: `AssetListModel`, a filter by words that sorts by name, view. What is selected stays so
/// while it passes the filter.
class AssetsPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* model READ model CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* words READ words CONSTANT)
    Q_PROPERTY(QItemSelectionModel* selection READ selection CONSTANT)
    Q_PROPERTY(QtGridViewSelector* selector READ selector CONSTANT)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY statusChanged)
    Q_PROPERTY(QString emptyReason READ emptyReason NOTIFY statusChanged)
    Q_PROPERTY(int loading MEMBER m_loading) ///< pictures that the view waits for

public:
    explicit AssetsPanel(const PanelContext& context);
    ~AssetsPanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;
    bool isBusy() const override { return m_loading > 0; }

    QAbstractItemModel* model() { return &m_filter; }
    qelm::datamodels::proxy::TextPredicate* words() const { return m_words; }
    QItemSelectionModel* selection() { return &m_selection; }
    QtGridViewSelector* selector() { return &m_selector; }
    bool isEmpty() const { return m_shown.value() == 0; }
    QString emptyReason() const;

    Q_INVOKABLE void selectAll();
    /// The file behind a path of the project, if it holds a picture that can be shown; else empty. The time
    /// tells apart what the file held before, so that views load it anew.
    Q_INVOKABLE QUrl pictureOf(const QString& path, const QDateTime& modified) const;

private:
    AssetListModel m_assets;
    qelm::datamodels::proxy::TokensPredicate* m_words; // owned by the filter
    qelm::datamodels::proxy::FilterProxyModel m_filter;
    QItemSelectionModel m_selection;
    QtGridViewSelector m_selector;
    ModelElementsCounter m_all;
    ModelElementsCounter m_shown;
    int m_loading = 0;
};

} // namespace editor
