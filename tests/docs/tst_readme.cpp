#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>
#include <datamodels/simple_tree_model.h>

#include <support/tree_lines.h>

#include <QFile>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

namespace {

class Asset : public SimpleTreeModel::Node
{
public:
    Asset(SimpleTreeModel& owner, QString name) : Node(owner), m_name(std::move(name)) {}
    QVariant data(int role) const override { return role == Qt::DisplayRole ? QVariant(m_name) : QVariant(); }

private:
    QString m_name;
};

} // namespace

class tst_Readme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theExamplesOfTheReadmeWork()
    {
#include "readme_example.inc"
        QCOMPARE(treeLines(filter), (QStringList{"textures", "  oak_bark.png"}));

        QFile file(README_QML);
        QVERIFY(file.open(QFile::ReadOnly));
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("filter", &filter);
        engine.rootContext()->setContextProperty("words", words);
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15\nimport QtQuick.Controls 2.15\n" + file.readAll(), QUrl("qrc:/readme.qml"));
        const std::unique_ptr<QObject> view(component.create());
        QVERIFY2(view, qPrintable(component.errorString()));

        QObject* field = view->findChild<QObject*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(field);
        field->setProperty("text", "granite");

        QCOMPARE(words->text(), QString("granite"));
        QCOMPARE(treeLines(filter), (QStringList{"textures", "  granite.png"}));
    }
};

QTEST_MAIN(tst_Readme)
#include "tst_readme.moc"
