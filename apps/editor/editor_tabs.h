#pragma once

#include "panels/panel_table.h"

#include <QObject>
#include <QUrl>

#include <memory>
#include <vector>

namespace editor {

/// One tab: a line of the panel table, and its panel once the tab has been opened.
class Tab : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString icon READ icon CONSTANT)
    Q_PROPERTY(QUrl url READ url CONSTANT)
    Q_PROPERTY(editor::Panel* panel READ panel NOTIFY opened)

public:
    Tab(const PanelEntry& entry, const PanelContext& context);
    ~Tab() override;

    QString name() const { return QLatin1String(m_entry.name); }
    QString title() const { return QLatin1String(m_entry.title); }
    QString icon() const { return QLatin1String(m_entry.icon); }
    QUrl url() const { return QUrl(QLatin1String(m_entry.url)); }
    /// Null before the tab is opened.
    Panel* panel() const { return m_panel.get(); }
    void open();

Q_SIGNALS:
    void opened();

private:
    const PanelEntry& m_entry;
    const PanelContext& m_context;
    std::unique_ptr<Panel> m_panel;
};

/// The row of tabs, one of which is current; opening a tab for the first time makes its panel.
/// The context object of the main window's QML.
class Tabs : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QList<QObject*> list READ list CONSTANT)
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(editor::Tab* current READ current NOTIFY currentIndexChanged)
    Q_PROPERTY(QString content READ content CONSTANT)

public:
    /// `panel` names the first current tab; an empty or unknown name means the first.
    Tabs(const PanelContext& context, const QString& panel);
    ~Tabs() override;

    QList<QObject*> list() const;
    int currentIndex() const { return m_currentIndex; }
    /// An index out of range changes nothing.
    void setCurrentIndex(int index);
    Tab* current() const { return at(m_currentIndex); }
    Tab* at(int index) const { return m_tabs[static_cast<std::size_t>(index)].get(); }
    int count() const { return static_cast<int>(m_tabs.size()); }
    QString content() const { return m_context.content; }

    /// The next or previous tab, around the ends.
    Q_INVOKABLE void step(int by);

Q_SIGNALS:
    void currentIndexChanged();

private:
    PanelContext m_context;
    std::vector<std::unique_ptr<Tab>> m_tabs;
    int m_currentIndex = 0;
};

} // namespace editor
