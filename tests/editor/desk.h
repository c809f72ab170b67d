#pragma once

#include "sample_project.h"

#include <editor_tabs.h>
#include <editor_window.h>
#include <support/log_capture.h>

#include <QColor>
#include <QQuickItem>
#include <QQuickWindow>

/// The editor on a sample project in a real window, with the means of a user: keys, clicks and eyes.
///
/// A message of the host, of Qt or of QML that nobody has asked for fails the test.
class Desk
{
public:
    /// Opens with a panel, the first by default, on the sample project and what is added to it.
    explicit Desk(const QString& panel = QString(), const std::function<void(const SampleProject&)>& more = {});

    /// The panel of the current tab.
    template <class P>
    P& panel() const
    {
        return static_cast<P&>(*m_tabs.current()->panel());
    }

    /// The item with an object name, one that shows before those that do not; the test ends here if there is
    /// none.
    QQuickItem& item(const QString& name) const;
    bool has(const QString& name) const { return find(name) != nullptr; }
    /// The items of a list view's rows, from the top; asked of the view, which keeps those that show no more
    /// for later.
    QList<QQuickItem*> rowItems(const QString& list) const;
    /// A property of an item, as text.
    QString text(const QString& name, const char* property = "text") const;
    /// The texts that show in an item, in the order of its children, parted by blanks; what is typed into
    /// fields apart.
    QString reads(const QQuickItem& item) const;
    /// The names in the rows of a tree as they stand on the screen, and that of the current row.
    QStringList names(const QString& tree) const;
    QString currentName(const QString& tree) const;
    QStringList treeNames() const { return names(QStringLiteral("tree")); }
    QString currentTreeName() const { return currentName(QStringLiteral("tree")); }
    QString status() const { return text(QStringLiteral("status")); }
    /// What the host and Qt have logged and nobody has asked for so far.
    QStringList messages() { return m_log.messages() + m_log.qtMessages(); }
    /// Where an item is in the window.
    static QRectF areaOf(const QQuickItem& item)
    {
        return item.mapRectToScene({0, 0, item.width(), item.height()});
    }
    /// How many pixels of an item on the screen have a colour.
    int pixels(const QQuickItem& item, const QColor& colour) const;

    void click(const QString& name, Qt::KeyboardModifiers modifiers = {}) { click(item(name), modifiers); }
    void click(const QQuickItem& target, Qt::KeyboardModifiers modifiers = {});
    void doubleClick(const QQuickItem& target, const QPointF& place);
    void clickTreeRow(int row) { click(*rowItems(QStringLiteral("tree")).value(row)); }
    void clickAt(const QQuickItem& target, const QPointF& place, Qt::KeyboardModifiers modifiers = {});
    /// From a place in an item to one so far away.
    void dragAt(const QQuickItem& target, const QPointF& place, const QPointF& by,
                Qt::MouseButton button = Qt::LeftButton);
    /// From the middle of an item.
    void drag(const QQuickItem& target, const QPointF& by);
    void dragTo(const QQuickItem& target, const QQuickItem& destination);
    /// The left button goes down in the middle of an item; the pointer moves; the button comes up there.
    void pressAt(const QQuickItem& target);
    void moveTo(const QQuickItem& target, const QPointF& place);
    void release();
    /// Up is positive.
    void turnWheel(const QQuickItem& target, const QPointF& place, int notches);
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Waits for the next frame: items come and go when the view is polished, right before it.
    void settle();

private:
    QQuickItem* find(const QString& name) const;

    QPoint m_pointer;
    LogCapture m_log{LogCapture::FailOnRest};

protected:
    SampleProject m_project;

private:
    editor::Tabs m_tabs;
    editor::EditorWindow m_editor;
    QQuickWindow& m_window;
};

/// The `main` of a test that works at desks.
int runAtDesk(QObject& test, int argc, char** argv);
