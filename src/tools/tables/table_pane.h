// The part of the Table Builder that the grid moves in, with its two scroll bars.
#pragma once

#include <QWidget>

class QScrollBar;

namespace vellum {

class TableGrid;

// A step of the bars is ten twips. They reach to the end of the table, or as far as 16 bits can tell; the keyboard and
// the wheel go on from there.
class TablePane : public QWidget {
    Q_OBJECT
public:
    explicit TablePane(QWidget* parent = nullptr);

    TableGrid* const Grid1;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Join(QScrollBar& bar, QScrollBar& grid);
    void SetMaxima();
    void SetPages();

    QScrollBar* const HScroll1;
    QScrollBar* const VScroll1;
};

}  // namespace vellum
