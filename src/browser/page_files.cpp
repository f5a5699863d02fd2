#include "browser/page_files.h"

#include "files/file_descriptor.h"

#include <QMutex>
#include <QSemaphore>
#include <QSet>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vellum {
namespace {

// Milliseconds that the program's windows may stand still for one look at the disk.
constexpr int patience = 500;
constexpr int mostLooks = 16;  // that wait for folders that don't answer
constexpr qint64 mostBytes = 64 * 1024 * 1024;

constexpr std::array systemFolders{"/bin",        "/boot", "/dev",  "/etc", "/lib",  "/lib32", "/lib64", "/libx32",
                                   "/lost+found", "/proc", "/root", "/run", "/sbin", "/sys",   "/usr",   "/var"};
// Folders inside those that hold sites, removable disks, or what every program may show.
constexpr std::array openFolders{"/run/media", "/usr/local/share", "/usr/share", "/var/home", "/var/tmp", "/var/www"};

// True for the folder itself as well.
bool LiesIn(const QByteArray& path, const QByteArray& folder) {
    return path == folder || (path.startsWith(folder) && path.at(folder.size()) == '/');
}

bool LiesInOne(const QByteArray& path, const QByteArrayList& folders) {
    return std::any_of(folders.begin(), folders.end(), [&](const QByteArray& folder) { return LiesIn(path, folder); });
}

template <typename Folders>
bool LiesInOneOf(const QByteArray& path, const Folders& folders) {
    return std::any_of(folders.begin(), folders.end(), [&](const char* folder) { return LiesIn(path, folder); });
}

// The file, or the innermost folder around it, whose name begins with a dot; empty when there is none below `home`.
QByteArray HiddenPart(const QByteArray& file, const QByteArray& home) {
    const qsizetype dot = file.lastIndexOf("/.");
    if (dot < home.size()) return {};
    const qsizetype end = file.indexOf('/', dot + 1);
    return end < 0 ? file : file.left(end);
}

// The home folders that the path names, of whichever person.
QByteArrayList HomesAround(const QByteArray& file) {
    QByteArrayList homes;
    for (const QByteArrayView all : {"/home/", "/var/home/"}) {
        if (!file.startsWith(all)) continue;
        if (const qsizetype end = file.indexOf('/', all.size()); end > 0) homes << file.left(end);
    }
    return homes;
}

// The network folders that a desktop mounts for the person.
QByteArray DesktopMounts() {
    return "/run/user/" + QByteArray::number(::getuid()) + "/gvfs";
}

// The path without symbolic links; empty when there is no such file.
QByteArray Resolved(const QByteArray& path) {
    std::array<char, PATH_MAX> real;
    return ::realpath(path.constData(), real.data()) != nullptr ? QByteArray(real.data()) : QByteArray();
}

QByteArrayList ResolvedAll(const QByteArrayList& paths) {
    QByteArrayList resolved;
    for (const QByteArray& path : paths) {
        const QByteArray real = Resolved(path);
        if (real.size() > 1) resolved << real;  // the root as a home, as of a service, would open everything
    }
    return resolved;
}

class ShownFolders {
public:
    void Add(const QByteArray& path) {
        const QMutexLocker lock(&mutex_);
        paths_ << path;
    }
    void Remove(const QByteArray& path) {
        const QMutexLocker lock(&mutex_);
        paths_.removeOne(path);
    }
    [[nodiscard]] QByteArrayList All() const {
        const QMutexLocker lock(&mutex_);
        return paths_;
    }

private:
    mutable QMutex mutex_;
    QByteArrayList paths_;
};

// Never destroyed, because a look that is still waiting at the end of the program must not hold that up.
ShownFolders& Shown() {
    static auto* const folders = new ShownFolders;
    return *folders;
}

QByteArrayList Homes() {
    QByteArrayList homes{qgetenv("HOME")};
    passwd entry = {};
    passwd* found = nullptr;
    std::array<char, 16384> texts;
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found != nullptr)
        homes << found->pw_dir;
    return homes;
}

// The file without symbolic links when pages may have it, else empty.
QByteArray ForPages(const QByteArray& path) {
    const QByteArray file = Resolved(path);
    struct stat status = {};
    if (file.isEmpty() || ::stat(file.constData(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    static const QByteArrayList homes = Homes();
    const PageSurroundings around{.homes = ResolvedAll(homes), .folders = ResolvedAll(Shown().All())};
    return MayBeShown(file, around) ? file : QByteArray();
}

// Looks at the disk for one thread that can't wait for long.
class Looks {
public:
    Looks() { pool_.setMaxThreadCount(mostLooks); }

    bool At(const QByteArray& path) {
        const QByteArray folder = FolderOf(path);
        if (IsSilent(folder)) return false;
        const auto look = std::make_shared<Look>();
        const bool started = pool_.tryStart([this, look, path, folder] {
            look->good = IsForPages(path);
            look->done.release();
            const QMutexLocker lock(&mutex_);
            silent_.remove(folder);
        });
        if (!started) return false;
        if (look->done.tryAcquire(1, patience)) return look->good;
        const QMutexLocker lock(&mutex_);
        if (look->done.available() == 0) silent_ << folder;
        return false;
    }

private:
    struct Look {
        QSemaphore done;
        bool good = false;
    };

    bool IsSilent(const QByteArray& folder) {
        const QMutexLocker lock(&mutex_);
        return silent_.contains(folder);
    }

    QThreadPool pool_;
    QMutex mutex_;
    QSet<QByteArray> silent_;
};

}  // namespace

bool MayBeShown(const QByteArray& file, const PageSurroundings& around) {
    const auto showsFrom = [&](const QByteArray& folder) {
        return std::any_of(around.folders.begin(), around.folders.end(),
                           [&](const QByteArray& shown) { return LiesIn(shown, folder); });
    };
    for (const QByteArray& home : around.homes + HomesAround(file)) {
        if (!LiesIn(file, home)) continue;
        const QByteArray hidden = HiddenPart(file, home);
        if (!hidden.isEmpty() && !showsFrom(hidden)) return false;
    }
    return !LiesInOneOf(file, systemFolders) || LiesInOneOf(file, openFolders) || LiesIn(file, DesktopMounts()) ||
           LiesInOne(file, around.homes) || LiesInOne(file, around.folders);
}

QByteArray LocalPath(const QUrl& address) {
    if (!address.isLocalFile() || !address.host().isEmpty()) return {};
    const QByteArray spelled = address.path(QUrl::FullyEncoded).toLatin1();
    for (const char* separator : {"%2F", "%2f", "%00"})
        if (spelled.contains(separator)) return {};
    return QByteArray::fromPercentEncoding(spelled);
}

ShownFolder::ShownFolder(QByteArray path) : path_(std::move(path)) {
    Shown().Add(path_);
}

ShownFolder::~ShownFolder() {
    Shown().Remove(path_);
}

bool IsForPages(const QByteArray& path) {
    return !ForPages(path).isEmpty();
}

bool IsForPagesNow(const QByteArray& path) {
    static auto* const looks = new Looks;  // never destroyed, as above
    return looks->At(path);
}

std::optional<QByteArray> ReadForPages(const QByteArray& path) {
    const QByteArray real = ForPages(path);
    if (real.isEmpty()) return std::nullopt;
    const FileDescriptor file = OpenFile(real, O_RDONLY | O_NOFOLLOW | O_NOCTTY);
    struct stat status = {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return ReadAll(file.Get(), mostBytes);
}

}  // namespace vellum
