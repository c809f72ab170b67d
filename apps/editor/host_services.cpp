#include "host_services.h"

#include <host/engine/atlas_manager.h>
#include <host/registry/instances.h>
#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system.h>

#include <QFile>

namespace editor {

void installHostServices(const QString& content)
{
    static Ozy::Fennel::AtlasManager atlases;
    instances::set<IAtlasManager>(&atlases);
    instances::set<IFileSystemMonitor>(&Ozy::FS::DiskMonitor::instance());
    Ozy::FS::fileSystem()->setRoots({QFile::encodeName(content).toStdString()});
}

} // namespace editor
