#pragma once

#include "scene_node.h"

namespace editor {

class Basin : public SceneNode
{
public:
    static constexpr double highest = 6; ///< metres

    const char* icon() const override { return "basin"; }
    void fill();
    void drain();

    double level = 3.4; ///< of the water, in metres
};

class Barge : public SceneNode
{
public:
    const char* icon() const override { return "barge"; }
    void ringBell();
    void stop();

    double speed = 0;   ///< km/h
    double length = 18; ///< metres
    int bells = 0;      ///< how often it was rung
};

class Lamp : public SceneNode
{
public:
    const char* icon() const override { return "lamp"; }
    void dim();

    int brightness = 80; ///< per cent
    double range = 12;   ///< metres
};

class Gate : public SceneNode
{
public:
    static constexpr double widest = 90; ///< degrees

    const char* icon() const override { return "gate"; }
    void open();
    void close();

    double opening = 0; ///< degrees
};

} // namespace editor
