#include "files/recovery_store.h"

#include "files/file_descriptor.h"
#include "files/recovery_copy.h"
#include "files/state_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vellum {
namespace {

constexpr const char* kLockName = "/lock";
constexpr const char* kCopySuffix = ".copy";

// A session's folder and the lock that says whose it is.
struct Session {
    QByteArray folder;
    FileDescriptor lock;
};

// Takes the lock of a folder. Not open when another process holds it or has just removed the folder.
FileDescriptor TakeLock(const QByteArray& folder, int flags) {
    FileDescriptor lock = OpenFile(folder + kLockName, O_RDWR | O_NOFOLLOW | flags, 0600);
    if (!lock.IsOpen() || ::flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) return {};
    struct stat status = {};
    return ::fstat(lock.Get(), &status) == 0 && status.st_nlink > 0 ? std::move(lock) : FileDescriptor();
}

QStringList CopiesIn(const QByteArray& folder) {
    return QDir(QFile::decodeName(folder)).entryList({QString("*") + kCopySuffix}, QDir::Files | QDir::Hidden);
}

QByteArray CopyPath(const QByteArray& folder, int document) {
    return folder + '/' + QByteArray::number(document) + kCopySuffix;
}

// The lock goes last and stays ours until the folder has gone, so nobody takes a folder half removed for a lost one.
void RemoveSession(Session session) {
    const QDir folder(QFile::decodeName(session.folder));
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const QByteArray path = session.folder + '/' + QFile::encodeName(name);
        if (path != session.folder + kLockName) RemoveFile(path);
    }
    RemoveFile(session.folder + kLockName);
    ::rmdir(session.folder.constData());
}

// False when the root can't be had.
bool PrepareRoot(const QByteArray& root) {
    if (root.isEmpty()) return false;
    QDir().mkpath(QFile::decodeName(FolderOf(root)));
    ::mkdir(root.constData(), 0700);
    struct stat status = {};
    if (::stat(root.constData(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
    return (status.st_mode & 07777) == 0700 || ::chmod(root.constData(), 0700) == 0;
}

// A new folder of our own, not there when the root can't be written.
std::optional<Session> MakeSession(const QByteArray& root) {
    constexpr int kTries = 5;  // another program may sweep an empty folder away before it is locked
    if (!PrepareRoot(root)) return std::nullopt;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const QByteArray random = QByteArray::number(QRandomGenerator::system()->generate64(), 36);
        Session session;
        session.folder = root + '/' + QByteArray::number(::getpid()) + '-' + random;
        if (::mkdir(session.folder.constData(), 0700) != 0) continue;
        session.lock = TakeLock(session.folder, O_CREAT);
        if (session.lock.IsOpen()) return session;
        ::rmdir(session.folder.constData());
    }
    return std::nullopt;
}

}  // namespace

struct RecoveryStore::Private {
    QByteArray root;
    std::vector<Session> found;
    std::set<int> leftBehind;

    // Only the worker and, when that has ended, the destructor touch it.
    std::optional<Session> session;

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<int> order;                                // documents with something to do
    std::map<int, std::optional<RecoveredText>> waiting;  // what to do with them: write a copy or remove it
    std::set<int> failed;                                 // documents whose newest copy could not be written
    bool busy = false;
    bool ending = false;
    std::thread worker;  // started by the first copy

    void Enqueue(int document, std::optional<RecoveredText> copy);
    void Work();
    // False when a copy could not be written.
    bool Do(int document, const std::optional<RecoveredText>& copy, bool isFirstTry = true);
};

void RecoveryStore::Private::Enqueue(int document, std::optional<RecoveredText> copy) {
    {
        const std::lock_guard guard(mutex);
        const bool isFirst = waiting.insert_or_assign(document, std::move(copy)).second;
        if (isFirst) order.push_back(document);
        if (!worker.joinable()) worker = std::thread([this] { Work(); });
    }
    changed.notify_all();
}

void RecoveryStore::Private::Work() {
    std::unique_lock guard(mutex);
    for (;;) {
        changed.wait(guard, [this] { return ending || !order.empty(); });
        if (ending) return;
        const int document = order.front();
        order.pop_front();
        const auto entry = waiting.find(document);
        const std::optional<RecoveredText> copy = std::move(entry->second);
        waiting.erase(entry);
        busy = true;
        guard.unlock();
        const bool done = Do(document, copy);
        guard.lock();
        if (done) {
            failed.erase(document);
        } else {
            failed.insert(document);
        }
        busy = false;
        changed.notify_all();
    }
}

bool RecoveryStore::Private::Do(int document, const std::optional<RecoveredText>& copy, bool isFirstTry) {
    if (!session && copy) session = MakeSession(root);
    if (!session) return !copy;
    const QByteArray path = CopyPath(session->folder, document);
    if (!copy) {
        RemoveFile(path);
        return true;
    }
    if (WriteRecoveryCopy(path, *copy)) return true;
    if (errno != ENOENT || !isFirstTry) return false;
    session.reset();  // somebody has cleared the state folder
    return Do(document, copy, false);
}

RecoveryStore::RecoveryStore(const QString& root, QObject* parent) : QObject(parent), d_(std::make_unique<Private>()) {
    if (!root.isEmpty()) d_->root = QFile::encodeName(QDir::cleanPath(QDir::current().absoluteFilePath(root)));
}

RecoveryStore::~RecoveryStore() {
    if (!d_->leftBehind.empty()) Flush();
    {
        const std::lock_guard guard(d_->mutex);
        d_->ending = true;
    }
    d_->changed.notify_all();
    if (d_->worker.joinable()) d_->worker.join();
    if (!d_->session) return;
    if (d_->leftBehind.empty()) {
        RemoveSession(std::move(*d_->session));
        return;
    }
    QSet<QString> kept;
    for (const int document : d_->leftBehind) kept << QFile::decodeName(CopyPath(d_->session->folder, document));
    for (const QString& name : CopiesIn(d_->session->folder)) {
        const QString path = QFile::decodeName(d_->session->folder) + '/' + name;
        if (!kept.contains(path)) RemoveFile(QFile::encodeName(path));
    }
}

QString RecoveryStore::DefaultRoot() {
    return QFile::decodeName(StateFolder() + "/recovery");
}

void RecoveryStore::Keep(int document, RecoveredText copy) {
    if (copy.writtenAt == 0) copy.writtenAt = QDateTime::currentSecsSinceEpoch();
    d_->Enqueue(document, std::move(copy));
}

void RecoveryStore::Forget(int document) {
    d_->Enqueue(document, std::nullopt);
}

void RecoveryStore::LeaveBehind(int document) {
    d_->leftBehind.insert(document);
}

bool RecoveryStore::Flush() {
    std::unique_lock guard(d_->mutex);
    d_->changed.wait(guard, [this] { return d_->order.empty() && !d_->busy; });
    const std::set<int> failed = std::exchange(d_->failed, {});
    return failed.empty();
}

std::vector<RecoveredText> RecoveryStore::FindLost() {
    std::vector<RecoveredText> texts;
    if (d_->root.isEmpty()) return texts;
    const QDir root(QFile::decodeName(d_->root));
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name)) {
        Session session;
        session.folder = d_->root + '/' + QFile::encodeName(name);
        session.lock = TakeLock(session.folder, 0);
        if (!session.lock.IsOpen()) {
            ::rmdir(session.folder.constData());  // goes only if it is empty: not even a lock came into it
            continue;
        }
        const QStringList copies = CopiesIn(session.folder);
        if (copies.isEmpty()) {
            RemoveSession(std::move(session));
            continue;
        }
        for (const QString& copy : copies) {
            std::optional<RecoveredText> text = ReadRecoveryCopy(session.folder + '/' + QFile::encodeName(copy));
            if (text) texts.push_back(std::move(*text));
        }
        d_->found.push_back(std::move(session));
    }
    std::stable_sort(texts.begin(), texts.end(), [](const RecoveredText& left, const RecoveredText& right) {
        return left.writtenAt < right.writtenAt;
    });
    return texts;
}

void RecoveryStore::DiscardFound() {
    for (Session& session : d_->found) RemoveSession(std::move(session));
    d_->found.clear();
}

}  // namespace vellum
