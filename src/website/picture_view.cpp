#include "website/picture_view.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPixmap>
#include <QWheelEvent>

#include <algorithm>

namespace vellum {
namespace {

void FitScrollBar(QScrollBar& bar, int picture, int view) {
    constexpr int step = 16;
    bar.setRange(0, std::max(0, picture - view));
    bar.setPageStep(std::max(1, view));
    bar.setSingleStep(step);
    bar.setEnabled(picture > view);
}

}  // namespace

PictureView::PictureView(QWidget* parent)
    : QWidget(parent),
      Picture1(new QFrame(this)),
      Image1(new QLabel(this)),
      HScroll1(new QScrollBar(Qt::Horizontal, this)),
      VScroll1(new QScrollBar(Qt::Vertical, this)),
      view_(new QWidget(Picture1)),
      text_(new QLabel(view_)) {
    Picture1->setObjectName("Picture1");
    Image1->setObjectName("Image1");
    HScroll1->setObjectName("HScroll1");
    VScroll1->setObjectName("VScroll1");
    text_->setObjectName("lblImage");
    Picture1->setAccessibleName("Picture");
    HScroll1->setAccessibleName("Picture, left to right");
    VScroll1->setAccessibleName("Picture, top to bottom");

    Picture1->setFrameStyle(QFrame::Box | QFrame::Plain);
    Picture1->setForegroundRole(QPalette::Mid);
    auto* inside = new QGridLayout(Picture1);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(view_);
    auto* middle = new QGridLayout(view_);
    middle->addWidget(text_, 0, 0, Qt::AlignCenter);
    Image1->setParent(view_);
    Image1->hide();
    text_->setTextFormat(Qt::PlainText);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(Picture1, 0, 0);
    grid->addWidget(VScroll1, 0, 1);
    grid->addWidget(HScroll1, 1, 0);

    for (QScrollBar* bar : {HScroll1, VScroll1}) {
        connect(bar, &QScrollBar::valueChanged, this, &PictureView::MoveImage);
        FitScrollBar(*bar, 0, 0);
    }
    Picture1->installEventFilter(this);
    view_->installEventFilter(this);
}

void PictureView::ShowPicture(const QImage& picture) {
    Image1->setPixmap(QPixmap::fromImage(picture));
    Image1->resize(picture.size());
    Image1->show();
    text_->clear();
    HScroll1->setValue(0);
    VScroll1->setValue(0);
    FitScrollBars();
}

void PictureView::ShowText(const QString& text) {
    Image1->clear();
    Image1->resize(0, 0);
    Image1->hide();
    text_->setText(text);
    Picture1->setAccessibleDescription(text);
    FitScrollBars();
}

void PictureView::FitScrollBars() {
    FitScrollBar(*HScroll1, Image1->width(), view_->width());
    FitScrollBar(*VScroll1, Image1->height(), view_->height());
    // The keyboard has nothing to do on a picture that fits.
    const bool scrolls = HScroll1->isEnabled() || VScroll1->isEnabled();
    Picture1->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
    MoveImage();
}

void PictureView::MoveImage() {
    Image1->move(-HScroll1->value(), -VScroll1->value());
}

bool PictureView::ScrollByKey(int key) {
    switch (key) {
        case Qt::Key_Left:
            HScroll1->triggerAction(QAbstractSlider::SliderSingleStepSub);
            return true;
        case Qt::Key_Right:
            HScroll1->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            return true;
        case Qt::Key_Up:
            VScroll1->triggerAction(QAbstractSlider::SliderSingleStepSub);
            return true;
        case Qt::Key_Down:
            VScroll1->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            return true;
        case Qt::Key_PageUp:
            VScroll1->triggerAction(QAbstractSlider::SliderPageStepSub);
            return true;
        case Qt::Key_PageDown:
            VScroll1->triggerAction(QAbstractSlider::SliderPageStepAdd);
            return true;
        case Qt::Key_Home:
            HScroll1->triggerAction(QAbstractSlider::SliderToMinimum);
            VScroll1->triggerAction(QAbstractSlider::SliderToMinimum);
            return true;
        case Qt::Key_End:
            HScroll1->triggerAction(QAbstractSlider::SliderToMaximum);
            VScroll1->triggerAction(QAbstractSlider::SliderToMaximum);
            return true;
        default:
            return false;
    }
}

bool PictureView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_) {
        if (event->type() == QEvent::Resize) FitScrollBars();
        return QWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            Picture1->setForegroundRole(event->type() == QEvent::FocusIn ? QPalette::Highlight : QPalette::Mid);
            break;
        case QEvent::KeyPress:
            if (ScrollByKey(static_cast<QKeyEvent*>(event)->key())) return true;
            break;
        case QEvent::Wheel: {
            const bool sideways = static_cast<QWheelEvent*>(event)->angleDelta().y() == 0;
            QCoreApplication::sendEvent(sideways ? HScroll1 : VScroll1, event);
            return true;
        }
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace vellum
