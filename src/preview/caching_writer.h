// Writes caching files: each comes into being whole, and of two writes of the same file the one ordered last stays.
// None waits for the disk, because a caching file that a power cut takes away is made anew.
#pragma once

#include "preview/caching_job.h"

#include <QFuture>

namespace vellum {

// The file's bytes. A text whose encoding is told neither by itself nor by a mark becomes UTF-8 with a mark, because a
// browser could only guess.
[[nodiscard]] QByteArray CachingBytes(const CachingJob& job);

// Writes on a worker thread, after whatever is being written there already, and touches the file system nowhere else.
// The result is the path of the file. It is empty when the file can't be written; the old one is then whole. It is the
// path as well when a later write of the same file has overtaken this one.
[[nodiscard]] QFuture<QString> WriteCachingFileLater(CachingJob job);

// Writes at once, overtaking those on the worker thread. Returns the path of the file, empty when it can't be written.
[[nodiscard]] QString WriteCachingFile(const CachingJob& job);

}  // namespace vellum
