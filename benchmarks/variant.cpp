// Variants against QVariant and std::any: copies, comparison, and conversion between numbers and texts.
#include <support/comparison.h>

#include <host/variant/variant_converter.h>

#include <QString>
#include <QVariant>

#include <any>
#include <array>
#include <memory>
#include <string>
#include <vector>

using namespace bench;
using qelm::Variant;
using qelm::VariantConverter;

namespace {

struct Record
{
    std::array<double, 8> numbers{};
    bool operator==(const Record&) const = default;
};

constexpr int repeats = 1000000;
const std::string text = "content/Tree_00042/turret_AM.png";

} // namespace

Q_DECLARE_METATYPE(Record)

namespace {

/// Copies of a thousand values at once, which are then destroyed.
template <class Holder>
auto copies(Holder value)
{
    return [value] {
        auto values = std::make_shared<std::vector<Holder>>(1000, value);
        return [values] {
            for (int i = 0; i < repeats / 1000; ++i) {
                const std::vector<Holder> copy = *values;
                keep(static_cast<long long>(copy.size()));
            }
        };
    };
}

template <class Work>
auto repeated(Work work)
{
    return [work] {
        long long sum = 0;
        for (int i = 0; i < repeats; ++i)
            sum += work(i);
        keep(sum);
    };
}

template <class Value>
auto equality(Value value)
{
    return [value] {
        auto first = std::make_shared<Value>(value);
        auto second = std::make_shared<Value>(value);
        return repeated([first, second](int) { return *first == *second; });
    };
}

void compareCopies()
{
    const QVariant record = QVariant::fromValue(Record());
    Comparison("copy an int")
        .add("QVariant", copies(QVariant(5)))
        .add("std::any", copies(std::any(5)))
        .add("qelm::Variant", copies(Variant(5)));
    Comparison("copy a text of 32 characters, against QVariant")
        .add("QVariant of QString", copies(QVariant(QString::fromStdString(text))))
        .add("qelm::Variant of std::string", copies(Variant(text)))
        .add("qelm::Variant of QString", copies(Variant(QString::fromStdString(text))));
    Comparison("copy a text of 32 characters, against std::any")
        .add("std::any of std::string", copies(std::any(text)))
        .add("qelm::Variant of std::string", copies(Variant(text)));
    Comparison("copy a struct of 64 bytes")
        .add("QVariant", copies(record))
        .add("std::any", copies(std::any(Record())))
        .add("qelm::Variant", copies(Variant(Record())));
}

void compareConversions()
{
    Comparison("text to int")
        .addPlain("QVariant(QString)::toInt",
                  repeated([value = QVariant("12345")](int) { return value.toInt(); }))
        .addPlain("VariantConverter, std::string", repeated([value = Variant("12345")](int) {
                      return *VariantConverter::convertTo<int>(value);
                  }))
        .addPlain("VariantConverter, QString", repeated([value = Variant(QString("12345"))](int) {
                      return *VariantConverter::convertTo<int>(value);
                  }));
    Comparison("int to text")
        .addPlain("QVariant(int)::toString", repeated([](int i) { return QVariant(i).toString().size(); }))
        .addPlain("VariantConverter, std::string", repeated([](int i) {
                      return VariantConverter::convertTo<std::string>(Variant(i))->size();
                  }));
    Comparison("int to double")
        .addPlain("QVariant::convert", repeated([](int i) {
                      QVariant value(i);
                      value.convert(QMetaType::Double);
                      return value.toInt();
                  }))
        .addPlain("VariantConverter",
                  repeated([](int i) { return *VariantConverter::convertTo<double>(Variant(i)) > 5; }));
    Comparison("compare texts of 32 characters")
        .add("QVariant",
             [] {
                 auto first = std::make_shared<QVariant>(QString::fromStdString(text));
                 auto second = std::make_shared<QVariant>(QString::fromStdString(text));
                 return repeated([first, second](int) { return *first == *second; });
             })
        .add("qelm::Variant", [] {
            auto first = std::make_shared<Variant>(text);
            auto second = std::make_shared<Variant>(text);
            return repeated([first, second](int) { return *first == *second; });
        });
    Comparison("compare ints")
        .add("QVariant", equality(QVariant(5)))
        .add("qelm::Variant", equality(Variant(5)));
}

} // namespace

int main(int argc, char** argv)
{
    compareCopies();
    compareConversions();

    return runAll(argc, argv);
}
