// A picture at its own size in a frame, moved by scroll bars, keys and the wheel.
#pragma once

#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QWidget>

namespace vellum {

class PictureView : public QWidget {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    QFrame* const Picture1;
    QLabel* const Image1;
    QScrollBar* const HScroll1;  // pixels hidden on the left
    QScrollBar* const VScroll1;  // pixels hidden above

    // Shows a picture from its upper left corner. Each scroll bar works only when the picture doesn't fit its
    // direction.
    void ShowPicture(const QImage& picture);
    // Shows words where the picture would be.
    void ShowText(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FitScrollBars();
    void MoveImage();
    bool ScrollByKey(int key);

    QWidget* const view_;  // clips the image inside the frame's line
    QLabel* const text_;
};

}  // namespace vellum
