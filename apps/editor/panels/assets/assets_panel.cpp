#include "assets_panel.h"

#include "panels/texts.h"

#include <QFileInfo>
#include <QImageReader>

namespace editor {

using namespace qelm::datamodels::proxy;

AssetsPanel::AssetsPanel(const PanelContext& context)
    : m_assets(context.content)
    , m_words(
          new TokensPredicate({AssetListModel::NameRole, AssetListModel::PathRole, AssetListModel::KindRole}))
    , m_filter(m_words)
    , m_selection(&m_filter)
{
    m_filter.setSourceModel(&m_assets);
    m_filter.sort(0);
    m_selector.setSelection(&m_selection);
    for (ModelElementsCounter* counter : {&m_all, &m_shown}) {
        counter->setMode(ModelElementsCounter::RootChildren);
        connect(counter, &ModelElementsCounter::valueChanged, this, &Panel::statusChanged);
    }
    m_all.setModel(&m_assets);
    m_shown.setModel(&m_filter);
    connect(&m_selection, &QItemSelectionModel::selectionChanged, this, &Panel::statusChanged);
    connect(&m_filter, &QAbstractItemModel::dataChanged, this, &Panel::statusChanged); // sizes
}

AssetsPanel::~AssetsPanel() = default;

QString AssetsPanel::status() const
{
    const QString all = counted(m_all.value(), "asset", "assets");
    QString text =
        m_shown.value() == m_all.value() ? all : QStringLiteral("%1 of %2").arg(m_shown.value()).arg(all);
    const QModelIndexList selected = m_selection.selectedIndexes();
    if (selected.isEmpty())
        return text;
    qint64 size = 0;
    for (const QModelIndex& asset : selected)
        size += asset.data(AssetListModel::SizeRole).toLongLong();
    return text + QStringLiteral(", %1 selected, %2").arg(selected.size()).arg(shortSize(size));
}

QString AssetsPanel::emptyReason() const
{
    if (m_all.value() == 0)
        return QStringLiteral("There are no assets in\n%1").arg(m_assets.directory());
    return QStringLiteral("None of the %1 has these words").arg(counted(m_all.value(), "asset", "assets"));
}

void AssetsPanel::selectAll()
{
    if (m_filter.rowCount() > 0)
        m_selection.select({m_filter.index(0, 0), m_filter.index(m_filter.rowCount() - 1, 0)},
                           QItemSelectionModel::Select);
}

QUrl AssetsPanel::pictureOf(const QString& path, const QDateTime& modified) const
{
    static const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    if (!formats.contains(QFileInfo(path).suffix().toLower().toLatin1()))
        return {};
    QUrl url = QUrl::fromLocalFile(m_assets.directory() + QLatin1Char('/') + path);
    url.setFragment(QString::number(modified.toMSecsSinceEpoch()));
    return url;
}

std::vector<Panel::Shot> AssetsPanel::shots()
{
    const auto select = [this] {
        m_words->setText(QStringLiteral("texture"));
        for (int row : {2, 3, 4, 9, 16})
            m_selection.select(m_filter.index(row, 0), QItemSelectionModel::Select);
        m_selection.setCurrentIndex(m_filter.index(9, 0), QItemSelectionModel::NoUpdate);
    };
    return {{QString(), [] {}}, {QStringLiteral("selected"), select}};
}

} // namespace editor
