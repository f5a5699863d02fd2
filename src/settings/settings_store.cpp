#include "settings/settings_store.h"

#include "files/file_descriptor.h"
#include "files/in_place_write.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unordered_map>

namespace vellum {
namespace {

// Not noexcept: the table then keeps the hash beside each name and folds a name once for a search.
struct FoldingHash {
    using is_transparent = void;
    std::size_t operator()(QStringView name) const {
        std::size_t hash = 0xcbf29ce484222325U;
        for (qsizetype i = 0; i < name.size(); ++i) {
            char32_t c = name[i].unicode();
            if (c < 0x80) {
                if (c >= U'A' && c <= U'Z') c += U'a' - U'A';
            } else {
                if (QChar::isHighSurrogate(c) && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
                    c = QChar::surrogateToUcs4(name[i], name[i + 1]);
                    ++i;
                }
                c = QChar::toCaseFolded(c);
            }
            hash = (hash ^ c) * 0x100000001b3U;
        }
        return hash;
    }
};

struct FoldingEqual {
    using is_transparent = void;
    bool operator()(QStringView left, QStringView right) const {
        return left == right || left.compare(right, Qt::CaseInsensitive) == 0;
    }
};

// A table by names that compare without case. The spelling is that of the first insertion.
template <typename T>
using FoldedMap = std::unordered_map<QString, T, FoldingHash, FoldingEqual>;

using Section = FoldedMap<QString>;
using Application = FoldedMap<Section>;
using Tree = FoldedMap<Application>;

template <typename T>
const T* Find(const FoldedMap<T>& map, QStringView name) {
    const auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

template <typename T>
T& FindOrInsert(FoldedMap<T>& map, QStringView name) {
    const auto found = map.find(name);
    return found == map.end() ? map[name.toString()] : found->second;
}

template <typename T>
void Remove(FoldedMap<T>& map, QStringView name) {
    if (const auto found = map.find(name); found != map.end()) map.erase(found);
}

// What this process changed since the file was last written: the deletions first, then the values.
struct SectionChange {
    bool deleted = false;
    Section values;
};
struct ApplicationChange {
    bool deleted = false;
    FoldedMap<SectionChange> sections;
};
using Changes = FoldedMap<ApplicationChange>;

void Apply(const Changes& changes, Tree& tree) {
    for (const auto& [application, change] : changes) {
        if (change.deleted) Remove(tree, application);
        for (const auto& [section, sectionChange] : change.sections) {
            if (sectionChange.deleted) {
                if (const auto found = tree.find(application); found != tree.end()) Remove(found->second, section);
            }
            for (const auto& [key, value] : sectionChange.values) {
                FindOrInsert(FindOrInsert(FindOrInsert(tree, application), section), key) = value;
            }
        }
    }
}

// A number or truth value that somebody wrote by hand without quotes is taken as its text.
bool IsScalar(const QJsonValue& value) {
    return value.isString() || value.isDouble() || value.isBool();
}

std::optional<Tree> TreeFromJson(const QByteArray& bytes) {
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject()) return std::nullopt;
    Tree tree;
    const QJsonObject applications = document.object();
    for (auto application = applications.begin(); application != applications.end(); ++application) {
        if (!application->isObject()) return std::nullopt;
        const QJsonObject sections = application->toObject();
        for (auto section = sections.begin(); section != sections.end(); ++section) {
            if (!section->isObject()) return std::nullopt;
            Section& target = FindOrInsert(FindOrInsert(tree, application.key()), section.key());
            const QJsonObject values = section->toObject();
            for (auto value = values.begin(); value != values.end(); ++value) {
                if (!IsScalar(*value)) return std::nullopt;
                FindOrInsert(target, value.key()) = value->toVariant().toString();
            }
        }
    }
    return tree;
}

QByteArray JsonFromTree(const Tree& tree) {
    QJsonObject applications;
    for (const auto& [application, sections] : tree) {
        QJsonObject sectionObjects;
        for (const auto& [section, values] : sections) {
            QJsonObject texts;
            for (const auto& [key, value] : values) texts.insert(key, value);
            sectionObjects.insert(section, texts);
        }
        applications.insert(application, sectionObjects);
    }
    return QJsonDocument(applications).toJson();
}

// Tells one state of the file from another without reading it.
struct FileIdentity {
    bool exists = false;
    ino_t inode = 0;
    qint64 seconds = 0;
    qint64 nanoseconds = 0;
    off_t size = 0;

    bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const QByteArray& path) {
    struct stat status {};
    if (::stat(path.constData(), &status) != 0) return {};
    return {true, status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec, status.st_size};
}

// Waits for the lock as long as a write of another instance may last, but not for one that was stopped in the middle.
bool Lock(int descriptor) {
    constexpr qint64 patienceMilliseconds = 3000;
    constexpr unsigned long pauseMicroseconds = 500;
    QElapsedTimer waited;
    waited.start();
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        if (errno != EWOULDBLOCK) return errno != EBADF;  // a file system without locks: better written than lost
        if (waited.elapsed() > patienceMilliseconds) return false;
        QThread::usleep(pauseMicroseconds);
    }
    return true;
}

constexpr mode_t ownerOnlyFile = 0600;
constexpr mode_t ownerOnlyDirectory = 0700;

// Replaces the file as a whole. To be called under the lock, which is why the new file's name may be a fixed one and a
// killed process leaves no litter.
bool ReplaceFile(const QByteArray& path, const QByteArray& bytes) {
    const QByteArray fresh = path + ".new";
    FileDescriptor file = OpenFile(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, ownerOnlyFile);
    const bool whole = file.IsOpen() && ::fchmod(file.Get(), ownerOnlyFile) == 0 && WriteAll(file.Get(), bytes) &&
                       SyncFile(file.Get()) && file.Close();
    if (!whole || ::rename(fresh.constData(), path.constData()) != 0) {
        RemoveFile(fresh);
        return false;
    }
    return SyncFolder(FolderOf(path));
}

FileDescriptor OpenLock(const QByteArray& path) {
    return OpenFile(path + ".lock", O_RDWR | O_CREAT, ownerOnlyFile);
}

bool MakeDirectory(const QString& directory) {
    if (QFileInfo(directory).isDir()) return true;
    if (!QDir().mkpath(QFileInfo(directory).path())) return false;
    return ::mkdir(QFile::encodeName(directory).constData(), ownerOnlyDirectory) == 0 || errno == EEXIST;
}

// The file itself when `path` is a link to it, so that a write doesn't replace the link.
QString BehindLinks(const QString& path) {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    const QByteArray target = FollowLinks(QFile::encodeName(absolute));
    return target.isEmpty() ? absolute : QFile::decodeName(target);
}

}  // namespace

struct SettingsStore::Private {
    QString path;
    QByteArray encodedPath;
    Tree tree;
    Changes pending;
    FileIdentity identity;  // of the file that `tree` was last taken from
    QByteArray bytes;       // its content
    int batches = 0;
    bool failureTold = false;
    QFileSystemWatcher watcher;

    void Start();
    void Watch();
    void TakeOverIfChanged();
    bool TakeOver(bool setDamagedAside);
    bool SetAside();
    bool Flush();
    bool FlushLocked();
    bool FlushUnlessBatched() { return batches > 0 || Flush(); }
};

void SettingsStore::Private::Start() {
    if (!TakeOver(false)) {
        // Only under the lock is it sure that the file is damaged and not being set aside by another instance.
        const FileDescriptor lock = OpenLock(encodedPath);
        if (!lock.IsOpen() || !Lock(lock.Get()) || !TakeOver(true)) {
            qWarning("The settings file %s can't be read.", qUtf8Printable(path));
        }
    }
    Watch();
}

// A file that was replaced has fallen out of the watch, so it is added again after every change.
void SettingsStore::Private::Watch() {
    const QString directory = QFileInfo(path).path();
    if (!watcher.directories().contains(directory) && QFileInfo(directory).isDir()) watcher.addPath(directory);
    if (!watcher.files().contains(path) && QFileInfo::exists(path)) watcher.addPath(path);
}

void SettingsStore::Private::TakeOverIfChanged() {
    if (IdentityOf(encodedPath) != identity) TakeOver(false);
}

// Reads the file when its content is new, and lays the own pending changes over it. False when there is a file that
// can't be understood; then everything stays as it was, or the file has been set aside.
bool SettingsStore::Private::TakeOver(bool setDamagedAside) {
    const FileIdentity found = IdentityOf(encodedPath);
    if (!found.exists) {
        if (identity.exists) tree.clear();
        identity = {};
        bytes.clear();
        Apply(pending, tree);
        return true;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError) return false;
    if (content == bytes && identity.exists) {
        identity = found;
        return true;
    }
    std::optional<Tree> parsed = TreeFromJson(content);
    if (!parsed) return setDamagedAside && SetAside();
    tree = std::move(*parsed);
    bytes = std::move(content);
    identity = found;
    Apply(pending, tree);
    return true;
}

// Keeps a damaged file under another name. What is in memory stays.
bool SettingsStore::Private::SetAside() {
    QString aside = path + QStringLiteral(".damaged");
    for (int i = 2; QFileInfo::exists(aside); ++i) aside = path + QStringLiteral(".damaged.%1").arg(i);
    if (!QFile::rename(path, aside)) return false;
    qWarning("The settings file %s could not be understood. It was kept as %s.", qUtf8Printable(path),
             qUtf8Printable(aside));
    identity = {};
    bytes.clear();
    return true;
}

bool SettingsStore::Private::Flush() {
    if (pending.empty()) return true;
    if (FlushLocked()) {
        failureTold = false;
        Watch();
        return true;
    }
    if (!failureTold) {
        qWarning("The settings could not be written to %s. They hold until the program ends.", qUtf8Printable(path));
    }
    failureTold = true;
    return false;
}

bool SettingsStore::Private::FlushLocked() {
    if (!MakeDirectory(QFileInfo(path).path())) return false;
    const FileDescriptor lock = OpenLock(encodedPath);
    if (!lock.IsOpen() || !Lock(lock.Get())) return false;
    if (!TakeOver(true)) return false;
    QByteArray content = JsonFromTree(tree);
    if (content != bytes && !ReplaceFile(encodedPath, content)) return false;
    bytes = std::move(content);
    identity = IdentityOf(encodedPath);
    pending.clear();
    return true;
}

SettingsStore::SettingsStore(QString path, QObject* parent) : QObject(parent), d_(std::make_unique<Private>()) {
    d_->path = BehindLinks(path);
    d_->encodedPath = QFile::encodeName(d_->path);
    d_->Start();
    const auto follow = [this] {
        d_->TakeOverIfChanged();
        d_->Watch();
    };
    connect(&d_->watcher, &QFileSystemWatcher::fileChanged, this, follow);
    connect(&d_->watcher, &QFileSystemWatcher::directoryChanged, this, follow);
}

SettingsStore::~SettingsStore() {
    d_->Flush();
}

QString SettingsStore::DefaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vellumcraft/settings.json");
}

namespace {

const QString* FindValue(const Tree& tree, QStringView application, QStringView section, QStringView key) {
    const Application* sections = Find(tree, application);
    const Section* values = sections == nullptr ? nullptr : Find(*sections, section);
    return values == nullptr ? nullptr : Find(*values, key);
}

}  // namespace

QString SettingsStore::Read(QStringView application, QStringView section, QStringView key,
                            const QString& fallback) const {
    const QString* value = FindValue(d_->tree, application, section, key);
    return value == nullptr ? fallback : *value;
}

bool SettingsStore::Contains(QStringView application, QStringView section, QStringView key) const {
    return FindValue(d_->tree, application, section, key) != nullptr;
}

bool SettingsStore::Write(QStringView application, QStringView section, QStringView key, const QString& value) {
    d_->TakeOverIfChanged();
    const QString* stored = FindValue(d_->tree, application, section, key);
    if (stored == nullptr || *stored != value) {
        SectionChange& change = FindOrInsert(FindOrInsert(d_->pending, application).sections, section);
        FindOrInsert(change.values, key) = value;
        FindOrInsert(FindOrInsert(FindOrInsert(d_->tree, application), section), key) = value;
    }
    return d_->FlushUnlessBatched();
}

bool SettingsStore::DeleteApplication(QStringView application) {
    d_->TakeOverIfChanged();
    if (Find(d_->tree, application) == nullptr) return false;
    ApplicationChange& change = FindOrInsert(d_->pending, application);
    change.sections.clear();
    change.deleted = true;
    Remove(d_->tree, application);
    return d_->FlushUnlessBatched();
}

bool SettingsStore::DeleteSection(QStringView application, QStringView section) {
    d_->TakeOverIfChanged();
    const auto found = d_->tree.find(application);
    if (found == d_->tree.end() || Find(found->second, section) == nullptr) return false;
    SectionChange& change = FindOrInsert(FindOrInsert(d_->pending, application).sections, section);
    change.values.clear();
    change.deleted = true;
    Remove(found->second, section);
    return d_->FlushUnlessBatched();
}

SettingsStore::Batch::Batch(SettingsStore& store) : store_(store) {
    ++store_.d_->batches;
}

SettingsStore::Batch::~Batch() {
    if (--store_.d_->batches == 0) store_.d_->Flush();
}

}  // namespace vellum
