#include "files/in_place_write.h"

#include "files/file_descriptor.h"
#include "files/file_errors.h"
#include "files/file_names.h"
#include "files/save_record.h"
#include "files/separate_process.h"
#include "files/state_folder.h"
#include "files/write_contents.h"

#include <QCryptographicHash>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

const QByteArray kSuffix = ".vellumcraft-backup";
constexpr qint64 kAnySize = std::numeric_limits<qint64>::max() / 2;

QByteArray Hashed(const QByteArray& name) {
    return QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
}

QByteArray BackupBeside(const QByteArray& target) {
    constexpr qsizetype kLongestName = 255;
    const QByteArray name = NameOf(target);
    const bool fits = name.size() + kSuffix.size() + 1 <= kLongestName;
    return FolderOf(target) + "/." + (fits ? name : Hashed(name)) + kSuffix;
}

QByteArray BackupInState(const QByteArray& target) {
    return StateFolder() + "/backup/" + Hashed(AbsoluteName(target)) + kSuffix;
}

// The copy that exists, else empty. Only one of our own counts: in a folder that everybody may write to, others could
// lay down a false one.
QByteArray ExistingBackup(const QByteArray& target) {
    for (const QByteArray& backup : {BackupBeside(target), BackupInState(target)}) {
        if (IsOurFile(backup)) return backup;
    }
    return {};
}

// Written without a name, where the file system can: a copy that bears its name is a whole one, and a killed process
// leaves no piece of one behind. False with errno.
bool MakeNamelessBackup(const QByteArray& path, const WriteContents& contents) {
    const FileDescriptor descriptor = OpenFile(FolderOf(path), O_TMPFILE | O_WRONLY, 0600);
    return descriptor.IsOpen() && WriteTo(descriptor.Get(), contents) && SyncFile(descriptor.Get()) &&
           RemoveFile(path) && GiveName(descriptor.Get(), path) && SyncFolder(FolderOf(path));
}

// `unfinished`: its name until it is whole.
bool MakeBackupAt(const QByteArray& path, const QByteArray& unfinished, const WriteContents& contents) {
    if (MakeNamelessBackup(path, contents)) return true;
    const QByteArray part = FolderOf(path) + '/' + unfinished;
    FileDescriptor descriptor = OpenFile(part, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (!descriptor.IsOpen()) return false;
    const bool made = WriteTo(descriptor.Get(), contents) && SyncFile(descriptor.Get()) && descriptor.Close() &&
                      ::rename(part.constData(), path.constData()) == 0 && SyncFolder(FolderOf(path));
    if (!made) {
        const int number = errno;
        RemoveFile(part);
        errno = number;
    }
    return made;
}

// The path of the copy, empty with errno on failure.
QByteArray MakeBackup(const QByteArray& target, const QByteArray& unfinished, const WriteContents& contents) {
    QByteArray beside = BackupBeside(target);
    if (MakeBackupAt(beside, unfinished, contents)) return beside;
    if (errno != EACCES && errno != EPERM && errno != EROFS) return {};
    QByteArray inState = BackupInState(target);
    (void)MakeStateFolder(FolderOf(inState));
    return MakeBackupAt(inState, unfinished, contents) ? inState : QByteArray();
}

bool Truncate(int descriptor, qint64 size) {
    int result = -1;
    do {
        result = ::ftruncate(descriptor, size);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

// All bytes by one call, and the end of a longer content by another, so that nobody sees half of it for longer than
// that takes; and by another process, which ends it when this one is killed. False with errno.
bool Overwrite(int descriptor, QByteArrayView bytes) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) return false;
    const int number = RunSeparately([&] {
        const bool done = WriteAll(descriptor, bytes) &&
                          (status.st_size <= bytes.size() || Truncate(descriptor, bytes.size())) &&
                          SyncFile(descriptor);
        return done ? 0 : errno;
    });
    errno = number;
    return number == 0;
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

// Held while a file is written in place, so that nobody takes it for one that was cut off. Where the file system
// has no locks we go without.
bool LockFile(int descriptor) {
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

std::optional<WriteContents> ContentsIn(const QByteArray& backup) {
    const FileDescriptor descriptor = OpenFile(backup, O_RDONLY | O_NOFOLLOW);
    const std::optional<QByteArray> bytes = descriptor.IsOpen() ? ReadAll(descriptor.Get(), kAnySize) : std::nullopt;
    return bytes ? ContentsFrom(*bytes) : std::nullopt;
}

bool Restore(const QByteArray& target, const QByteArray& backup) {
    const FileDescriptor descriptor = OpenFile(target, O_RDWR);
    struct stat status = {};
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (!LockFile(descriptor.Get())) return false;
    const std::optional<WriteContents> contents = ContentsIn(backup);
    const std::optional<QByteArray> found = ReadAll(descriptor.Get(), kAnySize);
    if (!contents || !found) return false;
    const bool cut = IsHalfOf(*contents, *found);
    if (cut && !Overwrite(descriptor.Get(), contents->after)) return false;
    RemoveFile(backup);
    return cut;
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
    const QString name = ReadableName(DecodeFileName(target));
    const auto fail = [&](int number) {
        Say(error, CannotWrite(name, number));
        return false;
    };
    RestoreInterruptedWrite(DecodeFileName(target));
    const FileDescriptor descriptor = OpenFile(target, O_RDWR);
    if (!descriptor.IsOpen()) return fail(errno);
    if (!LockFile(descriptor.Get())) {
        Say(error, QString("Cannot write \"%1\": another program is writing it.").arg(name));
        return false;
    }
    const std::optional<QByteArray> old = ReadAll(descriptor.Get(), kAnySize);
    if (!old) return fail(errno);
    const QByteArray unfinished = HiddenName();
    const SaveRecord record(target,
                            {FolderOf(target) + '/' + unfinished, FolderOf(BackupInState(target)) + '/' + unfinished});
    record.Sync();
    const QByteArray backup = MakeBackup(target, unfinished, {*old, bytes.toByteArray()});
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
                       .arg(name, SystemMessage(number), ReadableName(DecodeFileName(backup))));
        return false;
    }
    RemoveFile(backup);
    return true;
}

void RemoveBackup(const QByteArray& target) {
    const QByteArray backup = ExistingBackup(target);
    if (!backup.isEmpty()) RemoveFile(backup);
}

QByteArray WholeContent(const QByteArray& target, const QByteArray& found) {
    const QByteArray backup = ExistingBackup(target);
    const std::optional<WriteContents> contents = backup.isEmpty() ? std::nullopt : ContentsIn(backup);
    return contents && IsHalfOf(*contents, found) ? contents->after : found;
}

bool RestoreInterruptedWrite(const QString& path) {
    const QByteArray target = FollowLinks(EncodeFileName(path));
    const QByteArray backup = target.isEmpty() ? QByteArray() : ExistingBackup(target);
    return !backup.isEmpty() && Restore(target, backup);
}

}  // namespace vellum
