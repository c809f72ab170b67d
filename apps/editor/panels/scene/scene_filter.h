#pragma once

#include "flag_predicate.h"

#include <datamodels/proxy/asset_filter_proxy_model.h>
#include <datamodels/proxy/predicates/switch_predicate.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <QItemSelectionModel>

class SceneItemModel;

namespace editor {

/// The outliner's rows as its filter leaves them, with what a row shows beside the roles of the scene.
///
/// A row has to have all the words in its name or type, be of the chosen type, and, where that is asked for, differ
/// from what is saved or have a problem. Roles of its own: "key", a text that tells objects apart as long as they live;
/// "isSelected", which follows the selection; "problem", a sentence.
/// `activeChanged` precedes the filtering that it is about. Owns neither model nor selection. Thread: GUI.
class SceneFilter : public qelm::datamodels::proxy::AssetFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(qelm::datamodels::proxy::TextPredicate* words READ words CONSTANT)
    Q_PROPERTY(qelm::datamodels::proxy::SwitchPredicate* type READ type CONSTANT)
    Q_PROPERTY(editor::FlagPredicate* onlyModified READ onlyModified CONSTANT)
    Q_PROPERTY(editor::FlagPredicate* onlyProblems READ onlyProblems CONSTANT)
    Q_PROPERTY(QStringList types READ types CONSTANT)
    Q_PROPERTY(bool isActive READ isActive NOTIFY activeChanged)
    Q_PROPERTY(QStringList needles READ needles NOTIFY needlesChanged)

public:
    enum Role
    {
        KeyRole = 0x7ed0000,
        IsSelectedRole,
        ProblemRole,
    };

    SceneFilter(SceneItemModel& model, QItemSelectionModel& selection);
    ~SceneFilter() override;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    qelm::datamodels::proxy::TextPredicate* words() const { return m_words; }
    qelm::datamodels::proxy::SwitchPredicate* type() const { return m_type; }
    FlagPredicate* onlyModified() const { return m_onlyModified; }
    FlagPredicate* onlyProblems() const { return m_onlyProblems; }
    /// What `type` can be switched to.
    static QStringList types();

    bool isActive() const { return m_isActive; }
    /// What to mark in the names.
    QStringList needles() const;
    Q_INVOKABLE void clear();

Q_SIGNALS:
    void activeChanged();
    void needlesChanged();

private:
    void follow();
    void tellSelection(const QItemSelection& changed);

    QItemSelectionModel& m_selection;
    qelm::datamodels::proxy::TokensPredicate* m_words;
    qelm::datamodels::proxy::SwitchPredicate* m_type;
    FlagPredicate* m_onlyModified;
    FlagPredicate* m_onlyProblems;
    bool m_isActive = false;
};

} // namespace editor
