// Writes one atlas file over and over, each time with other tiles, until it is killed.
#include "sample_atlas.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    auto data = sampleAtlas();
    data.tiles.resize(4096, data.tiles.front());
    for (unsigned number = static_cast<unsigned>(std::atoi(argv[2]));; ++number) {
        data.leadingFlag = number;
        if (!Ozy::Fennel::AtlasTexture::makeAtlasFile(argv[1], data, nullptr))
            return 1;
        std::puts("written");
        std::fflush(stdout);
    }
}
