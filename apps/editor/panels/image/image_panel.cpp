#include "image_panel.h"

#include "image_predicate.h"
#include "panels/texts.h"

#include <datamodels/proxy/predicates/and_predicate.h>
#include <host/images/tessen_image_provider.h>

namespace editor {

using namespace qelm::datamodels::proxy;
using datamodels::ImageChannelsModel;
using datamodels::SimpleImageModel;

/// Hears of changes of the file for the models that do not listen themselves.
class ImagePanel::FileWatch final : public TessenImageCache::CacheListener
{
public:
    explicit FileWatch(ImagePanel& panel) : m_panel(panel)
    {
        TessenImageProvider::imageCache().registerListener(this);
    }
    ~FileWatch() { TessenImageProvider::imageCache().unregisterListener(this); }
    Q_DISABLE_COPY_MOVE(FileWatch)

    const QString& fileName() const override { return m_panel.m_file; }
    void onImageChanged() override { m_panel.readAgain(); }

private:
    ImagePanel& m_panel;
};

ImagePanel::ImagePanel(const PanelContext& context)
    : m_assets(context.content)
    , m_words(new TokensPredicate({AssetListModel::NameRole, AssetListModel::PathRole}))
    , m_filter(new AndPredicate({new ImagePredicate, m_words}))
    , m_watch(std::make_unique<FileWatch>(*this))
{
    m_filter.setSourceModel(&m_assets);
    m_filter.setSortRole(AssetListModel::PathRole);
    m_filter.sort(0);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
        connect(&m_filter, signal, this, &ImagePanel::currentRowChanged);
        connect(&m_filter, signal, this, &Panel::statusChanged);
    }
    connect(&m_preview, &SimpleImageModel::channelCountChanged, this, &ImagePanel::followChannelCount);
    connect(&m_preview, &QAbstractItemModel::modelReset, this, &ImagePanel::followAtlas);
    connect(&m_preview, &QAbstractItemModel::rowsInserted, this, &ImagePanel::followAtlas);
    connect(&m_preview, &QAbstractItemModel::dataChanged, this, &ImagePanel::followAtlas);
    setCurrentRow(0);
}

ImagePanel::~ImagePanel()
{
    m_atlas.setData({});
}

QString ImagePanel::status() const
{
    const QString shown = counted(m_filter.rowCount(), "image", "images");
    return m_path.isEmpty() ? shown : shown + QStringLiteral(", ") + m_path;
}

bool ImagePanel::isBusy() const
{
    return m_loading > 0 || m_preview.status() == SimpleImageModel::Loading
           || (m_preview.status() == SimpleImageModel::Ready
               && (!m_form.valid() || (m_images.rowCount() == 0 && !isAtlas())));
}

QString ImagePanel::emptyReason() const
{
    if (m_words->text().isEmpty())
        return QStringLiteral("There are no images in\n%1").arg(m_assets.directory());
    return QStringLiteral("No image has these words");
}

int ImagePanel::currentRow() const
{
    const QModelIndexList found = m_filter.match(m_filter.index(0, 0), AssetListModel::PathRole, m_path, 1,
                                                 Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found.isEmpty() ? -1 : found.constFirst().row();
}

void ImagePanel::setCurrentRow(int row)
{
    const QModelIndex asset = m_filter.index(row, 0);
    if (asset.isValid())
        show(asset.data(AssetListModel::PathRole).toString());
}

void ImagePanel::show(const QString& path)
{
    if (m_path == path)
        return;
    m_path = path;
    m_channelCount = 0;
    m_file = m_assets.directory() + QLatin1Char('/') + path;
    m_images.setFileName(isAtlas() ? QString() : m_file); // what an atlas looks like is in its slots
    m_preview.setFileName(m_file);
    m_facts.setFileName(m_file);
    m_form.setFileName(m_file);
    Q_EMIT pathChanged();
    Q_EMIT currentRowChanged();
    Q_EMIT statusChanged();
}

void ImagePanel::showAlone(int row)
{
    ImageChannelsModel* all = channels();
    const auto isShown = [all](int channel) { return all->index(channel).data(ImageChannelsModel::EnabledRole).toBool(); };
    bool isAlone = isShown(row);
    for (int channel = 0; channel < all->rowCount(); ++channel)
        isAlone = isAlone && (channel == row || !isShown(channel));
    for (int channel = 0; channel < all->rowCount(); ++channel) {
        const bool isWanted = isAlone ? channel < 3 : channel == row;
        if (isShown(channel) != isWanted)
            all->setData(all->index(channel), isWanted);
    }
}

void ImagePanel::readAgain()
{
    m_form.setFileName(m_form.fileName());
    // Written again, the choice of a channel makes new URLs, and stays.
    const QModelIndex red = channels()->index(0);
    channels()->setData(red, red.data(ImageChannelsModel::EnabledRole));
}

void ImagePanel::followChannelCount()
{
    const unsigned before = std::exchange(m_channelCount, m_preview.channelCount());
    if (before == 0 || m_channelCount == 0 || before == m_channelCount || isAtlas())
        return;
    m_images.setFileName({});
    m_images.setFileName(m_file);
}

/// The data of a row go with it, so the view gets data of its own, which share the tiles. An atlas is in the last row:
/// an image that was shown before may have left one.
void ImagePanel::followAtlas()
{
    const QModelIndex row = m_preview.index(m_preview.rowCount() - 1);
    const auto* found = row.data(SimpleImageModel::AtlasDataRole).value<AtlasViewData*>();
    AtlasViewData data = found ? *found : AtlasViewData();
    data.settings = &m_atlasView;
    if (found)
        m_atlasView.setType(row.data(SimpleImageModel::AtlasTypeRole).toInt());
    m_atlas.setData(data);
}

std::vector<Panel::Shot> ImagePanel::shots()
{
    return {
        {QString(), [this] { show(QStringLiteral("textures/probes/probe_quay.dds")); }},
        {QStringLiteral("atlas"), [this] { show(QStringLiteral("textures/tiles/quayside_AM.atlas")); }},
        {QStringLiteral("found"),
         [this] {
             m_words->setText(QStringLiteral("effects"));
             show(QStringLiteral("textures/effects/lantern_glow.png"));
         }},
        {QStringLiteral("alpha"), [this] { channels()->setData(channels()->index(3), true); }},
    };
}

} // namespace editor
