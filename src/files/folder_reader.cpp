#include "files/folder_reader.h"

#include "files/file_facts.h"
#include "files/file_names.h"

#include <QFileInfo>
#include <QtConcurrentRun>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace vellum {

bool NameBefore(const QString& one, const QString& other) {
    const int order = QString::compare(one, other, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : one < other;
}

QStringList NamesIn(const QString& folder, FolderContent content) {
    // The system's own iterator knows most entries' kinds from the folder itself, without a look at each file.
    namespace fs = std::filesystem;
    QStringList names;
    if (folder.isEmpty()) return names;
    std::error_code error;
    fs::directory_iterator entry(EncodeFileName(folder).toStdString(), fs::directory_options::skip_permission_denied,
                                 error);
    while (!error && entry != fs::directory_iterator()) {
        std::error_code unknown;  // a link to nowhere is neither file nor folder
        const bool wanted =
            content == FolderContent::Files ? entry->is_regular_file(unknown) : entry->is_directory(unknown);
        if (wanted) names << DecodeFileName(QByteArray::fromStdString(entry->path().filename().native()));
        entry.increment(error);
    }
    std::sort(names.begin(), names.end(), NameBefore);
    return names;
}

bool IsReadableFolder(const QString& path) {
    return IsFolder(path) && ::access(EncodeFileName(path).constData(), R_OK | X_OK) == 0;
}

FolderReader::FolderReader(FolderContent content, QObject* parent) : QObject(parent), content_(content) {
    // Files come in bursts when a program writes many of them; one reading after the burst is enough.
    constexpr int burst = 60;
    settle_.setSingleShot(true);
    settle_.setInterval(burst);
    connect(&settle_, &QTimer::timeout, this, &FolderReader::Refresh);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this](const QString& place) {
        const bool concerned = place == folder_ || IsFolder(folder_) != there_;
        if (concerned && !settle_.isActive()) settle_.start();
    });
    connect(&reading_, &QFutureWatcherBase::finished, this, &FolderReader::Finish);
}

void FolderReader::SetFolder(const QString& path) {
    folder_ = path;
    Start();
}

void FolderReader::Refresh() {
    if (reading_.isRunning()) {
        again_ = true;
    } else {
        Start();
    }
}

void FolderReader::Start() {
    again_ = false;
    settle_.stop();
    // Watched before it is read, so that no change falls between the two.
    Watch();
    reading_.setFuture(QtConcurrent::run([folder = folder_, content = content_] {
        return Result{folder, NamesIn(folder, content)};
    }));
}

void FolderReader::Finish() {
    const Result result = reading_.result();
    if (again_) Start();
    if (result.folder == folder_) emit Read(result.names);
}

// Follows the folder and the one that holds it, where it is seen to be renamed; while it is missing, the nearest one
// above it, where it would come back. Taken up anew each time, since another folder may bear the name by now.
void FolderReader::Watch() {
    there_ = IsFolder(folder_);
    QStringList places;
    if (there_) places << folder_;
    QString above = QFileInfo(folder_).absolutePath();
    while (!IsFolder(above) && above != "/") above = QFileInfo(above).absolutePath();
    if (above != folder_) places << above;
    if (const QStringList watched = watcher_.directories(); !watched.isEmpty()) watcher_.removePaths(watched);
    watcher_.addPaths(places);
}

}  // namespace vellum
