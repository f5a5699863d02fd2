#include "widgets/file_lists.h"

#include "files/file_names.h"
#include "files/paths.h"
#include "widgets/icons.h"
#include "widgets/plain_tool_tip.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace vellum {
namespace {

constexpr int pathRole = Qt::UserRole;
constexpr int depthRole = Qt::UserRole + 1;
constexpr int nameRole = Qt::UserRole;  // of a file, as it is on disk

// Indents a row by its depth, so that the names keep no blanks in front and can be found by their first letters.
class DepthDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem indented = option;
        indented.rect.setLeft(option.rect.left() + Indent(index));
        QStyledItemDelegate::paint(painter, indented, index);
    }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(Indent(index), 0);
    }

private:
    [[nodiscard]] static int Indent(const QModelIndex& index) {
        constexpr int step = 10;
        return index.data(depthRole).toInt() * step;
    }
};

QByteArray MountTable() {
    QFile table("/proc/self/mounts");
    return table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
}

// Blanks, tabs, line ends and backslashes stand in the table as three octal digits.
QString Unescaped(const QByteArray& field) {
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size(); ++i) {
        bool octal = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&octal, 8) : 0;
        bytes += octal ? static_cast<char>(code) : field[i];
        if (octal) i += 3;
    }
    return DecodeFileName(bytes);
}

bool IsMediaPath(const QString& path) {
    return path.startsWith("/media/") || path.startsWith("/run/media/") || path.startsWith("/mnt/") || path == "/mnt";
}

bool IsEnter(const QKeyEvent* event) {
    return (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
           (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

std::vector<Place> PlacesFrom(const QByteArray& mountTable, const QString& home) {
    std::vector<Place> media;
    for (const QByteArray& line : mountTable.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 3) continue;
        const QString path = Unescaped(fields[1]);
        if (!IsMediaPath(path) || fields[2] == "autofs") continue;
        const Place place{QFileInfo(path).fileName(), path};
        if (std::find(media.begin(), media.end(), place) == media.end()) media.push_back(place);
    }
    std::sort(media.begin(), media.end(), [](const Place& one, const Place& other) {
        return one.name.compare(other.name, Qt::CaseInsensitive) < 0;
    });
    std::vector<Place> places{{QStringLiteral("File System"), QStringLiteral("/")}};
    if (!home.isEmpty() && home != "/") places.push_back({QStringLiteral("Home"), home});
    places.insert(places.end(), media.begin(), media.end());
    return places;
}

int PlaceHolding(const std::vector<Place>& places, const QString& path) {
    int holding = -1;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QString& root = places[i].path;
        const bool holds = path == root || path.startsWith(root.endsWith('/') ? root : root + '/');
        const bool closer = holding < 0 || root.size() > places[static_cast<std::size_t>(holding)].path.size();
        if (holds && closer) holding = static_cast<int>(i);
    }
    return holding;
}

DriveList::DriveList(QWidget* parent) : QComboBox(parent) {
    Refresh();
    connect(this, &QComboBox::activated, this, [this] { emit DriveChanged(Drive()); });
}

QString DriveList::Drive() const {
    return currentData().toString();
}

bool DriveList::SetDrive(const QString& path) {
    if (!IsReadableFolder(path)) return false;
    const int place = PlaceHolding(places_, AbsolutePath(path));
    if (place < 0) return false;
    if (place != currentIndex()) {
        setCurrentIndex(place);
        emit DriveChanged(Drive());
    }
    return true;
}

void DriveList::Refresh() {
    const QString chosen = Drive().isEmpty() ? QStringLiteral("/") : Drive();
    std::vector<Place> places = PlacesFrom(MountTable(), QDir::homePath());
    if (places == places_) return;
    places_ = std::move(places);
    clear();
    for (const Place& place : places_) {
        addItem(ThemeIcon(place.name == u"Home" ? "folder" : "drive"), ReadableName(place.name), place.path);
        setItemData(count() - 1, PlainToolTip(ReadableName(place.path)), Qt::ToolTipRole);
    }
    setCurrentIndex(PlaceHolding(places_, chosen));
}

void DriveList::showPopup() {
    Refresh();  // a medium may have come since
    QComboBox::showPopup();
}

DirectoryList::DirectoryList(QWidget* parent) : QListWidget(parent), reader_(FolderContent::Folders) {
    setItemDelegate(new DepthDelegate(this));
    constexpr int least = 16;
    const int side = std::max(least, fontMetrics().height());
    setIconSize({side, side});
    connect(&reader_, &FolderReader::Read, this, &DirectoryList::Fill);
    connect(this, &QListWidget::itemDoubleClicked, this, &DirectoryList::OpenRow);
}

bool DirectoryList::SetPath(const QString& path) {
    if (!IsReadableFolder(path)) return false;
    const QString cleaned = AbsolutePath(path);
    if (cleaned == Path()) {
        Refresh();
        return true;
    }
    reader_.SetFolder(cleaned);
    Fill({});
    emit PathChanged(cleaned);
    return true;
}

// The folders from the root down to the shown one, and below it those that it holds.
void DirectoryList::Fill(const QStringList& folders) {
    const QString path = Path();
    const QString chosen = filled_ == path && currentItem() ? currentItem()->data(pathRole).toString() : path;
    const int scroll = filled_ == path ? verticalScrollBar()->value() : 0;
    filled_ = path;
    clear();
    AddRow("/", "/", 0, true);
    QString place = "/";
    int depth = 0;
    for (const QString& part : path.split('/', Qt::SkipEmptyParts)) {
        place = JoinPath(place, part);
        AddRow(part, place, ++depth, true);
    }
    const int shown = count() - 1;
    for (const QString& folder : folders) AddRow(folder, JoinPath(path, folder), depth + 1, false);
    setCurrentRow(shown);
    for (int row = 0; row < count(); ++row) {
        if (item(row)->data(pathRole).toString() == chosen) setCurrentRow(row);
    }
    verticalScrollBar()->setValue(scroll);
    if (scroll == 0) scrollToItem(currentItem());
}

void DirectoryList::AddRow(const QString& name, const QString& path, int depth, bool open) {
    static const QIcon openFolder = OwnIcon("open");
    static const QIcon folder = OwnIcon("folder");
    auto* row = new QListWidgetItem(open ? openFolder : folder, ReadableName(name), this);
    row->setData(pathRole, path);
    row->setData(depthRole, depth);
    row->setToolTip(PlainToolTip(ReadableName(path)));
}

void DirectoryList::OpenRow(const QListWidgetItem* row) {
    if (row) SetPath(row->data(pathRole).toString());
}

void DirectoryList::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(event)) {
        OpenRow(currentItem());
    } else if (event->key() == Qt::Key_Backspace) {
        SetPath(QFileInfo(Path()).absolutePath());
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void FileNames::SetNames(const QStringList& names) {
    beginResetModel();
    names_ = names;
    endResetModel();
}

QModelIndex FileNames::Row(const QString& name) const {
    const auto found = std::lower_bound(names_.begin(), names_.end(), name, NameBefore);
    if (found == names_.end() || *found != name) return {};
    return index(static_cast<int>(found - names_.begin()));
}

int FileNames::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(names_.size());
}

QVariant FileNames::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role == nameRole) return names_.at(index.row());
    if (role == Qt::DisplayRole) return ReadableName(names_.at(index.row()));
    if (role == Qt::ToolTipRole) return PlainToolTip(ReadableName(names_.at(index.row())));
    return {};
}

FileList::FileList(QWidget* parent) : QListView(parent), reader_(FolderContent::Files, this) {
    setModel(&names_);
    setUniformItemSizes(true);  // else every one of many thousand rows is measured
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    connect(&reader_, &FolderReader::Read, this, [this](const QStringList& names) {
        Show(names);
        if (!awaited_.isEmpty() && SelectFile(awaited_)) awaited_.clear();
    });
    // The view's own "activated" comes with a single click under some styles.
    connect(this, &QListView::doubleClicked, this, [this](const QModelIndex& index) {
        emit FileActivated(JoinPath(Path(), index.data(nameRole).toString()));
    });
}

bool FileList::SetPath(const QString& path) {
    if (!IsReadableFolder(path)) return false;
    const QString cleaned = AbsolutePath(path);
    if (cleaned == Path()) {
        Refresh();
        return true;
    }
    awaited_.clear();
    reader_.SetFolder(cleaned);
    names_.SetNames({});  // names of the folder before would be taken for files of this one
    emit PathChanged(cleaned);
    return true;
}

QString FileList::FileName() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : selected.first().data(nameRole).toString();
}

bool FileList::SelectFile(const QString& name) {
    const QModelIndex row = names_.Row(name);
    if (row.isValid()) setCurrentIndex(row);
    return row.isValid();
}

void FileList::SelectWhenListed(const QString& name) {
    awaited_ = SelectFile(name) ? QString() : name;
}

// Takes other names and leaves the selection, the current file and the scrolling where they were.
void FileList::Show(const QStringList& names) {
    if (names == names_.Names()) return;
    QStringList selected;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) selected << index.data(nameRole).toString();
    const int currentRow = currentIndex().row();
    const QString current = currentIndex().data(nameRole).toString();
    const int scroll = verticalScrollBar()->value();
    names_.SetNames(names);
    QModelIndex nowCurrent = names_.Row(current);
    // From where a file has gone, the Down key leads to the one that took its place.
    if (!nowCurrent.isValid() && currentRow > 0) nowCurrent = names_.index(std::min(currentRow, names_.rowCount()) - 1);
    selectionModel()->setCurrentIndex(nowCurrent, QItemSelectionModel::NoUpdate);
    QItemSelection selection;
    for (const QString& name : selected) {
        if (const QModelIndex row = names_.Row(name); row.isValid()) selection.append(QItemSelectionRange(row));
    }
    selectionModel()->select(selection, QItemSelectionModel::Select);
    verticalScrollBar()->setValue(scroll);
}

void FileList::mousePressEvent(QMouseEvent* event) {
    awaited_.clear();
    QListView::mousePressEvent(event);
}

void FileList::keyPressEvent(QKeyEvent* event) {
    awaited_.clear();
    if (!IsEnter(event)) {
        QListView::keyPressEvent(event);
    } else if (const QString name = FileName(); !name.isEmpty()) {
        emit FileActivated(JoinPath(Path(), name));
    }
}

}  // namespace vellum
