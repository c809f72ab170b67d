#pragma once

#include <host/base/host_export.h>
#include <host/images/decode_image.h>

#include <QSize>

class TessenImageRequestDesc;

namespace Tessen {

/// What a view shows of a decoded image: its channels masked, real light exposed. Without a mask the pixels are shared.
DATAMODELS_HOST_API QImage pictureOf(const DecodedImage& image, const TessenImageRequestDesc& desc);

/// Fits a picture into a wished size with its sides in proportion, without ever enlarging it. A side that is not
/// positive asks for nothing.
QImage fitted(const QImage& picture, const QSize& wished);
QSize fittedSize(const QSize& size, const QSize& wished);

} // namespace Tessen
