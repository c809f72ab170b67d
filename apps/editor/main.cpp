#include "editor_options.h"
#include "editor_tabs.h"
#include "editor_window.h"
#include "screenshots.h"
#include "trace_file.h"

#include <host/registry/static_registrar.h>

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTextCodec>

#include <cstdio>

namespace {

int refuse(const QString& reason)
{
    std::fprintf(stderr, "datamodels-editor: %s\n", qUtf8Printable(reason));
    return 2;
}

int run(const editor::Options& options)
{
    editor::Tabs tabs({QDir(options.content).absolutePath()}, options.panel);
    editor::EditorWindow editorWindow(tabs);
    QQuickWindow* window = editorWindow.window();
    if (!window)
        return 1;
    if (options.screenshot.isEmpty())
        return QApplication::exec();
    return editor::takeScreenshots(*window, tabs, options.screenshot) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    // The names of a project's files are UTF-8 whatever the locale says, which on a bare machine is nothing.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Progress is for those who ask: QT_LOGGING_RULES=datamodels.debug=true.
    QLoggingCategory::setFilterRules(QStringLiteral("datamodels.debug=false"));

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const editor::Options options = editor::parseOptions(arguments);
    if (!options.error.isEmpty())
        return refuse(options.error);
    if (options.help) {
        std::fputs(qUtf8Printable(editor::helpText()), stdout);
        return 0;
    }
    const editor::TraceFile trace(options.trace);
    if (!trace.error().isEmpty())
        return refuse(QStringLiteral("cannot write \"%1\": %2").arg(options.trace, trace.error()));

    // A bare machine has no directory for a session's files, about which Qt complains.
    const QTemporaryDir sessionFiles;
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(sessionFiles.path()));

    QApplication application(argc, argv); // with widgets, for the dialogs of files
    QApplication::setApplicationName(QStringLiteral("datamodels-editor"));
    StaticRegistrar::RegistrarInternals::runDeferred();
    editor::EditorWindow::chooseRenderer(!options.screenshot.isEmpty());
    return run(options);
}
