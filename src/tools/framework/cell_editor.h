// Typing into a grid: a text field that floats over the current cell.
#pragma once

#include <QLineEdit>

class QModelIndex;
class QTableWidget;

namespace vellum {

// Rows and columns count from 0 and are the grid's own: its header is no row. Where rows are counted with the header
// as row 0, the grid's row 0 is row 1, and a grid of n rows has n + 1.
//
// A cell is entered by a click, by Tab and Shift+Tab in the order of reading, by the arrow keys up and down, and by
// Enter, which goes down a row. Tab leaves the grid after the last cell, Shift+Tab before the first one. Enter in the
// last row, and Ctrl+Enter anywhere, press the default button of the form.
//
// On entering, the field takes the cell's text, all of it selected, and the keyboard, which it leaves alone when code
// has changed the current cell while the keyboard was elsewhere. Each change goes back into the cell at once, and into
// the other selected cells when the current one is among them. A press on the field selects its cell alone, as one on
// any other cell does; with Shift or Ctrl it leaves the selection. Without a current cell the field is hidden.
//
// The field has the colours of its cell.
class CellEditor : public QLineEdit {
    Q_OBJECT
public:
    // The grid owns the field.
    CellEditor(QTableWidget* grid, const QString& name);

    // Makes a cell current and gives the field the keyboard.
    void Enter(int row, int column);
    // After code has changed the colours of the current cell.
    void ShowColors();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Load();  // from the current cell
    void WriteBack();
    void Place();
    void TakeKeyboard();
    void PressDefaultButton();

    QTableWidget* grid_;
};

}  // namespace vellum
