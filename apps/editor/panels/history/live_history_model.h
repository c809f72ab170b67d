#pragma once

#include <datamodels/history_model.h>

namespace Ozy {
class ChangesController;
}

namespace editor {

/// The undo history of a document as it happens: a row "Opened" for the state ahead of all steps, then the
/// steps.
///
/// Roles: "name" (the display role), and of the state that a row leads to: "isCurrent", whether it is in
/// force; "isUndone", whether it comes after that; "isSaved", whether it is what was saved. To jump to a row
/// is the controller's `jumpTo` with the row as index. Signals of a change, in order: removal of the rows
/// that are gone, insertion of those that are new, data changed for the rows between the old current one and
/// the new, then for rows that were or are the saved one. A saved state that was left before the model was
/// made is known from the next time that it is in force. The controller must outlive it. Thread: GUI. Cost:
/// linear in the rows that change.
class LiveHistoryModel : public HistoryModel
{
    Q_OBJECT

public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        IsCurrentRole = Qt::UserRole + 1,
        IsUndoneRole,
        IsSavedRole,
    };

    explicit LiveHistoryModel(Ozy::ChangesController& history);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QString stepName(int step) const;
    void follow();
    void followSteps();
    bool isKnown(int step) const;
    void dropFirst();
    void replaceFrom(int step);
    void followCurrent();
    void followSaved();

    const Ozy::ChangesController& m_history;
    // What has been told so far; the controller tells a change when it is done.
    QStringList m_names;
    int m_current = 0;
    int m_saved = -1; // -1: none of the rows
};

} // namespace editor
