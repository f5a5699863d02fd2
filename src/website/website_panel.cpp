#include "website/website_panel.h"

#include "values/units.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace vellum {

DragBar::DragBar(QWidget* parent) : QFrame(parent) {
    setCursor(Qt::SplitVCursor);
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(thickness);
    setAccessibleName("Height of the website panel");
    setToolTip("Drag to make the website panel higher or lower");
}

void DragBar::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) emit Dragged(qRound(event->position().y()));
}

void DragBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit Released(qRound(event->position().y()));
}

void DragBar::keyPressEvent(QKeyEvent* event) {
    // A release in the middle of the bar leaves the height as it is, so a step counts from the middle.
    if (event->key() == Qt::Key_Up) {
        emit Released(height() / 2 - keyStep);
    } else if (event->key() == Qt::Key_Down) {
        emit Released(height() / 2 + keyStep);
    } else {
        QFrame::keyPressEvent(event);
    }
}

void DragBar::focusInEvent(QFocusEvent* event) {
    QFrame::focusInEvent(event);
    update();
}

void DragBar::focusOutEvent(QFocusEvent* event) {
    QFrame::focusOutEvent(event);
    update();
}

void DragBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int gripWidth = hasFocus() ? 120 : 40;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRoundedRect(QRectF((width() - gripWidth) / 2.0, height() / 2.0 - 1.5, gripWidth, 3), 1, 1);
}

WebsitePanel::WebsitePanel(QWidget* parent)
    : QWidget(parent),
      Picture2(new DragBar(this)),
      Drive1(new DriveList(this)),
      Dir1(new DirectoryList(this)),
      File2(new FileList(this)),
      TreeView1(new ReferenceView(this)) {
    setObjectName("Picture11");
    Picture2->setObjectName("Picture2");
    Drive1->setObjectName("Drive1");
    Dir1->setObjectName("Dir1");
    File2->setObjectName("File2");
    TreeView1->setObjectName("TreeView1");
    Drive1->setAccessibleName("Drive");
    Dir1->setAccessibleName("Directory");
    File2->setAccessibleName("Files in the website directory");
    TreeView1->setAccessibleName("Markup reference");

    // A place that can't be read changes no list after it.
    connect(Drive1, &DriveList::DriveChanged, Dir1, &DirectoryList::SetPath);
    connect(Dir1, &DirectoryList::PathChanged, File2, &FileList::SetPath);
    connect(TreeView1, &ReferenceView::Hint, this, &WebsitePanel::Hint);
    connect(File2, &FileList::FileActivated, this, &WebsitePanel::FileActivated);
    for (QWidget* surface : {Dir1->viewport(), File2->viewport()}) {
        surface->setMouseTracking(true);
        surface->installEventFilter(this);
    }
    PlaceByDesign();
}

void WebsitePanel::SetWantedHeight(int pixels) {
    wantedHeight_ = pixels;
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    updateGeometry();
}

void WebsitePanel::Refresh() {
    Drive1->Refresh();
    Dir1->Refresh();
    File2->Refresh();
}

void WebsitePanel::ApplyLists(const QRect& drive, const QRect& directory, const QRect& files, const QRect& tree) {
    Drive1->setGeometry(drive);
    Dir1->setGeometry(directory);
    File2->setGeometry(files);
    TreeView1->setGeometry(tree);
    FitHeights();
}

// Side by side: the drives above the directories, the files, the tree.
void WebsitePanel::PlaceByDesign() {
    const int gap = PixelsFromTwips(45);
    const int top = DragBar::thickness + PixelsFromTwips(15);
    const int column = PixelsFromTwips(2700);
    const int driveHeight = Drive1->sizeHint().height();
    const QRect drive(gap, top, column, driveHeight);
    const QRect directory(gap, drive.bottom() + 1 + PixelsFromTwips(15), column, 0);
    const QRect files(directory.right() + 1 + gap, top, PixelsFromTwips(2300), 0);
    const QRect tree(files.right() + 1 + gap, top, column, 0);
    resize(tree.right() + 1 + gap, PixelsFromTwips(2600));
    Picture2->setGeometry(0, 0, width(), DragBar::thickness);
    ApplyLists(drive, directory, files, tree);
}

void WebsitePanel::FitHeights() {
    constexpr int margin = PixelsFromTwips(15);
    for (QWidget* list : std::initializer_list<QWidget*>{Dir1, File2, TreeView1}) {
        list->resize(list->width(), std::max(0, height() - list->y() - margin));
    }
}

void WebsitePanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitHeights();
}

bool WebsitePanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        emit Hint(watched == Dir1->viewport() ? QStringLiteral("The Directory Listbox")
                                              : QStringLiteral("The files in the web site directory."));
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace vellum
