#pragma once

#include <QString>
#include <QStringList>

namespace atlas_tool {

/// What a command is asked for; paths as they were given.
struct Request
{
    QString command;
    QStringList paths;   ///< of atlases
    QStringList content; ///< the directories that resources are looked for in, the first first
    QString folder;      ///< where textures come from, or pictures go to
    int columns = 0;     ///< 0 for about as many as rows
    bool replaces = false;
};

/// 0 if the command has done what it was asked for, 1 if not, 2 for a request that makes no sense. Results go to the
/// standard output, reasons to the standard error.
int info(const Request& request);
int validate(const Request& request);
int create(const Request& request);
int exportPictures(const Request& request);

/// "park" for "park", "park_AM.atlas" or "park_MAO.atlas", absolute.
QString basePath(const QString& path);
/// The file of a class, 0 to 2 in their order.
QString filePath(const QString& base, std::size_t type);

void print(const QString& line);
/// Gives 1, to be returned.
int refuse(const QString& reason);

} // namespace atlas_tool
