#include "files/file_watch.h"

#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSet>
#include <QThread>
#include <QTimer>

namespace vellum {
namespace {

// Milliseconds.
constexpr int settlingTime = 100;
constexpr int longestWait = 1000;

// Watches files for what is written into them, and their folders for the rest.
class Watcher : public QObject {
public:
    Watcher() {
        settle_.setSingleShot(true);
        settle_.setInterval(settlingTime);
        for (const auto stirred : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
            connect(&watcher_, stirred, this, [this] {
                if (!settle_.isActive()) settle_.start();
            });
        }
    }

    void Watch(const QStringList& files) {
        files_ = files;
        Renew();
    }

    // A file that was replaced is another one, which isn't watched yet.
    void Renew() {
        QSet<QString> wanted;
        for (const QString& file : files_) wanted << file << QFileInfo(file).absolutePath();
        const QStringList watched = watcher_.files() + watcher_.directories();
        const QSet<QString> known(watched.begin(), watched.end());
        if (const QSet<QString> gone = known - wanted; !gone.isEmpty()) watcher_.removePaths(gone.values());
        for (const QString& path : wanted - known) {
            if (QFileInfo::exists(path)) watcher_.addPath(path);
        }
    }

    QTimer settle_{this};

private:
    QFileSystemWatcher watcher_{this};
    QStringList files_;
};

}  // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent), thread_(new QThread), watcher_(new Watcher) {
    auto* const watcher = static_cast<Watcher*>(watcher_);
    connect(&watcher->settle_, &QTimer::timeout, watcher, [this, watcher] {
        watcher->Renew();
        emit Stirred();
    });
    watcher_->moveToThread(thread_);
    connect(thread_, &QThread::finished, watcher_, &QObject::deleteLater);
    thread_->start();
}

FileWatch::~FileWatch() {
    disconnect();
    thread_->quit();
    // One that waits for a mount that is gone is left to itself.
    if (thread_->wait(longestWait)) delete thread_;
}

void FileWatch::SetFiles(const QStringList& files) {
    auto* const watcher = static_cast<Watcher*>(watcher_);
    QMetaObject::invokeMethod(watcher, [watcher, files] { watcher->Watch(files); });
}

}  // namespace vellum
