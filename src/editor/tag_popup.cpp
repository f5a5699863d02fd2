#include "editor/tag_popup.h"

#include "editor/document.h"
#include "editor/place.h"
#include "editor/popup_list.h"
#include "editor/popup_rules.h"
#include "editor/workbench.h"
#include "values/units.h"

#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace vellum {
namespace {

constexpr int leftTwips = 2000;

// Pixels.
constexpr int narrowest = 140;
constexpr int widest = 320;

// The text from a tag's "<" on, as far as the popup has to know it.
QString TagAround(const EditSurface& surface, int tagPos) {
    constexpr int ahead = 256;
    const int begin = tagPos - 1;
    const int needed = surface.SelStart() - begin + 1;
    QString text = surface.Mid(begin, needed + ahead);
    // A name that goes on is read in ever longer pieces.
    while (!text.contains(u'>') && !text.contains(u'\r') && begin + text.size() < surface.Length()) {
        text = surface.Mid(begin, static_cast<int>(text.size()) * 2);
    }
    return text;
}

}  // namespace

TagPopup::TagPopup(Workbench& bench, Document& document)
    : QFrame(&document),
      cmbTags(new PopupList(QStringLiteral("cmbTags"), QStringLiteral("Tags"), this)),
      cmbattr(new PopupList(QStringLiteral("cmbattr"), QStringLiteral("Attributes"), this)),
      bench_(bench),
      document_(document),
      surface_(*document.Text1) {
    setObjectName(QStringLiteral("picAttr"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus);
    move(PixelsFromTwips(leftTwips), 0);
    hide();
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    for (PopupList* list : {cmbTags, cmbattr}) {
        rows->addWidget(list);
        connect(list, &QListWidget::itemClicked, this, [this, list] { Take(*list); });
    }
    for (const QScrollBar* bar : {surface_.verticalScrollBar(), surface_.horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &TagPopup::FollowCaret);
    }
    surface_.installEventFilter(this);
}

void TagPopup::ShowAttr(int tagPos) {
    if (tagPos < 1) return;
    const PopupDecision decision = DecidePopup(TagAround(surface_, tagPos), surface_.SelStart() - (tagPos - 1));
    switch (decision.step) {
        case PopupStep::Leave:
            return;
        case PopupStep::Hide:
            return HideAttr();
        case PopupStep::Tags:
            return ShowTags();
        case PopupStep::Attributes:
            return ShowAttributes(decision.name);
    }
}

void TagPopup::ShowTags() {
    const ReferenceTree& references = bench_.References();
    const int root = references.ActiveRoot();
    if (root == 0) return;
    const QString& type = references.Node(root).name;
    if (tagsOf_ != type) cmbTags->Fill(TagEntries(references, root));
    tagsOf_ = type;
    cmbTags->setCurrentRow(0);  // scrolls to the top
    cmbTags->setCurrentRow(-1);
    ShowList(*cmbTags);
}

void TagPopup::ShowAttributes(const QString& name) {
    const ReferenceTree& references = bench_.References();
    const int root = references.ActiveRoot();
    if (root == 0 || references.Node(root).children.empty()) return;
    const int element = FindElement(references, root, name);
    if (element == 0) return HideAttr();
    const QString& found = references.Node(element).name;
    if (attributesOf_ != found) cmbattr->Fill(AttributeEntries(references, element));
    if (cmbattr->count() == 0) return HideAttr();
    attributesOf_ = found;
    characters_ = false;
    ShowList(*cmbattr);
}

void TagPopup::ShowCharacters() {
    cmbattr->Fill(CharacterEntries(bench_.References()));
    attributesOf_.clear();
    characters_ = true;
    ShowList(*cmbattr);
}

void TagPopup::ShowList(PopupList& list) {
    (&list == cmbTags ? cmbattr : cmbTags)->hide();
    list.setFont(surface_.font());  // of one pitch, so that what characters are shown as lines up
    list.show();
    PositionAttr();
    show();
}

void TagPopup::HideAttr() {
    cmbattr->Fill({});
    ForgetAttributes();
    hide();
    cmbattr->hide();
    cmbTags->hide();
}

void TagPopup::ForgetAttributes() {
    attributesOf_.clear();
    characters_ = false;
}

PopupList& TagPopup::ShownList() const {
    return cmbTags->isHidden() ? *cmbattr : *cmbTags;
}

bool TagPopup::ShowsCharacters() const {
    return characters_ && cmbattr->isVisible();
}

// In a tag, what a choice takes the place of. Elsewhere, the text from the last "&" before the caret; as it was when
// there is none.
QString TagPopup::GetStrAtt(const PosInfo& place) const {
    const int caret = surface_.SelStart();
    if (place.kind == PlaceKind::Tag) return PartialWord(surface_.Mid(place.start - 1, caret - (place.start - 1)));
    constexpr int reach = 12000;  // characters; an "&" farther back belongs to something else
    const int begin = std::max(caret - reach, 0);
    const QString before = surface_.Mid(begin, caret - begin);
    const auto mark = before.lastIndexOf(u'&');
    return mark >= 0 ? before.mid(mark) : strAtt;
}

void TagPopup::SelectByWord(const PosInfo& place) {
    strAtt = GetStrAtt(place);
    if (!isVisible()) return;
    PopupList& list = ShownList();
    if (strAtt.isEmpty()) {
        list.setCurrentRow(-1);
    } else {
        list.SelectByStart(strAtt, place.kind == PlaceKind::Tag ? Qt::CaseInsensitive : Qt::CaseSensitive);
    }
}

void TagPopup::Follow(const PosInfo& place) {
    if (place.kind == PlaceKind::Tag || ShowsCharacters()) SelectByWord(place);
    FollowCaret();
}

bool TagPopup::TakeKey(int key) {
    if (!isVisible()) return false;
    if (key == Qt::Key_Escape) {
        HideAttr();
        return true;
    }
    const int step = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
    PopupList& list = ShownList();
    const int row = list.currentRow() + step;
    if (strAtt.isEmpty() || step == 0 || row < 0 || row >= list.count()) return false;
    list.setCurrentRow(row);
    document_.usingKeys = true;
    return true;
}

bool TagPopup::TakeChosen(const PosInfo& place) {
    const bool inTag = place.kind == PlaceKind::Tag;
    if (!isVisible() || !(inTag || (place.kind == PlaceKind::Plain && ShowsCharacters()))) return false;
    // The release of a key takes its character into the partial word. Who types fast hits Enter before that.
    if (GetStrAtt(place) != strAtt) SelectByWord(place);
    const PopupList& list = ShownList();
    if (!list.Chosen() || (inTag && &list == cmbattr && strAtt.isEmpty())) return false;
    Take(list);
    return true;
}

void TagPopup::Take(const PopupList& list) {
    if (!list.Chosen()) return;
    const PopupEntry entry = *list.Chosen();
    document_.usingKeys = false;
    if (entry.kind == NodeKind::Character) {
        document_.ProcessUndo();
        document_.ResetRedo();
        if (surface_.SelStart() >= 1) SelectWord();
        surface_.SetSelText(entry.written);
    } else {
        InsertAttr(entry.written);
    }
    surface_.setFocus();
    hide();
}

void TagPopup::InsertAttr(const QString& item) {
    if (isVisible() && !strAtt.isEmpty()) SelectWord();
    if (cmbTags->isVisible()) {
        WriteTag(item);
    } else {
        WriteAttribute(item);
    }
    hide();
}

// The ">" of an element's tag is still to be typed, a closing tag and a comment are whole.
void TagPopup::WriteTag(const QString& item) {
    const bool comment = item.startsWith(QLatin1String("!--"));
    const bool closes = item.startsWith(u'/');
    if (comment || closes) {  // the "<" is written anew
        const int length = surface_.SelLength() + 1;
        surface_.SetSelStart(surface_.SelStart() - 1);
        surface_.SetSelLength(length);
    }
    QString markup = comment ? QStringLiteral("<!--    -->") : closes ? u'<' + item + u'>' : item + u' ';
    bench_.PortableColor(markup);
    constexpr int toTheMiddle = 5;
    if (comment) surface_.SetSelStart(surface_.SelStart() - toTheMiddle);
}

// With blanks around it where none stand, and the caret between the quotes.
void TagPopup::WriteAttribute(const QString& item) {
    const int begin = surface_.SelStart();
    const int end = begin + surface_.SelLength();
    const bool spaced = begin == 0 || QStringView(u" \t\n").contains(surface_.Mid(begin - 1, 1));
    const bool ends = end >= surface_.Length() || QStringView(u" \t\r>").contains(surface_.Mid(end, 1));
    surface_.SetSelText((spaced ? QString() : QStringLiteral(" ")) + item + (ends ? QString() : QStringLiteral(" ")));
    surface_.SetSelStart(surface_.SelStart() - (ends ? 1 : 2));
}

void TagPopup::SelectWord() {
    const int length = static_cast<int>(strAtt.size());
    surface_.SetSelStart(std::max(surface_.SelStart() - length, 0));
    surface_.SetSelLength(length);
}

void TagPopup::PositionAttr() {
    const int frame = 2 * frameWidth();
    const QSize wanted = ShownList().WantedSize() + QSize(frame, frame);
    const QSize size(std::clamp(wanted.width(), narrowest, widest), wanted.height());
    const QRect caret = surface_.CaretRect().translated(surface_.pos());
    setGeometry(PopupPlace(caret, surface_.geometry(), size));
    raise();
}

void TagPopup::FollowCaret() {
    if (isVisible()) PositionAttr();
}

bool TagPopup::eventFilter(QObject* watched, QEvent* event) {
    // Where the caret stands is known when the surface has laid out its lines anew.
    if (watched == &surface_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move)) {
        QMetaObject::invokeMethod(this, &TagPopup::FollowCaret, Qt::QueuedConnection);
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace vellum
