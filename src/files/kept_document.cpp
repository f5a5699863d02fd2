#include "files/kept_document.h"

#include "files/recovery_copy.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace vellum {
namespace {

constexpr qint64 kAlwaysFine = 1 << 20;  // bytes of edits beside a copy, however short

// Calls `visit(path, name)` for each file of a document.
template <typename Visitor>
void VisitFiles(const QByteArray& folder, int document, const Visitor& visit) {
    const QDir directory(QFile::decodeName(folder));
    for (const QString& name : directory.entryList({QString("%1.*").arg(document)}, QDir::Files | QDir::Hidden)) {
        if (const auto file = ReadFileName(name)) visit(folder + '/' + QFile::encodeName(name), *file);
    }
}

bool IsGone(const FileDescriptor& file) {
    struct stat status = {};
    return ::fstat(file.Get(), &status) != 0 || status.st_nlink == 0;
}

// Gives a copy its final name. One that isn't there any more was forgotten in the meantime.
bool SettleCopy(const FileDescriptor& file, const QByteArray& folder, int document, int generation) {
    if (!SyncFile(file.Get())) return false;
    const QByteArray part = PartPath(folder, document, generation);
    if (std::rename(part.constData(), CopyPath(folder, document).constData()) != 0) return errno == ENOENT;
    if (!SyncFolder(folder)) return false;
    VisitFiles(folder, document, [generation](const QByteArray& path, const RecoveryFileName& name) {
        if (name.kind != RecoveryFileName::Kind::Copy && name.generation < generation) RemoveFile(path);
    });
    return true;
}

}  // namespace

bool KeptDocument::Begin(const QByteArray& folder, const RecoveredText& copy) {
    copy_.reset();
    journal_.reset();
    ++generation_;
    std::optional<WrittenCopy> written = WriteRecoveryCopy(PartPath(folder, document_, generation_), copy, generation_);
    if (!written) return false;
    folder_ = folder;
    copy_ = std::make_shared<FileDescriptor>(std::move(written->file));
    unsettled_ = copy_;
    copySize_ = written->size;
    records_ = EditJournal(written->checksum);
    isNamed_ = false;
    journalSize_ = 0;
    return true;
}

bool KeptDocument::Stands() const {
    return copy_ && !IsGone(*copy_) && !(journal_ && IsGone(*journal_));
}

bool KeptDocument::Append(const std::vector<TextEdit>& edits) {
    const auto write = [&] {
        if (!journal_) {
            FileDescriptor file =
                OpenFile(JournalPath(folder_, document_, generation_), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
            if (!file.IsOpen()) return false;
            journal_ = std::make_shared<FileDescriptor>(std::move(file));
        }
        QByteArray records;
        for (const TextEdit& edit : edits) records += records_.Record(edit);
        if (!WriteAll(journal_->Get(), records, journalSize_)) return false;
        journalSize_ += records.size();
        return true;
    };
    if (write()) return true;
    copy_.reset();
    return false;
}

bool KeptDocument::IsLong() const {
    return journalSize_ > copySize_ + kAlwaysFine;
}

std::function<bool()> KeptDocument::Settling() {
    const bool isNew = journal_ && !std::exchange(isNamed_, true);
    return [copy = std::exchange(unsettled_, nullptr), journal = journal_, isNew, folder = folder_,
            document = document_, generation = generation_] {
        if (copy && !SettleCopy(*copy, folder, document, generation)) return false;
        if (!journal) return true;
        return SyncFile(journal->Get()) && (!isNew || SyncFolder(folder));
    };
}

bool RemoveKeptDocument(const QByteArray& folder, int document) {
    // A copy that is settling leaves its first name for its last, so the first one goes first.
    bool removed = true;
    VisitFiles(folder, document, [&removed](const QByteArray& path, const RecoveryFileName& name) {
        if (name.kind != RecoveryFileName::Kind::Copy) removed = RemoveFile(path) && removed;
    });
    return RemoveFile(CopyPath(folder, document)) && removed;
}

}  // namespace vellum
