#include "plain_mirror.h"

#include <datamodels/composite_model.h>
#include <support/log_capture.h>
#include <support/paths.h>
#include <support/random_walk.h>
#include <support/signal_log.h>

#include <QtTest>

namespace {

/// A composite of one model, and what it should know and tell of it.
class Walk
{
public:
    Walk()
        : m_source(std::make_shared<ScriptedTree>(QStringList{"oak", "  acorn", "elm", "ash"}))
        , m_mirror(*m_source)
        , m_walk(*m_source, 32, everyChange)
    {
        const LogCapture log; // the index of a mount is asked for its parent
        m_composite.addSubmodel("m", m_source);
        m_log.add(m_composite);
        m_idRole = m_composite.roleNames().key("id");
    }

    void askForSomeRows()
    {
        for (int i = below(4); i > 0; --i)
            ask(m_composite.index(0, 0), m_mirror.mount());
    }

    /// What is wrong after one step more, nothing if all is well.
    QString faultAfterStep()
    {
        const int staleQuestions = m_source->staleQuestions();
        m_walk.step();

        const QStringList told = m_log.take();
        const QStringList expected = m_mirror.take();
        if (told != expected)
            return "told\n" + told.join('\n') + "\nin place of\n" + expected.join('\n');
        if (m_source->staleQuestions() != staleQuestions)
            return "it asks about rows that are gone";
        return differenceInWhatIsShown();
    }

    /// From now on persistent indexes are kept of the rows that are asked for. Qt makes further rows known then.
    void keepIndexes() { m_keepsIndexes = true; }

    /// What is wrong with the kept indexes after one step more, nothing if all is well.
    QString strayedIndexAfterStep()
    {
        m_walk.step();
        if (m_kept.size() > 100)
            m_kept.erase(m_kept.begin(), m_kept.begin() + 50);
        for (const QPersistentModelIndex& index : m_kept) {
            const QVariant id = index.data(m_idRole);
            if (id.isValid() && !m_source->findId(id.toInt()).isValid())
                return "an index shows a row that is gone";
            // Moves make Qt lose count of some, which lie anywhere then.
            if (pathOf(index).isEmpty() || m_composite.rowCount(index) < 0)
                return "an index does not answer";
        }
        return {};
    }

    QString where() const { return m_walk.where(); }

private:
    static constexpr RandomWalk::Settings everyChange{6, 5, 5, 8, 2, 1, true, true};

    int below(int limit) { return int(m_random() % unsigned(limit)); }

    void ask(const QModelIndex& parent, PlainMirror::Item& mirrored)
    {
        const int rows = m_composite.rowCount(parent);
        if (rows == 0)
            return;
        const int row = below(rows);
        const QModelIndex index = m_composite.index(row, 0, parent);
        PlainMirror::Item& item = m_mirror.ask(mirrored, row);
        if (m_keepsIndexes)
            m_kept.emplace_back(index);
        if (below(2) == 0)
            ask(index, item);
    }

    QString differenceInWhatIsShown() const
    {
        QString difference;
        m_mirror.forEachItem([&](const PlainMirror::Item& item) {
            const QModelIndex index = shown(item);
            if (!index.isValid())
                return;
            if (index.data(m_idRole) != item.source.data(ScriptedTree::IdRole))
                difference = "another row is shown at " + item.path();
            if (m_composite.rowCount(index) != m_mirror.rowCount(item))
                difference = "there are more rows or less below " + item.path();
        });
        return difference;
    }

    /// The row of an item, or an invalid index if it lies behind those that are shown.
    QModelIndex shown(const PlainMirror::Item& item) const
    {
        if (item.isMount())
            return m_composite.index(0, 0);
        const QModelIndex parent = shown(*item.parent);
        const int row = item.path().section('/', -1).toInt();
        return parent.isValid() ? m_composite.index(row, 0, parent) : QModelIndex();
    }

    std::shared_ptr<ScriptedTree> m_source;
    CompositeModel m_composite;
    PlainMirror m_mirror;
    SignalLog m_log;
    RandomWalk m_walk;
    std::mt19937 m_random{7};
    bool m_keepsIndexes = false;
    std::vector<QPersistentModelIndex> m_kept;
    int m_idRole = -1;
};

} // namespace

/// Random legal changes of a mounted model, of which some rows are known.
class tst_CompositeWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knownRowsAreToldAndShownAsByAPlainSearch()
    {
        Walk walk;

        for (int step = 0; step < WALK_STEPS; ++step) {
            walk.askForSomeRows();
            const QString fault = walk.faultAfterStep();
            QVERIFY2(fault.isEmpty(), qPrintable(walk.where() + ": " + fault));
        }
    }

    void persistentIndexesShowLiveRowsOrNothing()
    {
        Walk walk;
        walk.keepIndexes();

        for (int step = 0; step < WALK_STEPS; ++step) {
            walk.askForSomeRows();
            const QString fault = walk.strayedIndexAfterStep();
            QVERIFY2(fault.isEmpty(), qPrintable(walk.where() + ": " + fault));
        }
    }
};

QTEST_GUILESS_MAIN(tst_CompositeWalk)
#include "tst_composite_walk.moc"
