#include "editor/document.h"

#include <QFrame>
#include <QListWidget>
#include <QVBoxLayout>

namespace vellum {
namespace {

constexpr int popupLeftTwips = 2000;

QListWidget* MakeList(const QString& name, QFrame* panel) {
    auto* const list = new QListWidget(panel);
    list->setObjectName(name);
    list->setFrameShape(QFrame::NoFrame);
    list->hide();
    panel->layout()->addWidget(list);
    return list;
}

QFrame* MakePanel(QWidget* window) {
    auto* const panel = new QFrame(window);
    panel->setObjectName(QStringLiteral("picAttr"));
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    panel->move(PixelsFromTwips(popupLeftTwips), 0);
    auto* const rows = new QVBoxLayout(panel);
    rows->setContentsMargins(0, 0, 0, 0);
    panel->hide();
    return panel;
}

}  // namespace

Document::Document(Workbench& workbench, QWidget* parent)
    : QWidget(parent),
      Text1(new EditSurface(this)),
      picAttr(MakePanel(this)),
      cmbTags(MakeList(QStringLiteral("cmbTags"), picAttr)),
      cmbattr(MakeList(QStringLiteral("cmbattr"), picAttr)),
      workbench_(workbench) {
    Text1->setObjectName(QStringLiteral("Text1"));
    setFocusProxy(Text1);
    cmbTags->setAccessibleName(QStringLiteral("Tags"));
    cmbattr->setAccessibleName(QStringLiteral("Attributes"));
    connect(Text1, &EditSurface::Changed, this, [this] { SetSaver(false); });
    SetCaption(caption_);
    ResetRedo();
}

void Document::SetCaption(const QString& caption) {
    caption_ = caption;
    // The toolkit reads "[*]" as a mark of changes; twice in a row it means the three characters.
    QString title = caption;
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    emit CaptionChanged(caption_);
}

void Document::SetSaver(bool saver) {
    if (saver_ == saver) return;
    saver_ = saver;
    emit SaverChanged(saver_);
}

void Document::PositionAttr() {}

}  // namespace vellum
