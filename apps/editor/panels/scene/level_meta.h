#pragma once

#include "level_actor.h"

#include <host/reflection/static_meta_object.h>

// Names, bases and enumerations of the classes of a level; what they consist of stands in level_meta.cpp and
// level_actor_meta.cpp.

template <>
struct qelm::EnumNames<editor::Light::Kind>
{
    static std::vector<MetaType::Enumerator> values() { return {{0, "Point"}, {1, "Spot"}, {2, "Area"}}; }
};
template <>
struct qelm::EnumNames<editor::Collider::Shape>
{
    static std::vector<MetaType::Enumerator> values() { return {{0, "Box"}, {1, "Sphere"}, {2, "Hull"}}; }
};
template <>
struct qelm::EnumNames<editor::Actor::Mobility>
{
    static std::vector<MetaType::Enumerator> values() { return {{0, "Static"}, {1, "Movable"}, {2, "Driven"}}; }
};

template <>
struct zarn::Reflection<editor::Vector>
{
    static constexpr const char* name = "editor::Vector";
    static void declare(StaticMetaObject<editor::Vector>::Builder& vector);
};

template <>
struct zarn::Reflection<editor::LevelObject>
{
    static constexpr const char* name = "editor::LevelObject";
    static void declare(StaticMetaObject<editor::LevelObject>::Builder& object);
};

template <>
struct zarn::Reflection<editor::Group>
{
    static constexpr const char* name = "editor::Group";
    using Bases = BaseList<editor::LevelObject>;
    static void declare(StaticMetaObject<editor::Group>::Builder& group);
};

template <>
struct zarn::Reflection<editor::Level>
{
    static constexpr const char* name = "editor::Level";
    using Bases = BaseList<editor::Group>;
    static void declare(StaticMetaObject<editor::Level>::Builder& level);
};

template <>
struct zarn::Reflection<editor::Light>
{
    static constexpr const char* name = "editor::Light";
    using Bases = BaseList<editor::LevelObject>;
    static void declare(StaticMetaObject<editor::Light>::Builder& light);
};

template <>
struct zarn::Reflection<editor::SpawnPoint>
{
    static constexpr const char* name = "editor::SpawnPoint";
    using Bases = BaseList<editor::LevelObject>;
    static void declare(StaticMetaObject<editor::SpawnPoint>::Builder& spawn);
};

template <>
struct zarn::Reflection<editor::PathPoint>
{
    static constexpr const char* name = "editor::PathPoint";
    static void declare(StaticMetaObject<editor::PathPoint>::Builder& point);
};

template <>
struct zarn::Reflection<editor::Path>
{
    static constexpr const char* name = "editor::Path";
    using Bases = BaseList<editor::LevelObject>;
    static void declare(StaticMetaObject<editor::Path>::Builder& path);
};

template <>
struct zarn::Reflection<editor::Component>
{
    static constexpr const char* name = "editor::Component";
    static void declare(StaticMetaObject<editor::Component>::Builder& component);
};

template <>
struct zarn::Reflection<editor::Collider>
{
    static constexpr const char* name = "editor::Collider";
    using Bases = BaseList<editor::Component>;
    static void declare(StaticMetaObject<editor::Collider>::Builder& collider);
};

template <>
struct zarn::Reflection<editor::Buoyancy>
{
    static constexpr const char* name = "editor::Buoyancy";
    using Bases = BaseList<editor::Component>;
    static void declare(StaticMetaObject<editor::Buoyancy>::Builder& buoyancy);
};

template <>
struct zarn::Reflection<editor::Sound>
{
    static constexpr const char* name = "editor::Sound";
    using Bases = BaseList<editor::Component>;
    static void declare(StaticMetaObject<editor::Sound>::Builder& sound);
};

template <>
struct zarn::Reflection<editor::Actor>
{
    static constexpr const char* name = "editor::Actor";
    using Bases = BaseList<editor::LevelObject>;
    static void declare(StaticMetaObject<editor::Actor>::Builder& actor);
};
