#include "editor/typing.h"

#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/line_assists.h"
#include "editor/list_tag.h"
#include "editor/popup_list.h"
#include "editor/reference_tree.h"
#include "editor/tag_completion.h"
#include "editor/text_commands.h"
#include "editor/workbench.h"
#include "values/number_rules.h"

#include <QFrame>
#include <QListWidget>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

constexpr std::int16_t space = 32;
constexpr std::int16_t enterKey = 13;

// Keys that end a typing run: they move the caret, or do nothing to the text.
bool IsNavigationKey(int key) {
    static constexpr std::array keys{Qt::Key_Up,     Qt::Key_Down,    Qt::Key_PageUp, Qt::Key_PageDown,
                                     Qt::Key_Pause,  Qt::Key_Control, Qt::Key_Escape, Qt::Key_CapsLock,
                                     Qt::Key_End,    Qt::Key_Home,    Qt::Key_Select, Qt::Key_Print,
                                     Qt::Key_SysReq, Qt::Key_Help,    Qt::Key_NumLock};
    return std::ranges::find(keys, key) != keys.end() || (key >= Qt::Key_F1 && key <= Qt::Key_F12);
}

// A modifier key may or may not report itself as held.
int WithoutOwnBit(int key, int shiftState) {
    if (key == Qt::Key_Shift) return shiftState & ~shiftBit;
    if (key == Qt::Key_Alt) return shiftState & ~altBit;
    return shiftState;
}

bool HasChoice(const QListWidget& list) {
    return list.currentRow() >= 0;
}

}  // namespace

TypingAssist::TypingAssist(Workbench& bench, Document& document) : bench_(bench), document_(document) {}

void TypingAssist::LookAround() {
    document_.PosInfo = PosInfoAtCaret(*document_.Text1);
    document_.TagStart = document_.PosInfo.start;
}

bool TypingAssist::LastKeyIsOneOf(QStringView keys) const {
    return keys.contains(QChar(static_cast<char16_t>(document_.LastKey)));
}

bool TypingAssist::KeyDown(int key, int shiftState, bool edits) {
    document_.LastKey = space;
    document_.ShiftState = static_cast<std::int16_t>(shiftState);
    popupKey_ = 0;
    if (IsNavigationKey(key)) {
        if (Navigate(key)) popupKey_ = key;
        return popupKey_ != 0;
    }
    if (shiftState == ctrlBit && RunCommandKey(key)) return true;
    const int held = WithoutOwnBit(key, shiftState);
    if (!edits && held != 0 && held != shiftBit) return false;
    if (!document_.usingKeys) document_.ProcessUndo();
    document_.usingKeys = true;
    document_.ResetRedo();
    return false;
}

bool TypingAssist::RunCommandKey(int key) {
    switch (key) {
        case Qt::Key_Z:
            document_.HandleUndo();
            bench_.HideAttr();
            return true;
        case Qt::Key_R:
            document_.HandleRedo();
            bench_.HideAttr();
            return true;
        case Qt::Key_X:
            CutText(bench_);
            return true;
        case Qt::Key_C:
            CopyText(bench_);
            return true;
        case Qt::Key_V:
            PasteText(bench_);
            return true;
        default:
            return false;
    }
}

// True when the popup took the key.
bool TypingAssist::Navigate(int key) {
    document_.usingKeys = false;
    if (!document_.picAttr->isVisible()) return false;
    if (key == Qt::Key_Escape) {
        bench_.HideAttr();
        return true;
    }
    if (document_.strAtt.isEmpty()) return false;
    const int step = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
    bool taken = false;
    for (QListWidget* list : {document_.cmbattr, document_.cmbTags}) {
        const int row = list->currentRow() + step;
        if (step == 0 || !list->isVisible() || row < 0 || row >= list->count()) continue;
        list->setCurrentRow(row);
        document_.usingKeys = true;
        taken = true;
    }
    return taken;
}

bool TypingAssist::KeyPress(const QString& character, int shiftState) {
    LookAround();
    document_.LastKey = static_cast<std::int16_t>(character.at(0).unicode());
    document_.SetSaver(false);
    const bool script = IsScriptCaption(document_.Caption());
    if (document_.Text1->SelLength() == 0 && !script) {
        if (document_.LastKey == enterKey && TakeChosenEntry()) return true;
        ApplyPlaceColor(bench_.Options().Now(), *document_.Text1, document_.PosInfo);
    }
    if (AssistLines(shiftState)) return true;
    return !script && AssistMarkup();
}

// Enter takes what the popup has selected. False when it has nothing to take.
bool TypingAssist::TakeChosenEntry() {
    if (!document_.picAttr->isVisible()) return false;
    FollowHeldKey();
    const bool attributeChosen = HasChoice(*document_.cmbattr);
    switch (document_.PosInfo.kind) {
        case PlaceKind::Plain:
            if (!ShowsEntities() || !attributeChosen) return false;
            bench_.TakeAttribute();
            return true;
        case PlaceKind::Tag:
            if (attributeChosen && !document_.strAtt.isEmpty()) {
                bench_.TakeAttribute();
                return true;
            }
            if (!document_.cmbTags->isVisible() || !HasChoice(*document_.cmbTags)) return false;
            bench_.TakeTag();
            return true;
        default:
            return false;
    }
}

// The release of a key takes its character into the partial word. Who types fast hits Enter before that.
void TypingAssist::FollowHeldKey() {
    if (document_.PosInfo.kind == PlaceKind::Tag) {
        const QString word = bench_.GetStrAtt(document_.TagStart);
        if (word == document_.strAtt) return;
        document_.strAtt = word;
        SelectByWord();
    } else if (ShowsEntities() && EntityWord() != document_.strAtt) {
        SelectEntity();
    }
}

bool TypingAssist::AssistLines(int shiftState) {
    EditSurface& surface = *document_.Text1;
    const bool tab = document_.LastKey == u'\t';
    const bool enter = document_.LastKey == enterKey;
    if ((!tab && !enter) || !bench_.Options()->autoTab) return false;
    const bool shift = (shiftState & shiftBit) != 0;
    if (tab && shift) {
        UnindentBlock(surface);
    } else if (tab && surface.SelText().contains(QLatin1String("\r\n"))) {
        IndentBlock(surface);
    } else if (enter && surface.SelStart() != 0) {
        BreakLine(surface);
    } else {
        return false;
    }
    return true;
}

bool TypingAssist::AssistMarkup() {
    switch (document_.LastKey) {
        case u'-':
            ColorBeforeDash(bench_.Options().Now(), *document_.Text1, document_.PosInfo);
            return false;
        case u'%':
            ColorBeforePercent(bench_.Options().Now(), *document_.Text1);
            return false;
        case u'<':
            ColorForOpening(bench_.Options().Now(), *document_.Text1, document_.PosInfo);
            return false;
        case u'=':
            return QuoteAttribute();
        case u'>':
            return CompleteTag();
        default:
            return false;
    }
}

bool TypingAssist::QuoteAttribute() {
    EditSurface& surface = *document_.Text1;
    if (document_.PosInfo.kind != PlaceKind::Tag || !bench_.Options()->AutoQuote) return false;
    // A tag in the plain colour has none of its own, as when colour coding is off.
    const std::optional<ColorNumber> color = surface.SelColor();
    if (!color || *color == bench_.Options()->foreColor) return false;
    const int tagOffset = document_.TagStart - 1;
    const QString soFar = surface.Mid(tagOffset, surface.SelStart() - tagOffset);
    if (soFar.count(u'"') % 2 != 0) return false;
    surface.SetSelText(QStringLiteral("=\"\""));
    surface.SetSelStart(surface.SelStart() - 1);
    bench_.ShowAttr(document_.TagStart);
    return true;
}

// Whether a ">" at the caret ends the tag, comment or block that the caret is in.
bool TypingAssist::EndsConstruct() const {
    const EditSurface& surface = *document_.Text1;
    const int caret = surface.SelStart();
    if (caret < 2 || document_.TagStart == -1) return false;
    switch (document_.PosInfo.kind) {
        case PlaceKind::Tag:
            return true;
        case PlaceKind::Comment:
            return surface.Mid(caret - 2, 2) == QLatin1String("--");
        case PlaceKind::Server:
            return surface.Mid(caret - 1, 1) == QLatin1String("%");
        default:
            return false;
    }
}

bool TypingAssist::CompleteTag() {
    if (!EndsConstruct()) return false;
    EditSurface& surface = *document_.Text1;
    const int caret = surface.SelStart();
    surface.SetSelStart(document_.TagStart - 1);
    surface.SetSelLength(caret - (document_.TagStart - 1));
    const QString tagText = CompletedTag(
        surface.SelText() + u'>',
        {.lowerCase = bench_.Options()->AutoCase, .closeEmpty = bench_.Options()->AutoEmptySlash}, bench_.References());
    bench_.ColorSpanLength = static_cast<std::int32_t>(tagText.size());
    bench_.ColorSpanStart = surface.SelStart();
    surface.SetSelBold(false);
    surface.SetSelText(tagText);
    bench_.Smartcolor();
    return true;
}

void TypingAssist::KeyUp(int key, int /*shiftState*/) {
    if (popupKey_ != 0 && key == popupKey_) {
        popupKey_ = 0;
        return;
    }
    LookAround();
    bench_.ShowStatus(StatusPanel::Line, NumberText(document_.Text1->GetLineFromChar(document_.Text1->SelStart()) + 1));
    if (IsScriptCaption(document_.Caption()) || key == Qt::Key_Shift) return;
    if (document_.PosInfo.kind == PlaceKind::Tag) {
        KeyUpInTag();
    } else {
        KeyUpOutsideTag();
    }
    if (document_.picAttr->isVisible()) document_.PositionAttr();
}

void TypingAssist::KeyUpOutsideTag() {
    const bool plain = document_.PosInfo.kind == PlaceKind::Plain;
    if (LastKeyIsOneOf(u" \t\r%\"\b>;-") && document_.picAttr->isVisible()) bench_.HideAttr();
    if (plain && document_.Text1->SelLength() == 0) {
        document_.Text1->SetSelColor(bench_.Options()->foreColor);
        if (document_.LastKey == u'&' && bench_.Options()->popupTag) LoadEntities();
    }
    if (ShowsEntities()) SelectEntity();
}

bool TypingAssist::ShowsEntities() const {
    return document_.cmbattr->isVisible() && ListTag(document_.cmbattr) == QLatin1String("Character Sets");
}

void TypingAssist::LoadEntities() {
    const ReferenceTree& tree = bench_.References();
    QListWidget& list = *document_.cmbattr;
    QStringList entities;
    for (int index = 1; index <= tree.Count(); ++index) {
        if (tree.Node(index).kind == NodeKind::Character) entities << Caption(tree.Node(index));
    }
    FillList(list, entities);
    document_.ShowPopup(list);
    SetListTag(&list, QStringLiteral("Character Sets"));
}

// From the last "&" before the caret; as it was when there is none.
QString TypingAssist::EntityWord() const {
    constexpr int reach = 12000;  // characters; an "&" farther back belongs to something else
    const int caret = document_.Text1->SelStart();
    const int begin = std::max(caret - reach, 0);
    const QString before = document_.Text1->Mid(begin, caret - begin);
    const auto mark = before.lastIndexOf(u'&');
    return mark >= 0 ? before.mid(mark) : document_.strAtt;
}

void TypingAssist::SelectEntity() {
    document_.strAtt = EntityWord();
    SelectEntry(*document_.cmbattr, document_.strAtt, Qt::CaseSensitive);
}

void TypingAssist::KeyUpInTag() {
    document_.strAtt = bench_.GetStrAtt(document_.TagStart);
    if (document_.Text1->SelLength() > 0) {
        bench_.HideAttr();
        return;
    }
    if (LastKeyIsOneOf(u" \t\r\"\b><") && bench_.Options()->popupTag) bench_.ShowAttr(document_.TagStart);
    SelectByWord();
}

void TypingAssist::SelectByWord() {
    for (QListWidget* list : {document_.cmbattr, document_.cmbTags}) {
        if (document_.strAtt.isEmpty()) {
            list->setCurrentRow(-1);
        } else if (list->count() > 0 && list->isVisible()) {
            SelectEntry(*list, document_.strAtt, Qt::CaseInsensitive);
        }
    }
}

void TypingAssist::MouseDown(Qt::MouseButton button) {
    if (button != Qt::LeftButton) return;
    document_.LastKey = space;
    document_.usingKeys = false;
}

void TypingAssist::MouseMove() {
    bench_.ShowStatus(StatusPanel::Work, QStringLiteral("Edit Your Document"));
}

void TypingAssist::MouseUp(Qt::MouseButton button) {
    if (button != Qt::LeftButton || IsScriptCaption(document_.Caption())) return;
    document_.PositionAttr();
    LookAround();
    if (document_.Text1->SelLength() > 0 || document_.PosInfo.kind != PlaceKind::Tag) {
        bench_.HideAttr();
        return;
    }
    document_.strAtt = bench_.GetStrAtt(document_.TagStart);
    if (LastKeyIsOneOf(u" \t\r\"\b>") && bench_.Options()->popupTag) bench_.ShowAttr(document_.TagStart);
    QListWidget& list = *document_.cmbattr;
    if (document_.strAtt.isEmpty()) {
        list.setCurrentRow(-1);
    } else if (list.count() > 0) {
        SelectEntry(list, document_.strAtt, Qt::CaseInsensitive);
    }
}

void TypingAssist::ContextMenu(QPoint place) {
    emit document_.MenuWanted(place);
}

void TypingAssist::Paste(const QString& text) {
    document_.Activate();  // text can be dropped on any window
    QString markup = text;
    bench_.PortableColor(markup);
}

void TypingAssist::Cut() {
    CutText(bench_);
}

void TypingAssist::Copy() {
    CopyText(bench_);
}

}  // namespace vellum
