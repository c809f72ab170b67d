#include "tool.h"

#include <datamodels/atlas/atlas_asset.h>
#include <datamodels/atlas/atlas_problems.h>

namespace atlas_tool {
namespace {

/// The reasons of a refusal to load are in the log, which goes to the standard error.
bool isValid(const QString& base)
{
    const AtlasAsset asset(filePath(base, 0).toStdString(), nullptr);
    if (asset.totalTilesCount() == 0)
        return false;
    const std::vector<AtlasProblem> problems = findAtlasProblems(asset);
    for (const AtlasProblem& problem : problems) {
        const QString place = problem.slot < 0 ? base : QString("%1, slot %2").arg(base).arg(problem.slot);
        refuse(place + ": " + QString::fromStdString(problem.text));
    }
    return problems.empty();
}

} // namespace

int validate(const Request& request)
{
    int result = 0;
    for (const QString& path : request.paths) {
        const QString base = basePath(path);
        if (isValid(base))
            print(base + ": valid");
        else
            result = refuse(base + ": not valid");
    }
    return result;
}

} // namespace atlas_tool
