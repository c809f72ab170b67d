#pragma once

#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/switch_predicate.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <QStringList>

namespace editor {

/// The project's tree as its filter controls leave it, sorted with the folders first.
///
/// The predicates are handed to QML as they are. Composed, they read: what matches the text and the words (or, with
/// `withAncestors`, has an ancestor that does; or, when `isInverted`, does not), and is of the chosen kind. A row
/// with a descendant that passes stays, as in every `FilterProxyModel`.
/// `activeChanged` precedes the filtering that it is about. Thread: GUI.
class ProjectFilter : public qelm::datamodels::proxy::FilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* text READ text CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* words READ words CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::SwitchPredicate* kind READ kind CONSTANT)
    Q_PROPERTY(int wordsType READ wordsType WRITE setWordsType NOTIFY wordsTypeChanged)
    Q_PROPERTY(bool withAncestors READ withAncestors WRITE setWithAncestors NOTIFY withAncestorsChanged)
    Q_PROPERTY(bool isInverted READ isInverted WRITE setInverted NOTIFY invertedChanged)
    Q_PROPERTY(bool isActive READ isActive NOTIFY activeChanged)
    Q_PROPERTY(QStringList needles READ needles NOTIFY needlesChanged)
    Q_PROPERTY(QString sortedBy READ sortedBy NOTIFY sortingChanged)
    Q_PROPERTY(bool isDescending READ isDescending NOTIFY sortingChanged)

public:
    explicit ProjectFilter(QObject* parent = nullptr);

    qelm::datamodels::proxy::TextPredicate* text() const { return m_text; }
    qelm::datamodels::proxy::TextPredicate* words() const { return m_words; }
    /// One predicate for each of `fileKinds()`; -1 for all kinds.
    qelm::datamodels::proxy::SwitchPredicate* kind() const { return m_kind; }
    /// 0: a row needs all the words, 1: any of them.
    int wordsType() const { return static_cast<int>(m_words->type()); }
    void setWordsType(int type);
    bool withAncestors() const { return m_withAncestors; }
    void setWithAncestors(bool withAncestors);
    bool isInverted() const { return m_isInverted; }
    void setInverted(bool inverted);

    /// Whether a control restricts the rows.
    bool isActive() const { return m_isActive; }
    /// What to mark in the names: nothing while the filter shows what does not match.
    QStringList needles() const;

    /// Name of the role that the rows are sorted by.
    QString sortedBy() const { return QString::fromLatin1(roleNames().value(sortRole())); }
    bool isDescending() const { return QSortFilterProxyModel::sortOrder() == Qt::DescendingOrder; }
    /// Sorts by a role, or turns the order round if it is that role already. An unknown name changes nothing.
    Q_INVOKABLE void sortOrTurn(const QString& roleName);

    /// Everything as it was at the start, but for the sorting.
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void wordsTypeChanged();
    void withAncestorsChanged();
    void invertedChanged();
    void activeChanged();
    void needlesChanged();

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    void compose();
    void follow();

    qelm::datamodels::proxy::TextPredicate* m_text;
    qelm::datamodels::proxy::TokensPredicate* m_words;
    qelm::datamodels::proxy::SwitchPredicate* m_kind;
    qelm::datamodels::proxy::BasePredicate* m_match; // text and words
    bool m_withAncestors = false;
    bool m_isInverted = false;
    bool m_isActive = false;
};

} // namespace editor
