#pragma once

#include <datamodels/proxy/predicates/text_predicate.h>

#include <memory>

namespace qelm::datamodels::proxy {

class MultiPredicate;

/// Reads its text as words parted by single spaces, and wants the rows that hold all of them, or one of them. Each word
/// is sought as by a `TextPredicate` over the same roles, so that the words of one row may stand in different roles.
///
/// A text without words wants every row. A change of the type sends `changed`.
/// Cost: the text is split when text, roles or type change, never in `evaluate`.
class DATAMODELS_API TokensPredicate : public TextPredicate
{
public:
    enum class Type
    {
        All, ///< every word must match
        Any, ///< one word must match
    };

    explicit TokensPredicate(std::unordered_set<int> roles = {Qt::DisplayRole}, QObject* parent = nullptr);
    ~TokensPredicate() override;

    bool evaluate(const QModelIndex& index) const override;

    Type type() const { return m_type; }
    void setType(Type type);

protected:
    void onTextChanged() override;
    void onRolesChanged() override;

private:
    void update();
    bool innerHasTheType() const;

    // Belongs to no object tree and is not connected: its changes while it is rebuilt are nobody's business.
    std::unique_ptr<MultiPredicate> m_innerPredicate;
    Type m_type = Type::All;
};

} // namespace qelm::datamodels::proxy
