#include <support/index_keeper.h>

#include <support/paths.h>

IndexKeeper::IndexKeeper(const QAbstractItemModel& model, int role) : m_model(model), m_role(role)
{
    keepAll();
}

void IndexKeeper::keepAll()
{
    m_kept.clear();
    keepBelow({});
}

void IndexKeeper::keepBelow(const QModelIndex& parent)
{
    const int columns = m_model.columnCount(parent);
    for (int row = 0; row < m_model.rowCount(parent); ++row) {
        for (int column = 0; column < columns; ++column) {
            const QModelIndex index = m_model.index(row, column, parent);
            m_kept.push_back({index, m_model.data(index, m_role)});
        }
        keepBelow(m_model.index(row, 0, parent));
    }
}

QStringList IndexKeeper::strayed() const
{
    QStringList texts;
    for (const Kept& kept : m_kept) {
        if (!kept.index.isValid())
            continue;
        const QVariant shown = m_model.data(kept.index, m_role);
        if (shown != kept.datum)
            texts.append(QStringLiteral("%1 shows %2, not %3")
                             .arg(pathOf(kept.index), shown.toString(), kept.datum.toString()));
    }
    return texts;
}

QStringList IndexKeeper::lost() const
{
    QStringList texts;
    for (const Kept& kept : m_kept) {
        if (!kept.index.isValid())
            texts.append(kept.datum.toString());
    }
    return texts;
}
