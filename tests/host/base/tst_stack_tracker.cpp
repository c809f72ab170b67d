#include <host/base/stack_tracker.h>

#include <QtTest>

#include <thread>

using Ozy::StackTracker;

class tst_StackTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutEntriesItSaysNothing() { QCOMPARE(StackTracker::describe(), std::string()); }

    void theInnermostEntryStandsFirst()
    {
        StackTracker::push("Editor::open", "editor.cpp", 10);
        StackTracker::push("Model::reset", "model.cpp", 20);

        const std::string text = StackTracker::describe();
        StackTracker::pop();
        StackTracker::pop();

        QCOMPARE(text, std::string("\n  in Model::reset (model.cpp:20)\n  in Editor::open (editor.cpp:10)"));
    }

    void popTakesTheInnermostEntryAway()
    {
        StackTracker::push("Editor::open", "editor.cpp", 10);
        StackTracker::push("Model::reset", "model.cpp", 20);

        StackTracker::pop();
        const std::string text = StackTracker::describe();
        StackTracker::pop();

        QCOMPARE(text, std::string("\n  in Editor::open (editor.cpp:10)"));
    }

    void aPopTooManyDoesNothing()
    {
        StackTracker::pop();

        QCOMPARE(StackTracker::describe(), std::string());
    }

    void aScopeIsAnEntryOfItsBlock()
    {
        std::string inside;
        int line = 0;
        {
            line = __LINE__ + 1;
            const StackTracker::Scope entry("Model::data");
            inside = StackTracker::describe();
        }

        const std::string place = std::string(__FILE__) + ':' + std::to_string(line);
        QCOMPARE(inside, "\n  in Model::data (" + place + ')');
        QCOMPARE(StackTracker::describe(), std::string());
    }

    void anExceptionLeavesNoEntryBehind()
    {
        const auto fail = [] {
            const StackTracker::Scope entry("Model::data");
            throw std::runtime_error("broken");
        };

        QVERIFY_EXCEPTION_THROWN(fail(), std::runtime_error);

        QCOMPARE(StackTracker::describe(), std::string());
    }

    void eachThreadHasItsOwnEntries()
    {
        const StackTracker::Scope entry("Editor::open");
        std::string other = "not run";

        std::thread([&other] {
            StackTracker::push("Job::run", "job.cpp", 1);
            other = StackTracker::describe();
        }).join();

        QCOMPARE(other, std::string("\n  in Job::run (job.cpp:1)"));
        QVERIFY(StackTracker::describe().find("Job::run") == std::string::npos);
    }
};

QTEST_GUILESS_MAIN(tst_StackTracker)
#include "tst_stack_tracker.moc"
