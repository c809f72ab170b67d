#pragma once

#include <datamodels/datamodels_export.h>
#include <host/resources/file_info.h>

#include <memory>

namespace datamodels {

/// Says which entries of a file system a `FileSystemModel` shows. Called on several threads at once, while a
/// directory and the lists of predicates are locked: it must not wait for the GUI thread, nor change predicates.
class DATAMODELS_API IFileSystemModelPredicate
{
public:
    virtual ~IFileSystemModelPredicate();

    virtual bool accepts(const std::shared_ptr<qelm::IFileInfo>& info) const = 0;
};

} // namespace datamodels
