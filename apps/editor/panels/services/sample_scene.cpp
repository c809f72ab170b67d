#include "sample_scene.h"

namespace editor {
namespace {

struct Place
{
    double x;
    double y;
    double z;
};

template <class T>
std::shared_ptr<T> place(SceneNode& parent, const char* name, const char* colour, Place at)
{
    auto node = std::make_shared<T>();
    node->name = name;
    node->setColour(colour);
    node->position.x = at.x;
    node->position.y = at.y;
    node->position.z = at.z;
    parent.children->push_back(node);
    return node;
}

template <class T>
std::shared_ptr<SceneNode> named(const char* name, const char* colour)
{
    auto node = std::make_shared<T>();
    node->name = name;
    node->setColour(colour);
    return node;
}

} // namespace

std::shared_ptr<Basin> makeSampleScene()
{
    auto basin = std::make_shared<Basin>();
    basin->name = "Copper Quay";
    basin->setColour("#5fa8c9");

    const auto west = place<Gate>(*basin, "West gate", "#c9a86a", {0, 22, -1.5});
    place<Lamp>(*west, "West lamp", "#ffd166", {1.2, 22, 3});
    const auto east = place<Gate>(*basin, "East gate", "#c9a86a", {84, 18, -1.5});
    place<Lamp>(*east, "East lamp", "#ffd166", {82.8, 18, 3})->isEnabled = false;
    const auto heron = place<Barge>(*basin, "Heron", "#7fc8a9", {26.5, 12, 0});
    heron->speed = 3.5;
    place<Lamp>(*heron, "Bow lamp", "#f4978e", {33, 12, 1.8})->brightness = 60;
    place<Lamp>(*heron, "Stern lamp", "#e5e9f0", {20, 12, 1.8})->brightness = 40;
    place<Barge>(*basin, "Kilnfolk", "#e08a5b", {51, 27.25, 0})->length = 26;
    place<Barge>(*basin, "Salt Raker", "#a6aee8", {66, 9, 0})->length = 14.5;
    return basin;
}

std::shared_ptr<SceneNode> makeSceneNode(const std::string& icon)
{
    if (icon == "barge")
        return named<Barge>("New barge", "#7fc8a9");
    if (icon == "lamp")
        return named<Lamp>("New lamp", "#ffd166");
    if (icon == "gate")
        return named<Gate>("New gate", "#c9a86a");
    return nullptr;
}

} // namespace editor
