#pragma once

#include <datamodels/proxy/search_matcher.h>

#include <QPersistentModelIndex>
#include <QVariantList>

namespace editor {

/// Looks for words in the names of a file tree while they are typed. Results come as they are found, sorted by any
/// number of columns. Thread: GUI.
class FileSearch : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QAbstractItemModel* results READ results CONSTANT)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY stateChanged)
    Q_PROPERTY(int count READ count NOTIFY stateChanged)
    Q_PROPERTY(QVariantList order READ order NOTIFY orderChanged)
    Q_PROPERTY(int current READ current WRITE setCurrent NOTIFY currentChanged)

public:
    explicit FileSearch(QObject* parent = nullptr);

    /// The tree to search; it must be reset before it dies. Starts anew.
    void setSource(QAbstractItemModel* source);
    QAbstractItemModel* source() const { return m_results.sourceModel(); }

    QString text() const { return m_matcher.text(); }
    /// Starts at once, in place of the search before; without words there are no results.
    void setText(const QString& text);
    bool hasWords() const;

    qelm::datamodels::proxy::SearchProxyModel* results() { return &m_results; }
    bool isSearching() const { return m_results.isSeraching(); }
    int count() const { return m_results.getCount(); }

    /// Maps with "role" and "order", the first one deciding.
    const QVariantList& order() const { return m_order; }
    /// Sorts by a role alone, or turns its order round if it is in use; with `isAdding` after the others.
    Q_INVOKABLE void sortBy(const QString& role, bool isAdding);
    /// 0 for a role that is not sorted by, 1 for ascending, 2 for descending.
    Q_INVOKABLE int orderOf(const QString& role) const;

    /// The row of the result that was chosen, wherever it has moved meanwhile; -1 without one.
    int current() const { return m_current.row(); }
    void setCurrent(int row);
    /// The path on the disk of a result; empty out of range.
    QString pathOf(int row) const;
    /// To the next result, or the one before; past an end it goes on at the other.
    Q_INVOKABLE void step(int by);

Q_SIGNALS:
    void textChanged();
    void stateChanged();
    void orderChanged();
    void currentChanged();

private:
    void start();

    qelm::datamodels::proxy::SearchProxyModel m_results;
    qelm::datamodels::proxy::NaturalSearchMatcher m_matcher;
    QVariantList m_order;
    QPersistentModelIndex m_current;
};

} // namespace editor
