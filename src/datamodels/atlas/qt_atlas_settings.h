#pragma once

#include <datamodels/datamodels_export.h>

#include <QObject>

class IAtlasViewSettings;

/// The settings of an atlas view for QML. Each property is read from the settings when it is asked for; without settings
/// there are no channels, numbers are shown and nothing is zoomed.
///
/// Does not own the settings, and does not follow their signal: whoever sets them tells QML. Thread: GUI only.
class DATAMODELS_API QtAtlasSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool red READ red NOTIFY sourceChanged)
    Q_PROPERTY(bool green READ green NOTIFY sourceChanged)
    Q_PROPERTY(bool blue READ blue NOTIFY sourceChanged)
    Q_PROPERTY(bool alpha READ alpha NOTIFY sourceChanged)
    Q_PROPERTY(bool showNumbers READ showNumbers NOTIFY sourceChanged)
    Q_PROPERTY(float zoomFactor READ zoomFactor NOTIFY sourceChanged)
    Q_PROPERTY(int tileType READ tileType NOTIFY sourceChanged)

public:
    explicit QtAtlasSettings(QObject* parent = nullptr);

    bool red() const;
    bool green() const;
    bool blue() const;
    bool alpha() const;
    bool showNumbers() const;
    float zoomFactor() const;
    int tileType() const; ///< an `AtlasType`

    /// Null for none. Tells of a change also when they are the same: what they say may have changed.
    void setSource(const IAtlasViewSettings* settings);

Q_SIGNALS:
    void sourceChanged();

private:
    const IAtlasViewSettings* m_settings = nullptr;
};
