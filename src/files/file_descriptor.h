// Plain files by descriptor: opened without ever waiting for a pipe, read and written whole with every step checked.
#pragma once

#include <QByteArray>

#include <optional>
#include <sys/types.h>
#include <utility>

namespace vellum {

// Owns an open descriptor; -1 is none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int Get() const { return descriptor_; }

    // False with errno when the system could not close without a loss; the descriptor is gone either way.
    [[nodiscard]] bool Close();

private:
    int descriptor_ = -1;
};

// open() that is tried again when a signal cuts it off, closed in children and never waiting for the other end of a
// pipe.
[[nodiscard]] FileDescriptor OpenFile(const QByteArray& path, int flags, mode_t mode = 0600);

// From the present position to the end. Empty with errno on failure, EFBIG for more than `most` bytes.
[[nodiscard]] std::optional<QByteArray> ReadAll(int descriptor, qint64 most);

// All bytes from an offset on. False with errno on failure; a part of them may stand in the file then.
[[nodiscard]] bool WriteAll(int descriptor, QByteArrayView bytes, qint64 offset = 0);

[[nodiscard]] bool SyncFile(int descriptor);

// Gives a file that was opened with O_TMPFILE its name, which must be free. False with errno.
[[nodiscard]] bool GiveName(int descriptor, const QByteArray& path);

// Puts the names in a folder on disk. False with errno; file systems that can't do so count as done.
[[nodiscard]] bool SyncFolder(const QByteArray& folder);

// The folder part of a path: "." for a bare name, "/" for one in the root.
[[nodiscard]] QByteArray FolderOf(const QByteArray& path);
[[nodiscard]] QByteArray NameOf(const QByteArray& path);

// The same path from the root on, where it begins at the current directory.
[[nodiscard]] QByteArray AbsoluteName(const QByteArray& path);

// A regular file, and not somebody else's.
[[nodiscard]] bool IsOurFile(const QByteArray& path);

// Removes a file. A file that isn't there counts as removed.
bool RemoveFile(const QByteArray& path);

}  // namespace vellum
