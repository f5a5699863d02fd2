#include "platform/picture.h"

#include <QFileInfo>
#include <QImageReader>

namespace vellum {

Picture ReadPicture(const QString& path) {
    Picture picture;
    if (!QFileInfo(path).isFile()) return picture;  // a pipe or a device might never end
    // The reader has a limit of its own to what an image may take.
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);
    if (!reader.canRead()) return picture;
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
