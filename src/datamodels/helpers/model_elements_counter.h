#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractItemModel>
#include <QPointer>
#include <QQmlParserStatus>

/// Keeps the number of rows of a model, for a label such as "1,204 assets". It counts the whole model when model or mode
/// change and after a reset, and only the rows concerned when rows come or go. Moves, layout changes and changes of data
/// leave the value alone.
///
/// Signals: a setter stores, sends `modelChanged` or `modeChanged`, then counts; `valueChanged` follows if the value
/// differs. Made by QML, it counts first when the element is complete.
///
/// Intended: rows inserted below a former leaf leave that leaf in the count of `Leafs` until the next reset. The
/// signals of an earlier model stay connected, and their ranges are counted in the present model: do not give a
/// counter another model while the old one still changes. A model that is set again is counted twice.
///
/// Does not own the model. A model that dies leaves the last value behind, until the mode, another model or null is set.
/// Thread: GUI only. Cost: one `index` and one `rowCount` a row counted; `RootChildren` counts in constant time.
class DATAMODELS_API ModelElementsCounter : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QAbstractItemModel* model READ model WRITE setModel NOTIFY modelChanged)
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(int value READ value NOTIFY valueChanged)

public:
    enum Mode
    {
        RootChildren, ///< the rows of the first level
        Leafs,        ///< the rows without rows, on all levels
        All,          ///< every row
    };
    Q_ENUM(Mode)

    explicit ModelElementsCounter(QObject* parent = nullptr);
    ~ModelElementsCounter() override;

    QAbstractItemModel* model() const { return m_model; }
    /// Null counts nothing: 0.
    void setModel(QAbstractItemModel* model);
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    int value() const { return m_value; }

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void modelChanged();
    void modeChanged();
    void valueChanged();

private:
    void count(const QModelIndex& parent, int first, int last, int& result) const;
    void onModelReset();
    void onRowsInserted(const QModelIndex& parent, int first, int last);
    void onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
    void setValue(int value);
    void updateValue();

    QPointer<QAbstractItemModel> m_model;
    bool m_hasModel = false; // stays true for one that has died, so that null is a change
    Mode m_mode = All;
    int m_value = 0;
    bool m_complete = true;
};
