#include "writers.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: content-generator DIR\n");
        return 2;
    }

    generator::ContentFolder content(QString::fromLocal8Bit(argv[1]));
    generator::writeAtlasTextures(content);
    generator::writeImages(content);
    generator::writeLights(content);
    generator::writeMaps(content);
    generator::writeLevels(content);
    generator::writeScenes(content);
    generator::writeModels(content);
    generator::writeMaterials(content);
    generator::writeTexts(content);

    std::printf("%d files written\n", content.fileCount());
    return content.failed() ? 1 : 0;
}
