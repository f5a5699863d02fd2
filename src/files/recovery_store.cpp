#include "files/recovery_store.h"

#include "files/file_errors.h"
#include "files/file_look.h"
#include "files/kept_document.h"
#include "files/recovery_copy.h"
#include "files/recovery_session.h"
#include "files/state_folder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QThreadPool>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>

namespace vellum {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kLongestWait = 1s;     // from a change to its writing
constexpr auto kForgetPatience = 1s;  // an author waits for it
constexpr auto kEndPatience = 1500ms;

// What is to be done about a document, in this order.
struct Work {
    bool forgotten = false;
    std::optional<RecoveredText> whole;
    std::vector<TextEdit> edits;
};

// Typing is one edit a stretch.
void AddEdit(std::vector<TextEdit>& edits, TextEdit edit) {
    constexpr qsizetype longestStretch = 1000;
    if (!edits.empty() && edit.removed == 0) {
        TextEdit& last = edits.back();
        if (edit.position == last.position + last.text.size() && last.text.size() < longestStretch) {
            last.text += edit.text;
            last.madeAt = edit.madeAt;
            return;
        }
    }
    edits.push_back(std::move(edit));
}

}  // namespace

struct RecoveryStore::Private {
    explicit Private(RecoveryStore& owner) : store(owner) { disk.setMaxThreadCount(1); }

    RecoveryStore& store;
    QByteArray root;
    std::vector<RecoverySession> found;
    QStringList putAside;
    std::set<int> leftBehind;

    // Only the worker and, when that has ended, the destructor touch these.
    std::optional<RecoverySession> session;
    std::map<int, KeptDocument> kept;
    bool endIsWritten = false;

    std::mutex mutex;
    std::condition_variable changed;
    std::map<int, Work> waiting;    // by document
    std::optional<SessionEnd> end;  // to be written
    Clock::time_point due;          // when what is waiting has to be done
    bool hurry = false;             // somebody waits for it
    std::set<int> known;            // documents handed over and not forgotten
    std::set<int> failed;           // documents whose newest copy could not be written
    bool busy = false;              // the worker is
    int settling = 0;               // what the disk has yet to confirm
    bool leavesAll = false;
    bool ending = false;
    std::thread worker;  // started by the first copy

    // Waits for the disk, so that the worker needn't: what it has written survives the program already.
    QThreadPool disk;

    [[nodiscard]] bool IsWorkWaiting() const { return !waiting.empty() || end; }
    Work& WorkOn(int document);
    [[nodiscard]] bool IsDone() const { return !IsWorkWaiting() && !busy; }
    [[nodiscard]] bool IsOnDisk() const { return IsDone() && settling == 0; }
    void Hurry();
    void RunWorker();
    void WriteEnd(const std::optional<SessionEnd>& now);
    void Do(int document, const Work& work);
    void Remove(int document);
    [[nodiscard]] bool Begin(int document, const RecoveredText& copy);
    void Settle(int document, const std::function<bool()>& settleNow);
    void SetFailed(int document, bool hasFailed);
};

// Under the mutex.
Work& RecoveryStore::Private::WorkOn(int document) {
    if (!IsWorkWaiting()) {
        due = Clock::now() + kLongestWait;
        if (!worker.joinable()) worker = std::thread([this] { RunWorker(); });
        changed.notify_all();
    }
    return waiting[document];
}

// Under the mutex. What is waiting is done at once.
void RecoveryStore::Private::Hurry() {
    if (!IsWorkWaiting()) return;
    hurry = true;
    changed.notify_all();
}

void RecoveryStore::Private::RunWorker() {
    std::unique_lock guard(mutex);
    for (;;) {
        changed.wait(guard, [this] { return ending || IsWorkWaiting(); });
        changed.wait_until(guard, due, [this] { return ending || hurry; });
        if (ending) return;
        hurry = false;
        busy = true;
        std::map<int, Work> all = std::exchange(waiting, {});
        const std::optional<SessionEnd> endNow = std::exchange(end, std::nullopt);
        guard.unlock();
        for (const auto& [document, work] : all) Do(document, work);
        WriteEnd(endNow);
        all.clear();
        guard.lock();
        busy = false;
        changed.notify_all();
    }
}

void RecoveryStore::Private::WriteEnd(const std::optional<SessionEnd>& now) {
    if (session && endIsWritten && !now) RemoveSessionEnd(session->folder);  // the session goes on after all
    if (session && now) WriteSessionEnd(session->folder, *now);
    endIsWritten = now.has_value();
}

void RecoveryStore::Private::Do(int document, const Work& work) {
    if (work.forgotten) Remove(document);
    if (work.whole && !Begin(document, *work.whole)) {
        SetFailed(document, true);
        return;
    }
    const auto entry = kept.find(document);
    if (entry == kept.end()) return;
    KeptDocument& copy = entry->second;
    if (!copy.Stands() || copy.IsLong()) emit store.WholeWanted(document);
    if (!copy.Stands()) return;
    SetFailed(document, !work.edits.empty() && !copy.Append(work.edits));
    Settle(document, copy.Settling());
}

void RecoveryStore::Private::Remove(int document) {
    kept.erase(document);
    SetFailed(document, false);
    if (!session) return;
    RemoveKeptDocument(session->folder, document);
    Settle(document, [folder = session->folder] {
        // Whether that works concerns no text that is kept.
        static_cast<void>(SyncFolder(folder));
        return true;
    });
}

// False with errno.
bool RecoveryStore::Private::Begin(int document, const RecoveredText& copy) {
    for (const bool isFirstTry : {true, false}) {
        if (!session) session = MakeSession(root);
        if (!session) return false;
        if (kept.try_emplace(document, document).first->second.Begin(session->folder, copy)) return true;
        if (errno != ENOENT || !isFirstTry) return false;
        session.reset();  // somebody has cleared the state folder
    }
    return false;
}

void RecoveryStore::Private::Settle(int document, const std::function<bool()>& settleNow) {
    {
        const std::lock_guard guard(mutex);
        ++settling;
    }
    disk.start([this, document, settleNow] {
        if (!settleNow()) SetFailed(document, true);
        const std::lock_guard guard(mutex);
        --settling;
        changed.notify_all();
    });
}

// With errno when it has.
void RecoveryStore::Private::SetFailed(int document, bool hasFailed) {
    const QString reason = hasFailed ? CannotWrite(QFile::decodeName(root), errno) : QString();
    {
        const std::lock_guard guard(mutex);
        if (hasFailed) {
            failed.insert(document);
        } else {
            failed.erase(document);
        }
    }
    if (hasFailed) emit store.NotKept(document, reason);
}

bool HasFileChanged(const RecoveredText& text) {
    constexpr qint64 nanosecondsInSecond = 1'000'000'000;
    if (!text.caption.startsWith(u'/')) return false;
    const FileStamp stamp = StampOf(text.caption).value_or(FileStamp());
    if (!stamp.IsThere()) return false;
    // Without a time to compare, the file may be what the text was written from.
    return text.fileTime == 0 ? stamp.modified / nanosecondsInSecond > text.writtenAt : stamp.modified != text.fileTime;
}

RecoveryStore::RecoveryStore(const QString& root, QObject* parent)
    : QObject(parent), d_(std::make_unique<Private>(*this)) {
    if (!root.isEmpty()) d_->root = QFile::encodeName(QDir::cleanPath(QDir::current().absoluteFilePath(root)));
}

RecoveryStore::~RecoveryStore() {
    if (d_->leavesAll || !d_->leftBehind.empty()) Flush();
    {
        const std::lock_guard guard(d_->mutex);
        d_->ending = true;
    }
    d_->changed.notify_all();
    if (d_->worker.joinable()) d_->worker.join();
    d_->disk.waitForDone();
    if (!d_->session) return;
    std::erase_if(d_->kept, [this](const auto& entry) {
        const bool stays = d_->leavesAll || d_->leftBehind.contains(entry.first);
        if (!stays) RemoveKeptDocument(d_->session->folder, entry.first);
        return !stays;
    });
    if (d_->kept.empty()) {
        RemoveSession(std::move(*d_->session));
    } else if (!d_->leavesAll) {
        WriteSessionEnd(d_->session->folder, SessionEnd::Closed);
    }
}

QString RecoveryStore::DefaultRoot() {
    return QFile::decodeName(StateFolder() + "/recovery");
}

void RecoveryStore::Keep(int document, RecoveredText copy) {
    if (copy.writtenAt == 0) copy.writtenAt = QDateTime::currentSecsSinceEpoch();
    const std::lock_guard guard(d_->mutex);
    d_->known.insert(document);
    Work& work = d_->WorkOn(document);
    work.whole = std::move(copy);
    work.edits.clear();
}

void RecoveryStore::Change(int document, TextEdit edit) {
    if (edit.madeAt == 0) edit.madeAt = QDateTime::currentSecsSinceEpoch();
    const std::lock_guard guard(d_->mutex);
    AddEdit(d_->WorkOn(document).edits, std::move(edit));
}

void RecoveryStore::Forget(int document) {
    std::unique_lock guard(d_->mutex);
    if (d_->known.erase(document) == 0) return;
    d_->WorkOn(document) = {.forgotten = true};
    d_->Hurry();
    d_->changed.wait_for(guard, kForgetPatience, [this] { return d_->IsDone(); });
}

void RecoveryStore::LeaveBehind(int document) {
    d_->leftBehind.insert(document);
}

void RecoveryStore::EndSession(SessionEnd end) {
    std::unique_lock guard(d_->mutex);
    d_->leavesAll = true;
    if (!d_->worker.joinable()) return;  // nothing was ever handed over
    d_->end = end;
    d_->Hurry();
    d_->changed.wait_for(guard, kEndPatience, [this] { return d_->IsOnDisk(); });
}

bool RecoveryStore::Flush() {
    std::unique_lock guard(d_->mutex);
    d_->Hurry();
    d_->changed.wait(guard, [this] { return d_->IsOnDisk(); });
    return std::exchange(d_->failed, {}).empty();
}

std::vector<RecoveredText> RecoveryStore::FindLost() {
    std::vector<RecoveredText> texts;
    if (d_->root.isEmpty()) return texts;
    for (RecoverySession& session : ClaimDeadSessions(d_->root)) {
        std::vector<RecoveredText> of = ReadSession(session, FolderOf(d_->root) + "/damaged", d_->putAside);
        if (of.empty() && !HoldsCopies(session)) {
            RemoveSession(std::move(session));
            continue;
        }
        std::ranges::move(of, std::back_inserter(texts));
        d_->found.push_back(std::move(session));
    }
    std::stable_sort(texts.begin(), texts.end(), [](const RecoveredText& left, const RecoveredText& right) {
        return left.writtenAt < right.writtenAt;
    });
    return texts;
}

const QStringList& RecoveryStore::PutAside() const {
    return d_->putAside;
}

void RecoveryStore::DiscardFound() {
    for (RecoverySession& session : d_->found) RemoveSession(std::move(session));
    d_->found.clear();
}

}  // namespace vellum
