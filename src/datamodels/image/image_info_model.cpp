#include <datamodels/image/image_info_model.h>

#include <datamodels/image/image_query.h>
#include <datamodels/image/image_rows.h>
#include <datamodels/model_scopes.h>

#include <optional>
#include <vector>

namespace datamodels {
namespace {

struct Row
{
    QString name;
    QVariant value;
};

QString megabytes(float size)
{
    return QString::number(static_cast<double>(size), 'g', 3) + QStringLiteral("Mb");
}

std::vector<Row> factsOf(const TessenImageCache::ImageInfo& info)
{
    return {
        {QStringLiteral("Width"), info.width},
        {QStringLiteral("Height"), info.height},
        {QStringLiteral("Depth"), info.depth},
        {QStringLiteral("FileSize"), megabytes(info.fileSize)},
        {QStringLiteral("Mip count"), info.mipCount},
        {QStringLiteral("BytesPerPixel"), info.bytesPerPixel},
        {QStringLiteral("BytesPerChannel"), info.bytesPerChannel},
        {QStringLiteral("Compression"), info.compression},
        {QStringLiteral("Format"), info.format},
        {QStringLiteral("Lod Mode"), info.lodMode},
    };
}

Row unknown()
{
    return {QStringLiteral("Format"), QStringLiteral("unknown")};
}

} // namespace

struct ImageInfoModel::Private
{
    explicit Private(ImageInfoModel* model) : q(model), m_rows{unknown()} {}

    void reload();
    void update(const ImageAnswer& answer);
    void setRow(std::size_t i, const Row& row);
    void setOnlyRow(const Row& row);

    ImageInfoModel* const q;
    std::vector<Row> m_rows;
    QString fileName;
    Ozy::AsyncManager::Job m_job;
};

void ImageInfoModel::Private::reload()
{
    setOnlyRow({QStringLiteral("Loading..."), QString()});
    queryImage(m_job, fileName, this);
}

void ImageInfoModel::Private::update(const ImageAnswer& answer)
{
    if (!answer.info) {
        setOnlyRow(unknown());
        return;
    }
    const std::vector<Row> facts = factsOf(*answer.info);
    for (std::size_t i = 0; i < facts.size() && !answer.isSuperseded(); ++i)
        setRow(i, facts[i]);
}

void ImageInfoModel::Private::setRow(std::size_t i, const Row& row)
{
    std::optional<ModelScopes::InsertRows<ImageInfoModel>> inserted;
    if (i >= m_rows.size()) {
        inserted.emplace(*q, QModelIndex(), m_rows.size(), i + 1 - m_rows.size());
        m_rows.resize(i + 1);
    }
    RowChange change;
    change.set(m_rows[i].name, row.name, {Qt::DisplayRole});
    change.set(m_rows[i].value, row.value, {ValueRole});
    if (inserted || change.isEmpty())
        return;
    const QModelIndex changed = q->index(static_cast<int>(i));
    Q_EMIT q->dataChanged(changed, changed, change.roles());
}

void ImageInfoModel::Private::setOnlyRow(const Row& row)
{
    const ModelScopes::Reset scope(*q);
    m_rows = {row};
}

ImageInfoModel::ImageInfoModel(QObject* parent) : QAbstractListModel(parent), d(std::make_unique<Private>(this))
{
    TessenImageProvider::imageCache().registerListener(this);
}

ImageInfoModel::~ImageInfoModel()
{
    TessenImageProvider::imageCache().unregisterListener(this);
    d->m_job.cancel(true);
}

int ImageInfoModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->m_rows.size());
}

QVariant ImageInfoModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row& row = d->m_rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole)
        return row.name;
    if (role == ValueRole)
        return row.value;
    return {};
}

QHash<int, QByteArray> ImageInfoModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(ValueRole, "value");
    return names;
}

const QString& ImageInfoModel::fileName() const
{
    return d->fileName;
}

void ImageInfoModel::onImageChanged()
{
    d->reload();
}

void ImageInfoModel::setFileName(const QString& fileName)
{
    if (d->fileName == fileName)
        return;
    d->fileName = fileName;
    Q_EMIT fileNameChanged();
    d->reload();
}

} // namespace datamodels
