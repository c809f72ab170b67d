#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>

namespace editor {

/// While it is on, wants the rows of which a role is true (or a number above 0); off, as at the start, every row.
class FlagPredicate : public qelm::datamodels::proxy::BasePredicate
{
    Q_OBJECT
    Q_PROPERTY(bool isOn READ isOn WRITE setOn NOTIFY onChanged)

public:
    explicit FlagPredicate(int role, QObject* parent = nullptr) : BasePredicate(parent), m_role(role) {}

    bool evaluate(const QModelIndex& index) const override { return !m_isOn || index.data(m_role).toBool(); }

    bool isOn() const { return m_isOn; }
    void setOn(bool on);

Q_SIGNALS:
    void onChanged();

private:
    int m_role;
    bool m_isOn = false;
};

} // namespace editor
