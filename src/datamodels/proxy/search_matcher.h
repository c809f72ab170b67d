#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/proxy/search_match.h>
#include <datamodels/proxy/search_proxy_model.h>

#include <QObject>
#include <QString>

namespace qelm::datamodels::proxy {

/// Finds rows by the words of a text, in any order, and says in "searchInfo" how well and where
/// (`SearchMatch`).
///
/// A row is a result when each word occurs in the value of `role`, whatever the case; without words all are,
/// with score 0. The score is the mean over the words: 100 for the whole text, 75 for its beginning, 50 for
/// the beginning of a word in it, 25 for elsewhere, the best occurrence counting.
///
/// QML writes a matcher as an element and calls `search(model, root)`. A search goes on with the properties
/// that the matcher had when it started, also after its death. Thread: GUI.
class DATAMODELS_API SearchMatcher : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int role READ role WRITE setRole NOTIFY roleChanged)

public:
    const QString& text() const { return m_text; }
    void setText(const QString& text);
    int role() const { return m_role; }
    void setRole(int role);

    /// For `SearchProxyModel::search`.
    virtual SearchProxyModel::Predicate predicate() const = 0;

    /// Searches the whole tree below a source index. A null model: nothing.
    Q_INVOKABLE void search(qelm::datamodels::proxy::SearchProxyModel* model, const QModelIndex& root) const;

Q_SIGNALS:
    void textChanged();
    void roleChanged();

protected:
    using QObject::QObject;

private:
    QString m_text;
    int m_role = Qt::DisplayRole;
};

/// Words are found as they are written.
class DATAMODELS_API TextSearchMatcher : public SearchMatcher
{
    Q_OBJECT

public:
    explicit TextSearchMatcher(QObject* parent = nullptr) : SearchMatcher(parent) {}

    SearchProxyModel::Predicate predicate() const override;
};

/// Numbers in words go by their value, as in natural order: "tile7" finds "tile007", but not "tile70".
class DATAMODELS_API NaturalSearchMatcher : public SearchMatcher
{
    Q_OBJECT

public:
    explicit NaturalSearchMatcher(QObject* parent = nullptr) : SearchMatcher(parent) {}

    SearchProxyModel::Predicate predicate() const override;
};

} // namespace qelm::datamodels::proxy
