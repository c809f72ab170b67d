#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/proxy/predicates/or_predicate.h>
#include <host/base/debug.h>

#include <QStringList>

namespace qelm::datamodels::proxy {

TokensPredicate::TokensPredicate(std::unordered_set<int> roles, QObject* parent)
    : TextPredicate(std::move(roles), parent)
{
}

TokensPredicate::~TokensPredicate() = default;

bool TokensPredicate::evaluate(const QModelIndex& index) const
{
    return !m_innerPredicate || m_innerPredicate->evaluate(index);
}

void TokensPredicate::setType(Type type)
{
    if (m_type == type)
        return;
    m_type = type;
    update();
    Q_EMIT changed();
}

void TokensPredicate::onTextChanged()
{
    update();
    Q_EMIT changed();
}

void TokensPredicate::onRolesChanged()
{
    update();
    Q_EMIT changed();
}

void TokensPredicate::update()
{
    if (m_innerPredicate) {
        m_innerPredicate->clear(true);
        if (!innerHasTheType())
            m_innerPredicate.reset();
    }

    const QStringList tokens = text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (tokens.isEmpty())
        return;

    if (!m_innerPredicate) {
        if (m_type == Type::All)
            m_innerPredicate = std::make_unique<AndPredicate>();
        else if (m_type == Type::Any)
            m_innerPredicate = std::make_unique<OrPredicate>();
        else {
            OZY_ASSERT_DETAIL("unknown type", false);
            return;
        }
    }
    for (const QString& token : tokens) {
        auto* predicate = new TextPredicate(roles());
        predicate->setText(token);
        m_innerPredicate->addPredicate(predicate);
    }
}

// A type that is neither keeps what there is.
bool TokensPredicate::innerHasTheType() const
{
    if (m_type == Type::All)
        return dynamic_cast<AndPredicate*>(m_innerPredicate.get());
    if (m_type == Type::Any)
        return dynamic_cast<OrPredicate*>(m_innerPredicate.get());
    return true;
}

} // namespace qelm::datamodels::proxy
