// Shows what is in a picture frame.
#pragma once

#include <QImage>
#include <QString>
#include <optional>

#include "app/dialogs/frame_picture.h"

namespace mdlPLM {

struct DecodedPicture {
    QImage Image;  ///< no larger than asked for
    QSize Size;    ///< of the picture itself, in pixels
    QString Format;
};

/// The picture, scaled down to fit into `most`; nothing when it is in no format for pictures of
/// this kind (JPEG, PNG, GIF, BMP, WebP), is damaged, or is larger than a cover can sensibly be.
std::optional<DecodedPicture> DecodePicture(const FramePicture& picture, QSize most);

/// "JPEG, 500 x 500, Front cover"
QString DescribePicture(const DecodedPicture& decoded, int pictureType);

}  // namespace mdlPLM
