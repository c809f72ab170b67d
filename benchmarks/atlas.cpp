// Atlases: loading and saving the three files, the pictures of a view, setting a texture.
#include <support/comparison.h>

#include <datamodels/atlas/atlas_asset.h>
#include <datamodels/atlas/i_atlas_view_settings.h>
#include <datamodels/atlas/qt_atlas_slot.h>
#include <host/engine/atlas_manager.h>
#include <host/images/tessen_image_request_desc.h>
#include <host/registry/instances.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/multi_file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

using namespace bench;

namespace {

constexpr unsigned side = 64;
constexpr int slotCount = side * side;
constexpr unsigned tileSize = 256;

const QTemporaryDir& folder()
{
    static const QTemporaryDir directory;
    return directory;
}

std::string pathOf(const std::string& name)
{
    return folder().filePath(QString::fromStdString(name)).toStdString();
}

std::string textureName(int slot, AtlasType type)
{
    return "content/environment/harbour_" + std::to_string(slot) + "_" + AtlasTile::TypeNames[std::size_t(type)] + ".png";
}

std::string fileOf(AtlasType type)
{
    return "sheet" + AtlasAsset::atlasFilenameSuffix(type);
}

constexpr AtlasType types[] = {AtlasType::AM, AtlasType::GBMT, AtlasType::MAO};

/// The files of an atlas without a free slot; the pictures are not needed to load it.
void writeAtlas()
{
    for (AtlasType type : types) {
        const unsigned size = AtlasTile::isHalfSize(type) ? tileSize / 2 : tileSize;
        Ozy::Fennel::AtlasTexture::AtlasData data;
        data.leadingFlag = 1;
        data.width = data.height = size * side;
        data.fullSizeFlag = AtlasTile::isHalfSize(type) ? 0 : 1;
        for (unsigned slot = 0; slot < slotCount; ++slot) {
            const unsigned left = size * (slot % side);
            const unsigned top = size * (slot / side);
            data.tiles.push_back({{left, left + size, top, top + size}, textureName(int(slot), type)});
        }
        Ozy::Fennel::AtlasTexture::makeAtlasFile(pathOf(fileOf(type)), data, nullptr);
    }
}

/// A service that has read nothing yet, entered as the one of the process.
std::shared_ptr<Ozy::Fennel::AtlasManager> freshManager()
{
    auto manager = std::make_shared<Ozy::Fennel::AtlasManager>();
    instances::set<IAtlasManager>(manager.get());
    return manager;
}

void compareLoading()
{
    Comparison("load and validate 64 x 64 slots")
        .add("read and parse the three files", [] {
            return [manager = freshManager()] {
                for (AtlasType type : types)
                    keep(static_cast<long long>(manager->getAtlasData(fileOf(type)).tiles.size()));
            };
        })
        .add("AtlasAsset", [] {
            auto asset = std::make_shared<std::unique_ptr<AtlasAsset>>();
            return [manager = freshManager(), asset] {
                *asset = std::make_unique<AtlasAsset>("sheet", nullptr);
                keep((*asset)->totalTilesCount());
            };
        });
}

void writeWithSync(const std::string& path, const QByteArray& bytes)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    keep(::write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())));
    ::fsync(file);
    ::close(file);
}

void compareSaving()
{
    Comparison("save 64 x 64 slots")
        .add("write the bytes, with three fsyncs", [] {
            std::vector<QByteArray> contents;
            for (AtlasType type : types) {
                QFile file(QString::fromStdString(pathOf(fileOf(type))));
                file.open(QIODevice::ReadOnly);
                contents.push_back(file.readAll());
            }
            return [contents] {
                for (std::size_t i = 0; i < contents.size(); ++i)
                    writeWithSync(pathOf("raw_" + std::to_string(i)), contents[i]);
            };
        })
        .add("the engine's three files, from what the asset gives", [] {
            auto manager = freshManager();
            std::vector<Ozy::Fennel::AtlasTexture::AtlasData> contents;
            for (AtlasType type : types)
                contents.push_back(manager->getAtlasData(fileOf(type)));
            return [contents = std::move(contents)] {
                for (std::size_t i = 0; i < contents.size(); ++i)
                    Ozy::Fennel::AtlasTexture::makeAtlasFile(pathOf(fileOf(types[i])), contents[i], nullptr);
            };
        })
        .add("AtlasAsset::save", [] {
            auto manager = freshManager();
            auto asset = std::make_shared<AtlasAsset>("sheet", nullptr);
            return [manager, asset] { keep(asset->save()); };
        });
}

/// The slots of an atlas whose pictures all have a file.
struct View
{
    View()
    {
        QDir(folder().path()).mkpath("content/environment");
        data.settings = &settings;
        for (int slot = 0; slot < slotCount; ++slot) {
            std::vector<std::string> names;
            for (AtlasType type : types) {
                names.push_back(textureName(slot, type));
                QFile(QString::fromStdString(pathOf(names.back()))).open(QIODevice::WriteOnly);
            }
            const auto tile = std::make_shared<AtlasTile>(asset, static_cast<std::size_t>(slot), names);
            slots.push_back(std::make_unique<QtAtlasSlot>(tile, data));
        }
    }

    IAtlasViewSettings settings;
    AtlasViewData data;
    AtlasAsset asset{"sheet", nullptr};
    std::vector<std::unique_ptr<QtAtlasSlot>> slots;
};

void compareViews()
{
    std::vector<QString> paths;
    for (int slot = 0; slot < slotCount; ++slot) {
        for (AtlasType type : types)
            paths.push_back(QString::fromStdString(pathOf(textureName(slot, type))));
    }
    Comparison("pictures of 4096 slots")
        .addPlain("build the URLs", [paths] {
            long long length = 0;
            for (const QString& path : paths) {
                TessenImageRequestDesc request;
                request.setFileName(path);
                length += request.toUrl().toString().size();
            }
            keep(length);
        })
        .add("QtAtlasSlot::textures", [] {
            static const auto manager = freshManager();
            static const View view;
            return [] {
                long long length = 0;
                for (const auto& slot : view.slots) {
                    for (const QString& url : slot->textures())
                        length += url.size();
                }
                keep(length);
            };
        });
}

/// Pictures that do not compress well, as textures do not.
void writeTextures()
{
    QImage image(512, 512, QImage::Format_RGBA8888);
    unsigned noise = 5;
    for (int y = 0; y < 512; ++y) {
        for (int x = 0; x < 512; ++x) {
            noise = noise * 1664525 + 1013904223;
            image.setPixel(x, y, qRgba((x ^ y) & 255, int(noise >> 24 & 31), y / 2, 255));
        }
    }
    for (const char* name : {"oak_AM.png", "oak_GBMT.png"})
        image.save(QString::fromStdString(pathOf(name)));
    image.scaled(256, 256).save(QString::fromStdString(pathOf("oak_MAO.png")));
}

void compareTextures()
{
    Comparison("set the textures of a slot, 512 x 512")
        .add("decode the three images by QImage", [] {
            writeTextures();
            return [] {
                for (const char* name : {"oak_AM.png", "oak_GBMT.png", "oak_MAO.png"})
                    keep(QImage(QString::fromStdString(pathOf(name))).width());
            };
        })
        .add("AtlasTile::setTexture", [] {
            auto manager = freshManager();
            auto asset = std::make_shared<AtlasAsset>("sheet", nullptr);
            return [manager, asset] { keep(asset->getTile(0)->setTexture(AtlasType::AM, "oak_AM.png")); };
        });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Ozy::FS::fileSystem()->setRoots({folder().path().toStdString()});
    // An editor listens all the time, and so watches the disk before an atlas is opened.
    Ozy::ResourceModificationListener listener;
    Ozy::FS::fileSystem()->getFilesystemMonitor().addModificationListener(&listener);
    writeAtlas();
    compareLoading();
    compareSaving();
    compareViews();
    compareTextures();
    const int result = runAll(argc, argv);
    Ozy::FS::fileSystem()->getFilesystemMonitor().removeModificationListener(&listener);
    return result;
}
