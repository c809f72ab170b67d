#include "screenshots.h"

#include "editor_tabs.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QQuickWindow>

#include <cstdio>

namespace editor {
namespace {

constexpr int patience = 30'000; // milliseconds

// Two frames: what the first one lays out may ask for a second.
bool settle(QQuickWindow& window, const Panel& panel)
{
    int frames = 0;
    const auto counting = QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&frames] { ++frames; });
    QElapsedTimer timer;
    timer.start();
    while ((frames < 2 || panel.isBusy()) && timer.elapsed() < patience) {
        window.update();
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    QObject::disconnect(counting);
    return frames >= 2 && !panel.isBusy();
}

bool takeShot(QQuickWindow& window, const Panel& panel, const QString& path)
{
    if (!settle(window, panel)) {
        std::fprintf(stderr, "datamodels-editor: %s: the panel does not come to rest\n", qUtf8Printable(path));
        return false;
    }
    const QImage image = window.grabWindow();
    if (image.isNull() || !image.save(path)) {
        std::fprintf(stderr, "datamodels-editor: cannot write \"%s\"\n", qUtf8Printable(path));
        return false;
    }
    std::printf("%s\n", qUtf8Printable(path));
    return true;
}

} // namespace

bool takeScreenshots(QQuickWindow& window, Tabs& tabs, const QString& directory)
{
    const QDir folder(directory);
    window.requestActivate();
    for (int i = 0; i < tabs.count(); ++i) {
        tabs.setCurrentIndex(i);
        const Tab& tab = *tabs.current();
        for (const Panel::Shot& shot : tab.panel()->shots()) {
            shot.arrange();
            const QString suffix = shot.suffix.isEmpty() ? QString() : QLatin1Char('-') + shot.suffix;
            const QString name = QStringLiteral("%1%2.png").arg(tab.name(), suffix);
            if (!takeShot(window, *tab.panel(), QDir::cleanPath(folder.absoluteFilePath(name))))
                return false;
        }
    }
    return true;
}

} // namespace editor
