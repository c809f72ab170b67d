#include "tool.h"

#include <host/base/debug.h>
#include <host/engine/atlas_manager.h>
#include <host/registry/instances.h>
#include <host/resources/multi_file_system.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>
#include <QTextCodec>

#include <cstdio>
#include <map>

using namespace atlas_tool;

namespace {

const char* const usage = "Looks at, checks, makes and draws texture atlases.\n\n"
                          "  atlas-tool info ATLAS...\n"
                          "  atlas-tool validate ATLAS...\n"
                          "  atlas-tool create ATLAS --from FOLDER [--columns N] [--replace]\n"
                          "  atlas-tool export ATLAS --to FOLDER\n\n"
                          "ATLAS is the path of any of the three files of an atlas, or what they have in common.";

int misused(const QString& reason)
{
    std::fprintf(stderr, "atlas-tool: %s; atlas-tool --help tells more\n", qUtf8Printable(reason));
    return 2;
}

struct Command
{
    int (*run)(const Request&);
    int mostPaths;
    bool needsFolder;
};

const std::map<QString, Command> commands = {{"info", {info, 1000000, false}},
                                             {"validate", {validate, 1000000, false}},
                                             {"create", {create, 1, true}},
                                             {"export", {exportPictures, 1, true}}};

int run(const Request& request)
{
    const auto command = commands.find(request.command);
    if (command == commands.end())
        return misused(request.command.isEmpty() ? "no command" : "no command '" + request.command + "'");
    if (request.paths.isEmpty() || request.paths.size() > command->second.mostPaths)
        return misused(request.paths.isEmpty() ? "no atlas" : "more than one atlas");
    if (command->second.needsFolder && request.folder.isEmpty())
        return misused(request.command == "create" ? "--from is missing" : "--to is missing");

    std::vector<std::string> roots;
    for (const QString& path : request.content)
        roots.push_back(QDir(path).absolutePath().toStdString());
    if (!Ozy::FS::fileSystem()->setRoots(roots))
        return misused("a directory of --content is not there");

    Ozy::Fennel::AtlasManager manager;
    instances::set<IAtlasManager>(&manager);
    const auto leave = qScopeGuard([] { instances::set<IAtlasManager>(nullptr); });
    return command->second.run(request);
}

} // namespace

int main(int argc, char** argv)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("atlas-tool");
    Ozy::DebugMessageHelper::setSink([](const Ozy::DebugMessageHelper::Record& record) {
        if (record.priority > Ozy::Priority::progress)
            std::fputs(record.text.c_str(), stderr);
    });

    QCommandLineParser parser;
    parser.setApplicationDescription(usage);
    parser.addHelpOption();
    const QCommandLineOption content("content", "A directory of resources; the current one if none is given.", "DIR");
    const QCommandLineOption from("from", "Where the textures of a new atlas are: *_AM.png, with *_GBMT.png and *_MAO.png beside.", "FOLDER");
    const QCommandLineOption to("to", "Where the pictures go to.", "FOLDER");
    const QCommandLineOption columns("columns", "The columns of a new atlas.", "N");
    const QCommandLineOption replace("replace", "Writes over an atlas that is there.");
    parser.addOptions({content, from, to, columns, replace});
    parser.process(application);

    Request request;
    request.paths = parser.positionalArguments();
    request.command = request.paths.isEmpty() ? QString() : request.paths.takeFirst();
    request.content = parser.isSet(content) ? parser.values(content) : QStringList{QDir::currentPath()};
    request.folder = parser.value(request.command == "create" ? from : to);
    request.columns = parser.value(columns).toInt();
    request.replaces = parser.isSet(replace);
    if (parser.isSet(columns) && (request.columns < 1 || request.columns > 16384))
        return misused("--columns is no number from 1 to 16384");
    return run(request);
}
