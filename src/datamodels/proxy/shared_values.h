#pragma once

#include <QVariant>
#include <QVector>

#include <vector>

namespace qelm::datamodels::proxy {

/// Of one group: the roles that somebody has asked for as a value shared by all members, and the answers found.
///
/// An answer counts for one generation only, so that all answers of all groups are dropped by counting on.
class SharedValues
{
public:
    /// In order of the first request.
    const QVector<int>& requestedRoles() const { return m_roles; }
    void request(int role);

    /// The answer kept for a requested role, invalid if there is none of this generation.
    QVariant answer(int role, quint64 generation) const;
    void keep(int role, quint64 generation, const QVariant& answer);

private:
    struct Answer
    {
        quint64 generation = 0;
        QVariant value;
    };

    QVector<int> m_roles;
    std::vector<Answer> m_answers; // one a role, in the same order
};

} // namespace qelm::datamodels::proxy
