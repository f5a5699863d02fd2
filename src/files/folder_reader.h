// Reads the names in a folder on a worker thread, and again whenever the folder changes on disk.
#pragma once

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

namespace vellum {

enum class FolderContent { Files, Folders };

// The order of names in lists: ascending without regard to case, and capitals first among names that are alike then.
[[nodiscard]] bool NameBefore(const QString& one, const QString& other);

// The files (links to files too) or the folders in a folder, those with a leading dot among them, sorted ascending
// without regard to case. Empty when the folder can't be read. Blocks.
[[nodiscard]] QStringList NamesIn(const QString& folder, FolderContent content);

// True for a folder whose names can be read.
[[nodiscard]] bool IsReadableFolder(const QString& path);

class FolderReader : public QObject {
    Q_OBJECT

public:
    explicit FolderReader(FolderContent content, QObject* parent = nullptr);

    [[nodiscard]] QString Folder() const { return folder_; }
    // Reads another folder, and follows that one from now on. A folder that is missing has no names until it is there.
    void SetFolder(const QString& path);
    void Refresh();

signals:
    // The names as they are now; comes once after every SetFolder and Refresh, and after changes on disk.
    void Read(const QStringList& names);

private:
    struct Result {
        QString folder;
        QStringList names;
    };

    void Start();
    void Finish();
    void Watch();

    FolderContent content_;
    QString folder_;
    bool there_ = false;  // the folder was there when it was last looked at
    bool again_ = false;  // asked to read while a reading was under way
    QFutureWatcher<Result> reading_;
    QFileSystemWatcher watcher_;
    QTimer settle_;
};

}  // namespace vellum
