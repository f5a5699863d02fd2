// Typing into the grid of a table: a text field that floats over the active cell.
#pragma once

#include "tools/tables/table_model.h"

#include <QPlainTextEdit>

#include <vector>

namespace vellum {

class TableGrid;

// On entering a cell the field takes its text, all of it selected, and rests: keys that mean something to the grid go
// there. What is typed goes at once into every selected cell. From then on, and after F2 or a double click, arrow keys
// stay within the text as far as it reaches; Enter, Tab or an arrow beyond its end leave the cell, and Esc brings back
// what the cells held. Alt+Enter and Shift+Enter break the line. Ctrl+Enter presses the form's default button.
//
// The field is hidden over a cell with an image, which can't be typed into. It is wider than its cell by 280 twips.
class TableCellEditor : public QPlainTextEdit {
    Q_OBJECT
public:
    // The grid owns the field.
    TableCellEditor(TableGrid& grid, const TableModel& model);

    void Load();   // from the active cell
    void Rest();   // ends the typing, if any
    void Place();  // over the active cell
    void Edit();   // starts the typing

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void ShowCell();
    void WriteBack();
    void Restore();
    void BreakLine();
    [[nodiscard]] bool LeavesText(const QKeyEvent& event) const;
    // A field that rests is only the look of its cell, so the mouse goes through it.
    bool PassToGrid(const QMouseEvent& event);

    TableGrid& grid_;
    bool editing_ = false;
    bool loading_ = false;
    bool writing_ = false;
    struct CellText {
        int row;
        int column;
        QString text;
    };
    std::vector<CellText> before_;  // what the cells held when the typing began
};

}  // namespace vellum
