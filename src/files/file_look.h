// A look at a file: whether something else has changed it since it was last read or written.
#pragma once

#include "files/text_file.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace vellum {

// What can be told of a file without reading it. A file that isn't there has the stamp {}.
struct FileStamp {
    qint64 size = 0;
    qint64 modified = 0;  // nanoseconds since 1970, UTC
    quint64 device = 0;
    quint64 inode = 0;  // 0: there is no file

    bool operator==(const FileStamp&) const = default;
    [[nodiscard]] bool IsThere() const { return inode != 0; }
    // Links of both kinds lead to the same file.
    [[nodiscard]] bool IsSameFile(const FileStamp& other) const {
        return IsThere() && inode == other.inode && device == other.device;
    }
};

// Empty when the system doesn't tell, as with a mount that is gone. Blocks.
[[nodiscard]] std::optional<FileStamp> StampOf(const QString& path);

// What is known of a file: its content when it was last read or written, and its stamp when it was last looked at.
struct KnownFile {
    QString path;
    FileStamp stamp;
    QByteArray bytes;
};

enum class FileChange { None, Changed, Gone };

struct FileLook {
    FileChange change = FileChange::None;
    FileStamp stamp;   // as it is now
    LoadedText found;  // what the file holds, when it was changed
};

// Empty when there is nothing new since the last look: the stamp is the same, or the file doesn't answer or can't be
// read. A file that holds the known bytes has no change, whatever its stamp. Blocks, and may run in any thread.
[[nodiscard]] std::optional<FileLook> LookAt(const KnownFile& known);

// Puts bytes into a new file beside `path`: "page.other.htm", "page.other-2.htm" and so on. Returns its path, empty
// when it can't be written. Blocks.
[[nodiscard]] QString KeepBeside(const QString& path, const QByteArray& bytes);

}  // namespace vellum
