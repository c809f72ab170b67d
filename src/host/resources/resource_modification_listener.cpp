#include <host/resources/resource_modification_listener.h>

namespace Ozy {

ResourceModificationListener::ResourceModificationListener() = default;
ResourceModificationListener::~ResourceModificationListener() = default;

void ResourceModificationListener::onResourceModified(std::string_view, std::string_view, unsigned) {}
void ResourceModificationListener::onTriggerTaskQueue() {}
void ResourceModificationListener::onTaskQueueEmpty() {}

} // namespace Ozy
