#include "project_filter.h"

#include "project_node.h"

#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/proxy/predicates/hierarchy_predicate.h>
#include <datamodels/proxy/predicates/invert_predicate.h>

namespace editor {

using namespace qelm::datamodels::proxy;

namespace {

SwitchPredicate* makeKindSwitch()
{
    std::vector<BasePredicate*> kinds;
    for (const FileKindFacts& facts : fileKinds()) {
        auto* kind = new TextPredicate({ProjectNode::KindRole});
        kind->setText(QLatin1String(facts.title));
        kinds.push_back(kind);
    }
    return new SwitchPredicate(std::move(kinds));
}

BasePredicate* orOneOfItsAncestors(BasePredicate* predicate)
{
    auto* hierarchy = new HierarchyPredicate(predicate);
    hierarchy->setMode(HierarchyPredicate::Mode::Any);
    return hierarchy;
}

} // namespace

ProjectFilter::ProjectFilter(QObject* parent)
    : FilterProxyModel(nullptr, parent)
    , m_text(new TextPredicate({ProjectNode::NameRole}))
    , m_words(new TokensPredicate({ProjectNode::NameRole, ProjectNode::PathRole, ProjectNode::KindRole}))
    , m_kind(makeKindSwitch())
    , m_match(new AndPredicate({m_text, m_words}))
{
    connect(m_text, &TextPredicate::textChanged, this, &ProjectFilter::follow);
    connect(m_words, &TextPredicate::textChanged, this, &ProjectFilter::follow);
    connect(m_kind, &SwitchPredicate::currentIndexChanged, this, &ProjectFilter::follow);
    compose();
    sort(0);
}

void ProjectFilter::setWordsType(int type)
{
    if (wordsType() == type)
        return;
    m_words->setType(static_cast<TokensPredicate::Type>(type));
    Q_EMIT wordsTypeChanged();
}

void ProjectFilter::setWithAncestors(bool withAncestors)
{
    if (m_withAncestors == withAncestors)
        return;
    m_withAncestors = withAncestors;
    compose();
    Q_EMIT withAncestorsChanged();
}

void ProjectFilter::setInverted(bool inverted)
{
    if (m_isInverted == inverted)
        return;
    m_isInverted = inverted;
    follow();
    compose();
    Q_EMIT invertedChanged();
}

QStringList ProjectFilter::needles() const
{
    if (m_isInverted)
        return {};
    QStringList needles = m_words->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!m_text->text().isEmpty())
        needles << m_text->text();
    return needles;
}

void ProjectFilter::sortOrTurn(const QString& roleName)
{
    const bool turns = roleName == sortedBy() && !isDescending();
    sortByRole(roleName, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ProjectFilter::clear()
{
    m_text->setText(QString());
    m_words->setText(QString());
    m_kind->setCurrentIndex(-1);
    setInverted(false);
    setWithAncestors(false);
    setWordsType(0);
}

bool ProjectFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const bool leftIsFolder = left.data(ProjectNode::IsFolderRole).toBool();
    if (leftIsFolder != right.data(ProjectNode::IsFolderRole).toBool())
        return leftIsFolder != isDescending();
    return FilterProxyModel::lessThan(left, right);
}

// A fresh tree around the same leaves: taking a new root over filters once, where rewiring the old one would filter at
// every step. The leaves move to the new root before the old one dies with what is left of it.
void ProjectFilter::compose()
{
    BasePredicate* shown = m_withAncestors ? orOneOfItsAncestors(m_match) : m_match;
    if (m_isInverted)
        shown = new InvertPredicate(shown);
    BasePredicate* const before = predicate();
    setPredicate(new AndPredicate({shown, m_kind}));
    delete before;
}

void ProjectFilter::follow()
{
    const bool hasText = !m_text->text().isEmpty() || !m_words->text().trimmed().isEmpty();
    const bool isActive = hasText || m_isInverted || m_kind->currentIndex() >= 0;
    if (m_isActive != isActive) {
        m_isActive = isActive;
        Q_EMIT activeChanged();
    }
    Q_EMIT needlesChanged();
}

} // namespace editor
