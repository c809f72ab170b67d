#pragma once

#include <host/engine/atlas_texture.h>

#include <string>

/// The engine's atlas service. There is one instance in the process, found by its type in the registry of the host.
/// Thread: GUI only.
class IAtlasManager
{
public:
    /// What an atlas file holds, `path` being absolute or the name of a resource. Never fails: a file that cannot be read
    /// gives data without tiles. The manager owns the result; it stays as it is until the files have been saved or the
    /// manager has been asked for many others.
    virtual const Ozy::Fennel::AtlasTexture::AtlasData& getAtlasData(const std::string& path) = 0;

    /// To be called when the three files of an atlas have been written.
    virtual void onAtlasFilesSaved() = 0;

protected:
    ~IAtlasManager() = default;
};
