#pragma once

#include <host/asset/asset_selection.h>
#include <host/reflection/reflection_wrapper.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>
#include <host/undo/changes_controller.h>

#include <memory>
#include <string>
#include <vector>

/// A scene for tests: actors with parts, which are actors themselves.
namespace stage {

struct Actor;
using Parts = zarn::ReflectionWrapper<std::vector<std::shared_ptr<Actor>>>;

struct Limits : zarn::Object
{
    int reach = 5;
    bool isOpen = false;
};

struct Actor : zarn::Object
{
    explicit Actor(std::string name = "actor") : name(std::move(name)) {}

    std::string name;
    std::string icon = "resources/maps/gui/icons/a.b.png";
    long long state = 0;
    bool isEnabled = true;
    bool isModified = false;
    bool isVisible = true;
    int resets = 0;
    Limits limits;
    Parts parts;
};

/// An actor without any of the properties that a row reads.
struct Plain : zarn::Object
{
    std::shared_ptr<Actor> shown;
};

std::shared_ptr<Actor> actor(const std::string& name, std::vector<std::shared_ptr<Actor>> parts = {});

/// A selection that the test fills.
class Selection : public IAssetSelection
{
public:
    std::weak_ptr<Ozy::ChangesController> changesController() override { return document; }
    std::vector<zarn::PersistentObject> selectedObjects() override { return objects; }
    void beforeDelete() override { ++deletions; }
    bool isSelected(const zarn::ReflectedObject& object) override;
    void onMethodAboutToRun(const zarn::BoundProperty& method) override;

    void select(const std::vector<std::shared_ptr<Actor>>& actors);

    std::shared_ptr<Ozy::ChangesController> document = std::make_shared<Ozy::ChangesController>();
    std::vector<zarn::PersistentObject> objects;
    std::vector<std::string> methods;
    int deletions = 0;
};

} // namespace stage
