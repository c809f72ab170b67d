#include "project_tree_model.h"

#include <host/base/profiler.h>

#include <QDir>

#include <numeric>

namespace editor {

ProjectTreeModel::ProjectTreeModel(QObject* parent) : SimpleTreeModel(parent) {}

QHash<int, QByteArray> ProjectTreeModel::roleNames() const
{
    return {
        {ProjectNode::NameRole, "name"},         {ProjectNode::KindRole, "kind"},
        {ProjectNode::SizeRole, "size"},         {ProjectNode::ModifiedRole, "modified"},
        {ProjectNode::PathRole, "path"},         {ProjectNode::IconRole, "icon"},
        {ProjectNode::SizeTextRole, "sizeText"}, {ProjectNode::ModifiedTextRole, "modifiedText"},
        {ProjectNode::IsFolderRole, "isFolder"},
    };
}

void ProjectTreeModel::load(const QString& directory)
{
    const RYK::Profiler::Scope profile("ProjectTreeModel::load");
    resetModel();
    m_counts = {};
    fill(root(), directory, QString());
}

int ProjectTreeModel::totalCount() const
{
    return std::accumulate(m_counts.begin(), m_counts.end(), 0);
}

// One notification a folder. Returns the bytes of all files in it.
qint64 ProjectTreeModel::fill(Node& parent, const QString& directory, const QString& path)
{
    const QFileInfoList files = QDir(directory).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    std::vector<std::unique_ptr<Node>> nodes;
    for (const QFileInfo& file : files) {
        if (file.isDir() && file.isSymLink())
            continue;
        auto node = std::make_unique<ProjectNode>(*this, file, path + file.fileName());
        ++m_counts[static_cast<std::size_t>(node->kind())];
        nodes.push_back(std::move(node));
    }
    insertNodes(parent, 0, std::move(nodes));

    qint64 total = 0;
    for (const std::unique_ptr<Node>& child : parent.children()) {
        auto& node = static_cast<ProjectNode&>(*child);
        if (node.kind() == FileKind::Folder) {
            node.setSize(fill(node, directory + QLatin1Char('/') + node.data(ProjectNode::NameRole).toString(),
                              node.path() + QLatin1Char('/')));
            node.refresh({ProjectNode::SizeRole, ProjectNode::SizeTextRole});
        }
        total += node.size();
    }
    return total;
}

} // namespace editor
