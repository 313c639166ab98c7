#include "app/dialogs/qt_decoded_picture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>

namespace mdlPLM {
namespace {

bool IsPictureFormat(const QByteArray& format) {
    static const QByteArrayList Formats = {"jpeg", "png", "gif", "bmp", "webp"};
    return Formats.contains(format);
}

std::optional<DecodedPicture> Decode(BytesView data, QSize most) {
    constexpr qint64 MostPixels = 50'000'000;
    QByteArray bytes = QByteArray::fromRawData(data.data(), static_cast<qsizetype>(data.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    const QSize size = reader.size();
    if (!IsPictureFormat(format) || size.isEmpty()) return std::nullopt;
    if (qint64(size.width()) * size.height() > MostPixels) return std::nullopt;
    if (size.width() > most.width() || size.height() > most.height())
        reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    DecodedPicture decoded{reader.read(), size, QString::fromLatin1(format).toUpper()};
    return decoded.Image.isNull() ? std::nullopt : std::optional(std::move(decoded));
}

}  // namespace

std::optional<DecodedPicture> DecodePicture(const FramePicture& picture, QSize most) {
    if (auto decoded = Decode(picture.Data, most)) return decoded;
    return Decode(WithoutUnsynchronisation(picture.Data), most);
}

QString DescribePicture(const DecodedPicture& decoded, int pictureType) {
    const char* shows = PictureTypeName(pictureType);
    return QCoreApplication::translate("FramePicture", "%1, %2 x %3, %4")
        .arg(decoded.Format, QString::number(decoded.Size.width()),
             QString::number(decoded.Size.height()),
             QCoreApplication::translate("FramePicture", shows));
}

}  // namespace mdlPLM
