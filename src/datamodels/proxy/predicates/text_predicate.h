#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>
#include <datamodels/proxy/predicates/text_matcher.h>

#include <QString>

#include <unordered_set>

namespace qelm::datamodels::proxy {

/// Wants the rows of which one role's text (`QVariant::toString`) holds `text`, whatever the case.
///
/// An empty text wants every row; a text without roles wants none. A value without a text form never matches.
/// A change of the text sends `textChanged`, then `changed`; one of the roles `rolesChanged`, then `changed`.
/// Cost: the text is folded once, when it is set; `evaluate` allocates nothing for values that are strings.
class DATAMODELS_API TextPredicate : public BasePredicate
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

public:
    explicit TextPredicate(std::unordered_set<int> roles = {Qt::DisplayRole}, QObject* parent = nullptr);
    ~TextPredicate() override;

    bool evaluate(const QModelIndex& index) const override;

    QString text() const { return m_matcher.text(); }
    void setText(QString text);
    const std::unordered_set<int>& roles() const { return m_roles; }
    void setRoles(std::unordered_set<int> roles);

Q_SIGNALS:
    void textChanged();
    void rolesChanged();

protected Q_SLOTS:
    virtual void onTextChanged();
    virtual void onRolesChanged();

private:
    TextMatcher m_matcher;
    std::unordered_set<int> m_roles;
};

} // namespace qelm::datamodels::proxy
