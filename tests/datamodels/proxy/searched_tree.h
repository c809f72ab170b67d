#pragma once

#include <datamodels/proxy/search_proxy_model.h>

#include <support/scripted_tree.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <memory>

/// A tree and the results of searches through it, under the tester.
class SearchedTree
{
public:
    using SearchProxyModel = qelm::datamodels::proxy::SearchProxyModel;

    explicit SearchedTree(const QStringList& lines = {"oak", "  leaf", "  acorn", "elm", "  leaf 2"})
        : source(new ScriptedTree(lines))
    {
        proxy.setSourceModel(source.get());
        tester = std::make_unique<QAbstractItemModelTester>(
            &proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    /// Starts a search through the whole tree.
    void start(const SearchProxyModel::Predicate& predicate = {}, const QModelIndex& root = {})
    {
        ended = false;
        proxy.search(root, predicate, true, [this] { ended = true; });
    }
    void finish()
    {
        while (!ended)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void searchAll(const SearchProxyModel::Predicate& predicate = {}, const QModelIndex& root = {})
    {
        start(predicate, root);
        finish();
    }

    QStringList texts() const { return treeLines(proxy); }

    std::unique_ptr<ScriptedTree> source;
    SearchProxyModel proxy;
    std::unique_ptr<QAbstractItemModelTester> tester;
    bool ended = false;
};
