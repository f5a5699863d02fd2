#include "files/rename_file.h"

#include "files/file_names.h"

#include <QByteArray>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace vellum {
namespace {

enum class Target { Free, SameFile, Taken };

Target TargetOf(const QByteArray& from, const QByteArray& to) {
    struct stat source {};
    struct stat target {};
    if (::lstat(to.constData(), &target) != 0) return errno == ENOENT ? Target::Free : Target::Taken;
    const bool same =
        ::lstat(from.constData(), &source) == 0 && source.st_dev == target.st_dev && source.st_ino == target.st_ino;
    return same ? Target::SameFile : Target::Taken;
}

}  // namespace

bool RenameFile(const QString& oldPath, const QString& newPath) {
    const QByteArray from = EncodeFileName(oldPath);
    const QByteArray to = EncodeFileName(newPath);
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
    switch (errno) {
        case EEXIST:
            // Where capitals don't count, a name that differs in them alone is taken by the file itself.
            if (TargetOf(from, to) != Target::SameFile) return false;
            break;
        case EINVAL:
        case ENOSYS:
            // Some network file systems can't refuse by themselves.
            if (TargetOf(from, to) == Target::Taken) return false;
            break;
        default:
            return false;
    }
    return ::rename(from.constData(), to.constData()) == 0;
}

}  // namespace vellum
