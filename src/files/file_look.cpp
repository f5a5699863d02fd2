#include "files/file_look.h"

#include "files/file_names.h"
#include "files/safe_write.h"

#include <QFileInfo>

#include <cerrno>
#include <sys/stat.h>
#include <utility>

namespace vellum {

std::optional<FileStamp> StampOf(const QString& path) {
    struct stat status = {};
    if (::stat(EncodeFileName(path).constData(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return FileStamp{};
        return std::nullopt;
    }
    constexpr qint64 nanosecondsInSecond = 1'000'000'000;
    return FileStamp{.size = status.st_size,
                     .modified = status.st_mtim.tv_sec * nanosecondsInSecond + status.st_mtim.tv_nsec,
                     .device = status.st_dev,
                     .inode = status.st_ino};
}

std::optional<FileLook> LookAt(const KnownFile& known) {
    const std::optional<FileStamp> stamp = StampOf(known.path);
    if (!stamp || *stamp == known.stamp) return std::nullopt;
    if (!stamp->IsThere()) return FileLook{.change = FileChange::Gone, .stamp = *stamp};
    std::optional<LoadedText> found = ReadTextFile(known.path);
    if (!found) return std::nullopt;
    const FileChange change = found->bytes == known.bytes ? FileChange::None : FileChange::Changed;
    return FileLook{.change = change, .stamp = *stamp, .found = std::move(*found)};
}

QString KeepBeside(const QString& path, const QByteArray& bytes) {
    constexpr int mostCopies = 1000;
    const QFileInfo file(path);
    const QString ending = file.suffix().isEmpty() ? QString() : '.' + file.suffix();
    const QString stem = path.chopped(ending.size()) + ".other";
    for (int number = 1; number <= mostCopies; ++number) {
        QString beside = stem + (number == 1 ? QString() : '-' + QString::number(number)) + ending;
        if (StampOf(beside) == FileStamp()) return WriteFileSafely(beside, bytes) ? beside : QString();
    }
    return {};
}

}  // namespace vellum
