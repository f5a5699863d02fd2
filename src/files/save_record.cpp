#include "files/save_record.h"

#include "files/state_folder.h"

#include <QRandomGenerator>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr qint64 kLargestRecord = 1'000'000;

QByteArray RandomWord() {
    return QByteArray::number(QRandomGenerator::system()->generate64(), 36);
}

QByteArray Folder() {
    return StateFolder() + "/saves";
}

// Not open when another process holds the lock, or has just removed the file.
FileDescriptor TakeRecord(const QByteArray& path, int flags) {
    FileDescriptor record = OpenFile(path, O_RDWR | O_NOFOLLOW | flags);
    struct stat status = {};
    const bool ours = record.IsOpen() && ::flock(record.Get(), LOCK_EX | LOCK_NB) == 0 &&
                      ::fstat(record.Get(), &status) == 0 && status.st_nlink > 0;
    return ours ? std::move(record) : FileDescriptor();
}

FileDescriptor MakeRecord(const QByteArray& path) {
    FileDescriptor record = TakeRecord(path, O_CREAT | O_EXCL);
    if (record.IsOpen() || errno != ENOENT || !MakeStateFolder(Folder())) return record;
    return TakeRecord(path, O_CREAT | O_EXCL);
}

QByteArrayList NamesInFolder(const QByteArray& folder) {
    QByteArrayList names;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.constData()), &::closedir);
    while (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..") names << name;
    }
    return names;
}

// What a record says: the target, then the hidden files.
QByteArrayList PathsOf(const FileDescriptor& record) {
    QByteArray said = ReadAll(record.Get(), kLargestRecord).value_or(QByteArray());
    if (!said.endsWith('\0')) return {};  // killed while it was written, before the save began
    said.chop(1);
    return said.split('\0');
}

}  // namespace

QByteArray HiddenName() {
    return hiddenPrefix + RandomWord();
}

SaveRecord::SaveRecord(const QByteArray& target, const QByteArrayList& hidden)
    : path_(Folder() + '/' + QByteArray::number(::getpid()) + '-' + RandomWord()), lock_(MakeRecord(path_)) {
    QByteArray said = AbsoluteName(target) + '\0';
    for (const QByteArray& path : hidden) said += AbsoluteName(path) + '\0';
    if (!lock_.IsOpen()) {
        path_.clear();
    } else if (!WriteAll(lock_.Get(), said)) {
        RemoveFile(std::exchange(path_, {}));
    }
}

SaveRecord::~SaveRecord() {
    const int number = errno;  // of the save, whose failure its caller reports
    if (!path_.isEmpty()) RemoveFile(path_);
    errno = number;
}

void SaveRecord::Sync() const {
    if (!path_.isEmpty() && SyncFile(lock_.Get())) (void)SyncFolder(FolderOf(path_));
}

void VisitAbandonedSaves(const std::function<bool(const QByteArray& target, const QByteArrayList& hidden)>& repair) {
    const QByteArray folder = Folder();
    for (const QByteArray& name : NamesInFolder(folder)) {
        const QByteArray path = folder + '/' + name;
        const FileDescriptor record = TakeRecord(path, 0);
        if (!record.IsOpen()) continue;
        const QByteArrayList paths = PathsOf(record);
        if (paths.isEmpty() || repair(paths.first(), paths.sliced(1))) RemoveFile(path);
    }
}

}  // namespace vellum
