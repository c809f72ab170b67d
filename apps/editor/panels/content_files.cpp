#include "content_files.h"

#include <QDir>
#include <QDirIterator>

namespace editor {

QStringList contentFiles(const QString& content, const QString& folder, const QString& pattern)
{
    QStringList files;
    const QDir root(content);
    for (QDirIterator it(root.filePath(folder), {pattern}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << root.relativeFilePath(it.next());
    files.sort();
    return files;
}

} // namespace editor
