#include <panels/form/property_rows.h>
#include <panels/scene/level_actor.h>

#include <host/reflection/cast.h>
#include <host/undo/changes_controller.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace editor;
using zarn::reflect;

namespace {

std::shared_ptr<Actor> actor(const std::string& name)
{
    auto made = std::make_shared<Actor>();
    made->name = name;
    made->setModel("models/" + name + ".mesh");
    return made;
}

/// A form over some objects, as a panel has one.
class Form
{
public:
    template <class T>
    explicit Form(const std::vector<std::shared_ptr<T>>& objects) : m_keep(objects.begin(), objects.end())
    {
        std::vector<zarn::ReflectedObject> handles;
        for (const std::shared_ptr<T>& object : objects) {
            handles.push_back(reflect(*object));
            m_selection.merge(handles.back(), {});
        }
        rows.setObjects(handles, reflect(m_selection), "Subject");
    }

    QVariant at(const QString& path, const char* role) const
    {
        const int row = rows.find(path);
        return row < 0 ? QVariant("no such row") : rows.index(row).data(rows.roleNames().key(role));
    }
    QVariant field(const QString& path, int field, const char* fact) const
    {
        return at(path, "fields").toList().value(field).toMap().value(fact);
    }
    bool write(const QString& path, const QVariant& value, int field = -1) { return rows.write(rows.find(path), value, field); }

    /// "path editor" of each row.
    QStringList lines() const
    {
        QStringList lines;
        for (int row = 0; row < rows.rowCount(); ++row) {
            const QModelIndex index = rows.index(row);
            const auto text = [&](const char* role) { return index.data(rows.roleNames().key(role)).toString(); };
            lines << QString(2 * text("level").toInt(), ' ') + text("path") + ' ' + text("editor");
        }
        return lines;
    }
    QStringList linesBelow(const QString& path) const { return lines().filter(path + '.'); }

    QStringList steps() const
    {
        QStringList names;
        for (int step = 0; step < history.count(); ++step) {
            const auto name = history.barrierName(static_cast<std::size_t>(step));
            names << QString::fromUtf8(name.data(), static_cast<int>(name.size()));
        }
        return names;
    }

    Ozy::ChangesController history;
    PropertyRows rows{history};

private:
    std::vector<std::shared_ptr<zarn::Object>> m_keep;
    zarn::MultiSelection m_selection;
    QAbstractItemModelTester m_tester{&rows};
};

} // namespace

class tst_PropertyRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typesAndAnnotationsChooseTheEditors()
    {
        const auto crate = actor("crate");
        crate->tags->push_back("prop");
        crate->components->push_back(std::make_shared<Buoyancy>());

        const Form form(std::vector{crate});

        QCOMPARE(form.lines(),
                 (QStringList{"_objectName text", "_isEnabled check", "visible check", "locked check", "position vector",
                              "heading number", "scale number", "mass number", "mobility choice", "model file", "notes lines",
                              "tags heading", "  tags.0 text", "components heading", "  components.0 heading",
                              "    components.0.active check", "    components.0.density number",
                              "    components.0.drag number", "() methods"}));
    }

    void aRowTellsWhatItsEditorNeeds_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("role");
        QTest::addColumn<QVariant>("value");

        const auto row = [](const char* path, const char* role, const QVariant& value) {
            QTest::addRow("%s %s", path, role) << QString(path) << QByteArray(role) << value;
        };
        row("heading", "label", "Heading");
        row("heading", "value", 90.0);
        row("heading", "least", 0.0);
        row("heading", "most", 360.0);
        row("heading", "digits", 0);
        row("heading", "unit", "°");
        row("scale", "digits", 2);
        row("mass", "isReadOnly", true);
        row("mass", "tip", "Follows from the scale");
        row("mobility", "value", "Driven");
        row("mobility", "choices", QStringList{"Static", "Movable", "Driven"});
        row("model", "pattern", "*.mesh");
        row("model", "folder", "models");
        row("notes", "lines", 3);
        row("tags", "value", 0);
        row("tags", "canAdd", true);
        row("tags", "choices", QStringList());
        row("components", "choices", QStringList{"Collider", "Buoyancy", "Sound"});
    }
    void aRowTellsWhatItsEditorNeeds()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, role);
        const auto crate = actor("crate");
        crate->heading = 90;
        crate->mobility = Actor::Mobility::Driven;

        const Form form(std::vector{crate});

        QTEST(form.at(path, role), "value");
    }

    void whereObjectsDifferAValueIsMixed()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        one->position.x = 5;
        one->heading = 10;

        const Form form(std::vector{one, other});

        QCOMPARE(form.at("_objectName", "isMixed"), QVariant(true));
        QCOMPARE(form.at("_objectName", "value"), QVariant());
        QCOMPARE(form.at("heading", "isMixed"), QVariant(true));
        QCOMPARE(form.at("scale", "isMixed"), QVariant(false));
        QCOMPARE(form.at("scale", "value"), QVariant(1.0));
        QCOMPARE(form.field("position", 0, "isMixed"), QVariant(true));
        QCOMPARE(form.field("position", 1, "isMixed"), QVariant(false));
    }

    void anEditReachesAllObjectsAsOneStep()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        one->heading = 10;
        Form form(std::vector{one, other});

        QVERIFY(form.write("heading", 45));
        const double written = one->heading + other->heading;
        form.history.undo();

        QCOMPARE(written, 90.0);
        QCOMPARE(one->heading, 10.0);
        QCOMPARE(other->heading, 0.0);
        QCOMPARE(form.steps(), QStringList{"Subject: Heading"});
    }

    void aFieldOfAVectorReachesAllObjects()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        one->position.y = 3;
        Form form(std::vector{one, other});

        QVERIFY(form.write("position", 7.5, 0));

        QCOMPARE(one->position.x, 7.5);
        QCOMPARE(other->position.x, 7.5);
        QCOMPARE(one->position.y, 3.0);
        QCOMPARE(form.field("position", 0, "value"), QVariant(7.5));
    }

    void anEnumerationIsSetByName()
    {
        const auto crate = actor("crate");
        Form form(std::vector{crate});

        QVERIFY(form.write("mobility", "Movable"));
        QVERIFY(!form.write("mobility", "Liquid"));

        QVERIFY(crate->mobility == Actor::Mobility::Movable);
        QCOMPARE(form.at("mobility", "value"), QVariant("Movable"));
        QCOMPARE(form.history.count(), 1);
    }

    void whatIsReadOnlyIsNotWritten()
    {
        Form form(std::vector{actor("crate")});

        QVERIFY(!form.write("mass", 3));

        QCOMPARE(form.history.count(), 0);
    }

    void aReadOnlyFormLeavesTheSwitches()
    {
        const auto crate = actor("crate");
        Form form(std::vector{crate});

        form.rows.setReadOnly(true);

        QVERIFY(!form.write("heading", 3));
        QVERIFY(form.write("locked", true));
        QCOMPARE(form.at("tags", "canAdd"), QVariant(false));
        QVERIFY(crate->isLocked);
    }

    void theEditsOfAGestureAreOneStep()
    {
        const auto crate = actor("crate");
        Form form(std::vector{crate});

        form.rows.begin(form.rows.find("heading"));
        form.write("heading", 10);
        form.write("heading", 20);
        form.write("heading", 30);
        form.rows.end();
        const double dragged = crate->heading;
        form.history.undo();

        QCOMPARE(dragged, 30.0);
        QCOMPARE(crate->heading, 0.0);
        QCOMPARE(form.steps(), QStringList{"Subject: Heading"});
    }

    void aChangeFromElsewhereIsToldForItsRows()
    {
        const auto crate = actor("crate");
        Form form(std::vector{crate});
        SignalLog log(form.rows);

        reflect(*crate).findPropertyByName("scale").set(2.0, {});

        QCOMPARE(log.take(), (QStringList{"changed /7", "changed /6"}));
        QCOMPARE(form.at("mass", "value"), QVariant(960.0));
    }

    void elementsComeAndGoWithinTheirBounds()
    {
        const auto crate = actor("crate");
        *crate->tags = {"a", "b", "c", "d", "e"};
        Form form(std::vector{crate});

        form.rows.add(form.rows.find("tags"));
        QCoreApplication::processEvents();
        const QVariant full = form.at("tags", "canAdd");
        form.rows.add(form.rows.find("tags"));
        form.rows.remove(form.rows.find("tags.1"));
        QCoreApplication::processEvents();

        QCOMPARE(full, QVariant(false));
        QCOMPARE(*crate->tags, (std::vector<std::string>{"a", "c", "d", "e", ""}));
        QCOMPARE(form.at("tags", "canAdd"), QVariant(true));
        QCOMPARE(form.steps(), (QStringList{"Subject: Add to Tags", "Subject: Remove Tags 2"}));
    }

    void anElementOfAChosenClassIsAdded()
    {
        const auto crate = actor("crate");
        Form form(std::vector{crate});

        form.rows.add(form.rows.find("components"), "Sound");
        QCoreApplication::processEvents();

        QCOMPARE(form.at("components.0", "label"), QVariant("Sound"));
        QVERIFY(dynamic_cast<Sound*>(crate->components->front().get()));
    }

    void aPathKeepsTheFewestPointsThatItNeeds()
    {
        const auto path = std::make_shared<Path>();
        path->points->push_back(std::make_shared<PathPoint>());
        Form form(std::vector{path});

        form.rows.remove(form.rows.find("points.0"));
        QCoreApplication::processEvents();
        form.rows.remove(form.rows.find("points.0"));

        QCOMPARE(path->points->size(), std::size_t(2));
        QCOMPARE(form.at("points.0", "canRemove"), QVariant(false));
        QCOMPARE(form.at("points.1", "label"), QVariant("Point 2"));
    }

    void collectionsOfDifferentSizesShowWhatAllHave()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        *one->tags = {"a", "b"};
        *other->tags = {"c"};

        const Form form(std::vector{one, other});

        QCOMPARE(form.at("tags", "isMixed"), QVariant(true));
        QCOMPARE(form.linesBelow("tags"), QStringList{"  tags.0 text"});
        QCOMPARE(form.at("tags.0", "isMixed"), QVariant(true));
    }

    void aClosedHeadingStaysClosedForOtherObjects()
    {
        const auto one = actor("one");
        one->tags->push_back("a");
        Form form(std::vector{one});

        form.rows.toggle(form.rows.find("tags"));
        form.rows.setObjects({reflect(*one)}, reflect(*one), "One");

        QCOMPARE(form.linesBelow("tags"), QStringList());
        QCOMPARE(form.at("tags", "isOpen"), QVariant(false));
    }

    void rowsThatLookTheSameStayWhenOtherObjectsAreShown()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        other->tags->push_back("a");
        Form form(std::vector{one});
        SignalLog log(form.rows);

        form.rows.setObjects({reflect(*other)}, reflect(*other), "Other");

        QCOMPARE(log.take().join(", "), QString("inserting / [12..12], inserted / [12..12], changed /0 .. /14"));
    }

    void methodsRunOnAllObjectsAsOneStep()
    {
        const auto one = actor("one");
        const auto other = actor("other");
        one->heading = 90;
        Form form(std::vector{one, other});

        form.rows.call(form.rows.find("()"), 1);

        QCOMPARE(one->heading, 270.0);
        QCOMPARE(other->heading, 180.0);
        QCOMPARE(form.steps(), QStringList{"Subject: Turn around"});
    }

    void rowsOutOfRangeAreIgnored()
    {
        Form form(std::vector{actor("crate")});

        QVERIFY(!form.rows.write(-1, 3));
        QVERIFY(!form.rows.write(99, 3));
        QVERIFY(!form.write("position", 3, 9));
        form.rows.toggle(99);
        form.rows.add(99);
        form.rows.remove(0);
        form.rows.call(0, 0);
        form.rows.begin(99);

        QCOMPARE(form.history.count(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_PropertyRows)
#include "tst_property_rows.moc"
