#include "tools/tables/table_grid.h"

#include "tools/tables/table_cell_editor.h"
#include "tools/tables/table_clipboard.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFontInfo>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace vellum {
namespace {

// The selection of all cells between two, which may stand either way.
QItemSelection Between(const QModelIndex& one, const QModelIndex& other) {
    const QAbstractItemModel& cells = *one.model();
    return {cells.index(std::min(one.row(), other.row()), std::min(one.column(), other.column())),
            cells.index(std::max(one.row(), other.row()), std::max(one.column(), other.column()))};
}

bool IsOneCell(const QItemSelection& selection) {
    return selection.size() == 1 && selection.front().width() == 1 && selection.front().height() == 1;
}

// The height that the cells of a row need in a range.
int HeightIn(const TableCells& cells, int row, const QItemSelectionRange& range) {
    int height = 0;
    for (int column = range.left(); column <= range.right(); ++column) {
        height = std::max(height, HeightFor(cells.At(row, column)));
    }
    return height;
}

}  // namespace

TableGrid::TableGrid(QWidget* parent)
    : QTableView(parent), model_(new TableModel(this)), painter_(new TableCellPainter(*model_, this)) {
    setObjectName(QStringLiteral("Grid1"));
    setAccessibleName(tr("Cells"));
    editor_ = new TableCellEditor(*this, *model_);  // before the model, whose first selection it follows
    setModel(model_);
    setItemDelegate(painter_);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Window);  // so that the paper of the cells tells where they end
    SetUpHeaders();
    for (const QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, editor_, &TableCellEditor::Place);
    }
    Enter(0, 0);
}

void TableGrid::SetUpHeaders() {
    constexpr int smallest = 8;
    const std::pair<QHeaderView*, int> sizes[] = {{horizontalHeader(), TableCells::columnWidth},
                                                  {verticalHeader(), TableCells::rowHeight}};
    for (const auto& [header, twips] : sizes) {
        header->setMinimumSectionSize(smallest);
        header->setDefaultSectionSize(PixelsFromTwips(twips));
        connect(header, &QHeaderView::sectionResized, editor_, &TableCellEditor::Place);
        connect(header, &QHeaderView::geometriesChanged, editor_, &TableCellEditor::Place);
    }
    horizontalHeader()->setMinimumHeight(PixelsFromTwips(headerHeight));
    verticalHeader()->setMinimumWidth(PixelsFromTwips(headerWidth));
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    // Rows are as high as on the page, however large the desktop's letters are.
    QFont font = verticalHeader()->font();
    font.setPixelSize(std::min(QFontInfo(font).pixelSize(), PixelsFromTwips(TableCells::rowHeight) * 2 / 3));
    verticalHeader()->setFont(font);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int pixels) { TakeWidth(column, pixels); });
    connect(verticalHeader(), &QHeaderView::sectionResized, this,
            [this](int row, int /*before*/, int pixels) { TakeHeight(row, pixels); });
}

void TableGrid::SetCells(TableCells cells) {
    model_->SetCells(std::move(cells));
    ShowSizes();
    Enter(0, 0);
    emit SizesChanged();
}

void TableGrid::Resize(int rows, int columns) {
    model_->Resize(rows, columns);
    FollowActive();
    emit SizesChanged();
}

// A size that isn't the one of the pixels that show it is more exact, and stays.
void TableGrid::TakeWidth(int column, int pixels) {
    if (PixelsFromTwips(Cells().ColumnWidth(column)) == pixels) return;
    model_->SetColumnWidth(column, TwipsFromPixels(pixels));
    emit SizesChanged();
}

void TableGrid::TakeHeight(int row, int pixels) {
    if (PixelsFromTwips(Cells().RowHeight(row)) == pixels) return;
    model_->SetRowHeight(row, TwipsFromPixels(pixels));
    emit SizesChanged();
}

void TableGrid::ShowSizes() {
    const std::pair<QHeaderView*, const std::vector<int>&> sizes[] = {{horizontalHeader(), Cells().ColumnWidths()},
                                                                      {verticalHeader(), Cells().RowHeights()}};
    for (const auto& [header, twips] : sizes) {
        for (int section = 0; const int size : twips) {
            const int pixels = PixelsFromTwips(size);
            if (header->sectionSize(section) != pixels) header->resizeSection(section, pixels);
            ++section;
        }
    }
}

QItemSelection TableGrid::Selected() const {
    const QItemSelection selection = selectionModel()->selection();
    return selection.isEmpty() ? QItemSelection(Active(), Active()) : selection;
}

void TableGrid::Enter(int row, int column) {
    selectionModel()->setCurrentIndex(model_->index(row, column), QItemSelectionModel::ClearAndSelect);
}

void TableGrid::Select(QPoint first, QPoint last) {
    Enter(first.y(), first.x());
    Extend(model_->index(last.y(), last.x()));
}

void TableGrid::Extend(const QModelIndex& to) {
    selectionModel()->select(Between(Active(), to), QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(to, QItemSelectionModel::NoUpdate);
}

void TableGrid::StepRow(int step) {
    const int rows = Cells().Rows();
    const int cell = Active().column() * rows + Active().row() + step;
    if (cell >= 0 && cell < rows * Cells().Columns()) Enter(cell % rows, cell / rows);
}

bool TableGrid::StepCell(int step) {
    const int columns = Cells().Columns();
    const int cell = Active().row() * columns + Active().column() + step;
    if (cell < 0 || cell >= Cells().Rows() * columns) return false;
    Enter(cell / columns, cell % columns);
    return true;
}

void TableGrid::ChangeSelected(const TableModel::CellChange& change) {
    const QItemSelection selected = Selected();
    bool grown = false;
    for (const QItemSelectionRange& range : selected) {
        std::vector<int> before;
        for (int row = range.top(); row <= range.bottom(); ++row) before.push_back(HeightIn(Cells(), row, range));
        model_->Change({range.topLeft(), range.bottomRight()}, change);
        // A row that the author made low stays so while its cells need no more than before.
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const int needed = HeightIn(Cells(), row, range);
            if (needed <= before.at(static_cast<std::size_t>(row - range.top())) || needed <= Cells().RowHeight(row))
                continue;
            model_->SetRowHeight(row, needed);
            verticalHeader()->resizeSection(row, PixelsFromTwips(needed));
            grown = true;
        }
    }
    if (grown) emit SizesChanged();
}

void TableGrid::ChangeActive(const TableModel::CellChange& change) {
    model_->Change({Active(), Active()}, change);
}

void TableGrid::SetText(int row, int column, const QString& text) {
    const QModelIndex cell = model_->index(row, column);
    model_->Change({cell, cell}, [&text](TableCell& held) { held.text = text; });
}

void TableGrid::SetLook(const CellLook& look) {
    painter_->look = look;
    viewport()->update();
    editor_->Load();
}

void TableGrid::HideEditor() {
    const QScopedValueRollback<bool> hiding(hiding_, true);
    if (editor_->hasFocus()) setFocus();
    setFocusPolicy(Qt::StrongFocus);
    editor_->hide();
}

void TableGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    FollowActive();
}

void TableGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    FollowActive();
    editor_->Rest();
}

void TableGrid::FollowActive() {
    const QItemSelection selection = selectionModel()->selection();
    QModelIndex active = Active();
    if (IsOneCell(selection)) {
        active = selection.front().topLeft();
    } else if (!active.isValid() || (!selection.isEmpty() && !selection.contains(active))) {
        active = selection.isEmpty() ? currentIndex() : QModelIndex(selection.front().topLeft());
    }
    if (active == painter_->active) return;
    painter_->active = active;
    viewport()->update();
    editor_->Load();
    emit ActiveChanged();
}

bool TableGrid::PressKey(const QKeyEvent& event) {
    const std::pair<QKeySequence::StandardKey, void (*)(TableGrid&)> commands[] = {
        {QKeySequence::Copy, CopyCells},
        {QKeySequence::Cut, CutCells},
        {QKeySequence::Paste, PasteCells},
        {QKeySequence::SelectAll, [](TableGrid& grid) { grid.selectAll(); }}};
    for (const auto& [key, command] : commands) {
        if (!event.matches(key)) continue;
        command(*this);
        return true;
    }
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        if (modifiers == Qt::ControlModifier) {
            PressDefaultButton();
        } else {
            StepRow(1);
        }
        return true;
    }
    if (event.key() == Qt::Key_Delete && modifiers == 0) {
        ClearCells(*this);
        return true;
    }
    return (modifiers & Qt::AltModifier) == 0 && Move(event.key(), modifiers);
}

// With Shift the selection grows or shrinks; with Ctrl a key goes all the way.
bool TableGrid::Move(int key, Qt::KeyboardModifiers modifiers) {
    const bool extends = modifiers.testFlag(Qt::ShiftModifier);
    const bool farthest = modifiers.testFlag(Qt::ControlModifier);
    const QModelIndex from = extends && currentIndex().isValid() ? currentIndex() : Active();
    const int lastRow = Cells().Rows() - 1;
    const int lastColumn = Cells().Columns() - 1;
    const int page = std::max(viewport()->height() / std::max(rowHeight(from.row()), 1), 1);
    int row = from.row();
    int column = from.column();
    switch (key) {
        case Qt::Key_Left:
            column = farthest ? 0 : column - 1;
            break;
        case Qt::Key_Right:
            column = farthest ? lastColumn : column + 1;
            break;
        case Qt::Key_Up:
            row = farthest ? 0 : row - 1;
            break;
        case Qt::Key_Down:
            row = farthest ? lastRow : row + 1;
            break;
        case Qt::Key_Home:
            column = 0;
            if (farthest) row = 0;
            break;
        case Qt::Key_End:
            column = lastColumn;
            if (farthest) row = lastRow;
            break;
        case Qt::Key_PageUp:
            row -= page;
            break;
        case Qt::Key_PageDown:
            row += page;
            break;
        default:
            return false;
    }
    const QModelIndex to = model_->index(std::clamp(row, 0, lastRow), std::clamp(column, 0, lastColumn));
    if (extends) {
        Extend(to);
    } else {
        Enter(to.row(), to.column());
    }
    return true;
}

void TableGrid::PressDefaultButton() {
    for (QPushButton* button : window()->findChildren<QPushButton*>()) {
        if (button->isDefault()) return button->click();
    }
}

// Comes here while the field is hidden, and by itself from the field, which has seen it before.
void TableGrid::keyPressEvent(QKeyEvent* event) {
    if (!hasFocus()) return event->ignore();
    if (ActiveCell().image.isEmpty()) {
        editor_->Load();
        QCoreApplication::sendEvent(editor_, event);
    } else if (!PressKey(*event)) {
        event->ignore();
    }
}

void TableGrid::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (!hiding_) editor_->Load();
}

bool TableGrid::focusNextPrevChild(bool next) {
    return StepCell(next ? 1 : -1) || QTableView::focusNextPrevChild(next);
}

QModelIndex TableGrid::CellAt(QPoint place) const {
    const QRect room = viewport()->rect();
    const int row = rowAt(std::clamp(place.y(), room.top(), room.bottom()));
    const int column = columnAt(std::clamp(place.x(), room.left(), room.right()));
    return model_->index(row < 0 ? Cells().Rows() - 1 : row, column < 0 ? Cells().Columns() - 1 : column);
}

void TableGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (!cell.isValid()) return;
    const bool left = event->button() == Qt::LeftButton;
    dragging_ = left && !event->modifiers().testFlag(Qt::ControlModifier);
    if (left && event->modifiers().testFlag(Qt::ShiftModifier)) {
        Extend(cell);
    } else if (left && event->modifiers().testFlag(Qt::ControlModifier)) {
        selectionModel()->select(cell, QItemSelectionModel::Toggle);
        selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    } else if (left || !selectionModel()->isSelected(cell)) {
        Enter(cell.row(), cell.column());
    }
    if (editor_->isHidden()) editor_->Load();
}

void TableGrid::mouseMoveEvent(QMouseEvent* event) {
    constexpr int beat = 60;  // milliseconds
    dragPlace_ = event->position().toPoint();
    if (!dragging_) return;
    if (viewport()->rect().contains(dragPlace_)) {
        dragTimer_.stop();
    } else if (!dragTimer_.isActive()) {
        dragTimer_.start(beat, this);
    }
    if (const QModelIndex cell = CellAt(dragPlace_); cell != currentIndex()) Extend(cell);
}

void TableGrid::mouseReleaseEvent(QMouseEvent* /*event*/) {
    dragging_ = false;
    dragTimer_.stop();
}

// A press came before it and made the cell active.
void TableGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (indexAt(event->position().toPoint()) == Active()) editor_->Edit();
}

// A drag beyond the edge goes on by itself.
void TableGrid::timerEvent(QTimerEvent* event) {
    if (event->timerId() != dragTimer_.timerId()) return QTableView::timerEvent(event);
    const QRect room = viewport()->rect();
    const auto step = [](int place, int first, int last) {
        return place < first ? -1 : static_cast<int>(place > last);
    };
    const int row = currentIndex().row() + step(dragPlace_.y(), room.top(), room.bottom());
    const int column = currentIndex().column() + step(dragPlace_.x(), room.left(), room.right());
    Extend(model_->index(std::clamp(row, 0, Cells().Rows() - 1), std::clamp(column, 0, Cells().Columns() - 1)));
}

void TableGrid::wheelEvent(QWheelEvent* event) {
    const std::pair<QScrollBar*, int> bars[] = {
        {horizontalScrollBar(), horizontalHeader()->length() - viewport()->width()},
        {verticalScrollBar(), verticalHeader()->length() - viewport()->height()}};
    const int before[] = {bars[0].first->value(), bars[1].first->value()};
    QTableView::wheelEvent(event);
    // The bars lead beyond the last cell; the wheel doesn't.
    for (int i = 0; i < 2; ++i) {
        const auto& [bar, most] = bars[i];
        if (bar->value() > before[i]) bar->setValue(std::clamp(bar->value(), 0, std::max({most, before[i], 0})));
    }
}

// The grid can be moved until its last cell has left.
void TableGrid::updateGeometries() {
    QTableView::updateGeometries();
    horizontalScrollBar()->setMaximum(horizontalHeader()->length() + PixelsFromTwips(headerWidth));
    verticalScrollBar()->setMaximum(verticalHeader()->length() + PixelsFromTwips(headerHeight));
}

void TableGrid::ShowMenu(QPoint place) {
    struct Item {
        QString caption;
        QKeySequence key;
        void (*command)(TableGrid&);
    };
    const Item items[] = {{tr("Cu&t"), QKeySequence::Cut, CutCells},
                          {tr("&Copy"), QKeySequence::Copy, CopyCells},
                          {tr("&Paste"), QKeySequence::Paste, PasteCells},
                          {tr("C&lear"), QKeySequence::Delete, ClearCells}};
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Item& item : items) {
        QAction* const action = menu->addAction(item.caption);
        action->setShortcut(item.key);
        action->setShortcutContext(Qt::WidgetShortcut);  // the key itself is the grid's
        connect(action, &QAction::triggered, this, [this, command = item.command] { command(*this); });
    }
    menu->popup(place);
}

void TableGrid::contextMenuEvent(QContextMenuEvent* event) {
    ShowMenu(event->globalPos());
}

}  // namespace vellum
