#pragma once

#include "panels/form/form_annotations.h"

#include <host/reflection/sequential_collection_meta_object.h>

namespace editor {

/// The meta-object of a collection of shared objects in which an element out of nothing is a new object of the usual
/// class, where the reflection has a null pointer.
template <class C>
class MadeElements final : public zarn::SequentialCollectionMetaObject<C, 0>
{
public:
    MadeElements(const std::string& baseName, const zarn::Annotations& annotations)
        : zarn::SequentialCollectionMetaObject<C, 0>(baseName, annotations)
    {
    }

private:
    using Element = typename std::decay_t<decltype(*std::declval<C&>())>::value_type;

    qelm::Variant asElement(const qelm::Variant& value) const override
    {
        if (!value.isVoid())
            return zarn::detail::elementFrom<Element>(value);
        const auto classes = this->annotations({}).template find<ElementClasses>();
        return zarn::detail::elementFrom<Element>(
            classes->template value<ElementClasses>().list().front()->createInstance());
    }
};

} // namespace editor
