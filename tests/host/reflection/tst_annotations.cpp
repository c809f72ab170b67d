#include "sample_objects.h"

#include <support/log_capture.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

using Visibility = ryk::Flags<meta_property::VisibilityFlag>;

class Gauge : public Object
{
public:
    void setValue(int number) { value = number; }

    int value = 3;
};

/// Keeps in mind how it was set.
class Dial : public Object
{
public:
    int value = 0;
    ryk::Flags<SetterFlag> how;
};

} // namespace

template <>
struct zarn::Reflection<Gauge>
{
    static constexpr const char* name = "Gauge";
    static Meta::Validator::Range upToItself(const BoundProperty& property)
    {
        return std::pair(qelm::Variant(0), property.get());
    }
    static void declare(StaticMetaObject<Gauge>::Builder& gauge)
    {
        gauge.value("value", &Gauge::value, &Gauge::setValue, Meta::MinMax(0, 60), Meta::Validator(&Reflection::upToItself));
        gauge.with(Meta::Visible(Visibility(5U)))
            .constant("unit", [] { return std::string("bar"); }, Meta::Visible(Visibility(12U)));
    }
};

template <>
struct zarn::Reflection<Dial>
{
    static constexpr const char* name = "Dial";
    static Annotations annotations()
    {
        return {Meta::MultiSelection::ObjectType{[](const ReflectedObject&) { return "Instruments"; }}};
    }
    static void set(Dial& dial, int value, ryk::Flags<SetterFlag> how)
    {
        dial.value = value;
        dial.how = how;
    }
    static Meta::MinMax::Range range(const BoundProperty&, ryk::Flags<SetterFlag> how)
    {
        return how.test(SetterFlag::Unlimited) ? Meta::MinMax::Range() : std::pair(qelm::Variant(1), qelm::Variant(9));
    }
    static void declare(StaticMetaObject<Dial>::Builder& dial)
    {
        dial.value("value", &Dial::value, &set, Meta::MinMax(&range));
    }
};

namespace {

const ReflectAtLoad<Dial> dialClass;
const ReflectAtLoad<Engine> engineClass;
const ReflectAtLoad<Vehicle> vehicleClass;
const ReflectAtLoad<Boat> boatClass;
const ReflectAtLoad<Gauge> gaugeClass;

} // namespace

/// What classes say of themselves and of their properties.
class tst_Annotations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aGroupGivesItsAnnotationsToItsPropertiesOnly()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);

        QCOMPARE(handle.findPropertyByName("draught").annotations().valueOr<Meta::Precision>().digits, 1);
        QVERIFY(handle.findPropertyByName("engine").annotations().contain<Meta::Precision>());
        QVERIFY(!handle.findPropertyByName("isHidden").annotations().contain<Meta::Precision>());
        QVERIFY(handle.findPropertyByName("name").annotations().contain("Meta::Label::Text"));
    }

    void classesCarryTheirSelectionName()
    {
        Boat boat;
        const Annotations annotations = reflect(boat).annotations();

        QVERIFY(annotations.contain<Meta::ToolTip>());
        QCOMPARE(annotations.valueOr<Meta::MultiSelection::ObjectType>().name(reflect(boat)), std::string("Boat"));
    }

    void aClassMayNameItselfForSelections()
    {
        Dial dial;
        const Annotations annotations = reflect(dial).annotations();

        QCOMPARE(annotations.size(), std::size_t(1));
        QCOMPARE(annotations.valueOr<Meta::MultiSelection::ObjectType>().name(reflect(dial)), std::string("Instruments"));
    }

    void aSetterMayTakeTheFlags()
    {
        Dial dial;

        QVERIFY(reflect(dial).findPropertyByName("value").set(7, SetterFlag::Undo));

        QCOMPARE(dial.value, 7);
        QVERIFY(dial.how == SetterFlag::Undo);
    }

    void aPopTooManyAndAMissingOneAreReported()
    {
        LogCapture log;
        {
            detail::AnnotationStack stack;
            stack.pop();
            stack.push({Meta::Value()});
        }

        QCOMPARE(log.messages(), (QStringList{"6 META_POP without corresponding META_PUSH", "6 Missing META_POP"}));
        QCOMPARE(log.assertions(), QStringList{"annotations_.size() == 1"});
    }

    void visibilityIsAskedOfTheAnnotation()
    {
        Boat boat;
        const BoundProperty anchors = reflect(boat).findPropertyByName("anchors");
        QCOMPARE(anchors.visibility().value(), 15U);

        boat.isHidden = true;

        QCOMPARE(anchors.visibility().value(), 0U);
    }

    void ofSeveralVisibilitiesCountsWhatAllAgreeOn()
    {
        Gauge gauge;

        QCOMPARE(reflect(gauge).findPropertyByName("unit").visibility().value(), 4U);
        QCOMPARE(reflect(gauge).findPropertyByName("value").visibility().value(), 15U);
        QCOMPARE(BoundProperty().visibility().value(), 0U);
    }

    void rangesAreFixedOrAskedOfTheProperty()
    {
        Gauge gauge;
        const BoundProperty value = reflect(gauge).findPropertyByName("value");
        gauge.value = 12;

        const auto limits = value.annotations().valueOr<Meta::MinMax>().range(value);
        const auto allowed = value.annotations().valueOr<Meta::Validator>().range(value);

        QCOMPARE(limits->first.value<int>(), 0);
        QCOMPARE(limits->second.value<int>(), 60);
        QCOMPARE(allowed->second.value<int>(), 12);
    }

    void aRangeMayDependOnHowItIsToBeSet()
    {
        Dial dial;
        const BoundProperty value = reflect(dial).findPropertyByName("value");
        const auto limits = value.annotations().valueOr<Meta::MinMax>();

        QCOMPARE(limits.range(value)->second.value<int>(), 9);
        QVERIFY(!limits.range(value, SetterFlag::Unlimited));
    }

    void aRangeIsForPanelsAndDoesNotBindASet()
    {
        Gauge gauge;

        QVERIFY(reflect(gauge).findPropertyByName("value").set(61, {}));

        QCOMPARE(gauge.value, 61);
    }

    void annotationsWithoutAFunctionHaveOneThatAnswersNothing()
    {
        const BoundProperty none;

        QCOMPARE(Meta::ToolTip()(none), std::string());
        QCOMPARE(Meta::Label::Text()(none), std::string());
        QVERIFY(Meta::Label::Visible()(none));
        QVERIFY(!Meta::MinMax().range(none));
        QVERIFY(Meta::DefaultValue().value(none).isVoid());
    }

    void annotationsOfOneNameAreWalkedInTheirOrder()
    {
        const Annotations annotations{Meta::Precision{1}, Meta::Value(), Meta::Precision{2}, qelm::Variant()};
        QList<int> digits;

        for (const qelm::Variant& annotation : annotations.equal_range("Meta::Precision"))
            digits << annotation.value<Meta::Precision>().digits;

        QCOMPARE(digits, (QList<int>{1, 2}));
        QCOMPARE(annotations.size(), std::size_t(3));
        QVERIFY(!annotations.find("Meta::ToolTip").isValid());
        QCOMPARE(annotations.find("Meta::ToolTip").get(), nullptr);
    }

    void whatIsAppendedToACopyIsNotInTheOriginal()
    {
        const Annotations original{Meta::Precision{1}};
        Annotations copy = original;
        copy += Annotations{Meta::Value()};
        copy += copy;

        QCOMPARE(copy.size(), std::size_t(4));
        QCOMPARE(original.size(), std::size_t(1));
    }
};

QTEST_GUILESS_MAIN(tst_Annotations)
#include "tst_annotations.moc"
