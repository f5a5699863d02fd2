#include "tools/tables/table_cell_editor.h"

#include "tools/tables/table_grid.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>

namespace vellum {
namespace {

constexpr int extraWidth = 280;  // in twips

QColor Highlight(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::Highlight);
}

}  // namespace

TableCellEditor::TableCellEditor(TableGrid& grid, const TableModel& model)
    : QPlainTextEdit(grid.viewport()), grid_(grid) {
    setObjectName(QStringLiteral("Text1"));
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(cellMargin);
    viewport()->setAutoFillBackground(false);
    connect(this, &QPlainTextEdit::textChanged, this, &TableCellEditor::WriteBack);
    connect(&model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first, const QModelIndex& last) {
        if (!writing_ && QItemSelectionRange(first, last).contains(grid_.Active())) Load();
    });
}

void TableCellEditor::Load() {
    const bool hadKeyboard = hasFocus() || grid_.hasFocus();
    const bool shows = grid_.Active().isValid() && grid_.ActiveCell().image.isEmpty();
    {
        const QScopedValueRollback<bool> loading(loading_, true);
        setPlainText(shows ? grid_.ActiveCell().text : QString());
    }
    editing_ = false;
    before_.clear();
    if (shows) ShowCell();
    // A field that hides with the keyboard would hand it to the next one of the form.
    if (!shows && hasFocus()) grid_.setFocus();
    setVisible(shows);
    // While the field stands in for the grid, Tab goes to the field alone.
    grid_.setFocusPolicy(shows ? Qt::ClickFocus : Qt::StrongFocus);
    if (shows && hadKeyboard) setFocus();
}

void TableCellEditor::ShowCell() {
    const TableCell& cell = grid_.ActiveCell();
    const QModelIndex place = grid_.Active();
    setAccessibleName(tr("Cell %1%2").arg(ColumnLetters(place.column())).arg(place.row() + 1));
    setFont(CellFont(cell));
    QPalette colors = grid_.palette();
    colors.setColor(QPalette::Text, InkOf(cell, grid_.Look()));
    colors.setColor(QPalette::Base, PaperOf(cell, grid_.Look()));
    colors.setColor(QPalette::Inactive, QPalette::Highlight, Highlight(colors));
    setPalette(colors);
    // The caret stands at the start, so that the start of a long text shows.
    moveCursor(QTextCursor::End);
    moveCursor(QTextCursor::Start, QTextCursor::KeepAnchor);
    Place();
}

void TableCellEditor::Rest() {
    if (editing_) Load();
}

void TableCellEditor::Place() {
    if (!grid_.Active().isValid()) return;
    const QRect cell = grid_.visualRect(grid_.Active());
    setGeometry(cell.adjusted(0, 0, PixelsFromTwips(extraWidth), 0));
    // A field that has grown shows again what was scrolled away.
    verticalScrollBar()->setValue(0);
    ensureCursorVisible();
    // At rest the next cell shows beside it.
    if (editing_) {
        clearMask();
    } else {
        setMask(QRect(QPoint(), cell.size()));
    }
}

void TableCellEditor::Edit() {
    if (isHidden() || editing_) return;
    editing_ = true;
    for (const QModelIndex& cell : grid_.Selected().indexes()) {
        before_.push_back({cell.row(), cell.column(), cell.data().toString()});
    }
    Place();
    viewport()->update();
}

void TableCellEditor::WriteBack() {
    if (loading_) return;
    Edit();
    const QScopedValueRollback<bool> writing(writing_, true);
    const QString text = toPlainText();
    grid_.ChangeSelected([&text](TableCell& cell) { cell.text = text; });
}

void TableCellEditor::Restore() {
    const std::vector<CellText> before = std::move(before_);
    for (const CellText& cell : before) grid_.SetText(cell.row, cell.column, cell.text);
    Load();
}

void TableCellEditor::BreakLine() {
    if (!editing_) moveCursor(QTextCursor::End);
    insertPlainText(QStringLiteral("\n"));
}

void TableCellEditor::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && (event->modifiers() & (Qt::AltModifier | Qt::ShiftModifier)) != 0) return BreakLine();
    if (event->key() == Qt::Key_Escape && editing_) return Restore();
    if (event->key() == Qt::Key_F2) {
        moveCursor(QTextCursor::End);
        return Edit();
    }
    const bool toGrid = enters || !editing_ || LeavesText(*event);
    if (toGrid && grid_.PressKey(*event)) return;
    QPlainTextEdit::keyPressEvent(event);
}

bool TableCellEditor::LeavesText(const QKeyEvent& event) const {
    const QTextCursor caret = textCursor();
    if ((event.modifiers() & ~Qt::KeypadModifier) != 0 || caret.hasSelection()) return false;
    switch (event.key()) {
        case Qt::Key_Left:
            return caret.atStart();
        case Qt::Key_Right:
            return caret.atEnd();
        case Qt::Key_Up:
            return caret.blockNumber() == 0;
        case Qt::Key_Down:
            return caret.blockNumber() == blockCount() - 1;
        default:
            return false;
    }
}

bool TableCellEditor::PassToGrid(const QMouseEvent& event) {
    if (editing_) return false;
    QWidget* const cells = grid_.viewport();
    QMouseEvent passed(event.type(), viewport()->mapTo(cells, event.position()), event.globalPosition(), event.button(),
                       event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(cells, &passed);
    return true;
}

void TableCellEditor::mousePressEvent(QMouseEvent* event) {
    if (!PassToGrid(*event)) QPlainTextEdit::mousePressEvent(event);
}

void TableCellEditor::mouseMoveEvent(QMouseEvent* event) {
    if (!PassToGrid(*event)) QPlainTextEdit::mouseMoveEvent(event);
}

void TableCellEditor::mouseReleaseEvent(QMouseEvent* event) {
    if (!PassToGrid(*event)) QPlainTextEdit::mouseReleaseEvent(event);
}

void TableCellEditor::mouseDoubleClickEvent(QMouseEvent* event) {
    if (editing_) return QPlainTextEdit::mouseDoubleClickEvent(event);
    Edit();
    setTextCursor(cursorForPosition(event->position().toPoint()));
}

// The grid scrolls, not the field.
void TableCellEditor::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void TableCellEditor::contextMenuEvent(QContextMenuEvent* event) {
    if (editing_) return QPlainTextEdit::contextMenuEvent(event);
    grid_.ShowMenu(event->globalPos());
}

void TableCellEditor::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QRect shown = editing_ ? rect() : mask().boundingRect();
    painter.fillRect(shown, palette().color(QPalette::Base));
    painter.end();
    QPlainTextEdit::paintEvent(event);
    painter.begin(viewport());
    painter.setPen(QPen(Highlight(palette()), 2));
    painter.drawRect(shown.adjusted(1, 1, -1, -1));
}

bool TableCellEditor::focusNextPrevChild(bool next) {
    return grid_.StepCell(next ? 1 : -1) || QPlainTextEdit::focusNextPrevChild(next);
}

}  // namespace vellum
