#pragma once

#include <host/base/host_export.h>
#include <host/engine/i_atlas_manager.h>

#include <list>

namespace Ozy::Fennel {

/// The atlas service of this host. Keeps the files that it was asked for last, and looks at the disk before it gives one
/// again: what has changed is read anew, in place. A file that is damaged is told with a message, once a reading; one that
/// is not there is not.
///
/// The application makes it and enters it in the registry: `instances::set<IAtlasManager>(&manager)`.
/// Cost: a look at the disk a call, and a reading when there is something new.
class DATAMODELS_HOST_API AtlasManager final : public IAtlasManager
{
public:
    /// How many files are kept. Results of as many calls are good at the same time.
    static constexpr std::size_t capacity = 64;

    AtlasManager();
    ~AtlasManager();
    AtlasManager(const AtlasManager&) = delete;
    AtlasManager& operator=(const AtlasManager&) = delete;

    const AtlasTexture::AtlasData& getAtlasData(const std::string& path) override;
    /// Forgets all that is kept.
    void onAtlasFilesSaved() override;

private:
    struct Entry;

    Entry& entry(const std::string& path);

    std::list<Entry> m_entries; // the last asked for in front
};

} // namespace Ozy::Fennel
