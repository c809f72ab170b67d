#include "file_model_kit.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/static_meta_object.h>
#include <host/resources/local_file_system.h>
#include <host/resources/memory_file_system.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/overlay_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QtTest>

using namespace datamodels;
using qelm::MemoryFileSystem;

namespace {

enum Roles
{
    IsDirectory = 256,
    Created,
    Modified,
    Extension,
    FullName,
    Path,
    AbsolutePath,
    Size
};

class Price : public IFileProperties
{
public:
    explicit Price(int amount = 0) : m_amount(amount) {}
    int amount() const { return m_amount; }

private:
    int m_amount;
};

class Unreflected : public IFileProperties
{
};

class Provider : public IFilePropertiesProvider
{
public:
    using Function = std::function<std::unique_ptr<IFileProperties>(const std::string&)>;

    explicit Provider(Function function) : m_function(std::move(function)) {}
    std::unique_ptr<IFileProperties> properties(const std::string& fullName) override
    {
        asked << QString::fromStdString(fullName);
        return m_function(fullName);
    }

    QStringList asked;

private:
    Function m_function;
};

/// An item that makes more of its kind.
class SpecialItem : public FileSystemModelItem
{
public:
    using FileSystemModelItem::FileSystemModelItem;
    std::unique_ptr<FileSystemModelItem> createModelItem(FileSystemModel& model, std::shared_ptr<qelm::IFileInfo> info,
                                                         FileSystemModelItem* parent) const override
    {
        return std::make_unique<SpecialItem>(model, std::move(info), parent);
    }
};

class SpecialModel : public FileModel
{
public:
    explicit SpecialModel(MemoryFileSystem& files)
        : FileModel(files, std::make_unique<SpecialItem>(*this, files.getFileInfo(""), nullptr))
    {
    }
};

MemoryFileSystem& sample(MemoryFileSystem& files)
{
    files.addFile("wood/oak.tar.gz", 5, 1'000'000'000'123'456'700);
    files.addFile("wood/deep/elm");
    files.addFile("a10.txt");
    files.addFile("a2.txt");
    files.addFile(".hidden");
    files.addSpecial("pipe");
    return files;
}

} // namespace

template <>
struct zarn::Reflection<Price>
{
    static constexpr const char* name = "Price";
    using Bases = BaseList<IFileProperties>;
    static void declare(StaticMetaObject<Price>::Builder& price) { price.readOnly("amount", &Price::amount); }
};

namespace {
const zarn::ReflectAtLoad<Price> priceClass;
} // namespace

class tst_FileSystemModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDirectoryIsATreeInNaturalOrder()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const QAbstractItemModelTester tester(&model);

        QCOMPARE(treeLines(model), (QStringList{"a2.txt", "a10.txt", "wood", "  deep", "    elm", "  oak.tar.gz"}));
    }

    void rolesTellTheFactsOfAFile()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const QModelIndex oak = model.index(1, 0, model.index(2, 0));

        QCOMPARE(oak.data(), QVariant("oak.tar.gz"));
        QCOMPARE(oak.data(IsDirectory), QVariant(false));
        const QDateTime time(QDate(2001, 9, 9), QTime(1, 46, 40, 123), Qt::UTC);
        QCOMPARE(oak.data(Created).toDateTime(), time);
        QCOMPARE(oak.data(Modified).toDateTime(), time);
        QCOMPARE(oak.data(Modified).toDateTime().timeSpec(), Qt::UTC);
        QCOMPARE(oak.data(Extension), QVariant("gz"));
        QCOMPARE(oak.data(FullName), QVariant("wood/oak.tar.gz"));
        QCOMPARE(oak.data(Path), QVariant("wood"));
        QCOMPARE(oak.data(AbsolutePath), QVariant("/wood/oak.tar.gz"));
        QCOMPARE(oak.data(Size), QVariant(quint64(5)));
        QCOMPARE(oak.data(Size).userType(), int(QMetaType::ULongLong));
        QCOMPARE(oak.data(Qt::EditRole), QVariant());
        QCOMPARE(model.data(QModelIndex(), 0), QVariant());
        QCOMPARE(model.index(2, 0).data(IsDirectory), QVariant(true));
    }

    void rolesHaveNames()
    {
        MemoryFileSystem files;
        const FileModel model(files, "");

        QCOMPARE(model.roleNames(), (QHash<int, QByteArray>{{0, "display"},
                                                            {256, "isDirectory"},
                                                            {257, "created"},
                                                            {258, "modified"},
                                                            {259, "extension"},
                                                            {260, "fullName"},
                                                            {261, "path"},
                                                            {262, "absolutePath"},
                                                            {263, "size"}}));
        QCOMPARE(model.columnCount(), 1);
    }

    void aFullNameWithoutSeparatorIsItsOwnPath()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");

        QCOMPARE(model.index(0, 0).data(Path), QVariant("a2.txt"));
    }

    void factsStayAsTheyWereWhenTheDirectoryWasRead()
    {
        MemoryFileSystem files;
        files.addFile("oak", 5);
        FileModel model(files, "");
        QCOMPARE(model.rowCount(), 1);

        files.addFile("oak", 6);
        files.addFile("elm");

        QCOMPARE(treeLines(model), QStringList{"oak"});
        QCOMPARE(model.index(0, 0).data(Size), QVariant(quint64(5)));
    }

    void aDirectoryIsReadWhenItsRowsAreAskedFor()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        QCOMPARE(files.enumerations(""), 0);
        SignalLog log(model);

        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.rowCount(), 3);

        QCOMPARE(files.enumerations(""), 1);
        QCOMPARE(files.enumerations("wood"), 0);
        QCOMPARE(log.take(), QStringList());
    }

    void countingWhatWasReadReadsNothing()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");

        QCOMPARE(model.enumeratedChildrenCount({}), 0);
        QCOMPARE(files.enumerations(""), 0);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.enumeratedChildrenCount({}), 3);
        QCOMPARE(model.enumeratedChildrenCount(model.index(2, 0)), 0);
        QCOMPARE(model.enumeratedChildrenCount(model.index(0, 0)), 0);
    }

    void aFileHasNoRowsAndIsNeverRead()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        LogCapture log;

        QCOMPARE(model.rowCount(model.index(0, 0)), 0);

        QCOMPARE(files.enumerations("a2.txt"), 0);
        QVERIFY(!model.getItem(model.index(0, 0), true)->child(0));
        QCOMPARE(log.assertions(), (QStringList{"m_directory", "m_populated", "index >= 0 && index < m_children.size()"}));
    }

    void withoutIncludePredicatesThereAreNoRows()
    {
        MemoryFileSystem files;
        FileSystemModel model(sample(files), "");

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.index(0, 0), QModelIndex());
    }

    void exclusionWins()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const Predicate::Function isText = Predicate::ending(".txt");
        Predicate texts(isText);

        QVERIFY(model.addPredicate(FileSystemModel::Include, &texts));
        QVERIFY(model.addPredicate(FileSystemModel::Exclude, &texts));

        QCOMPARE(treeLines(model), (QStringList{"wood", "  deep", "    elm", "  oak.tar.gz"}));
    }

    void anyIncludePredicateLetsIn()
    {
        MemoryFileSystem files;
        FileSystemModel model(sample(files), "");
        Predicate two(Predicate::ending("2.txt"));
        Predicate ten(Predicate::ending("10.txt"));

        QVERIFY(model.addPredicates(FileSystemModel::Include, {&two, &ten}));

        QCOMPARE(treeLines(model), (QStringList{"a2.txt", "a10.txt"}));
    }

    void aPredicateIsAddedOnce()
    {
        MemoryFileSystem files;
        FileSystemModel model(files, "");
        Predicate predicate;
        SignalLog log(model);

        QVERIFY(model.addPredicate(FileSystemModel::Include, &predicate));
        QVERIFY(!model.addPredicate(FileSystemModel::Include, &predicate));
        QVERIFY(!model.addPredicates(FileSystemModel::Include, {&predicate, nullptr}));
        QVERIFY(!model.addPredicate(FileSystemModel::Include, nullptr));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void aPredicateIsRemovedFromBothLists()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        Predicate predicate;
        model.addPredicate(FileSystemModel::Include, &predicate);
        model.addPredicate(FileSystemModel::Exclude, &predicate);
        SignalLog log(model);

        QVERIFY(model.removePredicate(&predicate));
        QVERIFY(!model.removePredicate(&predicate));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(model.rowCount(), 3);
    }

    void removingNoPredicateIsAnAssertion()
    {
        MemoryFileSystem files;
        FileSystemModel model(files, "");
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!model.removePredicate(nullptr));

        QCOMPARE(log.assertions(), QStringList{"predicate"});
    }

    void aResetReadsAnew()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        QCOMPARE(model.rowCount(), 3);
        files.remove("wood");
        files.addFile("new");
        SignalLog log(model);

        model.reset();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(model), (QStringList{"a2.txt", "a10.txt", "new"}));
    }

    void itemsLiveUntilTheResetIsOver()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const QModelIndex stale = model.index(0, 0);
        QString atTheEnd;
        connect(&model, &QAbstractItemModel::modelReset, this,
                [&] { atTheEnd = static_cast<FileSystemModelItem*>(stale.internalPointer())->name(); });

        model.reset();

        QCOMPARE(atTheEnd, QString("a2.txt"));
    }

    void aPathThatDoesNotExistHasNoRows()
    {
        MemoryFileSystem files;
        FileModel model(files, "nothing");
        const QAbstractItemModelTester tester(&model);

        QCOMPARE(model.rowCount(), 0);
        model.reset();
        QCOMPARE(model.rowCount(), 0);
    }

    void aModelMayStartAtAFile()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "a2.txt");

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.getItem({}, false)->name(), QString("a2.txt"));
        QVERIFY(!model.getItem({}, true));
    }

    void childrenKnowTheirPlace()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        QCOMPARE(model.rowCount(), 3);
        FileSystemModelItem& root = *model.getItem({}, false);
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(root.childCount(), std::size_t(3));
        QCOMPARE(root.childIndex(root.child(1)), std::size_t(1));
        QCOMPARE(root.child(1)->selfIndex(), std::size_t(1));
        QCOMPARE(root.child(1)->parent(), &root);
        QCOMPARE(root.selfIndex(), std::size_t(0));
        QCOMPARE(root.childIndex(&root), FileSystemModelItem::INVALID_INDEX);
        QCOMPARE(root.childIndex(nullptr), FileSystemModelItem::INVALID_INDEX);
        QVERIFY(!root.child(3));
        QCOMPARE(log.assertions(), QStringList{"index >= 0 && index < m_children.size()"});
    }

    void rowsBelowTheRootHaveNoParent()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const QModelIndex wood = model.index(2, 0);
        const QModelIndex elm = model.index(0, 0, model.index(0, 0, wood));

        QCOMPARE(wood.parent(), QModelIndex());
        QCOMPARE(elm.parent().parent(), wood);
        QCOMPARE(model.parent(QModelIndex()), QModelIndex());
        QCOMPARE(model.index(0, 1), QModelIndex());
        QCOMPARE(model.index(3, 0), QModelIndex());
    }

    void theFirstProviderThatAnswersWins()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");
        const auto none = std::make_shared<Provider>([](const std::string&) { return nullptr; });
        const auto unreflected = std::make_shared<Provider>([](const std::string&) { return std::make_unique<Unreflected>(); });
        const auto prices = std::make_shared<Provider>([](const std::string&) { return std::make_unique<Price>(7); });
        const auto late = std::make_shared<Provider>([](const std::string&) { return std::make_unique<Price>(8); });
        model.addPropertiesProvider(none);
        model.addPropertiesProvider(unreflected);
        model.addPropertiesProvider(prices);
        model.addPropertiesProvider(late);

        const zarn::ReflectedObject properties = model.getItem(model.index(0, 0), true)->properties();

        QVERIFY(properties.isValid());
        QCOMPARE(properties.metaObject()->name(), std::string("Price"));
        QCOMPARE(properties.findPropertyByName("amount").get().value<int>(), 7);
        QCOMPARE(none->asked.first(), QString("a10.txt"));
        QCOMPARE(late->asked, QStringList());
        QCOMPARE(model.getPropertiesProviders().size(), std::size_t(4));
    }

    void theBaseOfPropertiesIsReflected()
    {
        QCOMPARE(zarn::StaticMetaObject<IFileProperties>::instance().name(), std::string("datamodels::IFileProperties"));
        QVERIFY(zarn::StaticMetaObject<Price>::instance().isDerivedFrom(
            zarn::StaticMetaObject<IFileProperties>::instance()));
    }

    void withoutProvidersThereAreNoProperties()
    {
        MemoryFileSystem files;
        FileModel model(sample(files), "");

        QVERIFY(!model.getItem(model.index(0, 0), true)->properties().isValid());
    }

    void itemsOfADerivedKindMakeTheirOwn()
    {
        MemoryFileSystem files;
        SpecialModel model(files);
        Predicate everything;
        model.addPredicate(FileSystemModel::Include, &everything);
        sample(files);
        model.reset();

        QVERIFY(dynamic_cast<SpecialItem*>(model.getItem({}, false)));
        QVERIFY(dynamic_cast<SpecialItem*>(model.getItem(model.index(2, 0), true)));
    }

    void aDiskThatFailsShowsWhatItGave()
    {
        MemoryFileSystem files;
        files.addFile("a");
        files.addFile("b");
        files.failAfter("", 1);
        FileModel model(files, "");
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(treeLines(model), QStringList{"a"});

        QCOMPARE(log.messages(), QStringList{"5 Could not read directory '': Input/output error."});
    }

    void anUnreadableDirectoryIsEmpty()
    {
        MemoryFileSystem files;
        files.addFile("locked/a");
        files.failAfter("locked", 0);
        FileModel model(files, "");
        LogCapture log;

        QCOMPARE(treeLines(model), QStringList{"locked"});

        QCOMPARE(log.messages().size(), 1);
    }

    void aDirectoryThatGoesWhileItIsReadKeepsWhatWasFound()
    {
        MemoryFileSystem files;
        files.addFile("wood/a");
        files.addFile("wood/b");
        FileModel model(files, "");
        files.setHook([&files](const std::string& name) {
            if (name == "wood/a")
                files.remove("wood");
        });

        QCOMPARE(treeLines(model), (QStringList{"wood", "  a"}));
    }

    void theDiskIsATree()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png", "12345");
        disk.write("wood/.hidden");
        disk.link(disk.path(), "wood/loop");
        qelm::LocalFileSystem files(disk.bytes());
        FileModel model(files, disk.bytes());
        const QAbstractItemModelTester tester(&model);

        QCOMPARE(treeLines(model), (QStringList{"wood", "  loop", "  oak.png"}));
        const QModelIndex oak = model.index(1, 0, model.index(0, 0));
        QCOMPARE(oak.data(Size), QVariant(quint64(5)));
        QCOMPARE(oak.data(Path), QVariant(disk.path("wood")));
        QCOMPARE(oak.data(AbsolutePath), QVariant(disk.path("wood/oak.png")));
        QCOMPARE(model.toRelative(disk.bytes("wood/oak.png")), std::string("wood/oak.png"));
    }

    void resourcesAreATree()
    {
        const DiskFolder disk;
        disk.write("mod/wood/oak.png", "12345");
        disk.write("game/wood/oak.png");
        disk.write("game/wood/fir.png");
        Ozy::FS::MultiFileSystem resources;
        resources.setRoots({disk.bytes("mod"), disk.bytes("game")});
        qelm::OverlayFileSystem files(resources);
        FileModel model(files, "");

        QCOMPARE(treeLines(model), (QStringList{"wood", "  fir.png", "  oak.png"}));
        const QModelIndex oak = model.index(1, 0, model.index(0, 0));
        QCOMPARE(oak.data(FullName), QVariant("wood/oak.png"));
        QCOMPARE(oak.data(AbsolutePath), QVariant(disk.path("mod/wood/oak.png")));
        QCOMPARE(oak.data(Size), QVariant(quint64(5)));
    }
};

QTEST_GUILESS_MAIN(tst_FileSystemModel)
#include "tst_file_system_model.moc"
