#include "project_details.h"

#include "panels/texts.h"
#include "project_node.h"

#include <QFile>
#include <QImageReader>
#include <QLocale>
#include <QVariantMap>

namespace editor {
namespace {

constexpr int excerptBytes = 4000;

QString sizeInFull(qint64 bytes)
{
    const QString exact = QStringLiteral("%1 bytes").arg(bytes);
    if (bytes < 1000)
        return exact;
    return QStringLiteral("%1  (%2)")
        .arg(QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat), exact);
}

} // namespace

ProjectDetails::ProjectDetails(QObject* parent) : QObject(parent) {}

void ProjectDetails::show(const ProjectNode* node, const QString& directory)
{
    clear();
    if (node) {
        const FileKindFacts& kind = factsOf(node->kind());
        m_name = node->data(ProjectNode::NameRole).toString();
        m_icon = QLatin1String(kind.icon);
        m_kind = QLatin1String(kind.title);
        addFact(QStringLiteral("Size"), sizeInFull(node->size()));
        const QString file = directory + QLatin1Char('/') + node->path();
        if (node->kind() == FileKind::Folder)
            showFolder(*node);
        else if (node->kind() == FileKind::Texture)
            showImage(file);
        else
            showText(file);
        addFact(QStringLiteral("Modified"), node->data(ProjectNode::ModifiedRole)
                                                .toDateTime()
                                                .toString(QStringLiteral("yyyy-MM-dd  HH:mm:ss")));
        addFact(QStringLiteral("Path"), node->path());
    }
    Q_EMIT changed();
}

void ProjectDetails::clear()
{
    m_name.clear();
    m_icon.clear();
    m_kind.clear();
    m_facts.clear();
    m_image.clear();
    m_excerpt.clear();
}

void ProjectDetails::addFact(const QString& label, const QString& value)
{
    m_facts << QVariantMap{{QStringLiteral("label"), label}, {QStringLiteral("value"), value}};
}

void ProjectDetails::showFolder(const ProjectNode& node)
{
    int folders = 0;
    for (const auto& child : node.children())
        folders += static_cast<const ProjectNode&>(*child).kind() == FileKind::Folder ? 1 : 0;
    const int files = static_cast<int>(node.children().size()) - folders;
    addFact(QStringLiteral("Contains"), QStringLiteral("%1, %2").arg(counted(folders, "folder", "folders"),
                                                                     counted(files, "file", "files")));
}

void ProjectDetails::showImage(const QString& file)
{
    QImageReader reader(file);
    const QSize size = reader.size();
    if (!size.isValid()) {
        addFact(QStringLiteral("Image"), reader.errorString());
        return;
    }
    m_image = QUrl::fromLocalFile(file);
    const bool hasAlpha = QImage(1, 1, reader.imageFormat()).hasAlphaChannel();
    addFact(QStringLiteral("Image"), QStringLiteral("%1 \u00d7 %2 px, %3")
                                         .arg(size.width())
                                         .arg(size.height())
                                         .arg(QLatin1String(hasAlpha ? "RGBA" : "RGB")));
}

void ProjectDetails::showText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        addFact(QStringLiteral("Text"), file.errorString());
        return;
    }
    const QByteArray bytes = file.read(excerptBytes);
    if (!bytes.contains('\0'))
        m_excerpt = QString::fromUtf8(bytes);
}

} // namespace editor
