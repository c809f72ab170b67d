#pragma once

#include <host/reflection/meta/functions.h>

#include <cstddef>

/// What is said of collections and of their elements.
namespace Meta {

/// The property is a collection; collections say so themselves.
struct Collection
{
};

/// What every element of a collection whose name matches `pattern` ("*" for all) gets.
struct Children
{
    std::string pattern;
    zarn::Annotations annotations;
};

/// The bounds that a collection's size is kept in; it may ask the collection.
struct CollectionSize
{
    std::function<std::pair<std::size_t, std::size_t>(const zarn::ReflectedObject&)> bounds;
};

/// Elements can be added in the outliner.
struct CollectionInsert
{
};

/// Elements can be removed in the outliner.
struct CollectionRemove
{
};

/// What a deletion in a collection does to the selection first, where `first` is 3.
struct Selection
{
    int first = 0;
    std::function<void()> operation = [] {};

    void operator()() const { operation(); }
};

} // namespace Meta
