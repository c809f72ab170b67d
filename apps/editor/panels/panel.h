#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace editor {

/// What a tab is about: the object that the tab's QML is bound to, as its property `panel`.
///
/// Made when the tab is first opened, and owned by the tab. Thread: GUI.
class Panel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(bool isModified READ isModified NOTIFY statusChanged)

public:
    /// A state worth a picture. The suffix goes behind the panel's name; `arrange` brings the panel there and may
    /// build on the shots before it.
    struct Shot
    {
        QString suffix;
        std::function<void()> arrange;
    };

    explicit Panel(QObject* parent = nullptr);

    /// The panel's line in the status bar.
    virtual QString status() const { return {}; }

    /// Whether there is something to save, for the mark on the tab.
    virtual bool isModified() const { return false; }

    /// At least one; the base has the panel as it opens.
    virtual std::vector<Shot> shots();

    /// Whether there is work in the background that a picture should wait for.
    virtual bool isBusy() const { return false; }

Q_SIGNALS:
    void statusChanged();
};

} // namespace editor
