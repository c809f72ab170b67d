#include <datamodels/simple_tree_model.h>

#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <map>

namespace {

class TextNode : public SimpleTreeModel::Node
{
public:
    TextNode(SimpleTreeModel& owner, QString text) : Node(owner), m_text(std::move(text)) {}

    QVariant data(int role) const override { return role == Qt::DisplayRole ? QVariant(m_text) : QVariant(); }
    bool setData(int role, const QVariant& value) override
    {
        if (role != Qt::EditRole)
            return false;
        m_text = value.toString();
        return true;
    }

private:
    QString m_text;
};

/// The nodes of a tree grown from lines, by their text.
class Nodes
{
public:
    Nodes(SimpleTreeModel& model, const QStringList& lines)
    {
        std::vector<SimpleTreeModel::Node*> path{&model.root()};
        for (const TreeLine& line : parseTree(lines)) {
            path.resize(static_cast<std::size_t>(line.depth) + 1);
            TextNode& node = path.back()->addChild<TextNode>(line.text);
            path.push_back(&node);
            m_nodes[line.text] = &node;
        }
    }
    SimpleTreeModel::Node* operator[](const char* text) const { return m_nodes.at(QLatin1String(text)); }

private:
    std::map<QString, SimpleTreeModel::Node*> m_nodes;
};

/// The same tree with no flags on the invalid index, which is what Qt's contract asks for.
class ConformingTree : public SimpleTreeModel
{
public:
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return index.isValid() ? SimpleTreeModel::flags(index) : Qt::NoItemFlags;
    }
};

class TreeWithOwnRoot : public SimpleTreeModel
{
public:
    using SimpleTreeModel::insertNodes;
    TreeWithOwnRoot() { setRoot(std::make_unique<TextNode>(*this, "start")); }

protected:
    void doResetModel() override { setRoot(std::make_unique<TextNode>(*this, "anew")); }
};

std::vector<std::unique_ptr<SimpleTreeModel::Node>> textNodes(SimpleTreeModel& owner, const QStringList& texts)
{
    std::vector<std::unique_ptr<SimpleTreeModel::Node>> nodes;
    for (const QString& text : texts)
        nodes.push_back(std::make_unique<TextNode>(owner, text));
    return nodes;
}

} // namespace

class tst_SimpleTreeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewModelIsEmptyWithOneColumn()
    {
        const SimpleTreeModel model;

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 1);
        QVERIFY(model.root().children().empty());
    }

    void aRowPastTheLastIsInvalidAndSilent()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "c", "d", "e"});
        LogCapture log;

        QVERIFY(!model.index(5, 0).isValid());

        QCOMPARE(log.assertions(), QStringList());
    }

    void aColumnOtherThanTheFirstIsReportedAndGiven()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        LogCapture log;

        const QModelIndex index = model.index(0, 1);

        QCOMPARE(log.assertions(), QStringList{"column == 0"});
        QCOMPARE(index.column(), 1);
    }

    void aNegativeRowIsReportedAndInvalid()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        LogCapture log;

        const QModelIndex index = model.index(-1, 0);

        QCOMPARE(log.assertions(), QStringList{"row >= 0"});
        QVERIFY(!index.isValid());
    }

    void theParentOfAChildIsItsNodeInColumnZero()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "  x"});

        const QModelIndex x = model.indexFromNode(nodes["x"]);

        QCOMPARE(model.parent(x), model.index(1, 0));
        QVERIFY(!model.parent(model.index(1, 0)).isValid());
    }

    void indexAndNodeMapOntoEachOther()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x"});

        const QModelIndex x = model.indexFromNode(nodes["x"]);

        QCOMPARE(x.internalPointer(), static_cast<void*>(nodes["x"]));
        QCOMPARE(model.nodeFromIndex(x, false), nodes["x"]);
    }

    void theRootAndNullHaveNoIndex()
    {
        const SimpleTreeModel model;

        QVERIFY(!model.indexFromNode(&model.root()).isValid());
        QVERIFY(!model.indexFromNode(nullptr).isValid());
    }

    void theInvalidIndexMeansTheRootOnlyWhenAsked()
    {
        SimpleTreeModel model;

        QCOMPARE(model.nodeFromIndex({}, true), &model.root());
        QCOMPARE(model.nodeFromIndex({}, false), nullptr);
    }

    void theInvalidIndexReadsTheRoot()
    {
        TreeWithOwnRoot model;

        QCOMPARE(model.data({}, Qt::DisplayRole).toString(), QString("start"));
        QCOMPARE(int(model.flags({})), 33);
    }

    void theInvalidIndexCannotBeWritten()
    {
        TreeWithOwnRoot model;
        SignalLog log(model);

        QVERIFY(!model.setData({}, "other", Qt::EditRole));

        QCOMPARE(model.data({}).toString(), QString("start"));
        QCOMPARE(log.take(), QStringList());
    }

    void anAcceptedWriteChangesThatRole()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        SignalLog log(model);

        QVERIFY(model.setData(model.index(0, 0), "b", Qt::EditRole));

        QCOMPARE(treeLines(model), QStringList{"b"});
        QCOMPARE(log.take(), QStringList{"changed /0 roles 2"});
    }

    void aRefusedWriteIsSilent()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        SignalLog log(model);

        QVERIFY(!model.setData(model.index(0, 0), "b", Qt::DecorationRole));

        QCOMPARE(log.take(), QStringList());
    }

    void aPlainNodeHasNoDataAndTakesNone()
    {
        SimpleTreeModel model;
        auto& node = model.root().addChild<SimpleTreeModel::Node>();

        QCOMPARE(node.data(Qt::DisplayRole), QVariant());
        QVERIFY(!node.setData(Qt::EditRole, 1));
        QCOMPARE(int(node.flags()), 33);
    }

    void addChildAppendsUnderOneBracketAndReturnsTheNode()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        SignalLog log(model);

        TextNode& added = model.root().addChild<TextNode>("b");

        QCOMPARE(log.take(), (QStringList{"inserting / [1..1]", "inserted / [1..1]"}));
        QCOMPARE(added.row(), std::size_t(1));
        QCOMPARE(added.parent(), &model.root());
        QCOMPARE(&added.owner(), &model);
    }

    void aNewNodeHasNoParentAndRowZero()
    {
        SimpleTreeModel model;

        const TextNode node(model, "free");

        QCOMPARE(node.parent(), nullptr);
        QCOMPARE(node.row(), std::size_t(0));
        QVERIFY(!model.indexFromNode(&node).isValid());
    }

    void aRangeIsInsertedUnderOneBracket()
    {
        TreeWithOwnRoot model;
        const Nodes nodes(model, {"a", "d"});
        SignalLog log(model);

        TreeWithOwnRoot::insertNodes(model.root(), 1, textNodes(model, {"b", "c"}));

        QCOMPARE(log.take(), (QStringList{"inserting / [1..2]", "inserted / [1..2]"}));
        QCOMPARE(treeLines(model), (QStringList{"a", "b", "c", "d"}));
        QCOMPARE(nodes["d"]->row(), std::size_t(3));
    }

    void anEmptyRangeIsNotInserted()
    {
        TreeWithOwnRoot model;
        SignalLog log(model);

        TreeWithOwnRoot::insertNodes(model.root(), 0, {});

        QCOMPARE(log.take(), QStringList());
    }

    void rowsAreRightAfterInterleavedEdits()
    {
        TreeWithOwnRoot model;
        const Nodes nodes(model, {"a", "b", "c", "d", "e"});

        QCOMPARE(nodes["e"]->row(), std::size_t(4));
        model.root().removeChild(nodes["b"]);
        TreeWithOwnRoot::insertNodes(model.root(), 1, textNodes(model, {"x", "y"}));
        QCOMPARE(nodes["a"]->row(), std::size_t(0));
        QCOMPARE(nodes["c"]->row(), std::size_t(3));
        model.root().removeChildren(0, 1);

        QCOMPARE(nodes["e"]->row(), std::size_t(4));
        QCOMPARE(nodes["d"]->row(), std::size_t(3));
        QCOMPARE(treeLines(model), (QStringList{"x", "y", "c", "d", "e"}));
    }

    void rowsAreRightBeforeTheBracketCloses()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "c"});
        std::size_t rowWhenRemoved = 99;
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [&] { rowWhenRemoved = nodes["c"]->row(); });

        model.root().removeChildren(0, 1);

        QCOMPARE(rowWhenRemoved, std::size_t(1));
    }

    void rowsAreRightWhenAnInsertionIsTold()
    {
        TreeWithOwnRoot model;
        const Nodes nodes(model, {"a", "b"});
        std::size_t rowWhenInserted = 99;
        connect(&model, &QAbstractItemModel::rowsInserted, this, [&] { rowWhenInserted = nodes["b"]->row(); });

        TreeWithOwnRoot::insertNodes(model.root(), 1, textNodes(model, {"x", "y"}));

        QCOMPARE(rowWhenInserted, std::size_t(3));
    }

    void removedNodesDieBeforeTheBracketCloses()
    {
        struct Witness : SimpleTreeModel::Node
        {
            Witness(SimpleTreeModel& owner, QStringList& story) : Node(owner), m_story(story) {}
            ~Witness() override { m_story << "died"; }
            QStringList& m_story;
        };
        SimpleTreeModel model;
        QStringList story;
        model.root().addChild<Witness>(story);
        connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] { story << "removing"; });
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [&] { story << "removed"; });

        model.root().removeChildren(0, 1);

        QCOMPARE(story, (QStringList{"removing", "died", "removed"}));
    }

    void aRangeIsRemovedUnderOneBracketWithItsSubtrees()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "  x", "c", "d"});
        SignalLog log(model);

        model.root().removeChildren(1, 2);

        QCOMPARE(log.take(), (QStringList{"removing / [1..2]", "removed / [1..2]"}));
        QCOMPARE(treeLines(model), (QStringList{"a", "d"}));
    }

    void removingNothingIsSilentWhereverItIs()
    {
        SimpleTreeModel model;
        SignalLog signalLog(model);
        LogCapture log;

        model.root().removeChildren(3, 0);

        QCOMPARE(signalLog.take(), QStringList());
        QCOMPARE(log.assertions(), QStringList());
    }

    void aRangePastTheEndIsReportedAndCutToWhatThereIs()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "c"});
        SignalLog signalLog(model);
        LogCapture log;

        model.root().removeChildren(1, 5);

        QCOMPARE(log.assertions(), QStringList{"index + count <= m_children.size()"});
        QCOMPARE(signalLog.take(), (QStringList{"removing / [1..2]", "removed / [1..2]"}));
        QCOMPARE(treeLines(model), QStringList{"a"});
    }

    void aRangeBehindTheEndOrSoLongThatItWrapsRemovesNothingElse()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b"});
        SignalLog signalLog(model);
        LogCapture log;

        model.root().removeChildren(7, 1);
        model.root().removeChildren(std::size_t(-1), 1);

        QCOMPARE(log.assertions(), (QStringList{"index + count <= m_children.size()", "index + count <= m_children.size()"}));
        QCOMPARE(signalLog.take(), QStringList());
        QCOMPARE(treeLines(model), (QStringList{"a", "b"}));
    }

    void aChildIsRemovedByItsNode()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "c"});

        model.root().removeChild(nodes["b"]);

        QCOMPARE(treeLines(model), (QStringList{"a", "c"}));
    }

    void whatIsNotAChildIsReportedAndNothingIsRemoved()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "b"});
        LogCapture log;

        model.root().removeChild(nodes["x"]);
        model.root().removeChild(nullptr);

        QCOMPARE(log.assertions(), (QStringList{"m_children[node->row()].get() == node", "m_children[node->row()].get() == node"}));
        QCOMPARE(treeLines(model), (QStringList{"a", "  x", "b"}));
    }

    void aMoveToAnotherParentIsARemovalAndAnInsertion()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "  y", "b", "  z"});
        SignalLog log(model);

        nodes["x"]->reparent(nodes["b"], std::size_t(-1));

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..0]", "removed /0 [0..0]", "inserting /1 [1..1]", "inserted /1 [1..1]"}));
        QCOMPARE(treeLines(model), (QStringList{"a", "  y", "b", "  z", "  x"}));
    }

    void aMoveGoesInFrontOfTheGivenRow()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "b", "  y", "  z"});

        nodes["x"]->reparent(nodes["b"], 1);

        QCOMPARE(treeLines(model), (QStringList{"a", "b", "  y", "  x", "  z"}));
    }

    void aMovedNodeTakesItsSubtreeAlong()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "    deep", "b"});

        nodes["x"]->reparent(nodes["b"], 0);

        QCOMPARE(treeLines(model), (QStringList{"a", "b", "  x", "    deep"}));
    }

    void persistentIndexesDoNotSurviveAMove()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "b"});
        const QPersistentModelIndex x = model.indexFromNode(nodes["x"]);

        nodes["x"]->reparent(nodes["b"], 0);

        QVERIFY(!x.isValid());
    }

    void aMoveWithinOneParentIsRefusedSilently()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "b", "c"});
        SignalLog signalLog(model);
        LogCapture log;

        nodes["c"]->reparent(&model.root(), 0);

        QCOMPARE(signalLog.take(), QStringList());
        QCOMPARE(log.assertions(), QStringList());
        QCOMPARE(treeLines(model), (QStringList{"a", "b", "c"}));
    }

    void aMoveToNowhereOrOfTheRootIsReportedAndRefused()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a"});
        LogCapture log;

        nodes["a"]->reparent(nullptr, 0);
        model.root().reparent(nodes["a"], 0);

        QCOMPARE(log.assertions(), (QStringList{"m_parent && newParent", "m_parent && newParent"}));
        QCOMPARE(treeLines(model), QStringList{"a"});
    }

    void aMoveIntoTheOwnSubtreeIsReportedAndRefused()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "    deep"});
        LogCapture log;

        nodes["a"]->reparent(nodes["deep"], 0);

        QCOMPARE(log.assertions(), QStringList{"!newParent->isWithin(*this)"});
        QCOMPARE(treeLines(model), (QStringList{"a", "  x", "    deep"}));
    }

    void aMoveToARowPastTheEndIsReportedAndAppends()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x", "b", "  y"});
        LogCapture log;

        nodes["x"]->reparent(nodes["b"], 9);

        QCOMPARE(log.assertions(), QStringList{"row <= m_children.size()"});
        QCOMPARE(treeLines(model), (QStringList{"a", "b", "  y", "  x"}));
    }

    void refreshAnnouncesTheRoles()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x"});
        SignalLog log(model);

        nodes["x"]->refresh({Qt::DisplayRole, Qt::UserRole});
        nodes["a"]->refresh({});

        QCOMPARE(log.take(), (QStringList{"changed /0/0 roles 0,256", "changed /0"}));
    }

    void refreshOfTheRootIsSilent()
    {
        SimpleTreeModel model;
        SignalLog log(model);

        model.root().refresh({Qt::DisplayRole});

        QCOMPARE(log.take(), QStringList());
    }

    void fullRefreshSendsBothLayoutSignalsEvenWhenEmpty()
    {
        SimpleTreeModel model;
        SignalLog log(model);

        QVERIFY(QMetaObject::invokeMethod(&model, "fullRefresh"));

        QCOMPARE(log.take(), (QStringList{"layout changing", "layout changed"}));
    }

    void aResetInstallsANewEmptyRoot()
    {
        SimpleTreeModel model;
        const Nodes nodes(model, {"a", "  x"});
        const void* before = &model.root();
        SignalLog log(model);

        model.resetModel();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QVERIFY(&model.root() != before);
        QCOMPARE(model.rowCount(), 0);
    }

    void theOldTreeDiesInsideTheResetWhenTheNewRootStands()
    {
        struct Witness : SimpleTreeModel::Node
        {
            Witness(SimpleTreeModel& owner, QStringList& story) : Node(owner), m_story(story) {}
            ~Witness() override { m_story << QString("died with %1 rows").arg(owner().rowCount()); }
            QStringList& m_story;
        };
        SimpleTreeModel model;
        QStringList story;
        model.root().addChild<Witness>(story);
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&] { story << "resetting"; });
        connect(&model, &QAbstractItemModel::modelReset, this, [&] { story << "reset"; });

        model.resetModel();

        QCOMPARE(story, (QStringList{"resetting", "died with 0 rows", "reset"}));
    }

    void aDerivedModelInstallsItsOwnRoot()
    {
        TreeWithOwnRoot model;

        model.resetModel();

        QCOMPARE(model.root().data(Qt::DisplayRole).toString(), QString("anew"));
    }

    void theMetaObjectAddsOnlyTheFullRefresh()
    {
        const QMetaObject& meta = SimpleTreeModel::staticMetaObject;

        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("fullRefresh()"));
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    // The invalid index has flags on purpose, which the tester objects to; everything else is held against it.
    void allElseFollowsQtsContract()
    {
        ConformingTree model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        const Nodes nodes(model, {"a", "  x", "  y", "b", "  z", "c"});
        nodes["x"]->reparent(nodes["b"], 0);
        nodes["a"]->reparent(nodes["c"], std::size_t(-1));
        QVERIFY(model.setData(model.index(0, 0), "renamed", Qt::EditRole));
        model.root().removeChildren(0, 1);
        model.fullRefresh();
        model.resetModel();
    }
};

QTEST_GUILESS_MAIN(tst_SimpleTreeModel)
#include "tst_simple_tree_model.moc"
