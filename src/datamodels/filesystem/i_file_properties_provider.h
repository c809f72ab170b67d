#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/filesystem/i_file_properties.h>

#include <memory>
#include <string>

namespace datamodels {

/// Gives files their properties. Called on several threads at once, while a directory is locked: it must not wait for
/// the GUI thread, nor ask a model of that directory.
class DATAMODELS_API IFilePropertiesProvider
{
public:
    virtual ~IFilePropertiesProvider();

    /// Null when it has nothing for the file.
    virtual std::unique_ptr<IFileProperties> properties(const std::string& fullName) = 0;
};

} // namespace datamodels
