// A line of frames as a picture: one cell a frame, one frame of all lines marked.
#pragma once

#include <QTableWidget>

namespace vellum {

class FrameGrid : public QTableWidget {
    Q_OBJECT
public:
    // `along` is vertical when the frames are stacked. Starts with one frame that fills the grid.
    explicit FrameGrid(Qt::Orientation along, QWidget* parent = nullptr);

    [[nodiscard]] int FrameCount() const;
    // Shares the grid out among so many frames, in equal parts.
    void Divide(int count);
    void SetCaption(int frame, const QString& caption);  // frames count from 0
    void Mark(int frame);
    void ClearMark();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    // Nothing scrolls: all frames show always.
    void scrollTo(const QModelIndex& index, ScrollHint hint) override;

signals:
    // The frame was pressed, or a key came to it that does the same.
    void Chosen(int frame);
    // An arrow key leads out of this line: -1 to the one before, 1 to the one after.
    void LeftFor(int step, int frame);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] bool Stacked() const { return along_ == Qt::Vertical; }
    [[nodiscard]] int FrameOf(const QModelIndex& index) const { return Stacked() ? index.row() : index.column(); }
    [[nodiscard]] QModelIndex IndexOf(int frame) const;
    [[nodiscard]] QSize CellRoom() const;
    void LayOutCells();

    Qt::Orientation along_;
    bool divided_ = false;
};

}  // namespace vellum
