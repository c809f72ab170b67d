#include "sample_project.h"

#include <controls/match_text.h>
#include <editor_tabs.h>
#include <editor_window.h>
#include <host/registry/static_registrar.h>
#include <support/log_capture.h>

#include <QApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

namespace {

/// The editor in a real window, with the means of a user: keys, clicks and eyes.
class Desk
{
public:
    Desk()
    {
        m_window = m_editor.window();
        m_window->requestActivate();
        if (!QTest::qWaitForWindowExposed(m_window))
            qFatal("The window does not come up");
    }

    QQuickItem* item(const QString& name) const
    {
        auto* found = m_window->findChild<QQuickItem*>(name);
        return found ? found : inItems(m_window->contentItem(), name);
    }

    void click(const QString& name) { click(*item(name)); }
    void clickRow(int row) { click(*rowItems().value(row)); }
    void click(const QQuickItem& target)
    {
        const QPointF middle = target.mapToScene({target.width() / 2, target.height() / 2});
        QTest::mouseClick(m_window, Qt::LeftButton, {}, middle.toPoint());
        settle();
    }

    void doubleClickRow(int row)
    {
        const QPointF place = rowItems().value(row)->mapToScene({200, 10});
        QTest::mouseDClick(m_window, Qt::LeftButton, {}, place.toPoint());
        settle();
    }

    void type(const QString& text)
    {
        for (const QChar& character : text)
            QTest::keyClick(m_window, character.toLatin1());
        settle();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_window, key, modifiers);
        settle();
    }

    /// The names of the rows as they stand on the screen, from the top.
    QStringList shown() const
    {
        QStringList names;
        for (const QQuickItem* row : rowItems())
            names << nameOf(*row);
        return names;
    }

    /// The name of the row that is drawn as the current one.
    QString current() const
    {
        for (const QQuickItem* row : rowItems()) {
            if (row->property("isCurrent").toBool())
                return nameOf(*row);
        }
        return {};
    }

    /// How many pixels of a row on the screen have a colour.
    int pixels(int row, const QColor& colour) const
    {
        const QQuickItem* rowItem = rowItems().value(row);
        const QImage image = m_window->grabWindow().copy(rowItem->mapRectToScene(rowItem->boundingRect()).toRect());
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
        return count;
    }

    QString status() const { return item("status")->property("text").toString(); }

private:
    static QQuickItem* inItems(QQuickItem* parent, const QString& name)
    {
        for (QQuickItem* child : parent->childItems()) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem* found = inItems(child, name))
                return found;
        }
        return nullptr;
    }

    static QString nameOf(const QQuickItem& row) { return matchTextIn(&row)->text(); }

    static const editor::MatchText* matchTextIn(const QQuickItem* parent)
    {
        for (const QQuickItem* child : parent->childItems()) {
            if (const auto* text = qobject_cast<const editor::MatchText*>(child))
                return text;
            if (const auto* found = matchTextIn(child))
                return found;
        }
        return nullptr;
    }

    // Asked of the view, since it keeps delegates that show no more for later.
    QList<QQuickItem*> rowItems() const
    {
        QQuickItem* list = item("tree");
        QList<QQuickItem*> rows;
        for (int i = 0; i < list->property("count").toInt(); ++i) {
            QQuickItem* row = nullptr;
            QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row), Q_ARG(int, i));
            if (row)
                rows << row;
        }
        return rows;
    }

    // Delegates come and go when the view is polished, before the next frame.
    void settle()
    {
        m_window->update();
        QSignalSpy frames(m_window, &QQuickWindow::frameSwapped);
        frames.wait(5000);
        QCoreApplication::processEvents();
    }

    LogCapture m_log{LogCapture::FailOnRest};
    SampleProject m_project;
    editor::Tabs m_tabs{{m_project.path()}, QString()};
    editor::EditorWindow m_editor{m_tabs};
    QQuickWindow* m_window = nullptr;
};

} // namespace

class tst_EditorWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheProjectsTopRows()
    {
        const Desk desk;

        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
        QCOMPARE(desk.status(), QString("10 rows"));
    }

    void typingANameFiltersTheRows()
    {
        Desk desk;

        desk.click("text");
        desk.type("quay");

        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.status(), QString("5 of 10 rows"));
    }

    void theFindKeyLeadsToTheTextField()
    {
        Desk desk;

        desk.press(Qt::Key_F, Qt::ControlModifier);
        desk.type("weir");

        QCOMPARE(desk.shown(), (QStringList{"scripts", "weir.lua"}));
    }

    void escapeEmptiesTheField()
    {
        Desk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Escape);

        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void theSwitchChoosesBetweenAllWordsAndAny()
    {
        Desk desk;
        desk.click("field");
        desk.type("quay map");
        const QStringList all = desk.shown();

        desk.click("Any");
        const QStringList any = desk.shown();
        desk.click("All");

        QCOMPARE(all, (QStringList{"scripts", "arena_defs", "quay.xml"}));
        QCOMPARE(any, (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.shown(), all);
    }

    void theSwitchesForAncestorsAndInversionChangeTheRows()
    {
        Desk desk;
        desk.click("text");
        desk.type("boats");

        desk.click("ancestors");
        const QStringList below = desk.shown();
        desk.click("invert");

        QCOMPARE(below, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "textures", "quay.png",
                                            "notes.txt"}));
    }

    void aClickOnAKindShowsOnlyThat()
    {
        Desk desk;

        desk.click("kind-Models");
        const QStringList models = desk.shown();
        desk.click("kind-Everything");

        QCOMPARE(models, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void aClickOnAHeaderSortsAndTheNextTurnsTheOrder()
    {
        Desk desk;
        desk.click("expandAll");

        desk.click("header-size");
        const QStringList ascending = desk.shown();
        desk.click("header-size");

        QCOMPARE(ascending, (QStringList{"textures", "quay.png", "boats", "Sail.mesh", "barge.mesh", "scripts",
                                         "arena_defs", "quay.xml", "weir.lua", "notes.txt"}));
        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "boats", "barge.mesh",
                                            "Sail.mesh", "textures", "quay.png", "notes.txt"}));
    }

    void theKeysWalkThroughTheTree()
    {
        Desk desk;
        desk.clickRow(1);

        desk.press(Qt::Key_Right); // opens scripts
        desk.press(Qt::Key_Right); // to arena_defs
        desk.press(Qt::Key_Down);
        const QString down = desk.current();
        desk.press(Qt::Key_Left);
        const QString left = desk.current();
        desk.press(Qt::Key_End);
        const QString end = desk.current();
        desk.press(Qt::Key_Home);

        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "arena_defs", "weir.lua", "textures", "notes.txt"}));
        QCOMPARE(down, QString("weir.lua"));
        QCOMPARE(left, QString("scripts"));
        QCOMPARE(end, QString("notes.txt"));
        QCOMPARE(desk.current(), QString("boats"));
    }

    void downLeadsFromTheFieldToTheRows()
    {
        Desk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Down);
        desk.press(Qt::Key_Down);

        QCOMPARE(desk.current(), QString("scripts"));
    }

    void aDoubleClickOpensABranch()
    {
        Desk desk;

        desk.doubleClickRow(0);

        QCOMPARE(desk.shown(), (QStringList{"boats", "barge.mesh", "Sail.mesh", "scripts", "textures", "notes.txt"}));
    }

    void theButtonsOpenAndCloseEveryBranch()
    {
        Desk desk;

        desk.click("expandAll");
        const QStringList expanded = desk.shown();
        desk.click("collapseAll");

        QCOMPARE(expanded.size(), 10);
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        Desk desk;
        desk.click("text");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty")->isVisible();
        const QStringList during = desk.shown();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QCOMPARE(during, QStringList());
        QVERIFY(!desk.item("empty")->isVisible());
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void whatMatchesIsMarkedInTheNames()
    {
        Desk desk;
        const QColor mark("#5f5020");
        const int before = desk.pixels(1, mark);

        desk.click("text");
        desk.type("we"); // leaves scripts and, below it, weir.lua

        QCOMPARE(before, 0);
        QCOMPARE(desk.pixels(0, mark), 0);
        QVERIFY(desk.pixels(1, mark) > 50);
    }
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    StaticRegistrar::RegistrarInternals::runDeferred();
    editor::EditorWindow::chooseRenderer(true);
    tst_EditorWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_editor_window.moc"
