#include "../datamodels/scene/sample_scene.h"

#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>

#include <host/undo/commit_changes_scope.h>

#include <support/tree_lines.h>
#include <support/tree_mirror.h>

#include <QAbstractListModel>
#include <QtTest>

#include <random>

using namespace stage;
using zarn::reflect;

namespace {

/// All that a row shows, but for what the user has done to it.
QString rowText(const QModelIndex& row)
{
    QStringList texts;
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::CheckStateRole), int(SceneRoles::Type),
                           int(SceneRoles::Enabled), int(SceneRoles::Modified)})
        texts << row.data(role).toString();
    texts << QString::number(row.data(SceneRoles::Object).value<zarn::ReflectedObject>().hash());

    QStringList buttons;
    const auto* list = row.data(SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
    for (int button = 0; list && button < list->rowCount(); ++button) {
        const QModelIndex index = list->index(button);
        buttons << index.data().toString() + index.data(Qt::ToolTipRole).toString() + index.data(Qt::UserRole + 2).toString();
    }
    buttons.sort(); // each says itself where it stands
    return (texts + buttons).join('|');
}

QStringList rowsOf(const QAbstractItemModel& model, const QModelIndex& parent = {}, int depth = 0)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        rows << QString(depth, ' ') + rowText(index) << rowsOf(model, index, depth + 1);
    }
    return rows;
}

/// Edits of a scene at random, each one step of a document, with undo and redo in between.
class SceneWalk
{
public:
    explicit SceneWalk(unsigned seed) : m_random(seed) {}

    void step()
    {
        const int kind = below(12);
        if (kind < 2) {
            document.undo();
        } else if (kind < 3) {
            document.redo();
        } else {
            const Ozy::CommitChangesScope scope("edit", &document);
            kind < 6 ? add() : kind < 8 ? remove() : change();
        }
    }

    std::shared_ptr<Actor> scene = actor("scene", {actor("a", {actor("b"), actor("c")}), actor("d")});
    Ozy::ChangesController document;

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    std::vector<std::shared_ptr<Actor>> actors() const
    {
        std::vector<std::shared_ptr<Actor>> all{scene};
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto parts = *all[i]->parts;
            all.insert(all.end(), parts.begin(), parts.end());
        }
        return all;
    }
    std::shared_ptr<Actor> someActor()
    {
        const auto all = actors();
        return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
    }

    void add()
    {
        if (actors().size() > 25)
            return remove();
        const auto parent = someActor();
        const auto place = static_cast<std::size_t>(below(static_cast<int>(parent->parts->size()) + 1));
        const std::string name = std::to_string(m_random() % 1000);
        const bool isFamily = below(3) == 0;
        reflect(parent->parts).addProperty(place, isFamily ? actor(name, {actor("x"), actor("y")}) : actor(name));
    }
    void remove()
    {
        const auto parent = someActor();
        if (const int count = static_cast<int>(parent->parts->size()))
            reflect(parent->parts).removePropertyAt(static_cast<std::size_t>(below(count)));
    }
    void change()
    {
        const zarn::ReflectedObject object = reflect(*someActor());
        switch (below(6)) {
        case 0: object.findPropertyByName("_objectName").set(std::to_string(below(1000)), {}); return;
        case 1: object.findPropertyByName("_objectState").set(below(3), {}); return;
        case 2: object.findPropertyByName("_isEnabled").set(below(2) == 0, {}); return;
        case 3: object.findPropertyByName("_isModified").set(below(2) == 0, {}); return;
        case 4: object.findPropertyByName("isVisible").set(below(2) == 0, {}); return;
        default: object.findPropertyByName("limits.isOpen").set(below(2) == 0, {}); return;
        }
    }

    std::mt19937 m_random;
};

} // namespace

class tst_SceneWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStayAsIfTheSceneWereOpenedAnew()
    {
        SceneWalk walk(11);
        SceneItemModel model(reflect(*walk.scene));

        for (int step = 0; step < WALK_STEPS; ++step) {
            walk.step();
            const SceneItemModel fresh(reflect(*walk.scene));
            QVERIFY2(rowsOf(model) == rowsOf(fresh), qPrintable(QString("after step %1").arg(step)));
        }
    }

    void undoingEverythingGivesTheFirstStateBack()
    {
        SceneWalk walk(12);
        SceneItemModel model(reflect(*walk.scene));
        const QStringList first = rowsOf(model);

        for (int step = 0; step < WALK_STEPS; ++step)
            walk.step();
        const QStringList last = rowsOf(model);
        const int steps = walk.document.index();
        QVERIFY(steps > WALK_STEPS / 10);

        QVERIFY(walk.document.jumpTo(0));
        QCOMPARE(rowsOf(model), first);
        QVERIFY(walk.document.jumpTo(steps));
        QCOMPARE(rowsOf(model), last);
    }

    void signalsAloneTellWhichRowsThereAre()
    {
        SceneWalk walk(13);
        SceneItemModel model(reflect(*walk.scene));
        const TreeMirror mirror(model, SceneRoles::Type); // the same for all rows, for life

        for (int step = 0; step < WALK_STEPS; ++step) {
            walk.step();
            QCOMPARE(mirror.faults(), QStringList());
            QVERIFY2(mirror.lines() == treeLines(model, SceneRoles::Type), qPrintable(QString("after step %1").arg(step)));
        }
    }
};

QTEST_MAIN(tst_SceneWalk)
#include "tst_scene_walk.moc"
