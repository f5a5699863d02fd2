// What the disk tells about a path, whatever bytes its name has.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace vellum {

struct FileFacts {
    bool isFile = false;  // a regular one
    bool isFolder = false;
    bool isWritable = false;  // for this person; a file that nobody may write is read-only for root, too
    qint64 size = 0;          // bytes
    QDateTime changed;
};

// Of the file at the end of symbolic links; empty when there is none or it can't be reached.
[[nodiscard]] std::optional<FileFacts> FactsOf(const QString& path);

[[nodiscard]] bool IsFolder(const QString& path);

// Makes one folder. False when something is there already, or the system refuses.
bool MakeFolder(const QString& path);

}  // namespace vellum
