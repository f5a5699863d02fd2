#include "files/in_place_write.h"

#include "files/file_descriptor.h"
#include "files/file_errors.h"
#include "files/state_folder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr QByteArrayView kSuffix = ".vellumcraft-backup";
constexpr qint64 kAnySize = std::numeric_limits<qint64>::max() / 2;
constexpr char kCutMark = '\0';

QByteArray BackupBeside(const QByteArray& target) {
    constexpr qsizetype kLongestName = 255;
    const QByteArray name = NameOf(target);
    const bool fits = name.size() + kSuffix.size() + 1 <= kLongestName;
    const QByteArray stem = fits ? name : QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return FolderOf(target) + "/." + stem + kSuffix.toByteArray();
}

QByteArray BackupInState(const QByteArray& target) {
    const QByteArray absolute = target.startsWith('/') ? target : QFile::encodeName(QDir::currentPath()) + '/' + target;
    return StateFolder() + "/backup/" + QCryptographicHash::hash(absolute, QCryptographicHash::Sha1).toHex() +
           kSuffix.toByteArray();
}

// Only a copy of our own counts: in a folder that everybody may write to, others could lay down a false one.
bool IsOurFile(const QByteArray& path) {
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

// The copy that exists, else empty.
QByteArray ExistingBackup(const QByteArray& target) {
    for (const QByteArray& backup : {BackupBeside(target), BackupInState(target)}) {
        if (IsOurFile(backup)) return backup;
    }
    return {};
}

// Written without a name, where the file system can: a copy that bears its name is a whole one, and a killed process
// leaves no piece of one behind. False with errno.
bool MakeNamelessBackupAt(const QByteArray& backup, QByteArrayView content) {
    const FileDescriptor descriptor = OpenFile(FolderOf(backup), O_TMPFILE | O_WRONLY, 0600);
    return descriptor.IsOpen() && WriteAll(descriptor.Get(), content) && SyncFile(descriptor.Get()) &&
           RemoveFile(backup) && GiveName(descriptor.Get(), backup) && SyncFolder(FolderOf(backup));
}

bool MakeBackupAt(const QByteArray& backup, QByteArrayView content) {
    if (MakeNamelessBackupAt(backup, content)) return true;
    const QByteArray unfinished = FolderOf(backup) + "/.vellumcraft-" + QByteArray::number(::getpid()) + ".part";
    RemoveFile(unfinished);
    FileDescriptor descriptor = OpenFile(unfinished, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (!descriptor.IsOpen()) return false;
    const bool made = WriteAll(descriptor.Get(), content) && SyncFile(descriptor.Get()) && descriptor.Close() &&
                      ::rename(unfinished.constData(), backup.constData()) == 0 && SyncFolder(FolderOf(backup));
    if (!made) {
        const int number = errno;
        RemoveFile(unfinished);
        errno = number;
    }
    return made;
}

// The path of the copy, empty with errno on failure.
QByteArray MakeBackup(const QByteArray& target, QByteArrayView content) {
    QByteArray beside = BackupBeside(target);
    if (MakeBackupAt(beside, content)) return beside;
    if (errno != EACCES && errno != EPERM && errno != EROFS) return {};
    const QByteArray inState = BackupInState(target);
    QDir().mkpath(QFile::decodeName(FolderOf(inState)));
    ::chmod(FolderOf(inState).constData(), 0700);
    return MakeBackupAt(inState, content) ? inState : QByteArray();
}

bool Truncate(int descriptor, qint64 size) {
    int result = -1;
    do {
        result = ::ftruncate(descriptor, size);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

// The first byte says whether the file is whole: the mark goes in before anything else changes, and the real one when
// all else is on disk. An empty file becomes whole by the one step that empties it. A content that itself begins with a
// NUL looks cut off until its copy is removed, so a kill in that instant brings the old one back.
bool Overwrite(int descriptor, QByteArrayView bytes) {
    if (!WriteAll(descriptor, QByteArrayView(&kCutMark, 1)) || !SyncFile(descriptor)) return false;
    if (bytes.isEmpty()) return Truncate(descriptor, 0) && SyncFile(descriptor);
    return WriteAll(descriptor, bytes.sliced(1), 1) && Truncate(descriptor, bytes.size()) && SyncFile(descriptor) &&
           WriteAll(descriptor, bytes.first(1)) && SyncFile(descriptor);
}

// Takes the room for a longer content beforehand, so that a full disk is found out while the old one is untouched.
bool ReserveRoom(int descriptor, qint64 size) {
    if (size <= 0) return true;
    int result = -1;
    do {
        result = ::fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, size);
    } while (result != 0 && errno == EINTR);
    return result == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

bool IsCutOff(int descriptor) {
    char first = 1;
    return ::pread(descriptor, &first, 1, 0) == 1 && first == kCutMark;
}

// Held while a file is written in place, so that nobody takes it for one that was cut off. Where the file system
// has no locks we go without.
bool LockFile(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool Restore(const QByteArray& target, const QByteArray& backup) {
    FileDescriptor descriptor = OpenFile(target, O_RDWR);
    struct stat status = {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (!LockFile(descriptor.Get())) return false;
    if (!IsCutOff(descriptor.Get())) {
        RemoveFile(backup);
        return false;
    }
    const FileDescriptor source = OpenFile(backup, O_RDONLY | O_NOFOLLOW);
    if (!source.IsOpen()) return false;
    const std::optional<QByteArray> content = ReadAll(source.Get(), kAnySize);
    if (!content || !Overwrite(descriptor.Get(), *content)) return false;
    RemoveFile(backup);
    return true;
}

}  // namespace

QByteArray FollowLinks(const QByteArray& path) {
    constexpr int kMostLinks = 40;
    QByteArray target = path;
    for (int links = 0; links < kMostLinks; ++links) {
        std::array<char, PATH_MAX> buffer = {};
        const ssize_t length = ::readlink(target.constData(), buffer.data(), buffer.size());
        if (length < 0) return target;
        const QByteArray next(buffer.data(), length);
        target = next.startsWith('/') ? next : FolderOf(target) + '/' + next;
    }
    errno = ELOOP;
    return {};
}

bool WriteInPlace(const QByteArray& target, QByteArrayView bytes, QString* error) {
    const QString name = QFile::decodeName(target);
    const auto fail = [&](int number) {
        Say(error, CannotWrite(name, number));
        return false;
    };
    RestoreInterruptedWrite(name);
    FileDescriptor descriptor = OpenFile(target, O_RDWR);
    if (!descriptor.IsOpen()) return fail(errno);
    if (!LockFile(descriptor.Get())) {
        Say(error, QString("Cannot write \"%1\": another program is writing it.").arg(name));
        return false;
    }
    const std::optional<QByteArray> old = ReadAll(descriptor.Get(), kAnySize);
    if (!old) return fail(errno);
    const QByteArray backup = MakeBackup(target, *old);
    if (backup.isEmpty()) return fail(errno);
    if (!ReserveRoom(descriptor.Get(), bytes.size())) {
        const int number = errno;
        RemoveFile(backup);
        return fail(number);
    }
    if (!Overwrite(descriptor.Get(), bytes)) {
        const int number = errno;
        if (Overwrite(descriptor.Get(), *old)) {
            RemoveFile(backup);
            return fail(number);
        }
        Say(error, QString(R"(Cannot write "%1": %2. Its former content is in "%3".)")
                       .arg(name, SystemMessage(number), QFile::decodeName(backup)));
        return false;
    }
    RemoveFile(backup);
    return true;
}

void RemoveBackup(const QByteArray& target) {
    const QByteArray backup = ExistingBackup(target);
    if (!backup.isEmpty()) RemoveFile(backup);
}

QByteArray ContentBeforeCut(const QByteArray& target) {
    const QByteArray backup = ExistingBackup(target);
    if (backup.isEmpty()) return {};
    const FileDescriptor descriptor = OpenFile(target, O_RDONLY);
    const FileDescriptor source = OpenFile(backup, O_RDONLY | O_NOFOLLOW);
    if (!descriptor.IsOpen() || !source.IsOpen() || !IsCutOff(descriptor.Get())) return {};
    return ReadAll(source.Get(), kAnySize).value_or(QByteArray());
}

bool RestoreInterruptedWrite(const QString& path) {
    const QByteArray target = FollowLinks(QFile::encodeName(path));
    const QByteArray backup = target.isEmpty() ? QByteArray() : ExistingBackup(target);
    return !backup.isEmpty() && Restore(target, backup);
}

}  // namespace vellum
