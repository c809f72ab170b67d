#include <panels/scene/json_writer.h>
#include <panels/scene/level_actor.h>
#include <panels/scene/level_document.h>
#include <panels/scene/level_file.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/undo/commit_changes_scope.h>

#include <QTemporaryDir>
#include <QtTest>

#include <random>

using namespace editor;
using zarn::reflect;

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// A file around some objects.
QByteArray sceneOf(const QByteArray& children)
{
    return "{\"format\": \"level scene\", \"version\": 1, \"scene\":\n"
           "{\"class\": \"Level\", \"_objectName\": \"Quay\", \"children\": [" + children + "]}}\n";
}

/// A directory with a scene file in it.
class SceneFolder
{
public:
    explicit SceneFolder(const QByteArray& text) { write(path(), text); }

    QString path() const { return m_folder.filePath("scene.json"); }

private:
    QTemporaryDir m_folder;
};

const QByteArray twoLamps = sceneOf("{\"class\": \"Light\", \"_objectName\": \"North\"}, "
                                    "{\"class\": \"Light\", \"_objectName\": \"South\"}");

void edit(LevelDocument& document, LevelObject& object, const char* property, const qelm::Variant& value)
{
    const Ozy::CommitChangesScope step("edit", document.history());
    reflect(object).findPropertyByName(property).set(value, {});
}

void removeFirst(LevelDocument& document)
{
    const Ozy::CommitChangesScope step("remove", document.history());
    reflect(document.level().children).removePropertyAt(0);
}

LevelObject& child(LevelDocument& document, std::size_t index)
{
    return *(*document.level().children)[index];
}

/// Names of the objects that are marked as modified.
QStringList modified(LevelDocument& document)
{
    QStringList names;
    visitObjects(document.level(), [&](const LevelObject& object) {
        if (object.isModified())
            names << QString::fromStdString(object.name);
    });
    return names;
}

std::vector<LevelObject*> objectsOf(Level& level)
{
    std::vector<LevelObject*> objects;
    visitObjects(level, [&](LevelObject& object) { objects.push_back(&object); });
    return objects;
}

/// One edit of some property or collection of some object, or undo, or redo.
void randomStep(LevelDocument& document, std::mt19937& random)
{
    const auto below = [&](std::size_t limit) { return random() % limit; };
    const std::vector<LevelObject*> objects = objectsOf(document.level());
    LevelObject& object = *objects[below(objects.size())];
    const zarn::ReflectedObject handle = reflect(object);
    switch (below(8)) {
    case 0: document.history()->undo(); return;
    case 1: document.history()->redo(); return;
    default: break;
    }
    const Ozy::CommitChangesScope step("edit", document.history());
    switch (below(5)) {
    case 0: handle.findPropertyByName("_objectName").set(std::to_string(random()), {}); return;
    case 1: handle.findPropertyByName("_isEnabled").set(below(2) == 0, {}); return;
    case 2: handle.findPropertyByName("position.x").set(double(below(4000)) / 8, {}); return;
    case 3: handle.findPropertyByName("reverse").genericInvoke({}, 0, nullptr); return;
    default: break;
    }
    const zarn::ReflectedObject children(handle.findPropertyByName("children"));
    if (children.propertyCount() > 0 && below(2) == 0)
        children.removePropertyAt(below(children.propertyCount()));
    else if (children.isValid())
        children.addProperty(below(children.propertyCount() + 1), {});
}

void wander(LevelDocument& document, int steps)
{
    std::mt19937 random(20);
    for (int step = 0; step < steps; ++step)
        randomStep(document, random);
    document.history()->jumpTo(document.history()->count());
}

/// How many of the shorter beginnings of a text are read as a level.
int readableBeginnings(const QByteArray& text)
{
    int count = 0;
    for (int length = 0; length < text.size(); ++length)
        count += LevelFile::parse(text.left(length)).level ? 1 : 0;
    return count;
}

} // namespace

class tst_LevelDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSampleIsWrittenAsItWasRead()
    {
        const LevelFile file = LevelFile::read(QStringLiteral(SAMPLE_SCENE));

        QCOMPARE(file.error, QString());
        QCOMPARE(objectsOf(*file.level).size(), std::size_t(386));
        QVERIFY(LevelFile::text(*file.level) == bytesOf(QStringLiteral(SAMPLE_SCENE)));
    }

    void everyKindOfValueComesBack()
    {
        Level level;
        level.name = "Käfer \"quoted\"\n\tline two \xF0\x9F\x9B\xB6";
        level.waterLevel = -0.1;
        auto actor = std::make_shared<Actor>();
        actor->mobility = Actor::Mobility::Driven;
        actor->position.x = 1.0 / 3.0;
        actor->position.y = 1e-7;
        actor->isLocked = true;
        *actor->tags = {"a", "", "ü"};
        actor->components->push_back(std::make_shared<Buoyancy>());
        auto path = std::make_shared<Path>();
        *path->points = {std::make_shared<PathPoint>(), std::make_shared<PathPoint>()};
        *level.children = {actor, path, std::make_shared<Group>(), std::make_shared<SpawnPoint>()};
        const QByteArray text = LevelFile::text(level);

        const LevelFile file = LevelFile::parse(text);

        QCOMPARE(file.error, QString());
        QCOMPARE(LevelFile::text(*file.level), text);
        QCOMPARE(QString::fromStdString(file.level->name), QString::fromStdString(level.name));
        const auto& read = dynamic_cast<const Actor&>(*file.level->children->front());
        QCOMPARE(read.position.x, 1.0 / 3.0);
        QVERIFY(read.mobility == Actor::Mobility::Driven);
    }

    void whatAFileDoesNotMentionKeepsTheValueOfItsClass()
    {
        const LevelFile file = LevelFile::parse(twoLamps);

        QCOMPARE(file.error, QString());
        QCOMPARE(dynamic_cast<const Light&>(*file.level->children->front()).range, 12.0);
    }

    void aFaultyFileIsRefusedWithTheReasonAndThePlace_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("reason");

        QTest::newRow("empty") << QByteArray() << "Line 1: illegal value";
        QTest::newRow("cut off") << twoLamps.chopped(20) << "Line 2: unterminated string";
        QTest::newRow("not JSON") << QByteArray("level\nscene") << "Line 1: illegal value";
        QTest::newRow("binary") << QByteArray("\x7f" "ELF\0\1\2", 7) << "Line 1: illegal value";
        QTest::newRow("a list") << QByteArray("[]") << "It is no scene of a level";
        QTest::newRow("another format") << QByteArray("{\"format\": \"atlas\", \"version\": 1}")
                                        << "It is no scene of a level";
        QTest::newRow("newer") << QByteArray("{\"format\": \"level scene\", \"version\": 2, \"scene\": {}}")
                               << "It has version 2, and this editor reads version 1";
        QTest::newRow("version as text") << QByteArray("{\"format\": \"level scene\", \"version\": \"1\", \"scene\": {}}")
                                         << "It has version 1, and this editor reads version 1";
        QTest::newRow("no scene") << QByteArray("{\"format\": \"level scene\", \"version\": 1}")
                                  << "There is no scene in it";
        QTest::newRow("another class as the scene")
            << QByteArray("{\"format\": \"level scene\", \"version\": 1, \"scene\": {\"class\": \"Light\"}}")
            << "expected an object of class \"Level\", found \"Light\"";
        QTest::newRow("unknown class") << sceneOf("{\"class\": \"Light\"}, {\"class\": \"Volcano\"}")
                                       << "children[1]: there is no class \"Volcano\" here";
        QTest::newRow("no class") << sceneOf("{\"range\": 3}") << "children[0]: there is no class \"\" here";
        QTest::newRow("a class that stands elsewhere") << sceneOf("{\"class\": \"Collider\"}")
                                                       << "children[0]: there is no class \"Collider\" here";
        QTest::newRow("another class as a value")
            << sceneOf("{\"class\": \"Light\", \"position\": {\"class\": \"Sound\"}}")
            << "children[0].position: expected an object of class \"Vector\", found \"Sound\"";
        QTest::newRow("unknown property") << sceneOf("{\"class\": \"Light\", \"weight\": 3}")
                                          << "children[0].weight: the class \"Light\" has no such property";
        QTest::newRow("path as a property") << sceneOf("{\"class\": \"Light\", \"position.x\": 3}")
                                            << "children[0].position.x: the class \"Light\" has no such property";
        QTest::newRow("method as a property") << sceneOf("{\"class\": \"Light\", \"dim\": true}")
                                              << "children[0].dim: the class \"Light\" has no such property";
        QTest::newRow("what follows from others") << sceneOf("{\"class\": \"Actor\", \"mass\": 3}")
                                                  << "children[0].mass: cannot be set";
        QTest::newRow("text for a number") << sceneOf("{\"class\": \"Light\", \"range\": \"3\"}")
                                           << "children[0].range: expected a number, found a text";
        QTest::newRow("number for a text") << sceneOf("{\"class\": \"Light\", \"colour\": 3}")
                                           << "children[0].colour: expected a text, found a number";
        QTest::newRow("number for a switch") << sceneOf("{\"class\": \"Light\", \"visible\": 1}")
                                             << "children[0].visible: expected yes or no, found a number";
        QTest::newRow("list for an object") << sceneOf("{\"class\": \"Light\", \"position\": [1, 2, 3]}")
                                            << "children[0].position: expected an object, found a list";
        QTest::newRow("object for a list") << sceneOf("{\"class\": \"Group\", \"children\": {}}")
                                           << "children[0].children: expected a list, found an object";
        QTest::newRow("number for an object") << sceneOf("3") << "children[0]: expected an object, found a number";
        QTest::newRow("null") << sceneOf("{\"class\": \"Light\", \"range\": null}")
                              << "children[0].range: expected a number, found nothing";
        QTest::newRow("too much") << sceneOf("{\"class\": \"Light\", \"range\": 1e9}")
                                  << "children[0].range: expected a number from 0.5 to 60, found 1e+09";
        QTest::newRow("in pieces") << sceneOf("{\"class\": \"SpawnPoint\", \"crew\": 1.5}")
                                   << "children[0].crew: expected a whole number, found 1.5";
        QTest::newRow("unknown enumerator") << sceneOf("{\"class\": \"Light\", \"kind\": \"Laser\"}")
                                            << "children[0].kind: \"Laser\" is refused";
        QTest::newRow("no colour") << sceneOf("{\"class\": \"Light\", \"colour\": \"green\"}")
                                   << "children[0].colour: \"green\" is refused";
        QTest::newRow("too few elements")
            << sceneOf("{\"class\": \"Path\", \"points\": [{\"class\": \"PathPoint\"}]}")
            << "children[0].points: expected 2 to 12 elements, found 1";
        QTest::newRow("too many elements")
            << sceneOf("{\"class\": \"Actor\", \"tags\": [\"a\", \"b\", \"c\", \"d\", \"e\", \"f\", \"g\"]}")
            << "children[0].tags: expected 0 to 6 elements, found 7";
        QTest::newRow("an element of another type") << sceneOf("{\"class\": \"Actor\", \"tags\": [\"a\", 2]}")
                                                    << "children[0].tags[1]: expected a text, found a number";
        QTest::newRow("deep in itself") << sceneOf(QByteArray("{\"class\": \"Group\", \"children\": [").repeated(40)
                                                   + QByteArray("]}").repeated(40))
                                        << "children[0]" + QString(".children[0]").repeated(31)
                                               + ": objects lie deeper than 32 in each other";
    }
    void aFaultyFileIsRefusedWithTheReasonAndThePlace()
    {
        QFETCH(QByteArray, text);

        const LevelFile file = LevelFile::parse(text);

        QTEST(file.error, "reason");
        QVERIFY(!file.level);
    }

    void everyTruncationOfAFileIsRefused()
    {
        const QByteArray text = LevelFile::text(*LevelFile::parse(twoLamps).level);
        QCOMPARE(readableBeginnings(text.chopped(1)), 0);
    }

    void aLevelThatContainsItselfIsNotWritten()
    {
        const SceneFolder folder("before");
        auto loop = std::make_shared<Group>();
        loop->children->push_back(loop);
        Level level;
        level.children->push_back(loop);

        const QString error = LevelFile::write(folder.path(), level);
        loop->children->clear();

        QCOMPARE(error, QString("Objects lie deeper than 32 in each other"));
        QCOMPARE(bytesOf(folder.path()), QByteArray("before"));
    }

    void aFileThatCannotBeReadLeavesTheLevelAsItWas()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());
        edit(document, child(document, 0), "_objectName", "Edited");
        write(folder.path(), twoLamps.left(100));

        const bool isRead = document.reload();

        QVERIFY(!isRead);
        QCOMPARE(document.message(), folder.path() + " was not read. Line 2: unterminated string");
        QCOMPARE(QString::fromStdString(child(document, 0).name), QString("Edited"));
        QCOMPARE(document.history()->count(), 1);
        QCOMPARE(modified(document), QStringList{"Edited"});
    }

    void aMissingFileIsAMessageAndAnEmptyLevelThatIsNotSaved()
    {
        const QTemporaryDir folder;
        LevelDocument document(folder.filePath("scene.json"));

        const bool isSaved = document.save();

        QVERIFY(!isSaved);
        QCOMPARE(document.message(), folder.filePath("scene.json") + " was not read. No such file or directory");
        QVERIFY(!QFileInfo::exists(folder.filePath("scene.json")));
    }

    void aSuccessTakesTheMessageAway()
    {
        const SceneFolder folder("broken");
        LevelDocument document(folder.path());
        write(folder.path(), twoLamps);

        QVERIFY(document.reload());

        QCOMPARE(document.message(), QString());
        QCOMPARE(document.level().children->size(), std::size_t(2));
    }

    void reloadingForgetsTheEditsAndTheirHistory()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());
        edit(document, child(document, 0), "_objectName", "Edited");

        QVERIFY(document.reload());

        QCOMPARE(QString::fromStdString(child(document, 0).name), QString("North"));
        QCOMPARE(document.history()->count(), 0);
        QVERIFY(document.history()->isClean());
    }

    void savingWritesTheFileAndCleansTheHistory()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());
        edit(document, child(document, 0), "range", 20.5);

        QVERIFY(document.save());

        QVERIFY(document.history()->isClean());
        QCOMPARE(dynamic_cast<const Light&>(*LevelFile::read(folder.path()).level->children->front()).range, 20.5);
    }

    void aDirectoryThatCannotBeWrittenKeepsTheOldFileAndTheMark()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());
        edit(document, child(document, 0), "range", 20.5);
        QFile::remove(folder.path());
        QVERIFY(QDir().mkdir(folder.path())); // root may write everywhere, but not a file over a directory

        const bool isSaved = document.save();

        QVERIFY(!isSaved);
        QVERIFY2(document.message().startsWith(folder.path() + " was not saved. "), qPrintable(document.message()));
        QVERIFY(!document.history()->isClean());
        QCOMPARE(modified(document), QStringList{"North"});
    }

    void objectsAreMarkedAsLongAsTheyDifferFromWhatIsSaved()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());

        edit(document, child(document, 1), "position.z", 3.0);
        const QStringList edited = modified(document);
        document.history()->undo();
        const QStringList undone = modified(document);
        document.history()->redo();
        document.save();
        const QStringList saved = modified(document);
        document.history()->undo();

        QCOMPARE(edited, QStringList{"South"});
        QCOMPARE(undone, QStringList());
        QCOMPARE(saved, QStringList());
        QCOMPARE(modified(document), QStringList{"South"});
    }

    void aGroupDiffersWhenItLosesAnObject()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());

        removeFirst(document);
        const QStringList removed = modified(document);
        document.history()->undo();

        QCOMPARE(removed, QStringList{"Quay"});
        QCOMPARE(modified(document), QStringList());
    }

    void anElementOutOfNothingIsANewObjectOfTheUsualClass()
    {
        const SceneFolder folder(twoLamps);
        LevelDocument document(folder.path());

        reflect(document.level().children).addProperty({}, {});

        QVERIFY(dynamic_cast<Actor*>(document.level().children->back().get()));
    }

    void undoingEverythingGivesBackTheFirstTextAndRedoTheLast()
    {
        LevelDocument document(QStringLiteral(SAMPLE_SCENE));
        const QByteArray first = LevelFile::text(document.level());
        wander(document, 200);
        const QByteArray last = LevelFile::text(document.level());

        QVERIFY(document.history()->jumpTo(0));
        const QByteArray undone = LevelFile::text(document.level());
        QVERIFY(document.history()->jumpTo(document.history()->count()));

        QVERIFY(last != first);
        QVERIFY(undone == first);
        QVERIFY(LevelFile::text(document.level()) == last);
    }

    void theFirstLevelWithASceneIsFound()
    {
        const QTemporaryDir content;
        QDir(content.path()).mkpath("levels/a");
        QDir(content.path()).mkpath("levels/b");
        QDir(content.path()).mkpath("levels/c");
        write(content.filePath("levels/b/scene.json"), twoLamps);
        write(content.filePath("levels/c/scene.json"), twoLamps);

        QCOMPARE(LevelDocument::findScene(content.path()), content.filePath("levels/b/scene.json"));
        QCOMPARE(LevelDocument::findScene(content.filePath("levels")), QString());
    }
};

QTEST_GUILESS_MAIN(tst_LevelDocument)
#include "tst_level_document.moc"
