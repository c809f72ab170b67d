#pragma once

#include <host/base/host_export.h>
#include <host/base/strings.h>
#include <host/reflection/meta.h>

namespace zarn {

/// Shows the values of several objects as one text.
class DATAMODELS_HOST_API StringJoinReduce
{
public:
    /// The annotation that joins the texts of all values in the order of selection: equal ones once, or, if it `repeats`, as
    /// often as they occur. Values that are no text and cannot become one are left out.
    static Meta::MultiSelection::ReduceMap meta(Ozy::BasicStringRef<char> separator, bool repeats);
};

} // namespace zarn
