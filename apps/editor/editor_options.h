#pragma once

#include <QString>
#include <QStringList>

namespace editor {

/// What the command line asks for.
struct Options
{
    QString content;    ///< an existing directory
    QString panel;      ///< a name of the panel table, or empty for the first
    QString screenshot; ///< directory to render every panel to; empty: open the window
    QString trace;      ///< file for the trace viewer, or empty
    bool help = false;

    QString error; ///< one line, without the program's name; empty when the rest can be used
};

/// Reads the arguments behind the program's name. Needs no application object, so that help and errors do not need a
/// display either.
Options parseOptions(const QStringList& arguments);

QString helpText();

/// What `--panel` takes.
QStringList panelNames();

/// The sample project: beside the executable when it was installed, else in the sources.
QString sampleContent();

} // namespace editor
