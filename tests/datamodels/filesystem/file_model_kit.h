#pragma once

#include <datamodels/filesystem/file_system_model.h>
#include <datamodels/filesystem/file_system_model_item.h>

#include <QString>

#include <functional>
#include <utility>

/// Accepts what a function says; everything by default.
class Predicate : public datamodels::IFileSystemModelPredicate
{
public:
    using Function = std::function<bool(const qelm::IFileInfo&)>;

    explicit Predicate(Function function = [](const qelm::IFileInfo&) { return true; }) : m_function(std::move(function))
    {
    }
    static Function ending(const QString& suffix)
    {
        return [suffix](const qelm::IFileInfo& info) { return QString::fromUtf8(info.name()).endsWith(suffix); };
    }

    bool accepts(const std::shared_ptr<qelm::IFileInfo>& info) const override { return m_function(*info); }

private:
    Function m_function;
};

/// A model that lets everything in, and shows what derived models see.
class FileModel : public datamodels::FileSystemModel
{
public:
    FileModel(qelm::IFileSystem& files, const std::string& path) : FileSystemModel(files, path)
    {
        static Predicate everything; // workers ask it until the base class has ended its job
        addPredicate(Include, &everything);
    }
    using FileSystemModel::enumeratedChildrenCount;
    using FileSystemModel::FileSystemModel;
    using FileSystemModel::getItem;
};
