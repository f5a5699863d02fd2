// A grid of texts that is typed into, with the number of its rows and buttons for one more and one fewer.
#pragma once

#include "values/units.h"

#include <QStringList>
#include <QWidget>

#include <vector>

class QLayout;
class QTableWidget;

namespace vellum {

class CellEditor;

// The texts of a grid, each row with one a column. The header is no row.
using GridRows = std::vector<QStringList>;
// The colours of these texts, black where none was picked.
using GridColors = std::vector<std::vector<ColorNumber>>;

struct GridParts {
    QStringList titles;  // of the columns
    // Object names.
    QString grid = QStringLiteral("Grid1");
    QString editor = QStringLiteral("Text1");  // floats over the current cell
    QString rows = QStringLiteral("lblRows");
    QString plus = QStringLiteral("cmdPlus");
    QString minus = QStringLiteral("cmdMinus");
    bool several = false;  // cells may be selected together, to be typed into and coloured at once
};

class TextGrid : public QWidget {
    Q_OBJECT
public:
    // Starts without rows. The keyboard goes to the first cell.
    explicit TextGrid(const GridParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] GridRows Rows() const;
    void SetRows(const GridRows& rows);
    // As many columns as there are titles, each with its share of the width. Cells of columns that go are forgotten.
    void SetColumns(const QStringList& titles, const QList<int>& shares);

    [[nodiscard]] GridColors Colors() const;
    [[nodiscard]] ColorNumber CurrentColor() const;  // of the current cell
    // Gives the selected cells a colour, or the current one when none is. From the first one on the grid is white, as a
    // page is, with black texts, and dark below light ones.
    void ColorSelection(ColorNumber color);

signals:
    void Changed(const GridRows& rows);

private:
    void SetUpGrid(const GridParts& parts);
    [[nodiscard]] QLayout* MakeRowButtons(const GridParts& parts);

    QTableWidget* grid_;
    CellEditor* editor_ = nullptr;  // the grid owns it
};

}  // namespace vellum
