#pragma once

#include <datamodels/datamodels_export.h>

#include <QItemSelectionModel>
#include <QObject>

#include <memory>

/// Links a `GridView`, which knows no selection, to a `QItemSelectionModel`: arrow keys and presses select with the
/// usual modifiers, and the view's `currentIndex` follows the current row.
///
/// The view is known by its properties only, so that anything with "cellWidth" and "keyNavigationEnabled" serves;
/// "contentItem", "currentIndex" and "keyNavigationWraps" are read and written if they are there. A target without the
/// first two gets no keys and is not kept in step, without a message; `pressed` still selects.
///
/// Control toggles, Shift adds the range from the current row, and Control wins over Shift; with `SingleSelection`
/// Shift does nothing. An arrow moves within its line or its column: at the ends it stays, or with "keyNavigationWraps"
/// comes in again on the other side of the same line or column. A grid narrower than a cell counts as one column.
///
/// Intended: a move onto a free cell of the last line clears the selection, since no row is there.
///
/// Signals: each setter sends its own, last. Owns neither target nor selection; both may die first. Thread: GUI only.
/// Cost of a key: constant.
class DATAMODELS_API QtGridViewSelector : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(QItemSelectionModel* selection READ selection WRITE setSelection NOTIFY selectionChanged)
    Q_PROPERTY(SelectionMode selectionMode READ selectionMode WRITE setSelectionMode NOTIFY selectionModeChanged)

public:
    enum SelectionMode : int
    {
        SingleSelection,
        MultiSelection,
    };
    Q_ENUM(SelectionMode)

    explicit QtGridViewSelector(QObject* parent = nullptr);
    ~QtGridViewSelector() override;

    QObject* target() const;
    void setTarget(QObject* target);
    QItemSelectionModel* selection() const;
    void setSelection(QItemSelectionModel* selection);
    SelectionMode selectionMode() const;
    void setSelectionMode(SelectionMode mode);

    /// Selects a row as a press with the keyboard's present modifiers does; -1 clears selection and current row.
    Q_INVOKABLE void pressed(int index);

Q_SIGNALS:
    void targetChanged();
    void selectionChanged();
    void selectionModeChanged();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    class Private;
    std::unique_ptr<Private> d;
};
