#include "../allocation_count.h"

#include <host/base/profiler.h>
#include <host/variant/variant.h>

#include <QtTest>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>

using qelm::MetaType;
using qelm::Variant;
using namespace std::string_literals;

static_assert(sizeof(Variant) == 32);
static_assert(std::is_nothrow_move_constructible_v<Variant> && std::is_nothrow_move_assignable_v<Variant>);
static_assert(!std::is_convertible_v<std::nullptr_t, Variant>);
static_assert(qelm::isStoredInline<void*> && qelm::isStoredInline<QVariant> && qelm::isStoredInline<QString>);
static_assert(qelm::isStoredInline<std::shared_ptr<int>>);
static_assert(!qelm::isStoredInline<std::string> && !qelm::isStoredInline<std::array<double, 4>>);

namespace Sample {

struct Base
{
    virtual ~Base() = default;
};

/// Like an annotation: a function, which cannot be compared.
struct ToolTip
{
    std::function<std::string()> text;
};

struct Matrix
{
    std::array<double, 16> numbers{};
    bool operator==(const Matrix&) const = default;
};

/// Counts its copies, to tell sharing from copying.
struct Witness
{
    explicit Witness(int& copies) : copies(&copies) {}
    Witness(const Witness& other) : copies(other.copies) { ++*copies; }
    Witness(Witness&& other) noexcept : copies(other.copies) {}
    int* copies;
    int value = 0;
};

/// A class with a constructor from variants, which must not disturb variants of the class.
struct Holder
{
    Holder(Variant held) : held(std::move(held)) {}
    Variant held;
};

} // namespace Sample

namespace {

QStringList profiled;

} // namespace

class tst_Variant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aVariantIsVoidAtFirst()
    {
        const Variant variant;

        QVERIFY(variant.isVoid());
        QCOMPARE(variant.type(), nullptr);
        QVERIFY(variant.typeId() == typeid(void));
        QCOMPARE(variant.address(), nullptr);
        QCOMPARE(variant.as<int>(), nullptr);
    }

    void aVariantHoldsAValueOfItsType()
    {
        const Variant variant = 42;

        QVERIFY(!variant.isVoid());
        QVERIFY(variant.typeId() == typeid(int));
        QCOMPARE(variant.type(), &qelm::metaType<int>());
        QCOMPARE(variant.value<int>(), 42);
        QCOMPARE(variant.as<unsigned>(), nullptr);
    }

    void textsBecomeStrings()
    {
        const char* literal = "literal";

        QCOMPARE(Variant("literal").value<std::string>(), "literal"s);
        QCOMPARE(Variant(literal).value<std::string>(), "literal"s);
        QCOMPARE(Variant(std::string_view("literal")).value<std::string>(), "literal"s);
        QCOMPARE(Variant("literal"s).value<std::string>(), "literal"s);
        QCOMPARE(qelm::upcast("literal"), "literal"s);
        QCOMPARE(qelm::upcast(nullptr), ""s);
    }

    void smallAndLargeValuesAreCopiedAlike()
    {
        const Sample::Matrix matrix{{1, 2, 3}};
        const Variant variant = matrix;

        Variant copy = variant;

        QVERIFY(copy.value<Sample::Matrix>() == matrix);
        QVERIFY(copy == variant);
    }

    void copiesShareALargeValueUntilOneIsWrittenTo()
    {
        const Variant first = "a long text that stands in no small buffer";
        Variant second = first;
        QCOMPARE(first.address(), second.address());

        *second.mutableAs<std::string>() = "another";

        QCOMPARE(first.value<std::string>(), "a long text that stands in no small buffer"s);
        QCOMPARE(second.value<std::string>(), "another"s);
    }

    void aValueThatIsNotSharedIsWrittenToInPlace()
    {
        int copies = 0;
        Variant variant = Sample::Witness(copies);

        variant.mutableAs<Sample::Witness>()->value = 5;

        QCOMPARE(copies, 0);
        QCOMPARE(variant.value<Sample::Witness>().value, 5);
    }

    void aCopyAllocatesNothing()
    {
        const Variant number = 42;
        const Variant text = "a long text that stands in no small buffer";
        const Variant shared = std::make_shared<int>(1);
        const AllocationCount count;

        const Variant numberCopy = number;
        const Variant textCopy = text;
        const Variant sharedCopy = shared;

        QCOMPARE(count.taken(), 0);
    }

    void aMovedVariantIsVoid()
    {
        Variant text = "text";
        Variant pointer = std::make_shared<int>(1);

        const Variant taken = std::move(text);
        const Variant owner = std::move(pointer);

        QVERIFY(text.isVoid());
        QVERIFY(pointer.isVoid());
        QCOMPARE(taken.value<std::string>(), "text"s);
        QCOMPARE(owner.value<std::shared_ptr<int>>().use_count(), 1L);
    }

    void assignmentReplacesValueAndType()
    {
        Variant variant = "text";

        variant = 5;
        QCOMPARE(variant.value<int>(), 5);
        variant = QString("qt");
        QCOMPARE(variant.value<QString>(), QString("qt"));
        variant = Variant();

        QVERIFY(variant.isVoid());
    }

    void aVariantMayBeAssignedToItself()
    {
        Variant variant = "text";
        Variant& same = variant;

        variant = same;
        variant = std::move(same);

        QCOMPARE(variant.value<std::string>(), "text"s);
    }

    void swappingExchangesAllKindsOfPayload()
    {
        Variant text = "text";
        Variant pointer = std::make_shared<int>(7);
        Variant none;

        text.swap(pointer);
        text.swap(none);

        QVERIFY(text.isVoid());
        QCOMPARE(pointer.value<std::string>(), "text"s);
        QCOMPARE(*none.value<std::shared_ptr<int>>(), 7);
    }

    void valuesDieWithTheirLastVariant()
    {
        const auto witness = std::make_shared<int>(1);
        {
            const Variant first = witness;
            const Variant second = first;
            QCOMPARE(witness.use_count(), 3L);
        }

        QCOMPARE(witness.use_count(), 1L);
    }

    void equalValuesOfOneTypeAreEqual()
    {
        QVERIFY(Variant(5) == Variant(5));
        QVERIFY(!(Variant(5) == Variant(6)));
        QVERIFY(Variant("text") == Variant("text"s));
        QVERIFY(Variant() == Variant());
    }

    void valuesOfDifferentTypesAreNotEqual()
    {
        QVERIFY(!(Variant(5) == Variant(5u)));
        QVERIFY(!(Variant("5") == Variant(5)));
        QVERIFY(!(Variant() == Variant(0)));
    }

    void valuesThatCannotBeComparedAreEqualToTheirCopies()
    {
        const Variant toolTip = Sample::ToolTip{[] { return "tip"s; }};
        const Variant copy = toolTip;
        const Variant other = Sample::ToolTip{[] { return "tip"s; }};

        QVERIFY(copy == toolTip);
        QVERIFY(!(other == toolTip));
    }

    void aTypedReadOfAnotherTypeNamesBothTypes()
    {
        const Variant variant = Sample::ToolTip();
        QString message;

        try {
            variant.value<std::vector<int>>();
        } catch (const qelm::CastError& error) {
            message = error.what();
        }

        QCOMPARE(message, QString(R"(cannot cast "Sample::ToolTip" to "std::vector<int>")"));
    }

    void aTypedReadOfVoidFails() { QVERIFY_EXCEPTION_THROWN(Variant().value<int>(), qelm::CastError); }

    void pointersShowWhatTheyPointTo()
    {
        int number = 5;
        const auto shared = std::make_shared<int>(6);

        QCOMPARE(Variant(&number).pointee(), &number);
        QCOMPARE(Variant(static_cast<const int*>(&number)).pointee(), &number);
        QCOMPARE(Variant(shared).pointee(), shared.get());
        QCOMPARE(Variant(number).pointee(), nullptr);
    }

    void aPayloadIsAValueOfItsType()
    {
        const Variant fromInline = MetaType::InlinePayload<QVariant>(QVariant(5));
        const Variant fromShared = MetaType::CowPayload<Sample::Matrix>(Sample::Matrix{{1}});

        QCOMPARE(fromInline.value<QVariant>(), QVariant(5));
        QCOMPARE(fromShared.value<Sample::Matrix>().numbers[0], 1.0);
    }

    void aClassMayBeMadeFromVariants()
    {
        const Variant variant = Sample::Holder(Variant(5));

        QCOMPARE(variant.value<Sample::Holder>().held.value<int>(), 5);
    }

    void sharedValuesAreMadeInsideAProfilerScope()
    {
        profiled.clear();
        RYK::Profiler::g_hooks = {[](const char* name) { profiled << name; }, [] { profiled << "end"; }};

        const Variant shared = Sample::Matrix();
        const Variant copy = shared;
        const Variant small = 5;
        RYK::Profiler::g_hooks = {};

        QCOMPARE(profiled, (QStringList{"Reflection|Variant|COW", "end"}));
    }

    void aDefaultValueIsMadeByType()
    {
        QCOMPARE(Variant::makeDefault(qelm::metaType<int>()).value<int>(), 0);
        QCOMPARE(Variant::makeDefault(qelm::metaType<std::string>()).value<std::string>(), ""s);
        QVERIFY(Variant::makeDefault(qelm::metaType<Sample::Witness>()).isVoid());
    }

    void typesHaveReadableNames()
    {
        QCOMPARE(qelm::metaType<std::string>().name(), "std::string");
        QCOMPARE(qelm::metaType<std::vector<std::string>>().name(), "std::vector<std::string>");
        QCOMPARE(qelm::metaType<std::vector<std::vector<int>>>().name(), "std::vector<std::vector<int>>");
        QCOMPARE(qelm::metaType<Sample::ToolTip>().name(), "Sample::ToolTip");
        QCOMPARE(qelm::metaType<std::shared_ptr<Sample::Base>>().name(), "std::shared_ptr<Sample::Base>");
        QCOMPARE(MetaType::prettyName(typeid(Sample::Base)), "Sample::Base");
    }

    void aTypeHasOneDescription()
    {
        QCOMPARE(&qelm::metaType<int>(), &qelm::metaType<int>());
        QCOMPARE(MetaType::find("int"), &qelm::metaType<int>());
        QCOMPARE(MetaType::find("no such type"), nullptr);
        QVERIFY(qelm::metaType<int>().typeInfo() == typeid(int));
        QCOMPARE(qelm::metaType<Sample::Matrix>().size(), sizeof(Sample::Matrix));
    }

    void aPointerTypeTellsItsPointeeAndQualifiers()
    {
        const MetaType& plain = qelm::metaType<Sample::Base*>();
        const MetaType& constant = qelm::metaType<const Sample::Base*>();
        const MetaType& shared = qelm::metaType<std::shared_ptr<const Sample::Base>>();

        QVERIFY(*plain.pointee() == typeid(Sample::Base));
        QVERIFY(*shared.pointee() == typeid(Sample::Base));
        QCOMPARE(plain.pointerQualifiers().value(), 0u);
        QVERIFY(constant.pointerQualifiers().test(MetaType::Qualifier::Const));
        QVERIFY(shared.pointerQualifiers().test(MetaType::Qualifier::Const));
        QCOMPARE(qelm::metaType<int>().pointee(), nullptr);
    }

    void qualifiersMayBeAddedNotDropped()
    {
        const ryk::Flags<MetaType::Qualifier> none;
        const ryk::Flags<MetaType::Qualifier> constant = MetaType::Qualifier::Const;

        QVERIFY(MetaType::qualifiersMatch(none, none));
        QVERIFY(MetaType::qualifiersMatch(none, constant));
        QVERIFY(MetaType::qualifiersMatch(constant, constant));
        QVERIFY(!MetaType::qualifiersMatch(constant, none));
    }
};

QTEST_GUILESS_MAIN(tst_Variant)
#include "tst_variant.moc"
