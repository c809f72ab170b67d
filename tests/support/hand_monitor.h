#pragma once

#include <host/registry/instances.h>
#include <host/resources/file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>

#include <QStringList>

#include <algorithm>
#include <string>
#include <vector>

/// The monitor of the process while it lives. It watches nothing: the test says what happens.
class HandMonitor final : public IFileSystemMonitor
{
public:
    HandMonitor() { instances::set<IFileSystemMonitor>(this); }
    ~HandMonitor() { instances::set<IFileSystemMonitor>(nullptr); }

    std::unique_ptr<Handle> createHandle(Ozy::ResourceModificationListener* listener) override
    {
        return std::make_unique<HandHandle>(*this, listener);
    }

    /// Tells all handles of a path, with its last component as the name.
    void tell(const QString& path, unsigned action)
    {
        const std::string bytes = path.toStdString();
        const std::size_t name = bytes.rfind('/') + 1;
        const std::string_view view = bytes;
        const std::vector<Ozy::ResourceModificationListener*> told = listeners;
        for (Ozy::ResourceModificationListener* listener : told)
            listener->onResourceModified(view.substr(0, name), view.substr(name), action);
    }

    QStringList watched;
    std::vector<Ozy::ResourceModificationListener*> listeners;

private:
    struct HandHandle : Handle
    {
        HandHandle(HandMonitor& monitor, Ozy::ResourceModificationListener* listener)
            : monitor(monitor), listener(listener)
        {
            monitor.listeners.push_back(listener);
        }
        ~HandHandle() override
        {
            const auto found = std::find(monitor.listeners.begin(), monitor.listeners.end(), listener);
            monitor.listeners.erase(found);
        }
        void watch(const std::string& path) override { monitor.watched << QString::fromStdString(path); }

        HandMonitor& monitor;
        Ozy::ResourceModificationListener* listener;
    };
};
