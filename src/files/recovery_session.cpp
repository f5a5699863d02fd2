#include "files/recovery_session.h"

#include "files/recovery_copy.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vellum {
namespace {

constexpr const char* kLockName = "/lock";
constexpr const char* kEndName = "/end";
constexpr std::array<std::pair<SessionEnd, const char*>, 3> kEnds{
    {{SessionEnd::Closed, "closed"}, {SessionEnd::Terminated, "terminated"}, {SessionEnd::Desktop, "desktop"}}};

// Takes the lock of a folder. Not open when another process holds it or has just removed the folder.
FileDescriptor TakeLock(const QByteArray& folder, int flags) {
    FileDescriptor lock = OpenFile(folder + kLockName, O_RDWR | O_NOFOLLOW | flags, 0600);
    if (!lock.IsOpen() || ::flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) return {};
    struct stat status = {};
    return ::fstat(lock.Get(), &status) == 0 && status.st_nlink > 0 ? std::move(lock) : FileDescriptor();
}

// False with errno when the root can't be had.
bool PrepareRoot(const QByteArray& root) {
    errno = ENOENT;
    if (root.isEmpty()) return false;
    QDir().mkpath(QFile::decodeName(FolderOf(root)));
    ::mkdir(root.constData(), 0700);
    struct stat status = {};
    if (::stat(root.constData(), &status) != 0) return false;
    errno = ENOTDIR;
    if (!S_ISDIR(status.st_mode)) return false;
    return (status.st_mode & 07777) == 0700 || ::chmod(root.constData(), 0700) == 0;
}

// The documents of which there is a copy, or was about to be.
std::set<int> DocumentsIn(const QByteArray& folder) {
    std::set<int> documents;
    for (const QString& name : QDir(QFile::decodeName(folder)).entryList(QDir::Files | QDir::Hidden)) {
        if (const auto file = ReadFileName(name)) documents.insert(file->document);
    }
    return documents;
}

SessionEnd ReadSessionEnd(const QByteArray& folder) {
    constexpr qint64 mostRead = 100;
    const FileDescriptor file = OpenFile(folder + kEndName, O_RDONLY | O_NOFOLLOW);
    const std::optional<QByteArray> word = file.IsOpen() ? ReadAll(file.Get(), mostRead) : std::nullopt;
    for (const auto& [end, name] : kEnds) {
        if (word == name) return end;
    }
    return SessionEnd::Unknown;
}

// Where the copy stands afterwards: in the folder `aside`, unless it can't be moved there.
QByteArray PutAside(const QByteArray& path, const QByteArray& aside) {
    ::mkdir(aside.constData(), 0700);
    const QByteArray target = aside + '/' + NameOf(FolderOf(path)) + '-' + NameOf(path);
    return std::rename(path.constData(), target.constData()) == 0 ? target : path;
}

}  // namespace

std::optional<RecoverySession> MakeSession(const QByteArray& root) {
    constexpr int kTries = 5;  // another program may sweep an empty folder away before it is locked
    if (!PrepareRoot(root)) return std::nullopt;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const QByteArray random = QByteArray::number(QRandomGenerator::system()->generate64(), 36);
        RecoverySession session;
        session.folder = root + '/' + QByteArray::number(::getpid()) + '-' + random;
        if (::mkdir(session.folder.constData(), 0700) != 0) continue;
        session.lock = TakeLock(session.folder, O_CREAT);
        if (session.lock.IsOpen()) return session;
        const int number = errno;
        ::rmdir(session.folder.constData());
        errno = number;
    }
    return std::nullopt;
}

std::vector<RecoverySession> ClaimDeadSessions(const QByteArray& root) {
    std::vector<RecoverySession> dead;
    const QDir directory(QFile::decodeName(root));
    for (const QString& name : directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name)) {
        RecoverySession session;
        session.folder = root + '/' + QFile::encodeName(name);
        session.lock = TakeLock(session.folder, 0);
        if (!session.lock.IsOpen()) {
            ::rmdir(session.folder.constData());  // goes only if it is empty: not even a lock came into it
        } else if (DocumentsIn(session.folder).empty()) {
            RemoveSession(std::move(session));
        } else {
            dead.push_back(std::move(session));
        }
    }
    return dead;
}

std::vector<RecoveredText> ReadSession(const RecoverySession& session, const QByteArray& aside, QStringList& damaged) {
    std::vector<RecoveredText> texts;
    for (const int document : DocumentsIn(session.folder)) {
        std::optional<RecoveredText> text = ReadKeptText(session.folder, document);
        if (text) {
            text->end = ReadSessionEnd(session.folder);
            texts.push_back(std::move(*text));
            continue;
        }
        // A copy that has its last name was whole once; any other was just being written.
        const QByteArray copy = CopyPath(session.folder, document);
        if (QFile::exists(QFile::decodeName(copy))) damaged << QFile::decodeName(PutAside(copy, aside));
    }
    return texts;
}

bool HoldsCopies(const RecoverySession& session) {
    return !QDir(QFile::decodeName(session.folder)).entryList({"*.copy"}, QDir::Files | QDir::Hidden).isEmpty();
}

// The lock goes last and stays ours until the folder has gone, so nobody takes a folder half removed for a lost one.
void RemoveSession(RecoverySession session) {
    const QDir folder(QFile::decodeName(session.folder));
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const QByteArray path = session.folder + '/' + QFile::encodeName(name);
        if (path != session.folder + kLockName) RemoveFile(path);
    }
    RemoveFile(session.folder + kLockName);
    ::rmdir(session.folder.constData());
}

void WriteSessionEnd(const QByteArray& folder, SessionEnd end) {
    const FileDescriptor file = OpenFile(folder + kEndName, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
    for (const auto& [known, word] : kEnds) {
        // Where that fails, the next start knows less about the end.
        if (known == end && file.IsOpen()) static_cast<void>(WriteAll(file.Get(), word));
    }
}

void RemoveSessionEnd(const QByteArray& folder) {
    RemoveFile(folder + kEndName);
}

}  // namespace vellum
