// The files that a session keeps of one document: a whole copy, as a line of JSON that describes it and then its UTF-16
// code units as they stand, so that whatever the text holds comes back; and the journal of the edits since.
//
// Copies of a document have ascending generations. One that isn't sure to be on disk yet has a name of its own beside
// the copy before it.
#pragma once

#include "files/file_descriptor.h"
#include "files/recovery_store.h"

#include <QByteArray>

#include <optional>

namespace vellum {

// The copy that is on disk for sure, one that isn't yet, and the journal that belongs to a copy of either kind.
[[nodiscard]] QByteArray CopyPath(const QByteArray& folder, int document);
[[nodiscard]] QByteArray PartPath(const QByteArray& folder, int document, int generation);
[[nodiscard]] QByteArray JournalPath(const QByteArray& folder, int document, int generation);

// The name of a file, taken apart.
struct RecoveryFileName {
    enum class Kind : unsigned char { Copy, Part, Journal };

    int document = 0;
    int generation = 0;  // 0 for a copy, whose name doesn't tell
    Kind kind = Kind::Copy;
};
// Empty for the name of something else.
[[nodiscard]] std::optional<RecoveryFileName> ReadFileName(const QString& name);

struct WrittenCopy {
    FileDescriptor file;  // not synced
    QByteArray checksum;  // the seed of its journal
    qint64 size = 0;      // in bytes
};

// Makes a file that only its owner may read. Empty with errno on failure; there is no such file then.
[[nodiscard]] std::optional<WrittenCopy> WriteRecoveryCopy(const QByteArray& path, const RecoveredText& copy,
                                                           int generation);

struct ReadCopy {
    RecoveredText text;
    QByteArray checksum;
    int generation = 0;
};

// Empty for a file that can't be read or is damaged.
[[nodiscard]] std::optional<ReadCopy> ReadRecoveryCopy(const QByteArray& path);

// The newest copy of a document that is whole, with the edits since. Empty when there is none.
[[nodiscard]] std::optional<RecoveredText> ReadKeptText(const QByteArray& folder, int document);

}  // namespace vellum
