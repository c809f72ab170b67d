#include <host/variant/variant_converter.h>

#include <QColor>
#include <QDate>
#include <QPoint>
#include <QUrl>
#include <QtTest>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

using qelm::Variant;
using qelm::VariantConverter;
using namespace std::string_literals;

namespace Sample {
Q_NAMESPACE

enum class Mode : short
{
    Off = -1,
    On = 1,
    Automatic = 2
};
Q_ENUM_NS(Mode)

enum class Channel : unsigned char
{
    Red,
    Green
};

enum Plain
{
    First = 1,
    Second
};

struct Base
{
    virtual ~Base() = default;
    int base = 1;
};
struct Other
{
    virtual ~Other() = default;
    int other = 2;
};
struct Derived : Base, Other
{
};
struct Leaf : Derived
{
};

struct Metres
{
    double value = 0;
    bool operator==(const Metres&) const = default;
};

} // namespace Sample

template <>
struct qelm::EnumNames<Sample::Channel>
{
    static std::vector<MetaType::Enumerator> values() { return {{0, "red"}, {1, "green"}}; }
};

Q_DECLARE_METATYPE(Sample::Metres)
Q_DECLARE_METATYPE(QVariant*)

namespace {

/// What a value becomes in a type, null if the conversion fails.
template <class To, class From>
std::optional<To> convert(const From& source)
{
    return VariantConverter::convertTo<To>(Variant(source));
}

template <class T>
constexpr T highest = std::numeric_limits<T>::max();
template <class T>
constexpr T lowest = std::numeric_limits<T>::lowest();

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_VariantConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        VariantConverter::addBase<Sample::Derived, Sample::Base>();
        VariantConverter::addBase<Sample::Derived, Sample::Other>();
        VariantConverter::addBase<Sample::Leaf, Sample::Derived>();
    }

    void aValueOfTheSameTypeIsTaken()
    {
        Variant target = 1;

        QVERIFY(VariantConverter::convert(target, Variant(2)));

        QCOMPARE(target.value<int>(), 2);
    }

    void voidIsNeitherSourceNorTarget()
    {
        Variant target = 1;
        Variant none;

        QVERIFY(!VariantConverter::convert(target, Variant()));
        QVERIFY(!VariantConverter::convert(none, Variant(1)));
        QCOMPARE(target.value<int>(), 1);
        QVERIFY(none.isVoid());
    }

    void aFailureLeavesTheTargetAlone()
    {
        Variant number = 1;
        Variant text = "text";

        QVERIFY(!VariantConverter::convert(number, Variant("one")));
        QVERIFY(!VariantConverter::convert(number, Variant(1e10)));
        QVERIFY(!VariantConverter::convert(text, Variant(Sample::Metres())));

        QCOMPARE(number.value<int>(), 1);
        QCOMPARE(text.value<std::string>(), "text"s);
    }

    void integersThatFitAreConverted()
    {
        QCOMPARE(convert<std::int8_t>(127), std::int8_t(127));
        QCOMPARE(convert<std::int8_t>(-128L), std::int8_t(-128));
        QCOMPARE(convert<std::uint8_t>(255), std::uint8_t(255));
        QCOMPARE(convert<std::int16_t>(-32768), std::int16_t(-32768));
        QCOMPARE(convert<std::uint16_t>(65535LL), std::uint16_t(65535));
        QCOMPARE(convert<int>(std::uint64_t(5)), 5);
        QCOMPARE(convert<unsigned>(highest<unsigned> + 0L), highest<unsigned>);
        QCOMPARE(convert<std::int64_t>(std::uint64_t(highest<std::int64_t>)), highest<std::int64_t>);
        QCOMPARE(convert<std::uint64_t>(highest<std::int64_t>), std::uint64_t(highest<std::int64_t>));
        QCOMPARE(convert<long long>(lowest<long>), lowest<long long>);
        QCOMPARE(convert<unsigned long long>(highest<unsigned long>), highest<unsigned long long>);
        QCOMPARE(convert<char>(65), 'A');
    }

    void integersThatDoNotFitFail()
    {
        QVERIFY(!convert<std::int8_t>(128));
        QVERIFY(!convert<std::int8_t>(-129));
        QVERIFY(!convert<std::uint8_t>(256));
        QVERIFY(!convert<std::uint8_t>(-1));
        QVERIFY(!convert<std::int16_t>(32768));
        QVERIFY(!convert<std::uint16_t>(-1));
        QVERIFY(!convert<int>(highest<unsigned>));
        QVERIFY(!convert<unsigned>(-1));
        QVERIFY(!convert<unsigned>(std::uint64_t(highest<unsigned>) + 1));
        QVERIFY(!convert<std::int64_t>(highest<std::uint64_t>));
        QVERIFY(!convert<std::uint64_t>(std::int64_t(-1)));
    }

    void realsAreRoundedToIntegers()
    {
        QCOMPARE(convert<int>(2.4), 2);
        QCOMPARE(convert<int>(2.5f), 3);
        QCOMPARE(convert<int>(-2.5), -3);
        QCOMPARE(convert<std::uint8_t>(255.4), std::uint8_t(255));
        QCOMPARE(convert<std::uint8_t>(-0.4), std::uint8_t(0));
        QCOMPARE(convert<std::int64_t>(-9223372036854775808.0), lowest<std::int64_t>);
    }

    void realsOutOfRangeFail()
    {
        QVERIFY(!convert<std::uint8_t>(255.5));
        QVERIFY(!convert<std::uint8_t>(-0.5));
        QVERIFY(!convert<int>(2147483648.0));
        QVERIFY(!convert<std::int64_t>(9223372036854775808.0));
        QVERIFY(!convert<std::uint64_t>(18446744073709551616.0));
        QVERIFY(!convert<int>(infinity));
        QVERIFY(!convert<int>(notANumber));
    }

    void realsTakeEveryNumberTheyCanStandFor()
    {
        QCOMPARE(convert<double>(highest<int>), 2147483647.0);
        QCOMPARE(convert<double>(1.5f), 1.5);
        QCOMPARE(convert<float>(1.5), 1.5f);
        QCOMPARE(convert<float>(infinity), std::numeric_limits<float>::infinity());
        QVERIFY(std::isnan(*convert<float>(notANumber)));
        QVERIFY(!convert<float>(1e39));
        QVERIFY(!convert<float>(-1e39));
    }

    void aBoolTellsWhetherANumberIsNotZero()
    {
        QCOMPARE(convert<bool>(0), false);
        QCOMPARE(convert<bool>(2), true);
        QCOMPARE(convert<bool>(0.5), true);
        QCOMPARE(convert<bool>(0.0), false);
        QVERIFY(!convert<bool>(notANumber));
        QCOMPARE(convert<int>(true), 1);
        QCOMPARE(convert<double>(true), 1.0);
    }

    void aTextThatIsANumberBecomesOne()
    {
        QCOMPARE(convert<int>("42"), 42);
        QCOMPARE(convert<int>(QString("-42")), -42);
        QCOMPARE(convert<std::uint64_t>("18446744073709551615"), highest<std::uint64_t>);
        QCOMPARE(convert<std::int64_t>("-9223372036854775808"), lowest<std::int64_t>);
        QCOMPARE(convert<double>("2.5e3"), 2500.0);
        QCOMPARE(convert<double>(QString("0.1")), 0.1);
        QCOMPARE(convert<double>("inf"), infinity);
        QCOMPARE(convert<int>("1e3"), 1000);
    }

    void aTextThatIsNoNumberOrDoesNotFitFails()
    {
        QVERIFY(!convert<int>(""));
        QVERIFY(!convert<int>("4 2"));
        QVERIFY(!convert<int>(" 42"));
        QVERIFY(!convert<int>("42px"));
        QVERIFY(!convert<int>(QString::fromUtf8("４２")));
        QVERIFY(!convert<int>("2147483648"));
        QVERIFY(!convert<std::uint8_t>("256"));
        QVERIFY(!convert<std::uint64_t>("18446744073709551616"));
        QVERIFY(!convert<double>("1e400"));
        QVERIFY(!convert<int>(std::string(1000, '1')));
    }

    void noTextIsABool()
    {
        QVERIFY(!convert<bool>("true"));
        QVERIFY(!convert<bool>(QString("false")));
        QVERIFY(!convert<bool>("1"));
        QVERIFY(!convert<bool>(QVariant("true")));
    }

    void aBoolBecomesItsWord()
    {
        QCOMPARE(convert<std::string>(true), "true"s);
        QCOMPARE(convert<QString>(false), QString("false"));
    }

    void numbersBecomeTheShortestTextThatReadsBack()
    {
        QCOMPARE(convert<std::string>(-42), "-42"s);
        QCOMPARE(convert<QString>(highest<std::uint64_t>), QString("18446744073709551615"));
        QCOMPARE(convert<std::string>(0.1), "0.1"s);
        QCOMPARE(convert<std::string>(0.1f), "0.1"s);
        QCOMPARE(convert<std::string>(std::int8_t(5)), "5"s);
    }

    void textsOfBothKindsBecomeEachOther()
    {
        QCOMPARE(convert<QString>("größe"), QString::fromUtf8("größe"));
        QCOMPARE(convert<std::string>(QString::fromUtf8("größe")), "größe"s);
        QCOMPARE(convert<std::string>(QString(200, 'x')), std::string(200, 'x'));
    }

    void enumerationsHaveTheNamesThatQtKnows()
    {
        QCOMPARE(convert<std::string>(Sample::Mode::Automatic), "Automatic"s);
        QCOMPARE(convert<Sample::Mode>("Off"), Sample::Mode::Off);
        QCOMPARE(convert<Sample::Mode>(QString("On")), Sample::Mode::On);
        QVERIFY(!convert<Sample::Mode>("Sometimes"));
    }

    void enumerationsHaveTheNamesGivenToThem()
    {
        QCOMPARE(convert<QString>(Sample::Channel::Green), QString("green"));
        QCOMPARE(convert<Sample::Channel>("red"), Sample::Channel::Red);
    }

    void enumerationsAreNumbersToo()
    {
        QCOMPARE(convert<int>(Sample::Mode::Off), -1);
        QCOMPARE(convert<Sample::Mode>(2), Sample::Mode::Automatic);
        QCOMPARE(convert<Sample::Mode>("2"), Sample::Mode::Automatic);
        QCOMPARE(convert<Sample::Plain>(2), Sample::Second);
        QCOMPARE(convert<std::string>(Sample::Second), "2"s);
        QVERIFY(!convert<Sample::Channel>(256));
        QVERIFY(!convert<Sample::Channel>(-1));
    }

    void valuesBecomeQVariants()
    {
        QCOMPARE(convert<QVariant>(5), QVariant(5));
        QCOMPARE(convert<QVariant>(5)->userType(), int(QMetaType::Int));
        QCOMPARE(convert<QVariant>(std::uint8_t(5))->userType(), int(QMetaType::Int));
        QCOMPARE(convert<QVariant>(highest<unsigned>), QVariant(highest<unsigned>));
        QCOMPARE(convert<QVariant>(highest<std::uint64_t>), QVariant(highest<qulonglong>));
        QCOMPARE(convert<QVariant>(lowest<std::int64_t>), QVariant(lowest<qlonglong>));
        QCOMPARE(convert<QVariant>(0.5), QVariant(0.5));
        QCOMPARE(convert<QVariant>(0.5f), QVariant(0.5f));
        QCOMPARE(convert<QVariant>(true), QVariant(true));
        QCOMPARE(convert<QVariant>("größe"), QVariant(QString::fromUtf8("größe")));
        QCOMPARE(convert<QVariant>(Sample::Mode::Automatic), QVariant(2));
        QCOMPARE(convert<QVariant>(QPoint(1, 2)), QVariant(QPoint(1, 2)));
        QCOMPARE(convert<QVariant>(Sample::Metres{5})->value<Sample::Metres>(), (Sample::Metres{5}));
        QVERIFY(!convert<QVariant>(std::make_shared<int>(1)));
    }

    void qVariantsBecomeValues()
    {
        QCOMPARE(convert<int>(QVariant(5)), 5);
        QCOMPARE(convert<std::uint8_t>(QVariant(255.0)), std::uint8_t(255));
        QCOMPARE(convert<int>(QVariant("42")), 42);
        QCOMPARE(convert<std::string>(QVariant(QString::fromUtf8("größe"))), "größe"s);
        QCOMPARE(convert<std::string>(QVariant(QUrl("image://x"))), "image://x"s);
        QCOMPARE(convert<QString>(QVariant(QDate(2020, 1, 2))), QString("2020-01-02"));
        QCOMPARE(convert<Sample::Mode>(QVariant(2)), Sample::Mode::Automatic);
        QCOMPARE(convert<Sample::Mode>(QVariant("On")), Sample::Mode::On);
        QCOMPARE(convert<int>(QVariant::fromValue(Sample::Mode::Off)), -1);
        QCOMPARE(convert<QPoint>(QVariant(QPoint(1, 2))), QPoint(1, 2));
        QCOMPARE(convert<QColor>(QVariant("#ff0000")), QColor(255, 0, 0));
        QCOMPARE(convert<Sample::Metres>(QVariant::fromValue(Sample::Metres{5})), (Sample::Metres{5}));
    }

    void qVariantsThatDoNotFitFail()
    {
        QVERIFY(!convert<std::uint8_t>(QVariant(256)));
        QVERIFY(!convert<int>(QVariant(qlonglong(highest<int>) + 1)));
        QVERIFY(!convert<unsigned>(QVariant(-1)));
        QVERIFY(!convert<int>(QVariant("forty")));
        QVERIFY(!convert<int>(QVariant(QPoint())));
        QVERIFY(!convert<int>(QVariant()));
        QVERIFY(!convert<std::string>(QVariant()));
        QVERIFY(!convert<QColor>(QVariant("no colour")) ||
                !convert<QColor>(QVariant("no colour"))->isValid());
    }

    void aQVariantMayHoldAVariant()
    {
        const Variant inner = 5;

        QCOMPARE(convert<std::uint8_t>(QVariant::fromValue(inner)), std::uint8_t(5));
    }

    void displayTakesTheQVariantThatIsHeldPointedToOrMade()
    {
        QVariant pointed = 7;

        QCOMPARE(qelm::toQVariant(Variant(QVariant(5))), QVariant(5));
        QCOMPARE(qelm::toQVariant(Variant(&pointed)), QVariant(7));
        QCOMPARE(qelm::toQVariant(Variant(static_cast<const QVariant*>(&pointed))), QVariant(7));
        QCOMPARE(qelm::toQVariant(Variant("text")), QVariant("text"));
        QCOMPARE(qelm::toQVariant(Variant()), QVariant());
        QCOMPARE(qelm::toQVariant(Variant(std::make_shared<int>(1))), QVariant());
    }

    void pointersGainQualifiersAndNeverLoseThem()
    {
        int number = 5;
        const int* constant = &number;

        QCOMPARE(convert<const int*>(&number), constant);
        QVERIFY(!convert<int*>(constant));
        QCOMPARE(convert<void*>(&number), &number);
        QVERIFY(!convert<void*>(constant));
        QVERIFY(!convert<double*>(&number));
        QVERIFY(!convert<int>(&number));
    }

    void sharedPointersGivePlainOnesNotTheOtherWayRound()
    {
        const auto shared = std::make_shared<int>(5);

        QCOMPARE(convert<int*>(shared), shared.get());
        QCOMPARE(convert<std::shared_ptr<const int>>(shared)->get(), shared.get());
        QVERIFY(!convert<std::shared_ptr<int>>(shared.get()));
        QVERIFY(!convert<std::shared_ptr<int>>(std::shared_ptr<const int>(shared)));
    }

    void aSharedPointerThatIsConvertedKeepsItsObject()
    {
        auto shared = std::make_shared<Sample::Derived>();
        const Sample::Other* other = shared.get();

        const auto converted = convert<std::shared_ptr<const Sample::Other>>(shared);
        shared.reset();

        QCOMPARE(converted->get(), other);
        QCOMPARE((*converted)->other, 2);
        QCOMPARE(converted->use_count(), 1L);
    }

    void pointersClimbToDeclaredBases()
    {
        Sample::Leaf leaf;

        QCOMPARE(convert<Sample::Base*>(&leaf), static_cast<Sample::Base*>(&leaf));
        QCOMPARE(convert<const Sample::Other*>(&leaf), static_cast<const Sample::Other*>(&leaf));
        QCOMPARE(convert<Sample::Other*>(std::make_shared<Sample::Leaf>()).has_value(), true);
        QVERIFY(!convert<Sample::Leaf*>(static_cast<Sample::Base*>(&leaf)));
    }

    void aNullPointerStaysNull()
    {
        QCOMPARE(convert<Sample::Other*>(static_cast<Sample::Leaf*>(nullptr)), nullptr);
        QCOMPARE(convert<const int*>(static_cast<int*>(nullptr)), nullptr);
        QCOMPARE(convert<int*>(std::shared_ptr<int>()), nullptr);
    }

    void vectorsAreConvertedElementByElement()
    {
        QCOMPARE(convert<std::vector<double>>(std::vector<int>{1, 2}), (std::vector<double>{1, 2}));
        QCOMPARE(convert<std::vector<int>>(std::vector<std::string>{"1", "2"}), (std::vector<int>{1, 2}));
        QVERIFY(!convert<std::vector<std::uint8_t>>(std::vector<int>{1, 256}));
        QCOMPARE(convert<std::vector<int>>(std::vector<Variant>{Variant(1), Variant("2")}),
                 (std::vector<int>{1, 2}));
        QCOMPARE(convert<std::vector<Variant>>(std::vector<int>{1})->at(0).value<int>(), 1);
        QCOMPARE(convert<std::vector<bool>>(std::vector<int>{0, 5}), (std::vector<bool>{false, true}));
    }

    void vectorsBecomeListsAndBack()
    {
        QCOMPARE(convert<QVariant>(std::vector<int>{1, 2}), QVariant(QVariantList{1, 2}));
        QCOMPARE(convert<std::vector<int>>(QVariant(QVariantList{1, "2", 3.0})), (std::vector<int>{1, 2, 3}));
        QCOMPARE(convert<std::vector<std::string>>(QVariant(QStringList{"a", "b"})),
                 (std::vector<std::string>{"a", "b"}));
        QVERIFY(!convert<std::vector<int>>(QVariant(QVariantList{1, "two"})));
        QVERIFY(!convert<std::vector<int>>(QVariant("12")));
        QCOMPARE(
            convert<std::vector<std::vector<int>>>(QVariant(QVariantList{QVariantList{1}, QVariantList{}})),
            (std::vector<std::vector<int>>{{1}, {}}));
    }

    void aConversionIsAddedForTwoTypes()
    {
        QVERIFY(!convert<Sample::Metres>(1.5));
        VariantConverter::add<double, Sample::Metres>(
            [](double value) { return value < 0 ? std::nullopt : std::optional(Sample::Metres{value}); });

        QCOMPARE(convert<Sample::Metres>(1.5), (Sample::Metres{1.5}));
        QVERIFY(!convert<Sample::Metres>(-1.5));
    }
};

QTEST_GUILESS_MAIN(tst_VariantConverter)
#include "tst_variant_converter.moc"
