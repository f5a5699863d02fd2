#include "settings/settings_store.h"

#include "files/file_descriptor.h"
#include "files/in_place_write.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace vellum {
namespace {

// A map by names that compare without case. A name is spelled as it was when it came in.
struct WithoutCase {
    using is_transparent = void;
    bool operator()(QStringView left, QStringView right) const { return left.compare(right, Qt::CaseInsensitive) < 0; }
};
template <typename T>
using NameMap = std::map<QString, T, WithoutCase>;

using Section = NameMap<QString>;
using Application = NameMap<Section>;
using Tree = NameMap<Application>;

const QString* Find(const Tree& tree, QStringView application, QStringView section, QStringView key) {
    const auto sections = tree.find(application);
    if (sections == tree.end()) return nullptr;
    const auto values = sections->second.find(section);
    if (values == sections->second.end()) return nullptr;
    const auto value = values->second.find(key);
    return value == values->second.end() ? nullptr : &value->second;
}

// A number or truth value that somebody wrote by hand without quotes is taken as its text.
bool IsScalar(const QJsonValue& value) {
    return value.isString() || value.isDouble() || value.isBool();
}

// Empty for anything but an object of objects of objects of scalars.
std::optional<Tree> TreeFromJson(const QByteArray& bytes) {
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject()) return std::nullopt;
    Tree tree;
    const QJsonObject applications = document.object();
    for (auto application = applications.begin(); application != applications.end(); ++application) {
        if (!application->isObject()) return std::nullopt;
        Application& sectionsRead = tree[application.key()];
        const QJsonObject sections = application->toObject();
        for (auto section = sections.begin(); section != sections.end(); ++section) {
            if (!section->isObject()) return std::nullopt;
            Section& valuesRead = sectionsRead[section.key()];
            const QJsonObject values = section->toObject();
            for (auto value = values.begin(); value != values.end(); ++value) {
                if (!IsScalar(*value)) return std::nullopt;
                valuesRead[value.key()] = value->toVariant().toString();
            }
        }
    }
    return tree;
}

QByteArray JsonFromTree(const Tree& tree) {
    QJsonObject applicationObjects;
    for (const auto& [application, sections] : tree) {
        QJsonObject sectionObjects;
        for (const auto& [section, values] : sections) {
            QJsonObject texts;
            for (const auto& [key, value] : values) texts.insert(key, value);
            sectionObjects.insert(section, texts);
        }
        applicationObjects.insert(application, sectionObjects);
    }
    return QJsonDocument(applicationObjects).toJson();
}

// False for a folder, a pipe, a device and the like at the end of all links; true when there is nothing.
bool MayBeAFile(const QByteArray& path) {
    struct stat status {};
    return ::stat(path.constData(), &status) != 0 || S_ISREG(status.st_mode);
}

// Tells one state of a file from another without reading it.
struct FileIdentity {
    ino_t inode = 0;  // 0 when there is no file
    time_t seconds = 0;
    long nanoseconds = 0;
    off_t size = 0;

    bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const QByteArray& path) {
    struct stat status {};
    if (::stat(path.constData(), &status) != 0) return {};
    return {status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size};
}

// The file itself when `path` is a link to it, so that a write doesn't replace the link.
QByteArray BehindLinks(const QString& path) {
    const QByteArray absolute = QFile::encodeName(QFileInfo(path).absoluteFilePath());
    const QByteArray target = FollowLinks(absolute);
    return target.isEmpty() ? absolute : target;
}

bool MakeFolder(const QByteArray& folder) {
    constexpr mode_t ownerOnly = 0700;
    return QDir().mkpath(QFile::decodeName(FolderOf(folder))) &&
           (::mkdir(folder.constData(), ownerOnly) == 0 || errno == EEXIST);
}

// The lock stands beside the file, which is replaced by each write. Waits as long as a write of another instance may
// last, but not for one that was stopped in the middle; not open when the lock can't be had.
FileDescriptor TakeLock(const QByteArray& path) {
    constexpr qint64 patienceMilliseconds = 3000;
    constexpr unsigned long pauseMicroseconds = 500;
    FileDescriptor lock = OpenFile(path + ".lock", O_RDWR | O_CREAT);
    const QDeadlineTimer patience(patienceMilliseconds);
    while (lock.IsOpen() && ::flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) break;  // a file system without locks: better written than lost
        if (patience.hasExpired()) return {};
        QThread::usleep(pauseMicroseconds);
    }
    return lock;
}

// Replaces the file as a whole. To be called under the lock, which is why the new file's name may be a fixed one and a
// killed process leaves no litter.
bool ReplaceFile(const QByteArray& path, const QByteArray& bytes) {
    constexpr mode_t ownerOnly = 0600;
    const QByteArray fresh = path + ".new";
    FileDescriptor file = OpenFile(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, ownerOnly);
    const bool whole = file.IsOpen() && ::fchmod(file.Get(), ownerOnly) == 0 && WriteAll(file.Get(), bytes) &&
                       SyncFile(file.Get()) && file.Close();
    if (!whole || ::rename(fresh.constData(), path.constData()) != 0) {
        RemoveFile(fresh);
        return false;
    }
    return SyncFolder(FolderOf(path));
}

// Keeps a damaged file under another name.
bool SetAside(const QByteArray& path) {
    QByteArray aside = path + ".damaged";
    for (int i = 2; IdentityOf(aside).inode != 0; ++i) aside = path + ".damaged." + QByteArray::number(i);
    if (::rename(path.constData(), aside.constData()) != 0) return false;
    qWarning("The settings file %s could not be understood. It was kept as %s.", path.constData(), aside.constData());
    return true;
}

using Change = std::function<void(Tree&)>;

}  // namespace

struct SettingsStore::Private {
    Private(SettingsStore& owner, const QString& file) : store(owner), path(BehindLinks(file)) {}

    SettingsStore& store;
    QByteArray path;
    Tree tree;                    // what the file held, and the pending changes on top
    FileIdentity identity;        // of the file that `tree` was last taken from
    std::vector<Change> pending;  // what this process has changed since the file was last written, in that order
    int batches = 0;
    bool othersChanged = false;
    bool failureTold = false;
    QString refusal;
    QFileSystemWatcher watcher;

    void Start();
    void Watch();
    bool TakeOver(bool setDamagedAside);
    void TakeOverIfChanged();
    void Do(Change change);
    bool Finish();
    void Tell();
    bool Flush();
    bool FlushLocked();
};

void SettingsStore::Private::Start() {
    if (!MayBeAFile(path)) {
        refusal = tr("The settings can't be kept, because \"%1\" is not a file. The program starts with the usual "
                     "settings and forgets changes when it ends.")
                      .arg(QFile::decodeName(path));
    } else if (!TakeOver(false)) {
        // Only under the lock is it sure that the file is damaged and not being set aside by another instance.
        const FileDescriptor lock = TakeLock(path);
        if (!lock.IsOpen() || !TakeOver(true)) qWarning("The settings file %s can't be read.", path.constData());
    }
    othersChanged = false;
    Watch();
    const auto follow = [this] {
        TakeOverIfChanged();
        Watch();
        Tell();
    };
    connect(&watcher, &QFileSystemWatcher::fileChanged, &store, follow);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, &store, follow);
}

// A file that was replaced has fallen out of the watch, so it is added again after every change.
void SettingsStore::Private::Watch() {
    const QString folder = QFile::decodeName(FolderOf(path));
    if (QFileInfo(folder).isDir()) watcher.addPaths({folder, QFile::decodeName(path)});
}

// Reads the file and lays the pending changes over it. False when there is a file that can't be read or understood;
// then everything stays as it was. A damaged one may be set aside instead, and what is in memory stays.
bool SettingsStore::Private::TakeOver(bool setDamagedAside) {
    constexpr qint64 mostBytes = qint64{1} << 30;
    if (!MayBeAFile(path)) return false;
    const FileIdentity found = IdentityOf(path);
    if (found.inode == 0 && identity.inode == 0) return true;
    std::optional<Tree> fresh = Tree();
    if (found.inode != 0) {
        const FileDescriptor file = OpenFile(path, O_RDONLY);
        const std::optional<QByteArray> bytes = ReadAll(file.Get(), mostBytes);
        if (!bytes) return false;
        fresh = TreeFromJson(*bytes);
    }
    if (!fresh) {
        if (!setDamagedAside || !SetAside(path)) return false;
        identity = {};
        return true;
    }
    for (const Change& change : pending) change(*fresh);
    othersChanged = othersChanged || *fresh != tree;
    tree = std::move(*fresh);
    identity = found;
    return true;
}

void SettingsStore::Private::TakeOverIfChanged() {
    if (IdentityOf(path) != identity) TakeOver(false);
}

void SettingsStore::Private::Do(Change change) {
    change(tree);
    pending.push_back(std::move(change));
}

bool SettingsStore::Private::Finish() {
    const bool stored = batches > 0 || Flush();
    Tell();
    return stored;
}

// Called without the lock, for who listens may write in turn.
void SettingsStore::Private::Tell() {
    if (batches == 0 && std::exchange(othersChanged, false)) emit store.Changed();
}

bool SettingsStore::Private::Flush() {
    if (pending.empty()) return true;
    const bool stored = FlushLocked();
    if (stored) {
        pending.clear();
        Watch();
    } else if (!failureTold && refusal.isEmpty()) {
        qWarning("The settings could not be written to %s. They hold until the program ends.", path.constData());
    }
    failureTold = !stored;
    return stored;
}

bool SettingsStore::Private::FlushLocked() {
    if (!MayBeAFile(path) || !MakeFolder(FolderOf(path))) return false;
    const FileDescriptor lock = TakeLock(path);
    if (!lock.IsOpen() || !TakeOver(true) || !ReplaceFile(path, JsonFromTree(tree))) return false;
    identity = IdentityOf(path);
    return true;
}

SettingsStore::SettingsStore(const QString& path, QObject* parent)
    : QObject(parent), d_(std::make_unique<Private>(*this, path)) {
    d_->Start();
}

SettingsStore::~SettingsStore() {
    d_->Flush();
}

QString SettingsStore::DefaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vellumcraft/settings.json");
}

QString SettingsStore::Refusal() const {
    return d_->refusal;
}

QString SettingsStore::Read(QStringView application, QStringView section, QStringView key,
                            const QString& fallback) const {
    const QString* stored = Find(d_->tree, application, section, key);
    return stored == nullptr ? fallback : *stored;
}

bool SettingsStore::Contains(QStringView application, QStringView section, QStringView key) const {
    return Find(d_->tree, application, section, key) != nullptr;
}

bool SettingsStore::Write(QStringView application, QStringView section, QStringView key, const QString& value) {
    d_->TakeOverIfChanged();
    const QString* stored = Find(d_->tree, application, section, key);
    if (stored == nullptr || *stored != value) {
        d_->Do([application = application.toString(), section = section.toString(), key = key.toString(),
                value](Tree& tree) { tree[application][section][key] = value; });
    }
    return d_->Finish();
}

bool SettingsStore::DeleteApplication(QStringView application) {
    d_->TakeOverIfChanged();
    const bool found = d_->tree.contains(application);
    if (found) d_->Do([application = application.toString()](Tree& tree) { tree.erase(application); });
    return d_->Finish() && found;
}

bool SettingsStore::DeleteSection(QStringView application, QStringView section) {
    d_->TakeOverIfChanged();
    const auto sections = d_->tree.find(application);
    const bool found = sections != d_->tree.end() && sections->second.contains(section);
    if (found) {
        d_->Do([application = application.toString(), section = section.toString()](Tree& tree) {
            tree[application].erase(section);
        });
    }
    return d_->Finish() && found;
}

SettingsStore::Batch::Batch(SettingsStore& store) : store_(store) {
    ++store_.d_->batches;
}

SettingsStore::Batch::~Batch() {
    if (--store_.d_->batches == 0) store_.d_->Finish();
}

}  // namespace vellum
