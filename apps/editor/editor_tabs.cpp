#include "editor_tabs.h"

#include "host_services.h"

namespace editor {

Tab::Tab(const PanelEntry& entry, const PanelContext& context) : m_entry(entry), m_context(context) {}

Tab::~Tab() = default;

void Tab::open()
{
    if (m_panel)
        return;
    m_panel = m_entry.create(m_context);
    Q_EMIT opened();
}

Tabs::Tabs(const PanelContext& context, const QString& panel) : m_context(context)
{
    installHostServices(context.content);
    for (const PanelEntry& entry : panelTable()) {
        if (panel == QLatin1String(entry.name))
            m_currentIndex = static_cast<int>(m_tabs.size());
        m_tabs.push_back(std::make_unique<Tab>(entry, m_context));
    }
    current()->open();
}

Tabs::~Tabs() = default;

QList<QObject*> Tabs::list() const
{
    QList<QObject*> list;
    for (const std::unique_ptr<Tab>& tab : m_tabs)
        list << tab.get();
    return list;
}

void Tabs::setCurrentIndex(int index)
{
    if (m_currentIndex == index || index < 0 || index >= count())
        return;
    m_currentIndex = index;
    current()->open();
    Q_EMIT currentIndexChanged();
}

void Tabs::step(int by)
{
    setCurrentIndex((m_currentIndex + by + count()) % count());
}

} // namespace editor
