#include "project_node.h"

#include "panels/texts.h"

namespace editor {

ProjectNode::ProjectNode(SimpleTreeModel& owner, const QFileInfo& file, const QString& path)
    : Node(owner)
    , m_name(file.fileName())
    , m_path(path)
    , m_kind(file.isDir() ? FileKind::Folder : kindOfFile(path))
    , m_size(file.isDir() ? 0 : file.size())
    , m_modified(file.lastModified())
{
}

QVariant ProjectNode::data(int role) const
{
    switch (role) {
    case NameRole: return m_name;
    case KindRole: return QLatin1String(factsOf(m_kind).title);
    case SizeRole: return m_size;
    case ModifiedRole: return m_modified;
    case PathRole: return m_path;
    case IconRole: return QLatin1String(factsOf(m_kind).icon);
    case SizeTextRole: return shortSize(m_size);
    case ModifiedTextRole: return m_modified.toString(QStringLiteral("yyyy-MM-dd  HH:mm"));
    case IsFolderRole: return m_kind == FileKind::Folder;
    default: return {};
    }
}

} // namespace editor
