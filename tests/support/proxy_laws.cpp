#include <support/proxy_laws.h>

#include <support/paths.h>

#include <QAbstractProxyModel>

namespace {

/// One walk through a proxy, and one through its source.
class Inspection
{
public:
    explicit Inspection(const QAbstractProxyModel& proxy) : m_proxy(proxy), m_source(*proxy.sourceModel()) {}

    QStringList run()
    {
        expect(!m_proxy.mapToSource({}).isValid(), "the root maps to a source row", {});
        expect(!m_proxy.mapFromSource({}).isValid(), "the source's root maps to a row", {});
        inspectRowsBelow({}, 0);
        inspectSourceBelow({});
        return m_violations;
    }

private:
    void expect(bool kept, const char* violation, const QModelIndex& index)
    {
        if (!kept)
            m_violations.append(QStringLiteral("%1: %2").arg(pathOf(index), QLatin1String(violation)));
    }

    void inspectRowsBelow(const QModelIndex& parent, int depth)
    {
        // A proxy that is its own child would be inspected for ever.
        constexpr int deepest = 256;
        if (depth > deepest)
            return expect(false, "the tree does not end", parent);

        const int rows = m_proxy.rowCount(parent);
        const int columns = m_proxy.columnCount(parent);
        expect(rows >= 0 && columns >= 0, "a count is negative", parent);
        expect(m_proxy.hasChildren(parent) == (rows > 0 && columns > 0),
               "hasChildren is not what the counts say", parent);
        expect(!m_proxy.index(rows, 0, parent).isValid(), "there is an index behind the last row", parent);
        expect(!m_proxy.index(0, columns, parent).isValid(), "there is an index behind the last column",
               parent);
        expect(!m_proxy.index(-1, 0, parent).isValid(), "there is an index in front of the first row",
               parent);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column)
                inspectIndex(parent, row, column);
            const QModelIndex child = m_proxy.index(row, 0, parent);
            if (child.isValid())
                inspectRowsBelow(child, depth + 1);
        }
    }

    void inspectIndex(const QModelIndex& parent, int row, int column)
    {
        const QModelIndex index = m_proxy.index(row, column, parent);
        if (!index.isValid()) {
            m_violations.append(QStringLiteral("%1: there is no index at row %2, column %3")
                                    .arg(pathOf(parent))
                                    .arg(row)
                                    .arg(column));
            return;
        }
        expect(index.model() == &m_proxy, "an index belongs to another model", index);
        expect(index.row() == row && index.column() == column, "an index is in another place", index);
        expect(m_proxy.parent(index) == parent, "a child has another parent", index);

        const QModelIndex source = m_proxy.mapToSource(index);
        expect(source.isValid(), "a row maps to nothing in the source", index);
        expect(!source.isValid() || source.model() == &m_source,
               "a row maps to another model than the source", index);
        expect(m_proxy.mapFromSource(source) == index, "the way to the source and back leads elsewhere",
               index);
    }

    void inspectSourceBelow(const QModelIndex& parent)
    {
        for (int row = 0; row < m_source.rowCount(parent); ++row) {
            for (int column = 0; column < m_source.columnCount(parent); ++column) {
                const QModelIndex source = m_source.index(row, column, parent);
                const QModelIndex shown = m_proxy.mapFromSource(source);
                expect(!shown.isValid() || m_proxy.mapToSource(shown) == source,
                       "the way from this source row and back leads elsewhere", source);
            }
            const QModelIndex child = m_source.index(row, 0, parent);
            if (child.isValid())
                inspectSourceBelow(child);
        }
    }

    const QAbstractProxyModel& m_proxy;
    const QAbstractItemModel& m_source;
    QStringList m_violations;
};

} // namespace

QStringList checkProxyLaws(const QAbstractProxyModel& proxy)
{
    if (!proxy.sourceModel())
        return {QStringLiteral("/: there is no source")};
    return Inspection(proxy).run();
}
