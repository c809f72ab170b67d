#pragma once

#include <datamodels/atlas/atlas_asset.h>
#include <host/undo/command.h>

#include <QStringList>

/// Fills the free slots of an atlas with AM textures and their companions. A file that is not fit is left out, with a
/// message, and what finds no slot silently. Refused without files or free slots. Undone by `RemoveTexturesCommand`.
class AtlasAsset::AddTexturesCommand : public Ozy::utils::Command
{
public:
    AddTexturesCommand(AtlasAsset* asset, QStringList files);
    ~AddTexturesCommand() override;

    bool execute() override;

private:
    /// The resource that a file is; empty, with a message, if it cannot be added.
    std::string textureFrom(const QString& file) const;

    AtlasAsset* m_asset;
    QStringList m_files;
};

/// Clears slots of an atlas. Refused without slots. Undone by `AddTexturesCommand`, which takes the first slots that are
/// free then.
class AtlasAsset::RemoveTexturesCommand : public Ozy::utils::Command
{
public:
    RemoveTexturesCommand(AtlasAsset* asset, std::vector<std::size_t> slots);
    ~RemoveTexturesCommand() override;

    bool execute() override;

private:
    AtlasAsset* m_asset;
    std::vector<std::size_t> m_slots;
};
