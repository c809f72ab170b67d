#include "scene_filter.h"

#include "level_objects.h"

#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>
#include <host/reflection/cast.h>

namespace editor {

using namespace qelm::datamodels::proxy;

namespace {

SwitchPredicate* makeTypeSwitch()
{
    std::vector<BasePredicate*> types;
    for (const QString& name : SceneFilter::types()) {
        auto* type = new TextPredicate({SceneRoles::Type});
        type->setText(name);
        types.push_back(type);
    }
    return new SwitchPredicate(std::move(types));
}

zarn::ReflectedObject objectOf(const QModelIndex& row)
{
    return row.data(SceneRoles::Object).value<zarn::ReflectedObject>();
}

} // namespace

SceneFilter::SceneFilter(SceneItemModel& model, QItemSelectionModel& selection)
    : m_selection(selection)
    , m_words(new TokensPredicate({Qt::DisplayRole, SceneRoles::Type}))
    , m_type(makeTypeSwitch())
    , m_onlyModified(new FlagPredicate(SceneRoles::Modified))
    , m_onlyProblems(new FlagPredicate(Qt::CheckStateRole))
{
    setPredicate(new AndPredicate({m_words, m_type, m_onlyModified, m_onlyProblems}));
    setSourceModel(&model);
    setSourceAssetModel(&model);
    connect(m_words, &TextPredicate::textChanged, this, &SceneFilter::follow);
    connect(m_type, &SwitchPredicate::currentIndexChanged, this, &SceneFilter::follow);
    connect(m_onlyModified, &FlagPredicate::onChanged, this, &SceneFilter::follow);
    connect(m_onlyProblems, &FlagPredicate::onChanged, this, &SceneFilter::follow);
    connect(&selection, &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
                tellSelection(deselected);
                tellSelection(selected);
            });
}

SceneFilter::~SceneFilter() = default;

QVariant SceneFilter::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case KeyRole: return QString::number(objectOf(index).hash(), 16);
    case IsSelectedRole: return m_selection.isSelected(mapToSource(index));
    case ProblemRole: {
        const auto* object = zarn::cast<LevelObject>(objectOf(index));
        return object ? QString::fromStdString(object->problem()) : QString();
    }
    default: return AssetFilterProxyModel::data(index, role);
    }
}

QHash<int, QByteArray> SceneFilter::roleNames() const
{
    QHash<int, QByteArray> names = AssetFilterProxyModel::roleNames();
    names.insert(Qt::DisplayRole, "name");
    names.insert(Qt::DecorationRole, "icon");
    names.insert(KeyRole, "key");
    names.insert(IsSelectedRole, "isSelected");
    names.insert(ProblemRole, "problem");
    return names;
}

QStringList SceneFilter::types()
{
    return {QStringLiteral("Actor"), QStringLiteral("Light"), QStringLiteral("Spawn"), QStringLiteral("Path")};
}

QStringList SceneFilter::needles() const
{
    return m_words->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void SceneFilter::clear()
{
    m_words->setText(QString());
    m_type->setCurrentIndex(-1);
    m_onlyModified->setOn(false);
    m_onlyProblems->setOn(false);
}

void SceneFilter::follow()
{
    const bool isActive =
        !needles().isEmpty() || m_type->currentIndex() >= 0 || m_onlyModified->isOn() || m_onlyProblems->isOn();
    if (m_isActive != isActive) {
        m_isActive = isActive;
        Q_EMIT activeChanged();
    }
    Q_EMIT needlesChanged();
}

void SceneFilter::tellSelection(const QItemSelection& changed)
{
    for (const QModelIndex& sourceIndex : changed.indexes()) {
        const QModelIndex index = mapFromSource(sourceIndex);
        if (index.isValid())
            Q_EMIT dataChanged(index, index, {IsSelectedRole});
    }
}

} // namespace editor
