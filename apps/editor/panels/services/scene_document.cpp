#include "scene_document.h"

#include "panels/texts.h"
#include "sample_scene.h"

#include <host/bridge/qt_script_object.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/reflection/meta.h>
#include <host/undo/commit_changes_scope.h>

namespace editor {
namespace {

std::string labelOf(const zarn::BoundProperty& member)
{
    return member.annotations().valueOr<Meta::Label::Text>(member.name())(member);
}

} // namespace

SceneDocument::SceneDocument() : m_scene(makeSampleScene()), m_steps(m_history), m_nodes(*m_scene)
{
    connect(&m_nodes, &QAbstractItemModel::rowsInserted, this, &SceneDocument::followInsertion);
    connect(&m_nodes, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first) { followRemoval(first); });
    connect(&m_history, &Ozy::ChangesController::indexChanged, this, &SceneDocument::statusChanged);
    connect(&m_history, &Ozy::ChangesController::cleanChanged, this, &SceneDocument::statusChanged);
    setCurrentRow(0);
}

SceneDocument::~SceneDocument() = default;

std::shared_ptr<SceneDocument> SceneDocument::shared()
{
    static std::weak_ptr<SceneDocument> document;
    std::shared_ptr<SceneDocument> found = document.lock();
    if (!found)
        document = found = std::make_shared<SceneDocument>();
    return found;
}

void SceneDocument::setCurrentRow(int row)
{
    if (row == currentRow() || !m_nodes.nodeAt(row))
        return;
    m_current = m_nodes.index(row);
    showSubject();
    Q_EMIT currentRowChanged();
}

QObject* SceneDocument::subject() const
{
    return m_subject.get();
}

QString SceneDocument::status() const
{
    const int done = m_history.index();
    const int undone = m_history.count() - done;
    QString text = counted(m_nodes.rowCount(), "object, ", "objects, ") + counted(done, "step", "steps");
    if (undone > 0)
        text += QStringLiteral(", %1 undone").arg(undone);
    return text + (m_history.isClean() ? QStringLiteral(", saved") : QStringLiteral(", modified"));
}

bool SceneDocument::write(QObject* target, const QString& property, const QVariant& value)
{
    auto* script = dynamic_cast<qelm::QtScriptObject*>(target);
    if (!script)
        return false;
    const zarn::BoundProperty member = script->object().findPropertyByName(property.toStdString());
    const Ozy::CommitChangesScope step(stepName(member), &m_history);
    return script->setReflectedValue(property, value);
}

void SceneDocument::call(const QString& method)
{
    const zarn::BoundProperty member = m_subject->object().findPropertyByName(method.toStdString());
    if (!member.isMethod())
        return;
    const Ozy::CommitChangesScope step(stepName(member), &m_history);
    QVariant result;
    QMetaObject::invokeMethod(m_subject.get(), method.toLatin1(), Q_RETURN_ARG(QVariant, result));
}

bool SceneDocument::add(const QString& icon)
{
    SceneNode* parent = m_nodes.nodeAt(currentRow());
    const std::shared_ptr<SceneNode> added = makeSceneNode(icon.toStdString());
    if (!parent || !added)
        return false;
    {
        const Ozy::CommitChangesScope step(parent->name + ": Add " + icon.toStdString(), &m_history);
        zarn::reflect(parent->children).addProperty({}, added);
    }
    setCurrentRow(m_nodes.rowOf(added.get()));
    return true;
}

void SceneDocument::removeCurrent()
{
    const SceneNode* node = m_nodes.nodeAt(currentRow());
    SceneNode* parent = m_nodes.nodeAt(m_nodes.parentRow(currentRow()));
    if (!parent)
        return;
    std::size_t index = 0;
    while ((*parent->children)[index].get() != node)
        ++index;
    const Ozy::CommitChangesScope step(node->name + ": Remove", &m_history);
    zarn::reflect(parent->children).removePropertyAt(index);
}

void SceneDocument::followInsertion()
{
    Q_EMIT currentRowChanged();
    Q_EMIT statusChanged();
}

void SceneDocument::followRemoval(int first)
{
    if (m_current.isValid())
        Q_EMIT currentRowChanged();
    else
        setCurrentRow(first - 1);
    Q_EMIT statusChanged();
}

void SceneDocument::showSubject()
{
    // A binding may still be reading the old one.
    if (m_subject)
        m_subject.release()->deleteLater();
    m_subject = std::make_unique<qelm::QtScriptObject>(zarn::reflect(*m_nodes.nodeAt(currentRow())), this);
    m_subject->setDocument(&m_history);
    Q_EMIT subjectChanged();
}

std::string SceneDocument::stepName(const zarn::BoundProperty& member) const
{
    return m_nodes.nodeAt(currentRow())->name + ": " + labelOf(member);
}

} // namespace editor
