#include "services_panel.h"

namespace editor {

ServicesPanel::ServicesPanel(const PanelContext&)
{
    connect(document(), &SceneDocument::statusChanged, this, &Panel::statusChanged);
}

ServicesPanel::~ServicesPanel() = default;

void ServicesPanel::go(const QString& name)
{
    SceneListModel& nodes = *m_document->nodes();
    const QModelIndexList found =
        nodes.match(nodes.index(0), SceneListModel::NameRole, name, 1, Qt::MatchExactly);
    m_document->setCurrentRow(found.isEmpty() ? 0 : found.constFirst().row());
}

std::vector<Panel::Shot> ServicesPanel::shots()
{
    const auto edit = [this] {
        SceneDocument& document = *m_document;
        go(QStringLiteral("West gate"));
        document.call(QStringLiteral("open"));
        go(QStringLiteral("East lamp"));
        document.write(document.subject(), QStringLiteral("enabled"), true);
        document.save();
        go(QStringLiteral("Heron"));
        document.write(document.subject(), QStringLiteral("speed"), 5.5);
        document.write(document.subject(), QStringLiteral("colour"), QStringLiteral("#4fb3a2"));
        document.call(QStringLiteral("ringBell"));
        document.add(QStringLiteral("lamp"));
        go(QStringLiteral("Heron"));
        document.write(document.subject(), QStringLiteral("length"), 21);
        document.call(QStringLiteral("stop"));
        document.history()->jumpTo(6);
    };
    return {{QString(), edit}};
}

} // namespace editor
