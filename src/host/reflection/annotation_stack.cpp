#include <host/reflection/static_meta_object.h>

#include <host/base/debug.h>

namespace zarn::detail {

AnnotationStack::~AnnotationStack()
{
    if (!OZY_ASSERT(annotations_.size() == 1))
        Ozy::DebugMessageHelper(Ozy::Priority::structural, "reflection").message("Missing META_POP\n");
}

void AnnotationStack::push(const Annotations& annotations)
{
    annotations_.push_back(with(annotations));
}

void AnnotationStack::pop()
{
    if (annotations_.size() < 2) {
        Ozy::DebugMessageHelper(Ozy::Priority::structural, "reflection")
            .message("META_POP without corresponding META_PUSH\n");
        return;
    }
    annotations_.pop_back();
}

Annotations AnnotationStack::with(const Annotations& own) const
{
    Annotations all = annotations_.back();
    all += own;
    return all;
}

} // namespace zarn::detail
