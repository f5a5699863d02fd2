#include "platform/image_size.h"

#include <QFileInfo>
#include <QImageReader>

namespace vellum {

std::optional<QSize> ImageSize(const QString& path) {
    if (!QFileInfo(path).isFile()) return std::nullopt;  // a pipe or a device might never end
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) return std::nullopt;
    // Some formats have no size in their head, so the picture itself must tell.
    if (const QSize size = reader.size(); size.isValid()) return size;
    const QImage picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional(picture.size());
}

}  // namespace vellum
