#include <datamodels/proxy/predicates/text_predicate.h>

#include <QVariant>

#include <algorithm>

namespace qelm::datamodels::proxy {

TextPredicate::TextPredicate(std::unordered_set<int> roles, QObject* parent)
    : BasePredicate(parent), m_roles(std::move(roles))
{
    connect(this, &TextPredicate::textChanged, this, &TextPredicate::onTextChanged);
    connect(this, &TextPredicate::rolesChanged, this, &TextPredicate::onRolesChanged);
}

TextPredicate::~TextPredicate() = default;

bool TextPredicate::evaluate(const QModelIndex& index) const
{
    if (m_matcher.text().isEmpty())
        return true;
    return std::any_of(m_roles.begin(), m_roles.end(),
                       [&](int role) { return m_matcher.matches(index.data(role)); });
}

void TextPredicate::setText(QString text)
{
    if (m_matcher.text() == text)
        return;
    m_matcher.setText(std::move(text));
    Q_EMIT textChanged();
}

void TextPredicate::setRoles(std::unordered_set<int> roles)
{
    if (m_roles == roles)
        return;
    m_roles = std::move(roles);
    Q_EMIT rolesChanged();
}

void TextPredicate::onTextChanged()
{
    Q_EMIT changed();
}

void TextPredicate::onRolesChanged()
{
    Q_EMIT changed();
}

} // namespace qelm::datamodels::proxy
