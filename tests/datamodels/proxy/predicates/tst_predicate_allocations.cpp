#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/proxy/predicates/hierarchy_predicate.h>
#include <datamodels/proxy/predicates/invert_predicate.h>
#include <datamodels/proxy/predicates/text_predicate.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <QStandardItemModel>
#include <QtTest>

using namespace qelm::datamodels::proxy;

namespace {

thread_local int allocations = 0;

} // namespace

// Qt's strings come from malloc and not from new, so that is what is counted; `new` calls it as well.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" Q_DECL_EXPORT void __sanitizer_malloc_hook(const volatile void*, std::size_t)
{
    ++allocations;
}
#else
extern "C" void* __libc_malloc(std::size_t size);
extern "C" Q_DECL_EXPORT void* malloc(std::size_t size) noexcept
{
    ++allocations;
    return __libc_malloc(size);
}
#endif

/// A program of its own, since it counts what the whole of it allocates.
class tst_PredicateAllocations : public QObject
{
    Q_OBJECT

    QStandardItemModel m_model;
    QModelIndex m_leaf;

private Q_SLOTS:
    void initTestCase()
    {
        auto* leaf = new QStandardItem("Old_TREE_07");
        auto* branch = new QStandardItem("trees of the old wood");
        branch->appendRow(leaf);
        m_model.appendRow(branch);
        m_leaf = leaf->index();
    }

    void theCountSeesATextThatIsMade()
    {
        const int before = allocations;

        const QString text(100, 'x');

        QCOMPARE(allocations - before, 1);
        QCOMPARE(text.size(), 100);
    }

    void askingForATextAllocatesNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isWanted");
        QTest::newRow("found") << "tree" << true;
        QTest::newRow("not found") << "moss" << false;
        QTest::newRow("beyond ASCII") << QString::fromUtf8("größe") << false;
    }
    void askingForATextAllocatesNothing()
    {
        QFETCH(QString, text);
        QFETCH(bool, isWanted);
        TextPredicate predicate({Qt::DisplayRole, Qt::EditRole});
        predicate.setText(text);
        const int before = allocations;

        const bool answer = predicate(m_leaf);

        QCOMPARE(allocations - before, 0);
        QCOMPARE(answer, isWanted);
    }

    void askingATreeOfPredicatesAllocatesNothing()
    {
        auto* tokens = new TokensPredicate;
        tokens->setText("old tree");
        auto* moss = new TextPredicate;
        moss->setText("moss");
        const AndPredicate all({new HierarchyPredicate(tokens), new InvertPredicate(moss)});
        const int before = allocations;

        const bool answer = all(m_leaf);

        QCOMPARE(allocations - before, 0);
        QVERIFY(answer);
    }
};

QTEST_GUILESS_MAIN(tst_PredicateAllocations)
#include "tst_predicate_allocations.moc"
