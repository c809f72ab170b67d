#pragma once

#include <datamodels/graph/vertex_creation_requestor.h>

namespace editor {

/// The kinds of node that a material consists of, as the palette of a graph view; an "itemID" is the place in
/// the list.
class NodePalette : public datamodels::VertexCreationRequestor
{
    Q_OBJECT

public:
    explicit NodePalette(QObject* parent = nullptr);

    /// The name of an icon; empty for an unknown id.
    Q_INVOKABLE QString iconOf(int id) const;
    /// Empty for an unknown id.
    QString labelOf(int id) const;
};

} // namespace editor
