#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>

#include <QStringList>

/// Answers the same for every row, and writes down what it was asked: its name and the row's text.
class AskedPredicate : public qelm::datamodels::proxy::BasePredicate
{
public:
    AskedPredicate(QString name, bool answer, QStringList* asked = nullptr, QObject* parent = nullptr)
        : BasePredicate(parent), m_name(std::move(name)), m_answer(answer), m_asked(asked)
    {
    }

    bool evaluate(const QModelIndex& index) const override
    {
        if (m_asked)
            m_asked->append(m_name + ' ' + index.data().toString());
        return m_answer;
    }

private:
    QString m_name;
    bool m_answer;
    QStringList* m_asked;
};
