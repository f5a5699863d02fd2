#include "editor/document.h"

#include "editor/tag_popup.h"
#include "editor/typing.h"
#include "editor/workbench.h"

#include <QEvent>
#include <QFrame>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace vellum {
namespace {

constexpr int popupLeftTwips = 2000;

// Rows, and pixels.
constexpr int popupRows = 8;
constexpr int popupNarrowest = 140;
constexpr int popupWidest = 320;
constexpr int popupPadding = 12;
constexpr int popupSpacing = 1;

QListWidget* MakeList(const QString& name, QFrame* panel) {
    auto* const list = new QListWidget(panel);
    list->setObjectName(name);
    list->setFrameShape(QFrame::NoFrame);
    // The keyboard stays with the text, whose keys work the list.
    list->setFocusPolicy(Qt::NoFocus);
    list->setUniformItemSizes(true);
    list->setSpacing(popupSpacing);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->hide();
    panel->layout()->addWidget(list);
    return list;
}

QFrame* MakePanel(QWidget* window) {
    auto* const panel = new QFrame(window);
    panel->setObjectName(QStringLiteral("picAttr"));
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    panel->setFocusPolicy(Qt::NoFocus);
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
      workbench_(workbench),
      typing_(std::make_unique<TypingAssist>(workbench, *this)) {
    Text1->setObjectName(QStringLiteral("Text1"));
    setFocusProxy(Text1);
    cmbTags->setAccessibleName(QStringLiteral("Tags"));
    cmbattr->setAccessibleName(QStringLiteral("Attributes"));
    connect(Text1, &EditSurface::Changed, this, [this] { SetSaver(false); });
    Text1->SetHandlers(typing_.get());
    WirePopup();
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

Document::~Document() = default;

void Document::Activate() {
    auto* const child = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (child && child->mdiArea()) child->mdiArea()->setActiveSubWindow(child);
}

void Document::WirePopup() {
    connect(cmbTags, &QListWidget::itemClicked, this, [this] { workbench_.TakeTag(); });
    connect(cmbattr, &QListWidget::itemClicked, this, [this] { workbench_.TakeAttribute(); });
    for (const QScrollBar* bar : {Text1->verticalScrollBar(), Text1->horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &Document::FollowCaret);
    }
    Text1->installEventFilter(this);
}

bool Document::eventFilter(QObject* watched, QEvent* event) {
    // Where the caret stands is known when the surface has laid out its lines anew.
    if (watched == Text1 && (event->type() == QEvent::Resize || event->type() == QEvent::Move)) {
        QMetaObject::invokeMethod(this, &Document::FollowCaret, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void Document::FollowCaret() {
    if (picAttr->isVisible()) PositionAttr();
}

void Document::PositionAttr() {
    const QListWidget& list = cmbTags->isHidden() ? *cmbattr : *cmbTags;
    const int rows = std::min(popupRows, std::max(list.count(), 1));
    const int scrollBar = list.count() > popupRows ? list.verticalScrollBar()->sizeHint().width() : 0;
    const int frame = 2 * picAttr->frameWidth();
    const int wanted = list.sizeHintForColumn(0) + scrollBar + frame + popupPadding;
    const QSize size(std::clamp(wanted, popupNarrowest, popupWidest),
                     rows * (std::max(list.sizeHintForRow(0), 1) + 2 * popupSpacing) + frame);
    const QRect caret = Text1->CaretRect().translated(Text1->pos());
    picAttr->setGeometry(PopupPlace(caret, Text1->geometry(), size));
    picAttr->raise();
}

void Document::ShowPopup(QListWidget& list) {
    (&list == cmbTags ? cmbattr : cmbTags)->hide();
    list.setFont(Text1->font());  // of one pitch, so that the characters beside the entities line up
    list.show();
    PositionAttr();
    picAttr->show();
}

void Document::SelectWord() {
    const int length = static_cast<int>(strAtt.size());
    Text1->SetSelStart(std::max(Text1->SelStart() - length, 0));
    Text1->SetSelLength(length);
}

}  // namespace vellum
