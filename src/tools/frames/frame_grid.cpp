#include "tools/frames/frame_grid.h"

#include "tools/frames/frame_layout.h"
#include "values/number_rules.h"
#include "values/units.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace vellum {
namespace {

// A cell that fills its grid is larger by this, so that no line shows beside the grid's own border. In twips.
constexpr int overWidth = 100;
constexpr int overHeight = 200;

constexpr int cellPadding = 20;  // in pixels, both sides together

int OverfullPixels(int gridPixels, int overTwips) {
    return PixelsFromTwips(TwipsFromPixels(gridPixels) + overTwips);
}

}  // namespace

FrameGrid::FrameGrid(Qt::Orientation along, QWidget* parent) : QTableWidget(1, 1, parent), along_(along) {
    horizontalHeader()->hide();
    verticalHeader()->hide();
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setMinimumSectionSize(1);
        header->setSectionResizeMode(QHeaderView::Fixed);
    }
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setShowGrid(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);  // the mark is one over all grids, so the form sets it
    setTabKeyNavigation(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    SetCaption(0, {});
    setCurrentIndex(IndexOf(0));
    connect(this, &QTableWidget::pressed, this, [this](const QModelIndex& index) { emit Chosen(FrameOf(index)); });
}

int FrameGrid::FrameCount() const {
    return Stacked() ? rowCount() : columnCount();
}

QModelIndex FrameGrid::IndexOf(int frame) const {
    return Stacked() ? model()->index(frame, 0) : model()->index(0, frame);
}

void FrameGrid::Divide(int count) {
    divided_ = true;
    if (Stacked()) {
        setRowCount(count);
    } else {
        setColumnCount(count);
    }
    LayOutCells();
}

void FrameGrid::SetCaption(int frame, const QString& caption) {
    const QModelIndex place = IndexOf(frame);
    if (!item(place.row(), place.column())) {
        auto* const cell = new QTableWidgetItem;
        cell->setTextAlignment(Qt::AlignCenter);
        cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        setItem(place.row(), place.column(), cell);
    }
    item(place.row(), place.column())->setText(caption);
}

void FrameGrid::Mark(int frame) {
    selectionModel()->setCurrentIndex(IndexOf(frame), QItemSelectionModel::ClearAndSelect);
}

void FrameGrid::ClearMark() {
    selectionModel()->clearSelection();
}

QSize FrameGrid::CellRoom() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(QStringLiteral("100% × 100%")) + cellPadding,
            2 * metrics.lineSpacing() + cellPadding};
}

QSize FrameGrid::minimumSizeHint() const {
    const QSize cell = CellRoom();
    return Stacked() ? QSize(cell.width(), cell.height() * mostFrames)
                     : QSize(cell.width() * mostFrames, cell.height());
}

QSize FrameGrid::sizeHint() const {
    return minimumSizeHint();
}

void FrameGrid::scrollTo(const QModelIndex& /*index*/, ScrollHint /*hint*/) {}

void FrameGrid::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// A drag would carry the keyboard's place away from the frame that is marked.
void FrameGrid::mouseMoveEvent(QMouseEvent* /*event*/) {}

// The lines between the frames: those of a table are hardly seen on a dark desktop.
void FrameGrid::paintEvent(QPaintEvent* event) {
    QTableWidget::paintEvent(event);
    constexpr int lineOpacity = 130;
    QColor color = palette().color(QPalette::Text);
    color.setAlpha(lineOpacity);
    QPainter painter(viewport());
    painter.setPen(color);
    for (int frame = 1; frame < FrameCount(); ++frame) {
        const QPoint edge = visualRect(IndexOf(frame)).topLeft();
        if (Stacked()) {
            painter.drawLine(0, edge.y(), viewport()->width(), edge.y());
        } else {
            painter.drawLine(edge.x(), 0, edge.x(), viewport()->height());
        }
    }
}

void FrameGrid::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    LayOutCells();
}

void FrameGrid::LayOutCells() {
    setColumnWidth(0, OverfullPixels(width(), overWidth));
    setRowHeight(0, OverfullPixels(height(), overHeight));
    if (!divided_) return;
    const int count = FrameCount();
    const int gridTwips = TwipsFromPixels(Stacked() ? height() : width());
    const int cellTwips = static_cast<int>(RoundHalfEven(static_cast<double>(gridTwips) / count));
    for (int frame = 0; frame < count; ++frame) {
        // From edge to edge, so that the fractions of a pixel don't add up to a gap after the last frame.
        const int size = PixelsFromTwips((frame + 1) * cellTwips) - PixelsFromTwips(frame * cellTwips);
        if (Stacked()) {
            setRowHeight(frame, size);
        } else {
            setColumnWidth(frame, size);
        }
    }
}

void FrameGrid::keyPressEvent(QKeyEvent* event) {
    const int frame = FrameOf(currentIndex());
    const int last = FrameCount() - 1;
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int step = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left ? -1 : 1;
            const bool vertical = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
            if (vertical != Stacked()) return emit LeftFor(step, frame);
            return emit Chosen(std::clamp(frame + step, 0, last));
        }
        case Qt::Key_Home:
            return emit Chosen(0);
        case Qt::Key_End:
            return emit Chosen(last);
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return emit Chosen(frame);
        default:
            event->ignore();
    }
}

}  // namespace vellum
