#include <datamodels/proxy/shared_values.h>

namespace qelm::datamodels::proxy {

void SharedValues::request(int role)
{
    if (m_roles.contains(role))
        return;
    m_roles.append(role);
    m_answers.emplace_back();
}

QVariant SharedValues::answer(int role, quint64 generation) const
{
    const int place = m_roles.indexOf(role);
    if (place < 0)
        return {};
    const Answer& answer = m_answers[static_cast<std::size_t>(place)];
    return answer.generation == generation ? answer.value : QVariant();
}

void SharedValues::keep(int role, quint64 generation, const QVariant& answer)
{
    const int place = m_roles.indexOf(role);
    if (place >= 0)
        m_answers[static_cast<std::size_t>(place)] = {generation, answer};
}

} // namespace qelm::datamodels::proxy
