#pragma once

#include <QQuickImageProvider>

namespace editor {

/// Draws the editor's one-colour icons in any colour: `image://icon/<name>/<rrggbb>` is `icons/<name>.svg` with its
/// `currentColor` replaced, at the size that the image asks for, or 16 by 16.
///
/// An unknown name gives a null image, which QML reports. Thread: GUI.
class IconProvider : public QQuickImageProvider
{
public:
    IconProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace editor
