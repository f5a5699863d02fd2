#include "tools/tables/table_pane.h"

#include "tools/tables/table_grid.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QSignalBlocker>

namespace vellum {
namespace {

constexpr int twipsPerStep = 10;

int StepsFromPixels(int pixels) {
    return (TwipsFromPixels(pixels) + twipsPerStep - 1) / twipsPerStep;
}

}  // namespace

TablePane::TablePane(QWidget* parent)
    : QWidget(parent),
      Grid1(new TableGrid(this)),
      HScroll1(new QScrollBar(Qt::Horizontal, this)),
      VScroll1(new QScrollBar(Qt::Vertical, this)) {
    setObjectName(QStringLiteral("Picture3"));
    HScroll1->setObjectName(QStringLiteral("HScroll1"));
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(Grid1, 0, 0);
    layout->addWidget(VScroll1, 0, 1);
    layout->addWidget(HScroll1, 1, 0);
    Join(*HScroll1, *Grid1->horizontalScrollBar());
    Join(*VScroll1, *Grid1->verticalScrollBar());
    HScroll1->setSingleStep(TableCells::columnWidth / twipsPerStep);
    VScroll1->setSingleStep(TableCells::rowHeight / twipsPerStep);
    connect(Grid1, &TableGrid::SizesChanged, this, &TablePane::SetMaxima);
    SetMaxima();
    setFocusProxy(Grid1);
}

void TablePane::Join(QScrollBar& bar, QScrollBar& grid) {
    connect(&bar, &QScrollBar::valueChanged, &grid,
            [&grid](int steps) { grid.setValue(PixelsFromTwips(steps * twipsPerStep)); });
    connect(&grid, &QScrollBar::valueChanged, &bar, [&bar](int pixels) {
        if (PixelsFromTwips(bar.value() * twipsPerStep) == pixels) return;
        const QSignalBlocker blocker(bar);  // the grid may have gone beyond the bar's end
        bar.setValue(StepsFromPixels(pixels));
    });
}

void TablePane::SetMaxima() {
    HScroll1->setMaximum(ScrollMaximum(TableGrid::headerWidth, Grid1->Cells().ColumnWidths()));
    VScroll1->setMaximum(ScrollMaximum(TableGrid::headerHeight, Grid1->Cells().RowHeights()));
}

void TablePane::SetPages() {
    HScroll1->setPageStep(StepsFromPixels(Grid1->viewport()->width()));
    VScroll1->setPageStep(StepsFromPixels(Grid1->viewport()->height()));
}

void TablePane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    SetPages();
}

}  // namespace vellum
