#include "files/file_facts.h"

#include "files/file_names.h"

#include <sys/stat.h>
#include <unistd.h>

namespace vellum {

std::optional<FileFacts> FactsOf(const QString& path) {
    constexpr mode_t anyoneWrites = S_IWUSR | S_IWGRP | S_IWOTH;
    const QByteArray name = EncodeFileName(path);
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0) return std::nullopt;
    return FileFacts{.isFile = S_ISREG(status.st_mode),
                     .isFolder = S_ISDIR(status.st_mode),
                     .isWritable = (status.st_mode & anyoneWrites) != 0 && ::access(name.constData(), W_OK) == 0,
                     .size = status.st_size,
                     .changed = QDateTime::fromSecsSinceEpoch(status.st_mtim.tv_sec)};
}

bool IsFolder(const QString& path) {
    const std::optional<FileFacts> facts = FactsOf(path);
    return facts && facts->isFolder;
}

bool MakeFolder(const QString& path) {
    return ::mkdir(EncodeFileName(path).constData(), 0777) == 0;
}

}  // namespace vellum
