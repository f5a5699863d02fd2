#include "files/picture.h"

#include "files/file_descriptor.h"
#include "files/file_facts.h"
#include "files/file_names.h"

#include <QFile>
#include <QImageReader>

#include <fcntl.h>

namespace vellum {
namespace {

// An open file and the reader of its picture, which goes by the content. What is no picture can't be read, nor can a
// pipe or a device, which might never end.
class PictureFile {
public:
    explicit PictureFile(const QString& path) {
        const std::optional<FileFacts> facts = FactsOf(path);
        if (!facts || !facts->isFile) return;
        descriptor_ = OpenFile(EncodeFileName(path), O_RDONLY);
        if (!descriptor_.IsOpen() || !file_.open(descriptor_.Get(), QIODevice::ReadOnly)) return;
        reader_.setDevice(&file_);
        reader_.setDecideFormatFromContent(true);
        reader_.setAutoTransform(false);
    }

    [[nodiscard]] QImageReader& Reader() { return reader_; }

private:
    FileDescriptor descriptor_;
    QFile file_;
    QImageReader reader_;
};

}  // namespace

std::optional<QSize> ImageSize(const QString& path) {
    PictureFile file(path);
    QImageReader& reader = file.Reader();
    if (!reader.canRead()) return std::nullopt;
    // Some formats have no size in their head, so the picture itself must tell.
    if (const QSize size = reader.size(); size.isValid()) return size;
    const QImage picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional(picture.size());
}

Picture ReadPicture(const QString& path) {
    Picture picture;
    // The reader has a limit of its own to what an image may take.
    PictureFile file(path);
    QImageReader& reader = file.Reader();
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
