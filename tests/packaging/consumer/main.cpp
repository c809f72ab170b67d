#include <datamodels/host_service.h>
#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/text_predicate.h>
#include <datamodels/qml_registration.h>
#include <datamodels/simple_tree_model.h>
#include <host/base/debug.h>
#include <host/registry/static_registrar.h>

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>

#include <cstdio>
#include <memory>

using namespace qelm::datamodels::proxy;

namespace {

class IClock
{
};

class Fruit : public SimpleTreeModel::Node
{
public:
    Fruit(SimpleTreeModel& owner, const char* name) : Node(owner), m_name(name) {}
    QVariant data(int role) const override { return role == Qt::DisplayRole ? QVariant(m_name) : QVariant(); }

private:
    QString m_name;
};

const datamodels::LoadTimeQmlTypes types{datamodels::creatable<QObject>("Consumer", "Thing")};

bool expect(bool holds, const char* what)
{
    if (!holds)
        std::fprintf(stderr, "failed: %s\n", what);
    return holds;
}

bool aStackFilters()
{
    SimpleTreeModel model;
    model.root().addChild<Fruit>("apple");
    model.root().addChild<Fruit>("pear");
    auto* text = new TextPredicate;
    FilterProxyModel proxy(text);
    proxy.setSourceModel(&model);
    text->setText("PEA");
    return proxy.rowCount() == 1 && proxy.index(0, 0).data() == "pear";
}

bool aMissingServiceIsLogged()
{
    std::string logged;
    const auto before =
        Ozy::DebugMessageHelper::setSink([&logged](const auto& record) { logged = record.text; });
    const bool isNull = datamodels::hostService<IClock>() == nullptr;
    Ozy::DebugMessageHelper::setSink(before);
    return isNull && logged == "ASSERTION FAILED: ptr\r\n";
}

bool aTypeOfItsOwnReachesQml()
{
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import Consumer 1.0\nThing {}", QUrl());
    return std::unique_ptr<QObject>(component.create()) != nullptr;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    StaticRegistrar::RegistrarInternals::runDeferred();

    const bool allHold = expect(aStackFilters(), "a stack filters") &
                         expect(aMissingServiceIsLogged(), "a missing service is logged") &
                         expect(aTypeOfItsOwnReachesQml(), "a type of its own reaches QML");
    return allHold ? 0 : 1;
}
