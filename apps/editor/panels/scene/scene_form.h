#pragma once

#include "panels/form/property_rows.h"
#include "scene_outliner.h"

#include <datamodels/helpers/qt_miltiselection_composer.h>

namespace editor {

/// What is selected in the outliner as a form; the level itself while nothing is. Objects of another type than the
/// first are left out, and counted. Objects that are locked, or in a locked group, can only be unlocked. Thread: GUI.
class SceneForm : public QObject
{
    Q_OBJECT
    Q_PROPERTY(editor::PropertyRows* rows READ rows CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY subjectChanged)
    Q_PROPERTY(QString type READ type NOTIFY subjectChanged)
    Q_PROPERTY(QString icon READ icon NOTIFY subjectChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY subjectChanged)
    Q_PROPERTY(int others READ others NOTIFY subjectChanged)

public:
    SceneForm(LevelDocument& document, SceneOutliner& outliner);
    ~SceneForm() override;

    PropertyRows* rows() { return &m_rows; }
    /// The name of the object, or how many there are.
    QString title() const;
    QString type() const { return textOf("_typeName"); }
    QString icon() const { return textOf("_objectIcon"); }
    /// What is wrong with the object, if there is one.
    QString problem() const;
    /// How many selected objects are not shown.
    int others() const { return m_others; }

    /// The files of the project below a folder whose names match a pattern, by their paths.
    Q_INVOKABLE QStringList files(const QString& folder, const QString& pattern) const;
    void setContent(const QString& content) { m_content = content; }

Q_SIGNALS:
    void subjectChanged();

private:
    void show();
    void follow();
    QString textOf(const char* property) const;

    LevelDocument& m_document;
    SceneOutliner& m_outliner;
    QtMiltiselectionComposer m_composer;
    PropertyRows m_rows;
    std::vector<zarn::ReflectedObject> m_objects;
    int m_others = 0;
    QString m_content;
};

} // namespace editor
