#include "editor_window.h"

#include "controls/curve_item.h"
#include "controls/icon_provider.h"
#include "controls/match_text.h"
#include "editor_tabs.h"

#include <datamodels/library_frame.h>
#include <host/images/tessen_image_provider.h>
#include <host/images/tessen_image_request_desc.h>

#include <QOpenGLContext>
#include <QQmlContext>
#include <QQuickWindow>

namespace editor {

EditorWindow::EditorWindow(Tabs& tabs)
{
    registerControls();
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
    m_engine.addImageProvider(TessenImageRequestDesc::providerId(), new TessenImageProvider);
    m_engine.rootContext()->setContextProperty(QStringLiteral("tabs"), &tabs);
    m_engine.load(QUrl(QStringLiteral("qrc:/Editor/Main.qml")));
}

EditorWindow::~EditorWindow() = default;

QQuickWindow* EditorWindow::window() const
{
    const QList<QObject*> roots = m_engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.constFirst());
}

void EditorWindow::chooseRenderer(bool forPictures)
{
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        return;
    if (forPictures || !QOpenGLContext().create())
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

void registerControls()
{
    static const bool once = [] {
        qmlRegisterType<CurveItem>("Editor.Items", 1, 0, "CurveItem");
        qmlRegisterType<MatchText>("Editor.Items", 1, 0, "MatchText");
        datamodels::registerGraphQml();
        registerAtlasQmlInterfaces();
        return true;
    }();
    Q_UNUSED(once)
}

} // namespace editor
