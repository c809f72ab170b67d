#include <datamodels/scene/scene_item_button.h>

#include <host/base/debug.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <host/variant/variant_converter.h>

SceneItemButton::SceneItemButton(QObject* parent, zarn::BoundProperty property,
                                 std::function<void(IAssetSelection*, bool)> handler, Meta::IconButton iconButton,
                                 QString name, QString toolTip)
    : QObject(parent)
    , m_handler(std::move(handler))
    , m_property(std::move(property))
    , m_iconButton(std::move(iconButton))
    , m_name(name.isEmpty() ? QString::fromStdString(m_property.name()) : std::move(name))
    , m_toolTip(std::move(toolTip))
{
    OZY_ASSERT(!m_name.isEmpty());
    if (m_iconButton.colourFunction)
        m_iconButton.colour = m_iconButton.colourFunction(m_property);
    updateCheckedState();
}

SceneItemButton::~SceneItemButton() = default;

void SceneItemButton::invoke(IAssetSelection* assetSelection, bool inversion)
{
    const auto controller = assetSelection ? assetSelection->changesController().lock() : nullptr;
    const auto handler = m_handler; // what it changes may destroy the button
    const Ozy::CommitChangesScope scope("Icon pressed", controller.get());
    handler(assetSelection, inversion);
}

QString SceneItemButton::icon() const
{
    return QString::fromStdString(m_checked == m_iconButton.firstIconState ? m_iconButton.firstIcon : m_iconButton.secondIcon);
}

QColor SceneItemButton::iconColor() const
{
    if (!m_iconButton.colour)
        return Qt::transparent;
    const std::uint32_t packed = *m_iconButton.colour;
    return QColor::fromRgb(static_cast<int>(packed & 0xFF), static_cast<int>(packed >> 8 & 0xFF),
                           static_cast<int>(packed >> 16 & 0xFF));
}

void SceneItemButton::updateCheckedState()
{
    if (const auto value = qelm::VariantConverter::convertTo<bool>(m_property.get()))
        m_checked = *value;
}
