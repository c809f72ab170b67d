#include "sample_atlas.h"

#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <support/log_capture.h>

#include <QtTest>

#include <random>

namespace {

/// Edits of an atlas at random, with undo and redo, the same for the same seed on every machine. Remembers the state
/// behind each step of the history.
class AtlasWalk
{
public:
    AtlasWalk(AtlasDesk& desk, unsigned seed) : m_desk(desk), m_random(seed), m_seed(seed)
    {
        desk.writeTextures(m_stems);
        desk.writeAtlas({3, 2}, {"a", "-", "b"});
        m_asset = std::make_unique<AtlasAsset>("content/sheet", &m_history);
        m_states = {state()};
    }

    /// Makes one edit; an empty text if all is as it must be, else what is not.
    QString step()
    {
        ++m_steps;
        const int before = m_history.index();
        const QString found = below(3) == 0 ? travel(before) : edit(before);
        const QString fault = found.isEmpty() ? faultOfGrid() : found;
        return fault.isEmpty() ? fault : where() + fault;
    }
    QString where() const { return QString("seed %1, step %2, %3: ").arg(m_seed).arg(m_steps).arg(m_last); }

    /// What the files hold is what the atlas has.
    QString saveAndLoad()
    {
        m_asset->save();
        const AtlasAsset again("content/sheet", nullptr);
        return stemsOf(again) == stemsOf(*m_asset) && gridOf(again) == gridOf(*m_asset) ? QString() : where() + "load differs";
    }

private:
    QString anyStem() { return m_stems[below(m_stems.size())]; }
    int below(int limit) { return int(m_random() % unsigned(limit)); }
    QStringList state() const { return QStringList(gridOf(*m_asset)) + stemsOf(*m_asset); }
    zarn::BoundProperty property(const char* name) const { return zarn::reflect(*m_asset).findPropertyByName(name); }
    QString path(const QString& stem) const { return m_desk.disk.path(QString::fromStdString(textureOf(stem))); }

    QString edit(int before)
    {
        {
            const Ozy::CommitChangesScope scope("Edit", &m_history);
            change();
        }
        if (m_history.index() == before)
            return state() == m_states[before] ? QString() : "a refused edit changed something";
        m_states.resize(m_history.index());
        m_states.push_back(state());
        return {};
    }

    void change()
    {
        const auto tile = m_asset->getTile(std::size_t(below(m_asset->totalTilesCount())));
        switch (below(7)) {
        case 0:
            m_last = "columns";
            property("tilesCountX").set(qelm::Variant(1 + below(6)), {});
            break;
        case 1:
            m_last = "rows";
            property("tilesCountY").set(qelm::Variant(1 + below(6)), {});
            break;
        case 2:
            m_last = "grid";
            AtlasAssetAccess::setTilesCount(*m_asset, {1 + below(6), 1 + below(6)});
            break;
        case 3:
            m_last = "crop";
            m_asset->crop();
            break;
        case 4:
            m_last = "clear";
            tile->clear();
            break;
        case 5:
            m_last = "set";
            zarn::reflect(*tile).findPropertyByName("AM").set(qelm::Variant(textureOf(anyStem())), {});
            break;
        default:
            m_last = "add";
            AtlasAssetAccess::addTextures(*m_asset, {path(anyStem()), path(anyStem())});
        }
    }

    QString travel(int before)
    {
        const bool isUndo = below(5) < 3;
        m_last = isUndo ? "undo" : "redo";
        const bool isPossible = isUndo ? m_history.canUndo() : m_history.canRedo();
        const bool isDone = isPossible && (isUndo ? m_history.undo() : m_history.redo());
        if (isDone)
            return state() == m_states[m_history.index()] ? QString() : "another state than at that step before";
        if (state() != m_states[before])
            return "a refused step changed something";
        if (isPossible) { // it would refuse for ever
            m_history.clear();
            m_states = {state()};
            ++refusals;
        }
        return {};
    }

    QString faultOfGrid() const
    {
        const AtlasAsset::Descriptor& data = m_asset->data();
        if (int(data.tiles->size()) != data.tilesCount.x * data.tilesCount.y)
            return "another number of tiles than of slots";
        if (data.atlasSize.x != data.tilesCount.x * m_asset->tileSize()
            || data.atlasSize.y != data.tilesCount.y * m_asset->tileSize())
            return "another size than that of the grid";
        for (std::size_t slot = 0; slot < data.tiles->size(); ++slot) {
            const AtlasTile& tile = *(*data.tiles)[slot];
            if (tile.index() != slot)
                return "a tile with another index than its slot";
            if (!tile.isEmpty() && !tile.isComplete())
                return "a tile without its companions";
        }
        return {};
    }

    AtlasDesk& m_desk;
    std::mt19937 m_random;
    unsigned m_seed;
    int m_steps = 0;
    const char* m_last = "";
    const QStringList m_stems = {"a", "b", "c", "d", "e", "f"};
    Ozy::ChangesController m_history;
    std::unique_ptr<AtlasAsset> m_asset;
    QVector<QStringList> m_states;

public:
    int refusals = 0;
};

} // namespace

/// Long random walks of edits.
class tst_AtlasWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anAtlasStaysSoundUnderEditsUndoAndRedo_data()
    {
        QTest::addColumn<unsigned>("seed");
        QTest::newRow("1") << 1U;
        QTest::newRow("2") << 2U;
    }
    void anAtlasStaysSoundUnderEditsUndoAndRedo()
    {
        QFETCH(unsigned, seed);
        LogCapture log;
        AtlasDesk desk;
        AtlasWalk walk(desk, seed);

        QString fault;
        for (int step = 1; step <= 10000 && fault.isEmpty(); ++step)
            fault = step % 500 == 0 ? walk.saveAndLoad() : walk.step();

        QCOMPARE(fault, QString());
        QVERIFY(walk.refusals > 0);
        QCOMPARE(log.assertions(), QStringList());
    }
};

QTEST_MAIN(tst_AtlasWalk)
#include "tst_atlas_walk.moc"
