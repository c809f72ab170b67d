#include <host/variant/binary_stream.h>
#include <host/variant/text_stream.h>
#include <host/variant/variant.h>

#include <QColor>
#include <QPoint>
#include <QtTest>

#include <cmath>
#include <cstdint>
#include <limits>

using qelm::BinaryStream;
using qelm::TextStream;
using qelm::Variant;
using namespace std::string_literals;

namespace Sample {

enum class Mode : short
{
    Off = -1,
    On = 1
};

struct Point
{
    int x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

} // namespace Sample

template <>
struct qelm::StreamTraits<Sample::Point>
{
    static void write(BasicStream& stream, const Sample::Point& point)
    {
        stream.writeSigned(point.x);
        stream.writeReal(point.y);
    }
    static bool read(BasicStream& stream, Sample::Point& point)
    {
        return StreamTraits<int>::read(stream, point.x) && stream.readReal(point.y);
    }
};

namespace {

const qelm::LoadTimeMetaTypes<Sample::Mode, Sample::Point, std::vector<Sample::Point>,
                              std::vector<std::vector<std::string>>>
    sampleTypes;

Variant throughBytes(const Variant& value)
{
    BinaryStream out;
    out.write(value);
    BinaryStream in(out.bytes());
    Variant read = "nothing read";
    in.read(read);
    return in.atEnd() ? read : Variant("something left");
}

Variant throughText(const Variant& value)
{
    TextStream out;
    out.write(value);
    TextStream in(out.text());
    Variant read = "nothing read";
    in.read(read);
    return in.atEnd() ? read : Variant("something left");
}

QString textOf(const Variant& value)
{
    TextStream out;
    out.write(value);
    return QString::fromStdString(out.text());
}

QString errorOfText(const std::string& text)
{
    TextStream in(text);
    Variant read;
    in.read(read);
    return QString::fromStdString(in.error());
}

/// The error of the first cut of a written value that reads as if nothing were missing; empty if all cuts are
/// noticed.
QString firstUnnoticedCut(const std::string& bytes)
{
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        BinaryStream in(bytes.substr(0, length));
        Variant read = 5;
        if (in.read(read) || in.ok() || !(read == Variant(5)))
            return QString("cut at %1").arg(length);
    }
    return {};
}

/// The names of streamable types whose default value does not come back from both streams.
QStringList typesThatDoNotReturn()
{
    QStringList names;
    for (const qelm::MetaType* type : qelm::MetaType::all()) {
        if (!type->isStreamable())
            continue;
        const Variant value = Variant::makeDefault(*type);
        if (!(throughBytes(value) == value) || !(throughText(value) == value))
            names << type->name();
    }
    return names;
}

} // namespace

class tst_VariantStreams : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyStreamableTypeComesBack()
    {
        QVERIFY(qelm::MetaType::all().size() > 30);
        QCOMPARE(typesThatDoNotReturn(), QStringList());
    }

    void aValueComesBack_data()
    {
        QTest::addColumn<Variant>("value");

        QTest::newRow("void") << Variant();
        QTest::newRow("bool") << Variant(true);
        QTest::newRow("lowest 8 bits") << Variant(std::int8_t(-128));
        QTest::newRow("highest 8 bits") << Variant(std::uint8_t(255));
        QTest::newRow("lowest 64 bits") << Variant(std::numeric_limits<std::int64_t>::min());
        QTest::newRow("highest 64 bits") << Variant(std::numeric_limits<std::uint64_t>::max());
        QTest::newRow("float") << Variant(0.1f);
        QTest::newRow("double") << Variant(0.1);
        QTest::newRow("smallest double") << Variant(std::numeric_limits<double>::denorm_min());
        QTest::newRow("infinity") << Variant(-std::numeric_limits<double>::infinity());
        QTest::newRow("empty text") << Variant("");
        QTest::newRow("text") << Variant("line\nquote\" back\\slash [brackets] größe");
        QTest::newRow("text with a zero") << Variant("a\0b\r"s);
        QTest::newRow("Qt text") << Variant(QString::fromUtf8("größe"));
        QTest::newRow("enumeration") << Variant(Sample::Mode::Off);
        QTest::newRow("vector") << Variant(std::vector<int>{1, -2, 3});
        QTest::newRow("vector of bool") << Variant(std::vector<bool>{true, false});
        QTest::newRow("vector of texts") << Variant(std::vector<std::string>{"a b", "", "]"});
        QTest::newRow("vector of vectors")
            << Variant(std::vector<std::vector<std::string>>{{"a"}, {}, {"b", "c"}});
        QTest::newRow("vector of variants")
            << Variant(std::vector<Variant>{Variant(1), Variant("two"), Variant()});
        QTest::newRow("struct") << Variant(Sample::Point{1, 2.5});
        QTest::newRow("vector of structs") << Variant(std::vector<Sample::Point>{{1, 2.5}, {3, 4}});
        QTest::newRow("QVariant") << Variant(QVariant(5));
        QTest::newRow("QVariant of text") << Variant(QVariant(QString::fromUtf8("größe")));
        QTest::newRow("QVariant of a list") << Variant(QVariant(QVariantList{1, "two", QPoint(3, 4)}));
        QTest::newRow("invalid QVariant") << Variant(QVariant());
    }

    void aValueComesBack()
    {
        QFETCH(Variant, value);

        QVERIFY(throughBytes(value) == value);
        QVERIFY(throughText(value) == value);
    }

    void notANumberComesBack()
    {
        QVERIFY(std::isnan(throughBytes(std::nan("")).value<double>()));
        QVERIFY(std::isnan(throughText(std::nan("")).value<double>()));
    }

    void textIsReadable()
    {
        QCOMPARE(textOf(5), QString("int: 5\n"));
        QCOMPARE(textOf("a \"b\"\n"), QString("std::string: \"a \\\"b\\\"\\n\"\n"));
        QCOMPARE(textOf(std::vector<double>{2, 0.5}), QString("std::vector<double>: [2 2 0.5]\n"));
        QCOMPARE(textOf(Variant()), QString("void:\n"));
        QCOMPARE(textOf(Sample::Point{1, 2.5}), QString("Sample::Point: 1 2.5\n"));
    }

    void textMayBeWrittenByHand()
    {
        TextStream in("  int:   7 \n\n std::vector<int>:\n [ 2\t1\n2 ]  ");
        Variant first;
        Variant second;

        QVERIFY(in.read(first));
        QVERIFY(in.read(second));

        QCOMPARE(first.value<int>(), 7);
        QCOMPARE(second.value<std::vector<int>>(), (std::vector<int>{1, 2}));
        QVERIFY(in.atEnd());
    }

    void aStreamHoldsManyValues()
    {
        BinaryStream out;
        out.write(1);
        out.write("two");
        BinaryStream in(out.bytes());
        Variant first;
        Variant second;
        Variant third;

        QVERIFY(in.read(first));
        QVERIFY(in.read(second));
        QVERIFY(!in.read(third));

        QCOMPARE(first.value<int>(), 1);
        QCOMPARE(second.value<std::string>(), "two"s);
        QVERIFY(third.isVoid());
    }

    void bytesAreTheSameOnEveryMachine()
    {
        BinaryStream out;
        out.write(short(-2));

        QCOMPARE(QByteArray::fromStdString(out.bytes()), QByteArray("qelmvar1"
                                                                    "\x05\0\0\0\0\0\0\0"
                                                                    "short"
                                                                    "\xfe\xff\xff\xff\xff\xff\xff\xff",
                                                                    29));
    }

    void whatHasNoStreamFormIsRefused()
    {
        int number = 5;
        BinaryStream pointer;
        BinaryStream nested;
        BinaryStream unknownToQt;

        QVERIFY(!pointer.write(&number));
        QVERIFY(!nested.write(std::vector<Variant>{Variant(1), Variant(&number)}));
        QVERIFY(!unknownToQt.write(QVariant::fromValue(static_cast<QObject*>(nullptr))));

        QCOMPARE(pointer.error(), "values of \"int*\" cannot be written"s);
        QCOMPARE(nested.error(), "values of \"int*\" cannot be written"s);
        QCOMPARE(unknownToQt.error(), "values of \"QObject*\" cannot be written by Qt"s);
    }

    void theFirstFailureStays()
    {
        int number = 5;
        TextStream out;
        out.write(&number);

        QVERIFY(!out.write(7));

        QCOMPARE(out.error(), "values of \"int*\" cannot be written"s);
    }

    void everyCutIsNoticed()
    {
        BinaryStream out;
        out.write(std::vector<Variant>{Variant(1), Variant("text"), Variant(std::vector<bool>{true})});

        QCOMPARE(firstUnnoticedCut(out.bytes()), QString());
    }

    void damagedTextIsRefusedWithItsFault_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("error");

        QTest::newRow("nothing") << QByteArray("") << "the name of a type is missing";
        QTest::newRow("no name") << QByteArray("5") << "the name of a type is missing";
        QTest::newRow("unknown type")
            << QByteArray("Nothing: 5") << "there is no type \"Nothing\" to be read";
        QTest::newRow("pointer") << QByteArray("void*: 5") << "there is no type \"void*\" to be read";
        QTest::newRow("no number") << QByteArray("int: five") << "'five' is no number, or out of range";
        QTest::newRow("too large") << QByteArray("short: 40000")
                                   << "a number is out of the range of its type";
        QTest::newRow("far too large") << QByteArray("int: 99999999999999999999")
                                       << "'99999999999999999999' is no number, or out of range";
        QTest::newRow("no bool") << QByteArray("bool: 1") << "'1' is neither true nor false";
        QTest::newRow("open text") << QByteArray("std::string: \"abc") << "a '\"' is missing";
        QTest::newRow("open sequence") << QByteArray("std::vector<int>: [2 1 2") << "a ']' is missing";
        QTest::newRow("long sequence")
            << QByteArray("std::vector<int>: [999999999 1]") << "a sequence is longer than the text";
        QTest::newRow("short sequence") << QByteArray("std::vector<int>: [1 1 2]") << "a ']' is missing";
        QTest::newRow("unknown to Qt")
            << QByteArray("QVariant: \"Nothing\" \"\"") << "Qt knows no type \"Nothing\"";
        QTest::newRow("short for Qt")
            << QByteArray("QVariant: \"int\" \"AA==\"") << "a value of \"int\" cannot be read by Qt";
    }

    void damagedTextIsRefusedWithItsFault()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, error);

        QCOMPARE(errorOfText(text.toStdString()), error);
    }

    void foreignBytesAreRefused()
    {
        BinaryStream in("something else altogether");
        Variant read;

        QVERIFY(!in.read(read));

        QCOMPARE(in.error(), "these are no variants, or of another version"s);
    }

    void aLengthThatLiesTakesNoMemory()
    {
        BinaryStream out;
        out.write("text");
        std::string bytes = out.bytes();
        bytes.replace(bytes.size() - 12, 8, std::string(8, '\x7f'));
        BinaryStream in(bytes);
        Variant read;

        QVERIFY(!in.read(read));

        QCOMPARE(in.error(), "a text is longer than the bytes"s);
    }

    void nestingEndsSomewhere()
    {
        std::string text;
        for (int i = 0; i < 100000; ++i)
            text += "std::vector<qelm::Variant>: [1 ";

        QCOMPARE(errorOfText(text), QString("variants are nested too deeply"));
    }
};

Q_DECLARE_METATYPE(Sample::Point)

QTEST_GUILESS_MAIN(tst_VariantStreams)
#include "tst_variant_streams.moc"
