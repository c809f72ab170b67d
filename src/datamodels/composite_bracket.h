#pragma once

#include <datamodels/composite_model.h>

/// What a composite has announced and has to close.
struct CompositeModel::Bracket
{
    enum Kind
    {
        None, ///< nothing is known where the change happens
        Insertion,
        Removal,
        Move,
        RemovalAndInsertion,
    };

    Kind kind = None;
    // Of the insertion that follows.
    Item* dest = nullptr;
    int row = 0;
    int count = 0;
};
