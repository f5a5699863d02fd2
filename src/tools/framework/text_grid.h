// A grid of texts that is typed into, with the number of its rows and buttons for one more and one fewer.
#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QLayout;
class QTableWidget;

namespace vellum {

// The texts of a grid, each row with one a column. The header is no row.
using GridRows = std::vector<QStringList>;

struct GridParts {
    QStringList titles;  // of the columns
    // Object names.
    QString grid = QStringLiteral("Grid1");
    QString editor = QStringLiteral("Text1");  // floats over the current cell
    QString rows = QStringLiteral("lblRows");
    QString plus = QStringLiteral("cmdPlus");
    QString minus = QStringLiteral("cmdMinus");
};

class TextGrid : public QWidget {
    Q_OBJECT
public:
    // Starts without rows. The keyboard goes to the first cell.
    explicit TextGrid(const GridParts& parts, QWidget* parent = nullptr);

    [[nodiscard]] GridRows Rows() const;
    void SetRows(const GridRows& rows);

signals:
    void Changed(const GridRows& rows);

private:
    void SetUpGrid(const GridParts& parts);
    [[nodiscard]] QLayout* MakeRowButtons(const GridParts& parts);

    QTableWidget* grid_;
};

}  // namespace vellum
