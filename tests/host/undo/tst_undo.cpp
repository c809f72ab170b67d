#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QtTest>

#include <stdexcept>

using namespace Ozy;

namespace {

/// A number that can be set, with the old value recorded as the inverse.
struct Number
{
    int value = 0;
    bool isLocked = false;
    bool throws = false;
};

class SetNumber : public utils::Command
{
public:
    SetNumber(Number& number, int value) : Command("Set number"), m_number(number), m_value(value) {}

    bool execute() override
    {
        if (m_number.throws)
            throw std::runtime_error("the number is broken");
        if (m_number.isLocked)
            return false;
        CommitChangesScope::makeUndo<SetNumber>(m_number, m_number.value);
        m_number.value = m_value;
        return true;
    }

private:
    Number& m_number;
    int m_value;
};

bool set(Number& number, int value)
{
    return CommitChangesScope::makeCommand<SetNumber>(number, value);
}

void setInOneStep(ChangesController& document, const char* name, Number& number, int value)
{
    const CommitChangesScope scope(name, &document);
    set(number, value);
}

QStringList names(const ChangesController& document)
{
    QStringList list;
    for (std::size_t step = 0; step < document.historySize(); ++step)
        list << QString::fromStdString(std::string(document.barrierName(step)));
    return list;
}

} // namespace

class tst_Undo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aStepIsUndoneAndRedone()
    {
        ChangesController document;
        Number number;
        setInOneStep(document, "Set to 5", number, 5);

        QVERIFY(document.undo());
        QCOMPARE(number.value, 0);

        QVERIFY(document.redo());
        QCOMPARE(number.value, 5);
    }

    void theEditsOfAScopeAreOneStepUndoneNewestFirst()
    {
        ChangesController document;
        Number number;
        {
            const CommitChangesScope scope("Twice", &document);
            set(number, 1);
            set(number, 2);
        }

        QCOMPARE(names(document), QStringList{"Twice"});
        QVERIFY(document.undo());
        QCOMPARE(number.value, 0);
        QVERIFY(document.redo());
        QCOMPARE(number.value, 2);
    }

    void nestedScopesAreOneStepWithTheOuterName()
    {
        ChangesController document;
        ChangesController other;
        Number number;
        {
            const CommitChangesScope outer("Outer", &document);
            set(number, 1);
            setInOneStep(other, "Inner", number, 2);
            set(number, 3);
        }

        QCOMPARE(names(document), QStringList{"Outer"});
        QCOMPARE(names(other), QStringList());
        QVERIFY(document.undo());
        QCOMPARE(number.value, 0);
    }

    void aScopeWithoutEditsIsNoStep()
    {
        ChangesController document;
        {
            const CommitChangesScope scope("Nothing", &document);
        }

        QCOMPARE(document.count(), 0);
    }

    void withoutAScopeNothingIsRecorded()
    {
        Number number;

        QVERIFY(set(number, 5));

        QCOMPARE(number.value, 5);
        QCOMPARE(CommitChangesScope::transaction(), nullptr);
        QVERIFY(!CommitChangesScope::makeUndo<SetNumber>(number, 1));
    }

    void withoutAControllerAScopeRecordsNothing()
    {
        Number number;
        const CommitChangesScope scope("Nowhere", nullptr);

        QVERIFY(CommitChangesScope::transaction());
        QCOMPARE(CommitChangesScope::transaction()->composite, nullptr);
        QVERIFY(!CommitChangesScope::makeUndo<SetNumber>(number, 1));
    }

    void aRefusedCommandSaysSoAndRecordsNothing()
    {
        ChangesController document;
        Number number;
        number.isLocked = true;
        {
            const CommitChangesScope scope("Refused", &document);
            QVERIFY(!set(number, 5));
        }

        QCOMPARE(document.count(), 0);
    }

    void documentsHaveHistoriesOfTheirOwn()
    {
        ChangesController first;
        ChangesController second;
        Number a;
        Number b;
        setInOneStep(first, "A", a, 1);
        setInOneStep(second, "B", b, 2);

        QVERIFY(first.undo());

        QCOMPARE(a.value, 0);
        QCOMPARE(b.value, 2);
        QVERIFY(second.canUndo());
    }

    void aNewStepDropsWhatWasUndone()
    {
        ChangesController document;
        Number number;
        setInOneStep(document, "1", number, 1);
        setInOneStep(document, "2", number, 2);
        document.undo();

        setInOneStep(document, "3", number, 3);

        QCOMPARE(names(document), (QStringList{"1", "3"}));
        QVERIFY(!document.canRedo());
    }

    void namesKeepTheirUtf8()
    {
        ChangesController document;
        Number number;

        setInOneStep(document, "Größe ändern", number, 1);

        QCOMPARE(names(document), QStringList{QString::fromUtf8("Größe ändern")});
        QCOMPARE(document.barrierName(7).size(), std::size_t(0));
    }

    void jumpsToAnyStepAndBack()
    {
        ChangesController document;
        Number number;
        setInOneStep(document, "1", number, 1);
        setInOneStep(document, "2", number, 2);
        setInOneStep(document, "3", number, 3);

        QVERIFY(document.jumpTo(1));
        QCOMPARE(number.value, 1);
        QVERIFY(document.jumpTo(3));
        QCOMPARE(number.value, 3);
        QVERIFY(document.jumpTo(0));
        QCOMPARE(number.value, 0);
        QVERIFY(!document.jumpTo(4));
        QVERIFY(!document.jumpTo(-1));
    }

    void aJumpStopsAtTheStepThatRefuses()
    {
        ChangesController document;
        Number first;
        Number second;
        setInOneStep(document, "First", first, 1);
        setInOneStep(document, "Second", second, 2);
        first.isLocked = true;
        LogCapture log;

        QVERIFY(!document.jumpTo(0));

        QCOMPARE(log.messages(), QStringList{"5 A step was refused: First"});
        QCOMPARE(document.index(), 1);
        QCOMPARE((QList<int>{first.value, second.value}), (QList<int>{1, 0}));
    }

    void withoutAStepThereIsNothingToUndoOrRedo()
    {
        ChangesController document;

        QVERIFY(!document.undo());
        QVERIFY(!document.redo());
    }

    void cleanFollowsTheSavedStep()
    {
        ChangesController document;
        Number number;
        QVERIFY(document.isClean());
        setInOneStep(document, "1", number, 1);
        QVERIFY(!document.isClean());

        document.markClean();
        QVERIFY(document.isClean());
        document.undo();
        QVERIFY(!document.isClean());
        document.redo();
        QVERIFY(document.isClean());
    }

    void theLimitDropsTheOldest()
    {
        ChangesController document;
        QVERIFY(document.setLimit(2));
        Number number;
        setInOneStep(document, "1", number, 1);
        setInOneStep(document, "2", number, 2);
        setInOneStep(document, "3", number, 3);

        QCOMPARE(names(document), (QStringList{"2", "3"}));
        QVERIFY(!document.setLimit(5));
    }

    void aLimitBelowZeroIsRefused()
    {
        ChangesController document;

        QVERIFY(!document.setLimit(-1));
    }

    void aHistoryIsNotClearedInsideOfAnEdit()
    {
        ChangesController document;
        Number number;
        setInOneStep(document, "1", number, 1);
        LogCapture log;
        {
            const CommitChangesScope scope("Edit", &document);

            QVERIFY(!document.clear());
        }

        QCOMPARE(log.messages(), QStringList{"5 Cannot clear inside of an edit"});
        QCOMPARE(document.count(), 1);
    }

    void clearingForgetsAllAndIsClean()
    {
        ChangesController document;
        Number number;
        setInOneStep(document, "1", number, 1);

        QVERIFY(document.clear());

        QCOMPARE(document.count(), 0);
        QVERIFY(document.isClean());
        QCOMPARE(number.value, 1);
    }

    void aPanelHearsOfEveryChange()
    {
        ChangesController document;
        Number number;
        SignalLog log;
        log.addAll(document);

        setInOneStep(document, "1", number, 1);
        QCOMPARE(log.take().join(" "), QString("countChanged() indexChanged() canUndoChanged() canRedoChanged() cleanChanged()"));

        document.undo();
        QCOMPARE(log.take().join(" "), QString("indexChanged() canUndoChanged() canRedoChanged() cleanChanged()"));
    }

    void aScopeLeftByAnExceptionRollsItsEditsBack()
    {
        ChangesController document;
        Number number;

        try {
            const CommitChangesScope scope("Broken", &document);
            set(number, 1);
            throw std::runtime_error("broken");
        } catch (const std::runtime_error&) {
        }

        QCOMPARE(number.value, 0);
        QCOMPARE(document.count(), 0);
        QCOMPARE(CommitChangesScope::transaction(), nullptr);
    }

    void anInnerScopeLeftByAnExceptionRollsOnlyItsOwnEditsBack()
    {
        ChangesController document;
        Number number;
        Number other;
        {
            const CommitChangesScope outer("Outer", &document);
            set(number, 1);
            try {
                const CommitChangesScope inner("Inner", &document);
                set(number, 2);
                set(other, 7);
                throw std::runtime_error("broken");
            } catch (const std::runtime_error&) {
            }
        }

        QCOMPARE(number.value, 1);
        QCOMPARE(other.value, 0);
        QVERIFY(document.undo());
        QCOMPARE(number.value, 0);
    }

    void anInverseThatRefusesIsReportedAndLeavesAllAsItWas()
    {
        ChangesController document;
        Number first;
        Number second;
        {
            const CommitChangesScope scope("Both", &document);
            set(first, 1);
            set(second, 2);
        }
        first.isLocked = true;
        LogCapture log;

        QVERIFY(!document.undo());

        QCOMPARE(log.messages(), QStringList{"5 A step was refused: Both"});
        QCOMPARE(first.value, 1);
        QCOMPARE(second.value, 2);
        QCOMPARE(document.index(), 1);

        first.isLocked = false;
        QVERIFY(document.undo());
        QCOMPARE(first.value, 0);
        QCOMPARE(second.value, 0);
    }

    void anInverseThatThrowsIsReportedLikeARefusal()
    {
        ChangesController document;
        Number first;
        Number second;
        {
            const CommitChangesScope scope("Both", &document);
            set(first, 1);
            set(second, 2);
        }
        first.throws = true;
        LogCapture log;

        QVERIFY(!document.undo());

        QCOMPARE(log.messages(), (QStringList{"5 the number is broken", "5 A step was refused: Both"}));
        QCOMPARE(second.value, 2);
        QVERIFY(document.canUndo());
    }

    void anInverseThatThrowsAnythingElseIsReportedToo()
    {
        struct Thrower : utils::Command
        {
            Thrower() : Command("Throw") {}
            bool execute() override { throw 5; }
        };
        ChangesController document;
        {
            const CommitChangesScope scope("Both", &document);
            CommitChangesScope::makeUndo<Thrower>();
        }
        LogCapture log;

        QVERIFY(!document.undo());

        QCOMPARE(log.messages(), (QStringList{"5 Something that is no exception was thrown", "5 A step was refused: Both"}));
        QCOMPARE(document.index(), 1);
    }

    void aRefusedStepIsWholeAgain()
    {
        ChangesController document;
        Number first;
        Number second;
        Number third;
        {
            const CommitChangesScope scope("All", &document);
            set(first, 1);
            set(second, 2);
            set(third, 3);
            set(third, 4);
        }
        first.isLocked = true;
        document.undo();
        document.undo();
        first.isLocked = false;

        QVERIFY(document.undo());
        QCOMPARE((QList<int>{first.value, second.value, third.value}), (QList<int>{0, 0, 0}));
        QVERIFY(document.redo());
        QCOMPARE((QList<int>{first.value, second.value, third.value}), (QList<int>{1, 2, 4}));
    }

    void anInverseThatRefusesHalfwayIsTakenBackAndTriedAgainWhole()
    {
        struct Add : utils::Command
        {
            Add(Number& first, Number& second, int by) : Command("Add"), m_first(first), m_second(second), m_by(by) {}
            bool execute() override { return set(m_first, m_first.value + m_by) && set(m_second, m_second.value + m_by); }
            Number& m_first;
            Number& m_second;
            int m_by;
        };
        ChangesController document;
        Number first;
        Number second;
        {
            const CommitChangesScope scope("Add", &document);
            CommitChangesScope::makeUndo<Add>(first, second, 10);
        }
        second.isLocked = true;

        QVERIFY(!document.undo());
        QCOMPARE(first.value, 0);

        second.isLocked = false;
        QVERIFY(document.undo());
        QCOMPARE((QList<int>{first.value, second.value}), (QList<int>{10, 10}));
        QVERIFY(document.redo());
        QCOMPARE((QList<int>{first.value, second.value}), (QList<int>{0, 0}));
    }

    void anEditThatCannotBeRolledBackIsReportedAndTheOthersAreRolledBack()
    {
        ChangesController document;
        Number number;
        Number other;
        LogCapture log;

        try {
            const CommitChangesScope scope("Broken", &document);
            set(other, 1);
            set(number, 2);
            number.isLocked = true;
            throw std::runtime_error("broken");
        } catch (const std::runtime_error&) {
        }

        QCOMPARE(log.messages(), QStringList{"5 An edit could not be rolled back: Set number"});
        QCOMPARE(number.value, 2);
        QCOMPARE(other.value, 0);
        QCOMPARE(document.count(), 0);
    }

    void undoInsideOfAnUndoOrAScopeIsRefused()
    {
        struct Meddler : utils::Command
        {
            explicit Meddler(ChangesController& document) : Command("Meddle"), m_document(document) {}
            bool execute() override
            {
                CommitChangesScope::makeUndo<Meddler>(m_document);
                return !m_document.undo();
            }
            ChangesController& m_document;
        };
        ChangesController document;
        LogCapture log;
        {
            const CommitChangesScope scope("Meddle", &document);
            QVERIFY(CommitChangesScope::makeCommand<Meddler>(document));
        }

        QVERIFY(document.undo());

        QCOMPARE(log.messages(), (QStringList{"5 Cannot undo inside of an edit", "5 Cannot undo inside of an edit"}));
        QCOMPARE(document.index(), 0);
    }

    void aScopeOutlivesItsDocument()
    {
        auto document = std::make_unique<ChangesController>();
        Number number;
        {
            const CommitChangesScope scope("Late", document.get());
            set(number, 1);
            document.reset();
        }

        QCOMPARE(number.value, 1);
    }

    void aPlainCommandCanBeNeitherCopiedNorMerged()
    {
        Number number;
        SetNumber first(number, 1);
        SetNumber second(number, 2);

        QVERIFY(!first.clone());
        QVERIFY(!first.merge(second));
        QCOMPARE(first.name(), std::string("Set number"));
    }

    void aCompositeRunsWhatWasPushedLastFirst()
    {
        Number number;
        utils::CompositeCommand composite("Composite");
        composite.push_front(std::make_unique<SetNumber>(number, 1));
        composite.push_front(std::make_unique<SetNumber>(number, 2));
        composite.push_front(nullptr);

        QVERIFY(composite.execute());

        QCOMPARE(number.value, 1);
        QCOMPARE(composite.size(), std::size_t(2));
    }
};

QTEST_GUILESS_MAIN(tst_Undo)
#include "tst_undo.moc"
