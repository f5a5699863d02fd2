#include "files/trash.h"

#include "files/file_descriptor.h"
#include "files/file_names.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

// A folder that takes what was deleted, and the path of the file as that folder's notes tell it.
struct Trash {
    QByteArray folder;
    QByteArray path;
};

// The disk that a path is on; -1 for one that isn't there.
qint64 DiskOf(const QByteArray& path) {
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 ? static_cast<qint64>(status.st_dev) : -1;
}

bool MakeOwnFolder(const QByteArray& folder) {
    struct stat status = {};
    if (::mkdir(folder.constData(), 0700) != 0 && errno != EEXIST) return false;
    return ::lstat(folder.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid();
}

QByteArray HomeTrash() {
    QByteArray data = qgetenv("XDG_DATA_HOME");
    if (!data.startsWith('/')) data = QFile::encodeName(QDir::homePath()) + "/.local/share";
    return data + "/Trash";
}

// The disk that a path is on or would be made on.
qint64 DiskFor(QByteArray path) {
    while (DiskOf(path) == -1 && path != "/") path = FolderOf(path);
    return DiskOf(path);
}

QByteArray TopOfDisk(const QByteArray& path) {
    QByteArray top = FolderOf(path);
    const qint64 disk = DiskOf(top);
    while (top != "/" && DiskOf(FolderOf(top)) == disk) top = FolderOf(top);
    return top;
}

// One that all share is used only when nobody can take another's files out of it.
bool IsSharedTrash(const QByteArray& folder) {
    struct stat status = {};
    return ::lstat(folder.constData(), &status) == 0 && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX) != 0;
}

// The trash for an absolute path. The folder is empty when there is none.
Trash TrashFor(const QByteArray& path) {
    const QByteArray home = HomeTrash();
    if (DiskFor(home) == DiskOf(FolderOf(path))) {
        const bool made = QDir().mkpath(DecodeFileName(FolderOf(home))) && MakeOwnFolder(home);
        return made ? Trash{home, path} : Trash{};
    }
    const QByteArray top = TopOfDisk(path);
    const QByteArray within = top == "/" ? "/" : top + '/';
    const QByteArray person = QByteArray::number(::geteuid());
    const QByteArray shared = within + ".Trash";
    const QByteArray folder = IsSharedTrash(shared) ? shared + '/' + person : within + ".Trash-" + person;
    return MakeOwnFolder(folder) ? Trash{folder, path.sliced(within.size())} : Trash{};
}

QByteArray NoteFor(const QByteArray& path) {
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/") +
           "\nDeletionDate=" + QDateTime::currentDateTime().toString("yyyy-MM-ddThh:mm:ss").toLatin1() + '\n';
}

// Takes a name that is free by making its note. False with errno.
bool MakeNote(const QByteArray& path, const QByteArray& note) {
    const FileDescriptor descriptor = OpenFile(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!descriptor.IsOpen()) return false;
    if (WriteAll(descriptor.Get(), note)) return true;
    RemoveFile(path);
    errno = ENOSPC;
    return false;
}

}  // namespace

bool MoveToTrash(const QString& path) {
    constexpr qsizetype longestName = 200;  // what is put after it has room then
    constexpr int mostOfOneName = 10'000;
    const QByteArray from = EncodeFileName(path);
    const Trash trash = from.startsWith('/') && DiskOf(from) != -1 ? TrashFor(from) : Trash{};
    if (trash.folder.isEmpty()) return false;
    if (!MakeOwnFolder(trash.folder + "/files") || !MakeOwnFolder(trash.folder + "/info")) return false;
    const QByteArray note = NoteFor(trash.path);
    for (int number = 1; number <= mostOfOneName; ++number) {
        const QByteArray mark = number == 1 ? QByteArray() : '.' + QByteArray::number(number);
        const QByteArray name = NameOf(from).left(longestName) + mark;
        const QByteArray notePath = trash.folder + "/info/" + name + ".trashinfo";
        if (!MakeNote(notePath, note)) {
            if (errno == EEXIST) continue;
            return false;
        }
        const QByteArray to = trash.folder + "/files/" + name;
        if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return true;
        const bool taken = errno == EEXIST;
        RemoveFile(notePath);
        if (!taken) return false;
    }
    return false;
}

}  // namespace vellum
