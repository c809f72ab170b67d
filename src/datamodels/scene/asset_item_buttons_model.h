#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractListModel>

/// The role names of a list of row buttons; rows and values are left to the derived class.
class DATAMODELS_API AssetItemButtonsModel : public QAbstractListModel
{
public:
    enum Roles
    {
        ActionRole = Qt::UserRole, ///< "action": the button, to be invoked
        IconColourRole,            ///< "iconColour"
        CheckedRole,               ///< "checked"
        PosIndexRole,              ///< "posIndex": where to show it among the others
        IconTypeRole,              ///< "iconType"
        ShowOnlyOnHoverRole,       ///< "showOnlyOnHover"
    };

    explicit AssetItemButtonsModel(QObject* parent = nullptr);
    ~AssetItemButtonsModel() override;

    QHash<int, QByteArray> roleNames() const override;
};
