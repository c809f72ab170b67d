#include <datamodels/scene/scene_item_buttons_model.h>

#include <datamodels/scene/scene_item_button.h>
#include <host/base/debug.h>
#include <host/base/stack_tracker.h>

#include <QColor>

#include <algorithm>

namespace {

QVariant nothing(int priority, const char* message, int line = __builtin_LINE())
{
    Ozy::DebugMessageHelper(priority, "datamodels", __FILE__, line).message("%s\n", message);
    return {};
}

} // namespace

SceneItemButtonsModel::SceneItemButtonsModel(QObject* parent) : AssetItemButtonsModel(parent) {}

SceneItemButtonsModel::~SceneItemButtonsModel() = default;

int SceneItemButtonsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_buttons.size());
}

QVariant SceneItemButtonsModel::data(const QModelIndex& index, int role) const
{
    static const QString iconType = QStringLiteral("Default");
    SceneItemButton* const button = index.isValid() ? buttonAt(index) : nullptr;
    if (!button)
        return nothing(5, "SceneItemButtonsModel::data(): Invalid button data is requested!");
    switch (role) {
    case Qt::DisplayRole: return button->name();
    case Qt::DecorationRole: return button->icon();
    case Qt::ToolTipRole: return button->toolTip();
    case ActionRole: return QVariant::fromValue(button);
    case IconColourRole: return button->iconColor();
    case CheckedRole: return button->isChecked();
    case PosIndexRole: return static_cast<quint64>(button->position());
    case IconTypeRole: return iconType;
    case ShowOnlyOnHoverRole: return button->isShowOnlyOnHover();
    default: return nothing(4, "SceneItemButtonsModel::data(): A Data with unknown role has been requested!");
    }
}

SceneItemButton* SceneItemButtonsModel::addButton(zarn::BoundProperty property, const std::string& name, Handler handler)
{
    const zarn::Annotations annotations = property.annotations();
    return addButton(std::move(property), name, std::move(handler), annotations.valueOr<Meta::IconButton>(),
                     annotations.valueOr<Meta::ToolTip>());
}

SceneItemButton* SceneItemButtonsModel::addButton(zarn::BoundProperty property, const std::string& name, Handler handler,
                                                  Meta::IconButton iconButton, Meta::ToolTip toolTip)
{
    const Ozy::StackTracker::Scope entry("SceneItemButtonsModel::addButton");
    const int row = rowCount();
    const QString tip = QString::fromStdString(toolTip(property));
    auto button = std::make_unique<SceneItemButton>(this, std::move(property), std::move(handler), std::move(iconButton),
                                                    QString::fromStdString(name), tip);
    SceneItemButton* const added = button.get();
    beginInsertRows(QModelIndex(), row, row);
    m_buttons.push_back(std::move(button));
    endInsertRows();
    return added;
}

void SceneItemButtonsModel::removeButton(const SceneItemButton& button)
{
    const int row = indexOf(button);
    if (row < 0)
        return;
    beginRemoveRows(QModelIndex(), row, row);
    m_buttons.erase(m_buttons.begin() + row);
    endRemoveRows();
}

void SceneItemButtonsModel::onItemDataChanged(const SceneItemButton& first, const SceneItemButton& last,
                                              std::vector<AssetItemButtonsModel::Roles>&& roles)
{
    const QModelIndex firstIndex = index(indexOf(first));
    const QModelIndex lastIndex = &first == &last ? firstIndex : index(indexOf(last));
    Q_EMIT dataChanged(firstIndex, lastIndex, QVector<int>(roles.begin(), roles.end()));
}

SceneItemButton* SceneItemButtonsModel::buttonAt(const QModelIndex& index) const
{
    return m_buttons.at(static_cast<std::size_t>(index.row())).get();
}

int SceneItemButtonsModel::indexOf(const SceneItemButton& button) const
{
    const auto foundIt = std::find_if(m_buttons.begin(), m_buttons.end(), [&](const auto& it) { return it.get() == &button; });
    return OZY_ASSERT(foundIt != m_buttons.end()) ? static_cast<int>(foundIt - m_buttons.begin()) : -1;
}
