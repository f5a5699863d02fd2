#include "files/picture.h"

#include <QFileInfo>
#include <QImageReader>

namespace vellum {
namespace {

// False for what is no picture, and for a pipe or a device, which might never end. The reader goes by the content.
bool OpenPicture(QImageReader& reader, const QString& path) {
    if (!QFileInfo(path).isFile()) return false;
    reader.setFileName(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    return reader.canRead();
}

}  // namespace

std::optional<QSize> ImageSize(const QString& path) {
    QImageReader reader;
    if (!OpenPicture(reader, path)) return std::nullopt;
    // Some formats have no size in their head, so the picture itself must tell.
    if (const QSize size = reader.size(); size.isValid()) return size;
    const QImage picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional(picture.size());
}

Picture ReadPicture(const QString& path) {
    Picture picture;
    // The reader has a limit of its own to what an image may take.
    QImageReader reader;
    if (!OpenPicture(reader, path)) return picture;
    picture.size = reader.size();
    constexpr qint64 bytesPerPixel = 4;
    constexpr qint64 bytesPerMegabyte = qint64{1024} * 1024;
    const qint64 bytes = bytesPerPixel * picture.size.width() * picture.size.height();
    const bool tooLarge = picture.size.isValid() && bytes / bytesPerMegabyte >= QImageReader::allocationLimit();
    if (tooLarge) return picture;
    picture.image = reader.read();
    picture.size = picture.image.size();
    if (picture.image.isNull()) picture.size = {};
    return picture;
}

}  // namespace vellum
