#include "tools/framework/cell_editor.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableWidget>

#include <limits>
#include <utility>

namespace vellum {

CellEditor::CellEditor(QTableWidget* grid, const QString& name) : QLineEdit(grid->viewport()), grid_(grid) {
    setObjectName(name);
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->verticalHeader()->setDefaultSectionSize(sizeHint().height());
    grid->installEventFilter(this);
    grid->viewport()->installEventFilter(this);
    connect(this, &QLineEdit::textChanged, this, &CellEditor::WriteBack);
    connect(grid, &QTableWidget::currentCellChanged, this, &CellEditor::Load);
    connect(grid->model(), &QAbstractItemModel::modelReset, this, &CellEditor::Load);
    for (const QScrollBar* bar : {grid->horizontalScrollBar(), grid->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &CellEditor::Place);
    }
    for (const QHeaderView* header : {grid->horizontalHeader(), grid->verticalHeader()}) {
        connect(header, &QHeaderView::sectionResized, this, &CellEditor::Place);
        connect(header, &QHeaderView::sectionCountChanged, this, &CellEditor::Place);
        connect(header, &QHeaderView::geometriesChanged, this, &CellEditor::Place);
    }
    Load();
}

void CellEditor::Enter(int row, int column) {
    grid_->setCurrentCell(row, column);
    TakeKeyboard();
}

void CellEditor::Load() {
    const QModelIndex cell = grid_->currentIndex();
    {
        const QSignalBlocker blocker(this);
        setText(cell.data().toString());
    }
    Place();
    ShowColors();
    if (!cell.isValid()) return;
    const QString column = grid_->model()->headerData(cell.column(), Qt::Horizontal).toString();
    setAccessibleName(tr("%1, row %2").arg(column).arg(cell.row() + 1));
    if (hasFocus() || grid_->hasFocus()) TakeKeyboard();
}

void CellEditor::ShowColors() {
    const QModelIndex cell = grid_->currentIndex();
    QPalette colors;  // what it doesn't set is the grid's
    for (const auto& [from, to] :
         {std::pair{Qt::ForegroundRole, QPalette::Text}, {Qt::BackgroundRole, QPalette::Base}}) {
        if (const QVariant color = cell.data(from); color.isValid()) colors.setBrush(to, color.value<QBrush>());
    }
    setPalette(colors);
}

void CellEditor::TakeKeyboard() {
    setFocus();
    selectAll();
}

void CellEditor::WriteBack() {
    const QModelIndex current = grid_->currentIndex();
    if (!current.isValid()) return;
    const QModelIndexList selected = grid_->selectionModel()->selectedIndexes();
    const QModelIndexList cells = selected.contains(current) ? selected : QModelIndexList{current};
    for (const QModelIndex& cell : cells) grid_->model()->setData(cell, text());
}

void CellEditor::Place() {
    const QModelIndex cell = grid_->currentIndex();
    if (cell.isValid()) setGeometry(grid_->visualRect(cell));
    setVisible(cell.isValid());
    // While the field stands in for the grid, Tab goes to the field alone.
    grid_->setFocusPolicy(cell.isValid() ? Qt::ClickFocus : Qt::StrongFocus);
}

bool CellEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grid_ && event->type() == QEvent::FocusIn) {
        if (!grid_->currentIndex().isValid()) grid_->setCurrentCell(0, 0);
        if (grid_->currentIndex().isValid()) TakeKeyboard();
    }
    if (watched == grid_->viewport() && event->type() == QEvent::Resize) Place();
    return QLineEdit::eventFilter(watched, event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QLineEdit::keyPressEvent(event);
    const int below = grid_->currentRow() + 1;
    const bool leaves = (event->modifiers() & Qt::ControlModifier) != 0 || below == grid_->rowCount();
    if (leaves) return PressDefaultButton();
    Enter(below, grid_->currentColumn());
}

void CellEditor::mousePressEvent(QMouseEvent* event) {
    const bool extends = (event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
    if (!extends) {
        grid_->selectionModel()->setCurrentIndex(grid_->currentIndex(), QItemSelectionModel::ClearAndSelect);
    }
    QLineEdit::mousePressEvent(event);
}

// A field without a frame would leave an empty cell looking like any other.
void CellEditor::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool CellEditor::focusNextPrevChild(bool next) {
    const int cell = grid_->currentRow() * grid_->columnCount() + grid_->currentColumn() + (next ? 1 : -1);
    if (cell < 0 || cell >= grid_->rowCount() * grid_->columnCount()) return QLineEdit::focusNextPrevChild(next);
    Enter(cell / grid_->columnCount(), cell % grid_->columnCount());
    return true;
}

void CellEditor::PressDefaultButton() {
    for (QPushButton* button : window()->findChildren<QPushButton*>()) {
        if (button->isDefault()) return button->click();
    }
}

}  // namespace vellum
