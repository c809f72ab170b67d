#include <datamodels/helpers/qt_miltiselection_composer.h>

#include <datamodels/scene_roles.h>
#include <host/base/profiler.h>
#include <host/reflection/meta_object.h>

namespace {

/// Of the row of an index; lives in the value.
const zarn::ReflectedObject& objectIn(QVariant& value)
{
    static const zarn::ReflectedObject none;
    return value.convert(qMetaTypeId<zarn::ReflectedObject>()) ? *static_cast<const zarn::ReflectedObject*>(value.constData())
                                                               : none;
}

} // namespace

QtMiltiselectionComposer::QtMiltiselectionComposer(QObject* parent)
    : QObject(parent), m_selection(zarn::MultiSelection::Mode::Common, true)
{
    m_selection.setVolatility(zarn::GenericObject::VolatilityType::Volatile);
}

QtMiltiselectionComposer::~QtMiltiselectionComposer() = default;

void QtMiltiselectionComposer::setSelectionModel(QItemSelectionModel* model)
{
    m_connection.disconnect();
    m_selectionModel = model;
    rebuild();
    if (m_selectionModel) {
        m_connection = connect(m_selectionModel, &QItemSelectionModel::selectionChanged, this,
                               &QtMiltiselectionComposer::selectionChanged);
    }
    Q_EMIT selectionModelChanged();
    Q_EMIT objectChanged();
}

QVariant QtMiltiselectionComposer::object() const
{
    zarn::ReflectedObject object;
    if (!m_selection.empty()) {
        const qelm::Variant pointer(static_cast<zarn::GenericObject*>(const_cast<zarn::MultiSelection*>(&m_selection)));
        const zarn::BoundProperty parent = m_selection.parent();
        object.init(pointer, zarn::MetaObject::objectDataOf(m_selection, pointer, nullptr), &parent);
    }
    return QVariant::fromValue(object);
}

void QtMiltiselectionComposer::setProcessing(bool processing)
{
    if (m_processing == processing)
        return;
    m_processing = processing;
    Q_EMIT processingChanged();
}

void QtMiltiselectionComposer::rebuild()
{
    const RYK::Profiler::Scope scope("QtMiltiselectionComposer::rebuild");
    setProcessing(true);
    m_selection.clear();
    // Intended: without a selection model it stays at it.
    if (!m_selectionModel)
        return;
    // Intended: nothing is taken over; objects join when they are selected from now on.
    unmerge(m_selectionModel->selectedIndexes());
    setProcessing(false);
}

void QtMiltiselectionComposer::selectionChanged(QItemSelection selected, QItemSelection deselected)
{
    const RYK::Profiler::Scope scope("QtMiltiselectionComposer::selectionChanged");
    setProcessing(true);
    unmerge(deselected.indexes());
    for (const QModelIndex& index : selected.indexes()) {
        QVariant value = index.data(SceneRoles::Object);
        m_selection.merge(objectIn(value), zarn::BoundProperty());
    }
    Q_EMIT objectChanged();
    setProcessing(false);
}

void QtMiltiselectionComposer::unmerge(const QModelIndexList& indexes)
{
    for (const QModelIndex& index : indexes) {
        QVariant value = index.data(SceneRoles::Object);
        m_selection.unmerge(objectIn(value));
    }
}
