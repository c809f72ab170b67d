#include <support/sample_scene.h>

#include <host/reflection/meta.h>

template <>
struct zarn::Reflection<bench::SampleActor>
{
    static constexpr const char* name = "bench::SampleActor";
    static void declare(StaticMetaObject<bench::SampleActor>::Builder& actor)
    {
        using bench::SampleActor;
        actor.field("_objectName", &SampleActor::name)
            .field("_isEnabled", &SampleActor::isEnabled)
            .field("reach", &SampleActor::reach)
            .readOnly("parts", [](SampleActor& self) { return &self.parts; });
    }
};

namespace bench {
namespace {

const zarn::ReflectAtLoad<SampleActor> actorClass;
const zarn::AutoregisterMetaObject<SampleParts> partsClass("bench::SampleParts", {Meta::Children{"*", {Meta::SceneItem()}}});

void grow(SampleActor& actor, std::vector<int>::const_iterator level, std::vector<int>::const_iterator end)
{
    for (int i = 0; level != end && i < *level; ++i) {
        actor.parts->push_back(std::make_shared<SampleActor>());
        grow(*actor.parts->back(), level + 1, end);
    }
}

} // namespace

std::shared_ptr<SampleActor> sampleScene(const std::vector<int>& partsOnLevels)
{
    auto scene = std::make_shared<SampleActor>();
    grow(*scene, partsOnLevels.begin(), partsOnLevels.end());
    return scene;
}

} // namespace bench
