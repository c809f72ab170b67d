#include "editor_options.h"

#include "panels/panel_table.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace editor {
namespace {

// The first thing that is wrong, in the words of the message; empty if nothing is.
QString fault(const Options& options)
{
    if (!QFileInfo(options.content).isDir())
        return QStringLiteral("no such directory: \"%1\"").arg(options.content);
    if (!options.panel.isEmpty() && !panelNames().contains(options.panel))
        return QStringLiteral("no such panel: \"%1\"; available: %2")
            .arg(options.panel, panelNames().join(QLatin1String(", ")));
    if (!options.screenshot.isEmpty() && !QDir().mkpath(options.screenshot))
        return QStringLiteral("cannot make the directory \"%1\"").arg(options.screenshot);
    return {};
}

} // namespace

Options parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QString text = QStringLiteral("text");
    const QCommandLineOption content(QStringLiteral("content"), {}, text, sampleContent());
    const QCommandLineOption panel(QStringLiteral("panel"), {}, text);
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), {}, text);
    const QCommandLineOption trace(QStringLiteral("trace"), {}, text);
    const QCommandLineOption help(QStringLiteral("help"));
    parser.addOptions({content, panel, screenshot, trace, help});

    Options options;
    if (!parser.parse(QStringList(QStringLiteral("datamodels-editor")) + arguments)) {
        options.error = parser.errorText();
        return options;
    }
    options.help = parser.isSet(help);
    options.content = parser.value(content);
    options.panel = parser.value(panel);
    options.screenshot = parser.value(screenshot);
    options.trace = parser.value(trace);
    if (options.help)
        return options;

    if (!parser.positionalArguments().isEmpty())
        options.error = QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst());
    for (const QCommandLineOption& option : {content, panel, screenshot, trace}) {
        if (parser.isSet(option) && parser.value(option).isEmpty() && options.error.isEmpty())
            options.error = QStringLiteral("--%1 needs a value").arg(option.names().constFirst());
    }
    if (options.error.isEmpty())
        options.error = fault(options);
    return options;
}

QStringList panelNames()
{
    QStringList names;
    for (const PanelEntry& entry : panelTable())
        names << QLatin1String(entry.name);
    return names;
}

QString helpText()
{
    return QStringLiteral("Usage: datamodels-editor [options]\n"
                          "\n"
                          "  --content DIR     the project to open (default: %1)\n"
                          "  --panel NAME      the panel to start with: %2\n"
                          "  --screenshot DIR  render every panel to DIR/<panel>.png and leave\n"
                          "  --trace FILE      record what takes time, for a trace viewer of the Chrome kind\n"
                          "  --help            this text\n")
        .arg(QDir::cleanPath(sampleContent()), panelNames().join(QLatin1String(", ")));
}

QString sampleContent()
{
    const QString program = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    const QString beside = QFileInfo(program).path() + QLatin1String("/content");
    return QFileInfo(beside).isDir() ? beside : QStringLiteral(EDITOR_CONTENT_DIR);
}

} // namespace editor
