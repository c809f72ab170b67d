#pragma once

#include <datamodels/atlas/atlas_view_data.h>
#include <datamodels/atlas/qt_atlas_settings.h>

#include <QItemSelectionModel>
#include <QVariant>

/// What a plug-in gives to the QML of an atlas view: the atlas, its settings and the selection.
///
/// `object` is for `QtAtlasModel::source`. It points to the context's own copy of the data and stays the same: after
/// another `setData` a model shows what it took before until `source` is written again.
/// Signals of `setData`, in order: `sourceChanged` of the settings, `objectChanged`, `settingsChanged`. A change of the
/// settings is `settingsChanged` alone. Owns the copy, the settings for QML and the selection model, which has no model
/// until a view gives it one. Thread: GUI only.
class DATAMODELS_API AtlasContext : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant object READ getObject NOTIFY objectChanged)
    Q_PROPERTY(QObject* settings READ settings NOTIFY settingsChanged)
    Q_PROPERTY(QItemSelectionModel* selectionModel READ getSelectionModel NOTIFY objectChanged)

public:
    AtlasContext();
    ~AtlasContext() override;

    using QObject::connect;

    /// The settings that it names outlive the context, or are replaced before they go.
    void setData(const AtlasViewData& data);

    QVariant getObject(); ///< an `AtlasViewData*`
    QObject* settings() { return &m_settings; }
    QItemSelectionModel* getSelectionModel() const { return m_selectionModel; }

Q_SIGNALS:
    void objectChanged();
    void settingsChanged();

private:
    void connect(const IAtlasViewSettings* settings);

    AtlasViewData m_data;
    QItemSelectionModel* m_selectionModel;
    QtAtlasSettings m_settings;
    std::vector<ryk::ScopedConnection> m_connections;
};
