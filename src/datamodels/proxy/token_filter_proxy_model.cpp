#include <datamodels/proxy/token_filter_proxy_model.h>

#include <datamodels/proxy/predicates/text_matcher.h>
#include <host/base/stack_tracker.h>

#include <algorithm>

namespace qelm::datamodels::proxy {

TokenFilterProxyModel::TokenFilterProxyModel()
{
    const Ozy::StackTracker::Scope entry("qelm::datamodels::proxy::TokenFilterProxyModel::TokenFilterProxyModel");
    setFilterPredicate([this](const QVariant& value) { return filterByTokens(value); });
}

TokenFilterProxyModel::~TokenFilterProxyModel() = default;

void TokenFilterProxyModel::setFilterTokens(const QString& tokens)
{
    const Ozy::StackTracker::Scope entry("qelm::datamodels::proxy::TokenFilterProxyModel::setFilterTokens");
    const QString trimmed = tokens.trimmed();
    if (trimmed == m_filterTokens)
        return;

    Q_EMIT filterTokensAboutToBeChanged();
    m_filterTokens = trimmed;
    m_tokens.clear();
    for (const QString& token : trimmed.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        m_tokens.emplace_back().setText(token);
    invalidateFilter();
    Q_EMIT filterTokensChanged();
}

bool TokenFilterProxyModel::filterByTokens(const QVariant& value) const
{
    const Ozy::StackTracker::Scope entry("qelm::datamodels::proxy::TokenFilterProxyModel::filterByTokens");
    const QString text = m_tokens.empty() ? QString() : value.toString();
    return std::all_of(m_tokens.begin(), m_tokens.end(),
                       [&text](const TextMatcher& token) { return token.matches(text); });
}

} // namespace qelm::datamodels::proxy
