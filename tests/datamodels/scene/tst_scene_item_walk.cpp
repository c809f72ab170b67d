#include "sample_scene.h"

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene/scene_item_buttons_model.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>

#include <host/reflection/meta.h>
#include <host/reflection/notifiers.h>

#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QtTest>

#include <optional>

using namespace stage;
using zarn::reflect;

namespace {

/// Two rows of a class that is no row itself.
struct Group : zarn::Object
{
    std::shared_ptr<Actor> upper = actor("upper");
    std::shared_ptr<Actor> lower = actor("lower");
};

struct Corner : zarn::Object
{
    std::shared_ptr<Actor> first;
    Group group;
    std::shared_ptr<Actor> hidden = actor("hidden");
    std::shared_ptr<Actor> last = actor("last");
    std::string label = "true";
    int level = 1;
};

struct Unbounded : zarn::Object
{
    Group group;
};

Meta::IconButton icon()
{
    Meta::IconButton icon;
    icon.firstIcon = icon.secondIcon = "icon";
    return icon;
}

} // namespace

template <>
struct zarn::Reflection<Group>
{
    static constexpr const char* name = "Group";
    static void declare(StaticMetaObject<Group>::Builder& group)
    {
        group.field("upper", &Group::upper, Meta::SceneItem()).field("lower", &Group::lower, Meta::SceneItem());
    }
};

template <>
struct zarn::Reflection<Corner>
{
    static constexpr const char* name = "Corner";
    static void declare(StaticMetaObject<Corner>::Builder& corner)
    {
        corner.field("first", &Corner::first, Meta::SceneItem())
            .readOnly("group", [](Corner& self) { return &self.group; })
            .field("hidden", &Corner::hidden, Meta::SceneItem(), icon(), Meta::Visible(false))
            .field("last", &Corner::last, Meta::SceneItem())
            .field("label", &Corner::label, icon())
            .field("level", &Corner::level, icon());
    }
};

template <>
struct zarn::Reflection<Unbounded>
{
    static constexpr const char* name = "Unbounded";
    static void declare(StaticMetaObject<Unbounded>::Builder& unbounded)
    {
        unbounded.readOnly("group", [](Unbounded& self) { return &self.group; }, Meta::CollectionSize());
    }
};

namespace {

const zarn::ReflectAtLoad<Group> groupClass;
const zarn::ReflectAtLoad<Corner> cornerClass;
const zarn::ReflectAtLoad<Unbounded> unboundedClass;

} // namespace

class tst_SceneItemWalk : public QObject
{
    Q_OBJECT

    std::optional<Corner> corner;
    std::optional<SceneItemModel> model;

    QAbstractListModel* buttons() const
    {
        return model->data({}, SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
    }
    void press(int row)
    {
        buttons()->index(row).data(AssetItemButtonsModel::ActionRole).value<SceneItemButton*>()->invoke(nullptr, false);
    }

private Q_SLOTS:
    void init()
    {
        corner.emplace();
        model.emplace(reflect(*corner));
    }
    void cleanup()
    {
        model.reset();
        corner.reset();
    }

    void itemsOfAPlainObjectInBetweenAreRowsInTheirOrder()
    {
        QCOMPARE(treeLines(*model), (QStringList{"<unnamed scene item>", "upper", "lower", "last"}));
    }

    void aHiddenPropertyIsNeitherARowNorAButton()
    {
        QCOMPARE(buttons()->rowCount(), 2);
        QCOMPARE(model->indexOf(reflect(*corner->hidden)), QModelIndex());
    }

    void aRowThatIsMadeAnewInFrontKeepsTheNumbersOfThoseBehind()
    {
        SignalLog log(*model);

        reflect(*corner).findPropertyByName("first").set(actor("first"), {});

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]", "inserting / [0..0]", "inserted / [0..0]"}));
        QCOMPARE(treeLines(*model), (QStringList{"first", "upper", "lower", "last"}));
        QCOMPARE(model->indexOf(reflect(*corner->last)).row(), 3);
    }

    void aTextIsNoSwitchWhateverItSays()
    {
        press(0);

        QCOMPARE(corner->label, std::string("true"));
    }

    void aNumberIsASwitch()
    {
        press(1);

        QCOMPARE(corner->level, 0);
    }

    void aResetReadsAnewWhatARowShows()
    {
        const auto lamp = actor("lamp");
        const auto street = actor("street", {lamp});
        const SceneItemModel other(reflect(*street));
        lamp->isEnabled = false;
        lamp->isModified = true;
        QVERIFY(!other.index(0, 0).data(SceneRoles::Modified).toBool());

        { const zarn::PropertiesResetNotifier notifier(reflect(*lamp)); }

        QVERIFY(!other.index(0, 0).data(SceneRoles::Enabled).toBool());
        QVERIFY(other.index(0, 0).data(SceneRoles::Modified).toBool());
    }

    void boundsWithoutAFunctionStopTheWalkAndGiveTheCursorBack()
    {
        Unbounded unbounded;

        QVERIFY_EXCEPTION_THROWN(SceneItemModel(reflect(unbounded)), std::bad_function_call);

        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    }
};

QTEST_MAIN(tst_SceneItemWalk)
#include "tst_scene_item_walk.moc"
