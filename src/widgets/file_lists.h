// The lists by which a person walks the file system: the mounted places, a folder with those above and below it, and
// the files in a folder. A form chains them: a change of the place moves the folder list, and that one moves the file
// list.
#pragma once

#include "files/folder_reader.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QListView>
#include <QListWidget>
#include <QString>
#include <QStringList>

#include <vector>

namespace vellum {

// A place to start from: the whole file system, the person's home, a medium.
struct Place {
    QString name;
    QString path;
    friend bool operator==(const Place&, const Place&) = default;
};

// The places that a table of mounts gives (as in /proc/self/mounts): the file system, the home, and what is mounted
// where media are, in order of their names. It only reads the table, since a look at a dead network mount would wait
// for ever.
[[nodiscard]] std::vector<Place> PlacesFrom(const QByteArray& mountTable, const QString& home);

// The index of the place that holds a path most closely, -1 when none does.
[[nodiscard]] int PlaceHolding(const std::vector<Place>& places, const QString& path);

class DriveList : public QComboBox {
    Q_OBJECT

public:
    explicit DriveList(QWidget* parent = nullptr);

    // The path of the chosen place.
    [[nodiscard]] QString Drive() const;
    // Chooses the place that holds the path. False, and nothing changes, when the path is no readable folder.
    bool SetDrive(const QString& path);
    // Reads the mounted places again; the chosen one stays while it is there.
    void Refresh();
    void showPopup() override;

signals:
    // Also when the person picks the same place again, to come back to it.
    void DriveChanged(const QString& path);

private:
    std::vector<Place> places_;
};

class DirectoryList : public QListWidget {
    Q_OBJECT

public:
    explicit DirectoryList(QWidget* parent = nullptr);

    [[nodiscard]] QString Path() const { return reader_.Folder(); }
    // Shows a folder. False, and the list stays as it was, when it is missing or can't be read.
    bool SetPath(const QString& path);
    void Refresh() { reader_.Refresh(); }

signals:
    void PathChanged(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Fill(const QStringList& folders);
    void AddRow(const QString& name, const QString& path, int depth, bool open);
    void OpenRow(const QListWidgetItem* row);

    FolderReader reader_;
    QString filled_;  // the folder whose rows stand in the list
};

// Names in rows, in the order of NameBefore, read only.
class FileNames : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;
    void SetNames(const QStringList& names);
    [[nodiscard]] const QStringList& Names() const { return names_; }
    // The row of a name; an invalid index when it isn't there.
    [[nodiscard]] QModelIndex Row(const QString& name) const;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    QStringList names_;
};

class FileList : public QListView {
    Q_OBJECT

public:
    explicit FileList(QWidget* parent = nullptr);

    [[nodiscard]] QString Path() const { return reader_.Folder(); }
    // Lists a folder's files. False, and the list stays as it was, when it is missing or can't be read. The names come
    // soon after; until then the list is empty.
    bool SetPath(const QString& path);
    void Refresh() { reader_.Refresh(); }

    [[nodiscard]] const QStringList& Names() const { return names_.Names(); }
    // The bare name of the selected file; empty when none is.
    [[nodiscard]] QString FileName() const;
    // Selects a file by its bare name. False when it isn't listed.
    bool SelectFile(const QString& name);
    // Selects a file as soon as it is listed. Another folder, or whatever the person does in the list before, ends the
    // waiting.
    void SelectWhenListed(const QString& name);

signals:
    void PathChanged(const QString& path);
    // A double click or Enter on a file, with its full path.
    void FileActivated(const QString& path);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Show(const QStringList& names);

    FolderReader reader_;
    FileNames names_;
    QString awaited_;  // the file that is selected when it comes
};

}  // namespace vellum
