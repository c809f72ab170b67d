#pragma once

#include <datamodels/datamodels_export.h>

#include <QMetaType>
#include <QObject>
#include <QVariantList>
#include <QVector>

namespace qelm::datamodels::proxy {

/// Part of a text, in UTF-16 units.
class SearchRange
{
    Q_GADGET
    Q_PROPERTY(int start MEMBER start)
    Q_PROPERTY(int length MEMBER length)

public:
    bool operator==(const SearchRange&) const = default;

    int start = 0;
    int length = 0;
};

/// What the ready-made matchers write into "searchInfo": how well a row matches, and where.
///
/// QML reads it as `model.searchInfo.score` and `model.searchInfo.ranges[0].start`.
class DATAMODELS_API SearchMatch
{
    Q_GADGET
    Q_PROPERTY(int score MEMBER score)
    Q_PROPERTY(QVariantList ranges READ rangesForQml)

public:
    bool operator==(const SearchMatch&) const = default;

    QVariantList rangesForQml() const;

    int score = 0;               ///< 0 to 100, the higher the better; see `SearchMatcher`
    QVector<SearchRange> ranges; ///< in order, without touching one another
};

} // namespace qelm::datamodels::proxy

Q_DECLARE_METATYPE(qelm::datamodels::proxy::SearchRange)
Q_DECLARE_METATYPE(qelm::datamodels::proxy::SearchMatch)
