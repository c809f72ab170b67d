#include <datamodels/filesystem/file_system_model_item.h>

#include <datamodels/filesystem/file_system_model.h>
#include <host/base/debug.h>
#include <host/base/profiler.h>
#include <host/base/string_utils.h>
#include <host/jobs/cpu_info.h>

#include <tbb/parallel_for_each.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <list>
#include <string_view>
#include <typeinfo>
#include <utility>

namespace datamodels {
namespace {

QDateTime fileTime(std::uint64_t ticks)
{
    static const QDateTime epoch(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC);
    return epoch.addMSecs(static_cast<qint64>(ticks / 10000));
}

/// Sorts by names that are fetched once.
void sortNaturally(std::vector<std::unique_ptr<FileSystemModelItem>>& items)
{
    struct Named
    {
        std::string_view name;
        std::unique_ptr<FileSystemModelItem> item;
    };
    std::vector<Named> named;
    named.reserve(items.size());
    for (auto& item : items) {
        const std::string_view name = item->fileInfo()->name();
        named.push_back({name, std::move(item)});
    }
    std::sort(named.begin(), named.end(), [](const Named& left, const Named& right) {
        return Ozy::StringUtils::NumericStringCompare(left.name, right.name);
    });
    std::transform(named.begin(), named.end(), items.begin(), [](Named& entry) { return std::move(entry.item); });
}

zarn::ReflectedObject reflected(std::unique_ptr<IFileProperties> properties)
{
    const std::shared_ptr<IFileProperties> shared = std::move(properties);
    const std::type_info& type = typeid(*shared);
    zarn::ReflectedObject object;
    object.init(qelm::Variant(shared), zarn::TypeInfo(true, typeid(shared), type, typeid(IFileProperties)), nullptr);
    return object;
}

} // namespace

FileSystemModelItem::FileSystemModelItem(FileSystemModel& model, std::shared_ptr<qelm::IFileInfo> info,
                                         FileSystemModelItem* parent)
    : m_model(model), m_parent(parent), m_directory(info && info->isDirectory()), m_fileInfo(std::move(info))
{
}

FileSystemModelItem::~FileSystemModelItem()
{
    delete m_shown.load(std::memory_order_acquire);
}

std::unique_ptr<FileSystemModelItem> FileSystemModelItem::createModelItem(FileSystemModel& model,
                                                                          std::shared_ptr<qelm::IFileInfo> info,
                                                                          FileSystemModelItem* parent) const
{
    auto item = std::make_unique<FileSystemModelItem>(model, std::move(info), parent);
    const auto& providers = model.getPropertiesProviders();
    if (providers.empty() || !item->m_fileInfo)
        return item;
    const std::string fullName = item->m_fileInfo->fullName();
    for (const auto& provider : providers) {
        auto properties = provider->properties(fullName);
        if (!properties)
            continue;
        item->m_properties = std::make_unique<zarn::ReflectedObject>(reflected(std::move(properties)));
        if (item->m_properties->isValid())
            break;
    }
    return item;
}

void FileSystemModelItem::populate(qelm::IFileSystem& fileSystem, bool async, const std::function<bool()>& stop)
{
    const RYK::Profiler::Scope scope("datamodels::FileSystemModelItem::populate");
    if (async)
        populateTree(fileSystem, stop);
    else
        populateJob(this, fileSystem, stop);
}

void FileSystemModelItem::populateTree(qelm::IFileSystem& fileSystem, const std::function<bool()>& stop)
{
    static tbb::task_arena arena(Ozy::CpuInfo::instance().processorCount(), 1);
    arena.execute([&] {
        std::list<FileSystemModelItem*> seed{this};
        tbb::parallel_for_each(seed.begin(), seed.end(),
                               [&](FileSystemModelItem* item, tbb::feeder<FileSystemModelItem*>& feeder) {
                                   item->populateJob(this, fileSystem, stop);
                                   for (const auto& child : item->m_children) {
                                       if (child->m_directory)
                                           feeder.add(child.get());
                                   }
                               });
    });
}

void FileSystemModelItem::populateJob(FileSystemModelItem* factory, qelm::IFileSystem& fileSystem,
                                      const std::function<bool()>& stop)
{
    const RYK::Profiler::Scope scope("datamodels::FileSystemModelItem::populateJob");
    {
        const std::lock_guard lock(m_mutex);
        if (!m_populated && m_directory) {
            m_children = readChildren(factory, fileSystem, stop);
            m_populated = true;
        }
    }
    if (stop)
        stop(); // Intended: asked once more, and its answer dropped; callers count the calls as progress
}

FileSystemModelItem::Children FileSystemModelItem::readChildren(FileSystemModelItem* factory, qelm::IFileSystem& fileSystem,
                                                                const std::function<bool()>& stop)
{
    Children children;
    fileSystem.enumerate(m_fileInfo->fullName(), [&](std::shared_ptr<qelm::IFileInfo>&& info) {
        if (!info->isHidden() && !info->isSystem() && m_model.checkPredicates(info))
            children.push_back(factory->createModelItem(m_model, std::move(info), this));
        return !stop || !stop();
    });
    sortNaturally(children);
    for (std::size_t row = 0; row < children.size(); ++row)
        children[row]->m_row = static_cast<std::uint32_t>(row);
    return children;
}

FileSystemModelItem* FileSystemModelItem::child(std::size_t index)
{
    return const_cast<FileSystemModelItem*>(std::as_const(*this).child(index));
}

const FileSystemModelItem* FileSystemModelItem::child(std::size_t index) const
{
    const std::lock_guard lock(m_mutex);
    OZY_ASSERT(m_directory);
    OZY_ASSERT(m_populated);
    if (!OZY_ASSERT_AS("index >= 0 && index < m_children.size()", index < m_children.size()))
        return nullptr;
    return m_children[index].get();
}

std::size_t FileSystemModelItem::childCount() const
{
    if (!m_directory)
        return 0;
    const std::lock_guard lock(m_mutex);
    return m_children.size();
}

std::size_t FileSystemModelItem::childIndex(const FileSystemModelItem* child) const
{
    OZY_ASSERT(m_directory);
    const std::lock_guard lock(m_mutex);
    OZY_ASSERT(m_populated);
    const bool isChild = child && child->m_parent == this && child->m_row < m_children.size()
                         && m_children[child->m_row].get() == child;
    return isChild ? child->m_row : INVALID_INDEX;
}

std::size_t FileSystemModelItem::selfIndex() const
{
    if (!m_parent)
        return 0;
    const std::size_t index = m_parent->childIndex(this);
    OZY_ASSERT(index != INVALID_INDEX);
    return index;
}

zarn::ReflectedObject FileSystemModelItem::properties() const
{
    return m_properties ? *m_properties : zarn::ReflectedObject();
}

const FileSystemModelItem::Shown& FileSystemModelItem::shown() const
{
    if (const Shown* shown = m_shown.load(std::memory_order_acquire))
        return *shown;
    auto filled = fillCache();
    const Shown* first = nullptr;
    if (m_shown.compare_exchange_strong(first, filled.get(), std::memory_order_acq_rel, std::memory_order_acquire))
        return *filled.release();
    return *first;
}

std::unique_ptr<FileSystemModelItem::Shown> FileSystemModelItem::fillCache() const
{
    auto shown = std::make_unique<Shown>();
    if (!m_fileInfo)
        return shown;
    shown->name = QString::fromUtf8(m_fileInfo->name());
    shown->createdTime = fileTime(m_fileInfo->createdTime());
    shown->modifiedTime = fileTime(m_fileInfo->modifiedTime());
    shown->extension = QString::fromUtf8(m_fileInfo->extension());
    shown->fullName = QString::fromUtf8(m_fileInfo->fullName());
    shown->path = shown->fullName.left(shown->fullName.lastIndexOf('/'));
    return shown;
}

} // namespace datamodels
