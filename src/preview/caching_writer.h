// Writes caching files. A file is replaced as a whole, and of two writes of the same file the one ordered last stays.
// Nothing is forced to the disk, because a caching file that is lost in a power cut is made anew. Nothing is written
// through a link, and nobody reads the file who can't read the document's own file; only the person reads it when there
// is none beside it.
#pragma once

#include "preview/caching_job.h"

#include <QFuture>

namespace vellum {

// The file's bytes. A text in another encoding than UTF-8 that neither declares it nor has a byte order mark becomes
// UTF-8 with a mark, because a browser could only guess. So does one that its encoding can't hold: browsers believe the
// mark rather than the declaration.
[[nodiscard]] QByteArray CachingBytes(const CachingJob& job);

// Writes on a worker thread, after what was ordered there before; this thread doesn't touch the file system. The result
// is the path of the file, also when a later write of the same file has overtaken this one. It is empty when the file
// can't be written; the old one is then whole.
[[nodiscard]] QFuture<QString> WriteCachingFileLater(CachingJob job);

// Writes at once, without waiting for the worker thread. Returns the path of the file, empty when it can't be written.
[[nodiscard]] QString WriteCachingFile(const CachingJob& job);

}  // namespace vellum
