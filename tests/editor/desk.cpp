#include "desk.h"

#include <controls/match_text.h>
#include <host/registry/static_registrar.h>

#include <QApplication>
#include <QTextCodec>
#include <QtTest>

namespace {

enum class Where
{
    OnScreen,
    Anywhere
};

QQuickItem* findBelow(const QQuickItem& parent, const QString& name, Where where)
{
    for (QQuickItem* child : parent.childItems()) {
        if (where == Where::OnScreen && !child->isVisible())
            continue;
        if (child->objectName() == name)
            return child;
        if (QQuickItem* found = findBelow(*child, name, where))
            return found;
    }
    return nullptr;
}

void collectTexts(const QQuickItem& parent, QStringList& texts)
{
    for (const QQuickItem* child : parent.childItems()) {
        if (!child->isVisible())
            continue;
        const QString text = child->property("text").toString();
        if ((child->inherits("QQuickText") || child->inherits("editor::MatchText")) && !text.isEmpty())
            texts << text;
        collectTexts(*child, texts);
    }
}

QString nameOf(const QQuickItem& row)
{
    for (const QQuickItem* child : row.childItems()) {
        const auto* text = qobject_cast<const editor::MatchText*>(child);
        const QString name = text ? text->text() : nameOf(*child);
        if (!name.isEmpty())
            return name;
    }
    return {};
}

} // namespace

Desk::Desk(const QString& panel, const std::function<void(const SampleProject&)>& more)
    : m_project(more), m_tabs({m_project.path()}, panel), m_editor(m_tabs), m_window(*m_editor.window())
{
    m_window.requestActivate();
    if (!QTest::qWaitForWindowActive(&m_window))
        qFatal("The window does not come up");
}

QQuickItem& Desk::item(const QString& name) const
{
    QQuickItem* found = find(name);
    if (!found)
        qFatal("There is no item \"%s\"", qPrintable(name));
    return *found;
}

QList<QQuickItem*> Desk::rowItems(const QString& list) const
{
    QQuickItem& view = item(list);
    QList<QQuickItem*> rows;
    for (int i = 0; i < view.property("count").toInt(); ++i) {
        QQuickItem* row = nullptr;
        QMetaObject::invokeMethod(&view, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row), Q_ARG(int, i));
        if (row)
            rows << row;
    }
    return rows;
}

QString Desk::text(const QString& name, const char* property) const
{
    return item(name).property(property).toString();
}

QStringList Desk::names(const QString& tree) const
{
    QStringList names;
    for (const QQuickItem* row : rowItems(tree))
        names << nameOf(*row);
    return names;
}

QString Desk::currentName(const QString& tree) const
{
    for (const QQuickItem* row : rowItems(tree)) {
        if (row->property("isCurrent").toBool())
            return nameOf(*row);
    }
    return {};
}

QString Desk::reads(const QQuickItem& item) const
{
    QStringList texts;
    collectTexts(item, texts);
    return texts.join(' ');
}

int Desk::pixels(const QQuickItem& item, const QColor& colour) const
{
    const QImage image = m_window.grabWindow().copy(item.mapRectToScene(item.boundingRect()).toRect());
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

void Desk::click(const QQuickItem& target, Qt::KeyboardModifiers modifiers)
{
    clickAt(target, {target.width() / 2, target.height() / 2}, modifiers);
}

void Desk::clickAt(const QQuickItem& target, const QPointF& place, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(&m_window, Qt::LeftButton, modifiers, target.mapToScene(place).toPoint());
    settle();
}

void Desk::doubleClick(const QQuickItem& target, const QPointF& place)
{
    QTest::mouseDClick(&m_window, Qt::LeftButton, {}, target.mapToScene(place).toPoint());
    settle();
}

void Desk::dragAt(const QQuickItem& target, const QPointF& place, const QPointF& by, Qt::MouseButton button)
{
    const QPointF from = target.mapToScene(place);
    QTest::mousePress(&m_window, button, {}, from.toPoint());
    QTest::mouseMove(&m_window, (from + by / 2).toPoint());
    QTest::mouseMove(&m_window, (from + by).toPoint());
    QTest::mouseRelease(&m_window, button, {}, (from + by).toPoint());
    settle();
}

void Desk::drag(const QQuickItem& target, const QPointF& by)
{
    dragAt(target, {target.width() / 2, target.height() / 2}, by);
}

void Desk::dragTo(const QQuickItem& target, const QQuickItem& destination)
{
    drag(target, areaOf(destination).center() - areaOf(target).center());
}

void Desk::pressAt(const QQuickItem& target)
{
    m_pointer = areaOf(target).center().toPoint();
    QTest::mousePress(&m_window, Qt::LeftButton, {}, m_pointer);
}

void Desk::moveTo(const QQuickItem& target, const QPointF& place)
{
    m_pointer = target.mapToScene(place).toPoint();
    QTest::mouseMove(&m_window, m_pointer);
}

void Desk::release()
{
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, m_pointer);
    settle();
}

void Desk::turnWheel(const QQuickItem& target, const QPointF& place, int notches)
{
    const QPointF at = target.mapToScene(place);
    QWheelEvent event(at, m_window.mapToGlobal(at.toPoint()), {}, {0, 120 * notches}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&m_window, &event);
    settle();
}

void Desk::type(const QString& text)
{
    for (const QChar& character : text)
        QTest::keyClick(&m_window, character.toLatin1());
    settle();
}

void Desk::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_window, key, modifiers);
    settle();
}

void Desk::settle()
{
    m_window.update();
    QSignalSpy frames(&m_window, &QQuickWindow::frameSwapped);
    frames.wait(5000);
    QCoreApplication::processEvents();
}

QQuickItem* Desk::find(const QString& name) const
{
    QQuickItem* found = findBelow(*m_window.contentItem(), name, Where::OnScreen);
    return found ? found : findBelow(*m_window.contentItem(), name, Where::Anywhere);
}

int runAtDesk(QObject& test, int argc, char** argv)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); // as the editor itself does
    QApplication application(argc, argv);
    StaticRegistrar::RegistrarInternals::runDeferred();
    editor::EditorWindow::chooseRenderer(true);
    return QTest::qExec(&test, argc, argv);
}
