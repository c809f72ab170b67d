// Properties against Qt's, the growth of collections, and undo against what it undoes.
#include <support/comparison.h>

#include <host/reflection/reflection_wrapper.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <QMetaProperty>
#include <QObject>

#include <memory>
#include <vector>

using namespace bench;
using namespace zarn;

namespace {

constexpr int repeats = 1000000;
constexpr int edits = 100000;

/// Ten numbers as properties, of which the eighth is used.
template <class Base>
class Numbers : public Base
{
public:
    template <int N>
    int number() const
    {
        return m_numbers[N];
    }
    template <int N>
    void setNumber(int number)
    {
        m_numbers[N] = number;
    }

protected:
    int m_numbers[10] = {};
};

class QtNumbers : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int n0 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n1 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n2 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n3 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n4 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n5 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n6 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n7 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n8 READ n WRITE setN NOTIFY changed)
    Q_PROPERTY(int n9 READ n WRITE setN NOTIFY changed)

public:
    int n() const { return m_number; }
    void setN(int number)
    {
        if (m_number == number)
            return;
        m_number = number;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    int m_number = 0;
};

using OurNumbers = Numbers<Object>;
using Collection = ReflectionWrapper<std::vector<int>>;

const AutoregisterMetaObject<Collection> collectionClass("Collection", {});

} // namespace

template <>
struct zarn::Reflection<OurNumbers>
{
    static constexpr const char* name = "Numbers";
    template <int... N>
    static void declareAll(StaticMetaObject<OurNumbers>::Builder& numbers, std::integer_sequence<int, N...>)
    {
        (numbers.value("n" + std::to_string(N), &OurNumbers::number<N>, &OurNumbers::setNumber<N>), ...);
    }
    static void declare(StaticMetaObject<OurNumbers>::Builder& numbers)
    {
        declareAll(numbers, std::make_integer_sequence<int, 10>());
    }
};

namespace {

const ReflectAtLoad<OurNumbers> numbersClass;
long long heard = 0;

template <class Work>
Comparison::Timed repeated(Work work)
{
    return [work] {
        long long sum = 0;
        for (int i = 0; i < repeats; ++i)
            sum += work(i);
        keep(sum + heard);
    };
}

struct QtSubject
{
    QtSubject()
    {
        QObject::connect(&object, &QtNumbers::changed, &object, [] { ++heard; });
    }
    QtNumbers object;
    QMetaProperty property = object.metaObject()->property(object.metaObject()->indexOfProperty("n7"));
};

struct OurSubject
{
    OurNumbers object;
    ReflectedObject handle = reflect(object);
    BoundProperty property = handle.findPropertyByName("n7");
    ryk::ScopedConnection connection = property.connectPropertyChanged([] { ++heard; });
};

void compareProperties()
{
    Comparison("get, property cached")
        .add("QMetaProperty::read",
             [] {
                 auto on = std::make_shared<QtSubject>();
                 return repeated([on](int) { return on->property.read(&on->object).toInt(); });
             })
        .add("zarn::BoundProperty::get", [] {
            auto on = std::make_shared<OurSubject>();
            return repeated([on](int) { return *on->property.get().as<int>(); });
        });
    Comparison("get, by name")
        .add("QObject::property",
             [] {
                 auto on = std::make_shared<QtSubject>();
                 return repeated([on](int) { return on->object.property("n7").toInt(); });
             })
        .add("zarn::ReflectedObject::findPropertyByName", [] {
            auto on = std::make_shared<OurSubject>();
            return repeated([on](int) { return *on->handle.findPropertyByName("n7").get().as<int>(); });
        });
    Comparison("set, property cached, one listener")
        .add("QMetaProperty::write",
             [] {
                 auto on = std::make_shared<QtSubject>();
                 return repeated([on](int i) { return on->property.write(&on->object, i + 1); });
             })
        .add("zarn::BoundProperty::set", [] {
            auto on = std::make_shared<OurSubject>();
            return repeated([on](int i) { return on->property.set(i + 1, {}); });
        });
    Comparison("set, by name, one listener")
        .add("QObject::setProperty",
             [] {
                 auto on = std::make_shared<QtSubject>();
                 return repeated([on](int i) { return on->object.setProperty("n7", i + 1); });
             })
        .add("zarn::ReflectedObject::findPropertyByName", [] {
            auto on = std::make_shared<OurSubject>();
            return repeated([on](int i) { return on->handle.findPropertyByName("n7").set(i + 1, {}); });
        });
}

/// Appends with a listener, to as many collections as it takes until each has `size` elements.
std::function<Comparison::Timed()> appends(int size)
{
    return [size] {
        auto collections = std::make_shared<std::vector<std::unique_ptr<Collection>>>();
        auto connections = std::make_shared<std::vector<ryk::ScopedConnection>>();
        for (int i = 0; i < edits / size; ++i) {
            collections->push_back(std::make_unique<Collection>());
            connections->emplace_back(reflect(*collections->back()).connectPropertyAdded([] { ++heard; }));
        }
        return [collections, connections, size] {
            for (const auto& collection : *collections) {
                const ReflectedObject handle = reflect(*collection);
                for (int i = 0; i < size; ++i)
                    handle.addProperty({}, i);
            }
            keep(heard);
        };
    };
}

struct Document
{
    void edit()
    {
        const Ozy::CommitChangesScope scope("edit", &history);
        for (int i = 1; i <= edits; ++i)
            subject.property.set(i, {});
    }
    Ozy::ChangesController history;
    OurSubject subject;
};

void compareEdits()
{
    Comparison("append, 100000 in all, with a listener")
        .add("100 collections of 1000", appends(1000))
        .add("10 collections of 10000", appends(10000))
        .add("1 collection of 100000", appends(edits));
    Comparison("100000 recorded sets")
        .add("do",
             [] {
                 auto document = std::make_shared<Document>();
                 return [document] { document->edit(); };
             })
        .add("undo",
             [] {
                 auto document = std::make_shared<Document>();
                 document->edit();
                 return [document] { keep(document->history.undo()); };
             })
        .add("redo", [] {
            auto document = std::make_shared<Document>();
            document->edit();
            document->history.undo();
            return [document] { keep(document->history.redo()); };
        });
}

} // namespace

int main(int argc, char** argv)
{
    compareProperties();
    compareEdits();
    return runAll(argc, argv);
}

#include "reflection.moc"
