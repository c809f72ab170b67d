#include "node_palette.h"

#include <array>

namespace editor {
namespace {

struct NodeKind
{
    const char* label;
    const char* icon;
};

constexpr std::array kinds{
    NodeKind{"Texture", "texture"},   NodeKind{"Colour", "colour"}, NodeKind{"Noise", "noise"},
    NodeKind{"Multiply", "multiply"}, NodeKind{"Mix", "mix"},       NodeKind{"Rim", "rim"},
    NodeKind{"Surface", "surface"},
};

const NodeKind* find(int id)
{
    return id < 0 || id >= static_cast<int>(kinds.size()) ? nullptr : &kinds[static_cast<std::size_t>(id)];
}

} // namespace

NodePalette::NodePalette(QObject* parent) : VertexCreationRequestor(parent)
{
    for (const NodeKind& kind : kinds)
        m_items << new Item{m_items.size(), QLatin1String(kind.label)};
}

QString NodePalette::iconOf(int id) const
{
    return QLatin1String(find(id) ? find(id)->icon : "");
}

QString NodePalette::labelOf(int id) const
{
    return QLatin1String(find(id) ? find(id)->label : "");
}

} // namespace editor
