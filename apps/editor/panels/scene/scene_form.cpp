#include "scene_form.h"

#include "panels/content_files.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/reflection/meta.h>
#include <host/variant/variant_converter.h>

#include <algorithm>

namespace editor {
namespace {

std::string typeOf(const zarn::ReflectedObject& object)
{
    const auto type = object.annotations().find<Meta::MultiSelection::ObjectType>();
    return type.isValid() ? type->value<Meta::MultiSelection::ObjectType>().name(object) : std::string();
}

} // namespace

SceneForm::SceneForm(LevelDocument& document, SceneOutliner& outliner)
    : m_document(document), m_outliner(outliner), m_rows(*document.history())
{
    m_composer.setSelectionModel(outliner.selection());
    connect(&m_composer, &QtMiltiselectionComposer::processingChanged, &m_rows, [this] {
        if (m_composer.isProcessing())
            m_rows.pause();
    });
    connect(&m_composer, &QtMiltiselectionComposer::objectChanged, this, &SceneForm::show);
    connect(&document, &LevelDocument::levelChanged, this, &SceneForm::show);
    connect(document.history(), &Ozy::ChangesController::indexChanged, this, &SceneForm::follow);
    show();
}

SceneForm::~SceneForm() = default;

QString SceneForm::title() const
{
    if (m_objects.size() > 1)
        return QStringLiteral("%1 objects").arg(m_objects.size());
    if (m_objects.empty())
        return {};
    const QModelIndex row = m_outliner.model().indexOf(m_objects.front());
    return row.isValid() ? row.data().toString() : textOf("_objectName");
}

QString SceneForm::problem() const
{
    const auto* object = m_objects.size() == 1 ? zarn::cast<LevelObject>(m_objects.front()) : nullptr;
    return object ? QString::fromStdString(object->problem()) : QString();
}

QString SceneForm::textOf(const char* property) const
{
    if (m_objects.empty())
        return {};
    const qelm::Variant value = m_objects.front().findPropertyByName(property).get();
    return qelm::VariantConverter::convertTo<QString>(value).value_or(QString());
}

QStringList SceneForm::files(const QString& folder, const QString& pattern) const
{
    return contentFiles(m_content, folder, pattern);
}

void SceneForm::show()
{
    const auto merged = m_composer.object().value<zarn::ReflectedObject>();
    m_objects = m_outliner.selectedObjects();
    const std::size_t selected = m_objects.size();
    const auto* one = zarn::cast<zarn::GenericObject>(merged);
    const std::string type = one ? one->typeName() : std::string();
    m_objects.erase(std::remove_if(m_objects.begin(), m_objects.end(),
                                   [&type](const zarn::ReflectedObject& object) { return typeOf(object) != type; }),
                    m_objects.end());
    m_others = static_cast<int>(selected - m_objects.size());
    if (m_objects.empty())
        m_objects = {zarn::reflect(m_document.level())};
    m_rows.setObjects(m_objects, one ? merged : m_objects.front(), title());
    follow();
}

void SceneForm::follow()
{
    m_rows.setReadOnly(std::any_of(m_objects.begin(), m_objects.end(), [this](const zarn::ReflectedObject& object) {
        return m_outliner.isLocked(object);
    }));
    Q_EMIT subjectChanged();
}

} // namespace editor
