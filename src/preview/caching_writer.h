// Writes caching files: each comes into being whole, and of two writes of the same file the one ordered last stays.
// None waits for the disk, because a caching file that a power cut takes away is made anew.
#pragma once

#include "files/text_file.h"

#include <QFuture>
#include <QString>

#include <optional>

namespace vellum {

struct CachingJob {
    QString path;
    QString text;                  // with any line ends; the file gets CR LF
    TextFormat format;             // of the document: the file takes its encoding
    std::optional<int> scrollTop;  // puts the script that scrolls there behind the text
};

// The file's bytes. A text whose encoding is told neither by itself nor by a mark becomes UTF-8 with a mark, because a
// browser could only guess.
[[nodiscard]] QByteArray CachingBytes(const CachingJob& job);

// Writes on a worker thread, behind whatever is being written there already. The result is false when the file can't be
// written; the old one is then whole. True as well when a later write of the same file has overtaken this one.
[[nodiscard]] QFuture<bool> WriteCachingFileLater(CachingJob job);

// Writes at once, overtaking those on the worker thread.
[[nodiscard]] bool WriteCachingFile(const CachingJob& job);

// The same for bytes as they are.
[[nodiscard]] bool WriteCachingBytes(const QString& path, const QByteArray& bytes);

}  // namespace vellum
