#pragma once

#include <host/reflection/cast.h>
#include <host/reflection/reflection_wrapper.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>

#include <memory>
#include <string>
#include <vector>

namespace bench {

struct SampleActor;
using SampleParts = zarn::ReflectionWrapper<std::vector<std::shared_ptr<SampleActor>>>;

/// An actor with what a row of the outliner shows, and parts that are actors themselves.
struct SampleActor : zarn::Object
{
    std::string name = "lantern by the quay";
    bool isEnabled = true;
    float reach = 5;
    SampleParts parts;
};

/// A scene object with so many parts on each level.
std::shared_ptr<SampleActor> sampleScene(const std::vector<int>& partsOnLevels);

} // namespace bench
