#pragma once

#include <datamodels/datamodels_export.h>
#include <host/asset/asset_selection.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>

#include <QColor>
#include <QObject>
#include <QString>

#include <functional>

/// One button of a row. Its checked state is the value of its property when it was made: whoever owns it makes it anew
/// when the property changes. Thread: GUI only.
class DATAMODELS_API SceneItemButton : public QObject
{
    Q_OBJECT

public:
    /// An empty name becomes that of the property; without either it fails an assertion. A colour function of the record
    /// is called here and takes the place of its colour.
    SceneItemButton(QObject* parent, zarn::BoundProperty property, std::function<void(IAssetSelection*, bool)> handler,
                    Meta::IconButton iconButton, QString name, QString toolTip);
    ~SceneItemButton() override;

    /// Runs the handler as one undo step "Icon pressed" of the selection's document. It may destroy the button.
    /// An empty handler throws `std::bad_function_call`.
    Q_INVOKABLE void invoke(IAssetSelection* assetSelection, bool inversion = false);

    const QString& name() const { return m_name; }
    QString icon() const;
    /// Transparent without a colour.
    QColor iconColor() const;
    bool isChecked() const { return m_checked; }
    bool isShowOnlyOnHover() const { return m_iconButton.showOnlyOnHover; }
    std::size_t position() const { return m_iconButton.position; }
    QString toolTip() const { return m_toolTip; }

private:
    void updateCheckedState();

    std::function<void(IAssetSelection*, bool)> m_handler;
    zarn::BoundProperty m_property;
    Meta::IconButton m_iconButton;
    QString m_name;
    QString m_toolTip;
    bool m_checked = false;
};
