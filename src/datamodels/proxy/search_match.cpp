#include <datamodels/proxy/search_match.h>

namespace qelm::datamodels::proxy {

QVariantList SearchMatch::rangesForQml() const
{
    QVariantList list;
    for (const SearchRange& range : ranges)
        list.append(QVariant::fromValue(range));
    return list;
}

} // namespace qelm::datamodels::proxy
