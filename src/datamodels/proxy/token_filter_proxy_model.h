#pragma once

#include <datamodels/proxy/base_filter_proxy_model.h>

#include <QString>

#include <vector>

namespace qelm::datamodels::proxy {

class TextMatcher;

/// Filters by a text of words parted by single spaces: a row stays if one of its values, of `filterRole()` or of an extra
/// filter role, holds them all, whatever the case. Without words every row stays.
///
/// A change of the words sends `filterTokensAboutToBeChanged` with the old filter in force, filters, and sends
/// `filterTokensChanged`. Spaces at the ends do not count as a change. Thread: GUI only.
class DATAMODELS_API TokenFilterProxyModel : public BaseFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(QString filterTokens READ filterTokens WRITE setFilterTokens NOTIFY filterTokensChanged FINAL)

public:
    TokenFilterProxyModel();
    ~TokenFilterProxyModel() override;

    QString filterTokens() const { return m_filterTokens; }
    void setFilterTokens(const QString& tokens);

Q_SIGNALS:
    void filterTokensAboutToBeChanged();
    void filterTokensChanged();

protected:
    bool filterByTokens(const QVariant& value) const;

private:
    QString m_filterTokens;
    std::vector<TextMatcher> m_tokens;
};

} // namespace qelm::datamodels::proxy
