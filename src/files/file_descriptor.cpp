#include "files/file_descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {

FileDescriptor::~FileDescriptor() {
    const int number = errno;  // callers report the failure that made them leave, not that of closing
    if (IsOpen()) ::close(descriptor_);
    errno = number;
}

bool FileDescriptor::Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR;
}

FileDescriptor OpenFile(const QByteArray& path, int flags, mode_t mode) {
    int descriptor = -1;
    do {
        descriptor = ::open(path.constData(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
    } while (descriptor < 0 && errno == EINTR);
    return FileDescriptor(descriptor);
}

std::optional<QByteArray> ReadAll(int descriptor, qint64 most) {
    constexpr qsizetype kStep = 65'536;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) return std::nullopt;
    if (status.st_size > most) {
        errno = EFBIG;
        return std::nullopt;
    }
    // One byte more than the file says, so that its end is seen without another growth.
    QByteArray bytes(static_cast<qsizetype>(status.st_size) + 1, Qt::Uninitialized);
    qsizetype length = 0;
    for (;;) {
        const ssize_t got = ::read(descriptor, bytes.data() + length, static_cast<size_t>(bytes.size() - length));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        length += got;
        if (length > most) {
            errno = EFBIG;
            return std::nullopt;
        }
        if (length == bytes.size()) bytes.resize(length + std::max(kStep, length / 2));
    }
    bytes.truncate(length);
    return bytes;
}

bool WriteAll(int descriptor, QByteArrayView bytes, qint64 offset) {
    while (!bytes.isEmpty()) {
        const ssize_t written = ::pwrite(descriptor, bytes.data(), static_cast<size_t>(bytes.size()), offset);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (written == 0) errno = EIO;
            return false;
        }
        bytes = bytes.sliced(written);
        offset += written;
    }
    return true;
}

bool SyncFile(int descriptor) {
    int result = -1;
    do {
        result = ::fsync(descriptor);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == EROFS;
}

bool GiveName(int descriptor, const QByteArray& path) {
    const QByteArray nameless = "/proc/self/fd/" + QByteArray::number(descriptor);
    return ::linkat(AT_FDCWD, nameless.constData(), AT_FDCWD, path.constData(), AT_SYMLINK_FOLLOW) == 0;
}

bool SyncFolder(const QByteArray& folder) {
    const FileDescriptor descriptor = OpenFile(folder, O_RDONLY | O_DIRECTORY);
    // A folder that we may write but not list can't be opened; the file itself is on disk by then.
    return !descriptor.IsOpen() ? errno == EACCES : SyncFile(descriptor.Get());
}

QByteArray FolderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0) return ".";
    return slash == 0 ? QByteArray("/") : path.first(slash);
}

QByteArray NameOf(const QByteArray& path) {
    return path.sliced(path.lastIndexOf('/') + 1);
}

QByteArray AbsoluteName(const QByteArray& path) {
    if (path.startsWith('/')) return path;
    const std::unique_ptr<char, void (*)(void*)> here(::getcwd(nullptr, 0), &std::free);
    return here ? QByteArray(here.get()) + '/' + path : path;
}

bool IsOurFile(const QByteArray& path) {
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

bool RemoveFile(const QByteArray& path) {
    return ::unlink(path.constData()) == 0 || errno == ENOENT;
}

}  // namespace vellum
