#pragma once

#include <datamodels/datamodels_export.h>

#include <QItemSelectionModel>
#include <QObject>
#include <QQmlParserStatus>

/// Tells a delegate whether its row is selected: `AtlasSelectionHelper { selection: ...; index: ... }`.
///
/// `selected` is false without a row (-1), without a selection, and for a selection without a model. While QML still loads
/// the component it is not evaluated, and once when it has. Order of signals: `selectedChanged` before the one of the property
/// that brought it about. The selection is not owned, and forgotten when it goes. Thread: GUI only.
class DATAMODELS_API QtAtlasSelectionHelper : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QItemSelectionModel* selection READ selection WRITE setSelection NOTIFY selectionChanged)
    Q_PROPERTY(int index READ index WRITE setIndex NOTIFY indexChanged)
    Q_PROPERTY(bool selected READ isSelected NOTIFY selectedChanged)

public:
    explicit QtAtlasSelectionHelper(QObject* parent = nullptr);

    QItemSelectionModel* selection() const { return m_selection; }
    void setSelection(QItemSelectionModel* selection);
    int index() const { return m_index; }
    void setIndex(int index);
    bool isSelected() const { return m_selected; }

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void selectionChanged();
    void indexChanged();
    void selectedChanged();

private Q_SLOTS:
    void onSelectionDestroyed();

private:
    void refresh();

    QItemSelectionModel* m_selection = nullptr;
    int m_index = -1;
    bool m_componentLoading = false;
    bool m_selected = false;
};
