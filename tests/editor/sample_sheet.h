#pragma once

#include "sample_project.h"

#include <host/engine/atlas_texture.h>

#include <QColor>
#include <QStringList>

/// The files of a texture atlas in a sample project.
namespace SampleSheet {

constexpr unsigned tileSize = 8;

inline QImage picture(int side, const QColor& colour)
{
    QImage image(side, side, QImage::Format_RGBA8888);
    image.fill(colour);
    return image;
}

inline void writeTextures(const SampleProject& project, const QString& stem, const QColor& colour)
{
    picture(2 * tileSize, colour).save(project.filePath("textures/" + stem + "_AM.png"));
    picture(2 * tileSize, Qt::blue).save(project.filePath("textures/" + stem + "_GBMT.png"));
    picture(tileSize, Qt::gray).save(project.filePath("textures/" + stem + "_MAO.png"));
}

/// The three files of "textures/quay" with these stems in its slots, "-" for a free one.
inline void writeAtlas(const SampleProject& project, unsigned columns, unsigned rows, const QStringList& stems)
{
    for (const char* type : {"AM", "GBMT", "MAO"}) {
        const unsigned side = qstrcmp(type, "MAO") == 0 ? tileSize / 2 : tileSize;
        Ozy::Fennel::AtlasTexture::AtlasData data;
        data.leadingFlag = 1;
        data.width = columns * side;
        data.height = rows * side;
        data.fullSizeFlag = side == tileSize ? 1 : 0;
        for (int slot = 0; slot < stems.size(); ++slot) {
            const unsigned left = unsigned(slot) % columns * side;
            const unsigned top = unsigned(slot) / columns * side;
            const QString texture = "textures/" + stems[slot] + "_" + type + ".png";
            if (stems[slot] != "-")
                data.tiles.push_back({{left, left + side, top, top + side}, texture.toStdString()});
        }
        const QString file = project.filePath(QString("textures/quay_%1.atlas").arg(type));
        Ozy::Fennel::AtlasTexture::makeAtlasFile(file.toStdString(), data, nullptr);
    }
}

} // namespace SampleSheet
