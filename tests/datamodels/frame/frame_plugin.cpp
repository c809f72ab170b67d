// A plug-in with a table of QML types like the library's own: six rows at load, and more in an exported
// function.

#include <datamodels/qml_registration.h>

#include <QObject>
#include <QQmlParserStatus>

namespace frame {

class Composer : public QObject
{
    Q_OBJECT
};

class Channels : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int count READ count CONSTANT)

public:
    using QObject::QObject;
    int count() const { return 4; }
};

class Info : public QObject
{
    Q_OBJECT
};

class FlatInfo : public QObject
{
    Q_OBJECT
};

class Image : public QObject
{
    Q_OBJECT
    Q_PROPERTY(frame::Channels* channels READ channels CONSTANT)

public:
    Channels* channels() { return &m_channels; }

private:
    Channels m_channels;
};

class SimpleImage : public QObject
{
    Q_OBJECT
};

class Sheet : public QObject
{
    Q_OBJECT
};

class QtSheetHelper : public QObject
{
    Q_OBJECT
};

class Vertex : public QObject
{
    Q_OBJECT
};

} // namespace frame

using datamodels::creatable;
using datamodels::uncreatable;

namespace {

const datamodels::LoadTimeQmlTypes loadTimeTypes{
    creatable<frame::Composer>("Frame.Misc", "Composer"),
    uncreatable<frame::Channels>(),
    creatable<frame::Info>("Frame.Preview", "Info"),
    creatable<frame::FlatInfo>("Frame.Preview", "FlatInfo"),
    creatable<frame::Image>("Frame.Preview", "Image"),
    creatable<frame::SimpleImage>("Frame.Preview", "SimpleImage"),
};

} // namespace

extern "C" Q_DECL_EXPORT void registerFrameEditorTypes()
{
    datamodels::registerQmlTypes({
        creatable<frame::Sheet>("Frame.Editor", "Sheet"),
        creatable<frame::QtSheetHelper>("Frame.Editor", "SheetHelper"),
        uncreatable<frame::Vertex>(),
    });
}

#include "frame_plugin.moc"
