#pragma once

#include <QObject>
#include <QUrl>
#include <QVariantList>

namespace editor {

class ProjectNode;

/// What the details pane tells of the current row: facts as label and value, and a preview made from the file itself.
class ProjectDetails : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString icon READ icon NOTIFY changed)
    Q_PROPERTY(QString kind READ kind NOTIFY changed)
    Q_PROPERTY(QVariantList facts READ facts NOTIFY changed)
    Q_PROPERTY(QUrl image READ image NOTIFY changed)
    Q_PROPERTY(QString excerpt READ excerpt NOTIFY changed)

public:
    explicit ProjectDetails(QObject* parent = nullptr);

    bool isEmpty() const { return m_name.isEmpty(); }
    QString name() const { return m_name; }
    QString icon() const { return m_icon; }
    QString kind() const { return m_kind; }
    /// Maps with the keys "label" and "value", both texts.
    QVariantList facts() const { return m_facts; }
    /// Empty for what is no image that can be shown.
    QUrl image() const { return m_image; }
    /// The beginning of a text file; empty for others.
    QString excerpt() const { return m_excerpt; }

    /// Null empties the pane. `directory` is that of the project.
    void show(const ProjectNode* node, const QString& directory);

Q_SIGNALS:
    void changed();

private:
    void clear();
    void addFact(const QString& label, const QString& value);
    void showFolder(const ProjectNode& node);
    void showImage(const QString& file);
    void showText(const QString& file);

    QString m_name;
    QString m_icon;
    QString m_kind;
    QVariantList m_facts;
    QUrl m_image;
    QString m_excerpt;
};

} // namespace editor
