#include "files/safe_write.h"

#include "files/file_descriptor.h"
#include "files/file_errors.h"
#include "files/file_names.h"
#include "files/in_place_write.h"
#include "files/save_record.h"

#include <QList>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace vellum {
namespace {

// The value of an extended attribute; empty with errno on failure.
std::optional<QByteArray> Attribute(int descriptor, const QByteArray& name) {
    const ssize_t size = ::fgetxattr(descriptor, name.constData(), nullptr, 0);
    if (size < 0) return std::nullopt;
    QByteArray value(size, Qt::Uninitialized);
    const ssize_t got = ::fgetxattr(descriptor, name.constData(), value.data(), static_cast<size_t>(size));
    if (got < 0) return std::nullopt;
    value.truncate(got);
    return value;
}

// The names of the extended attributes; empty with errno on failure. A file system without any has none.
std::optional<QList<QByteArray>> AttributeNames(int descriptor) {
    const ssize_t size = ::flistxattr(descriptor, nullptr, 0);
    if (size < 0) return errno == ENOTSUP ? std::optional(QList<QByteArray>()) : std::nullopt;
    QByteArray names(size, Qt::Uninitialized);
    const ssize_t got = ::flistxattr(descriptor, names.data(), static_cast<size_t>(size));
    if (got < 0) return std::nullopt;
    names.truncate(got);
    QList<QByteArray> list = names.split('\0');
    list.removeAll({});
    return list;
}

bool CopyAttributes(int from, int to) {
    static const QByteArray accessList = "system.posix_acl_access";
    const std::optional<QList<QByteArray>> names = AttributeNames(from);
    const std::optional<QList<QByteArray>> inherited = AttributeNames(to);
    if (!names || !inherited) return false;
    // The folder's default access list would open the new file to others than the old one.
    if (inherited->contains(accessList) && !names->contains(accessList) &&
        ::fremovexattr(to, accessList.constData()) != 0) {
        return false;
    }
    for (const QByteArray& name : *names) {
        const std::optional<QByteArray> value = Attribute(from, name);
        if (!value) return false;
        if (Attribute(to, name) == value) continue;
        if (::fsetxattr(to, name.constData(), value->constData(), static_cast<size_t>(value->size()), 0) != 0) {
            return false;
        }
    }
    return true;
}

// Gives the new file owner, group, attributes and mode of the old one. False when something can't be kept.
bool TakeOver(int oldFile, const struct stat& old, int newFile) {
    struct stat made = {};
    if (::fstat(newFile, &made) != 0) return false;
    const bool sameOwner = made.st_uid == old.st_uid && made.st_gid == old.st_gid;
    if (!sameOwner && ::fchown(newFile, old.st_uid, old.st_gid) != 0) return false;
    return CopyAttributes(oldFile, newFile) && ::fchmod(newFile, old.st_mode & 07777) == 0;
}

enum class Replacing : unsigned char {
    Done,
    Failed,      // errno says why; the old file stands
    Impossible,  // this file can only be written in place; the old file stands
};

// The file that is there, open for writing; not open for a file that is yet to be made.
struct OldFile {
    FileDescriptor descriptor;
    struct stat status = {};
};

bool SpeaksAgainstReplacing(int number) {
    return number == EACCES || number == EPERM || number == EROFS || number == EBUSY || number == EXDEV ||
           number == ENAMETOOLONG;
}

// Writes a new file and gives it the name of the old one in one step; `name` is the one that it has before. `nameless`:
// have none until all is written, so that a killed process hardly ever leaves one behind; not every file system can do
// so.
Replacing ReplaceBy(bool nameless, const QByteArray& target, const QByteArray& name, const OldFile& old,
                    QByteArrayView bytes) {
    const QByteArray folder = FolderOf(target);
    const bool isNew = !old.descriptor.IsOpen();
    FileDescriptor made = nameless ? OpenFile(folder, O_TMPFILE | O_WRONLY, isNew ? 0666 : 0600)
                                   : OpenFile(name, O_WRONLY | O_CREAT | O_EXCL, isNew ? 0666 : 0600);
    if (!made.IsOpen()) return nameless || SpeaksAgainstReplacing(errno) ? Replacing::Impossible : Replacing::Failed;
    const auto leave = [&](Replacing outcome) {
        const int number = errno;
        RemoveFile(name);
        errno = number;
        return outcome;
    };
    if (!isNew && !TakeOver(old.descriptor.Get(), old.status, made.Get())) return leave(Replacing::Impossible);
    if (!WriteAll(made.Get(), bytes) || !SyncFile(made.Get())) return leave(Replacing::Failed);
    if (nameless && !GiveName(made.Get(), name)) return Replacing::Impossible;
    if (!made.Close()) return leave(Replacing::Failed);
    if (::rename(name.constData(), target.constData()) != 0) {
        return leave(SpeaksAgainstReplacing(errno) ? Replacing::Impossible : Replacing::Failed);
    }
    return SyncFolder(folder) ? Replacing::Done : Replacing::Failed;
}

Replacing Replace(const QByteArray& target, const OldFile& old, QByteArrayView bytes) {
    const QByteArray name = FolderOf(target) + '/' + HiddenName();
    const SaveRecord record(target, {name});
    const Replacing outcome = ReplaceBy(true, target, name, old, bytes);
    return outcome == Replacing::Impossible ? ReplaceBy(false, target, name, old, bytes) : outcome;
}

// Opens the file that is to be written anew, if there is one. False with a sentence when it may not be written.
bool OpenOldFile(const QByteArray& target, OldFile& old, const QString& path, QString* error) {
    if (::stat(target.constData(), &old.status) != 0) {
        if (errno == ENOENT) return true;
        Say(error, CannotWrite(path, errno));
        return false;
    }
    if (!S_ISREG(old.status.st_mode)) {
        Say(error, NotAFile(path, old.status.st_mode));
        return false;
    }
    old.descriptor = OpenFile(target, O_WRONLY);
    if (!old.descriptor.IsOpen() || ::fstat(old.descriptor.Get(), &old.status) != 0) {
        Say(error, CannotWrite(path, errno));
        return false;
    }
    if (!S_ISREG(old.status.st_mode)) Say(error, NotAFile(path, old.status.st_mode));
    return S_ISREG(old.status.st_mode);
}

}  // namespace

bool WriteFileSafely(const QString& path, const QByteArray& bytes, QString* error) {
    const QByteArray target = FollowLinks(EncodeFileName(path));
    if (target.isEmpty()) {
        Say(error, CannotWrite(path, path.isEmpty() ? ENOENT : ELOOP));
        return false;
    }
    OldFile old;
    if (!OpenOldFile(target, old, path, error)) return false;
    const bool isNew = !old.descriptor.IsOpen();
    const Replacing outcome = !isNew && old.status.st_nlink > 1 ? Replacing::Impossible : Replace(target, old, bytes);
    const int number = errno;
    switch (outcome) {
        case Replacing::Done:
            RemoveBackup(target);
            return true;
        case Replacing::Impossible:
            if (!isNew) return WriteInPlace(target, bytes, error);
            break;
        case Replacing::Failed:
            break;
    }
    Say(error, CannotWrite(path, number));
    return false;
}

void RepairInterruptedSaves() {
    VisitAbandonedSaves([](const QByteArray& target, const QByteArrayList& hidden) {
        struct stat status = {};
        if (::stat(FolderOf(target).constData(), &status) != 0) return false;
        for (const QByteArray& file : hidden) {
            if (NameOf(file).startsWith(hiddenPrefix) && IsOurFile(file)) RemoveFile(file);
        }
        RestoreInterruptedWrite(DecodeFileName(target));
        return true;
    });
}

}  // namespace vellum
