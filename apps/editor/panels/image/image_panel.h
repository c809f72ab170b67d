#pragma once

#include "panels/atlas/atlas_view.h"
#include "panels/library/asset_list_model.h"
#include "panels/panel_table.h"

#include <datamodels/atlas/atlas_context.h>
#include <datamodels/image/flat_image_info_model.h>
#include <datamodels/image/image_channels_model.h>
#include <datamodels/image/image_info_model.h>
#include <datamodels/image/image_model.h>
#include <datamodels/image/simple_image_model.h>
#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

namespace editor {

/// The panel "Image": one image of the project at a time, by its channels and down to its pixels, with what is known of it.
///
/// The list is that of the panel Assets, as far as it holds images. The models of the image follow the disk: those that
/// listen by themselves, the others through this panel. The choice of channels stays when the file changes, unless its
/// channels are others.
class ImagePanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* list READ list CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* words READ words CONSTANT)
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    Q_PROPERTY(QString path READ path NOTIFY pathChanged)
    Q_PROPERTY(datamodels::ImageModel* images READ images CONSTANT)
    Q_PROPERTY(datamodels::ImageChannelsModel* channels READ channels CONSTANT)
    Q_PROPERTY(datamodels::SimpleImageModel* preview READ preview CONSTANT)
    Q_PROPERTY(datamodels::ImageInfoModel* facts READ facts CONSTANT)
    Q_PROPERTY(datamodels::FlatImageInfoModel* form READ form CONSTANT)
    Q_PROPERTY(AtlasContext* atlas READ atlas CONSTANT)
    Q_PROPERTY(bool isAtlas READ isAtlas NOTIFY pathChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY statusChanged)
    Q_PROPERTY(QString emptyReason READ emptyReason NOTIFY statusChanged)
    Q_PROPERTY(int loading MEMBER m_loading) ///< pictures that the view waits for

public:
    explicit ImagePanel(const PanelContext& context);
    ~ImagePanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;
    bool isBusy() const override;

    QAbstractItemModel* list() { return &m_filter; }
    qelm::datamodels::proxy::TextPredicate* words() const { return m_words; }
    datamodels::ImageModel* images() { return &m_images; }
    datamodels::ImageChannelsModel* channels() { return m_images.channelsModel(); }
    datamodels::SimpleImageModel* preview() { return &m_preview; }
    datamodels::ImageInfoModel* facts() { return &m_facts; }
    datamodels::FlatImageInfoModel* form() { return &m_form; }
    /// The slots of the file, if it is one of an atlas.
    AtlasContext* atlas() { return &m_atlas; }
    bool isAtlas() const { return m_path.endsWith(QLatin1String(".atlas")); }
    bool isEmpty() const { return m_filter.rowCount() == 0; }
    QString emptyReason() const;

    /// The row of the image that shows; -1 while the words leave it out.
    int currentRow() const;
    /// Shows the image of a row; a row out of range changes nothing.
    void setCurrentRow(int row);
    /// Of the image that shows, in the project; empty if there is none.
    QString path() const { return m_path; }
    /// Shows the image at a path of the project.
    void show(const QString& path);

    /// Shows one channel alone, or all that are shown at first if it is alone already.
    Q_INVOKABLE void showAlone(int row);

Q_SIGNALS:
    void currentRowChanged();
    void pathChanged();

private:
    class FileWatch;

    void readAgain();
    void followChannelCount();
    void followAtlas();

    AssetListModel m_assets;
    qelm::datamodels::proxy::TokensPredicate* m_words; // owned by the filter
    qelm::datamodels::proxy::FilterProxyModel m_filter;
    QString m_path;
    QString m_file; // the same, absolute
    datamodels::ImageModel m_images;
    datamodels::SimpleImageModel m_preview;
    datamodels::ImageInfoModel m_facts;
    datamodels::FlatImageInfoModel m_form;
    AtlasView m_atlasView;
    AtlasContext m_atlas;
    std::unique_ptr<FileWatch> m_watch;
    unsigned m_channelCount = 0;
    int m_loading = 0;
};

} // namespace editor
