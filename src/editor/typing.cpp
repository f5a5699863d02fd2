#include "editor/typing.h"

#include "editor/document.h"
#include "editor/insertion_color.h"
#include "editor/line_assists.h"
#include "editor/tag_completion.h"
#include "editor/tag_popup.h"
#include "editor/text_commands.h"
#include "editor/workbench.h"
#include "values/number_rules.h"

#include <algorithm>
#include <array>

namespace vellum {
namespace {

// Keys that end a stretch of typing: they move the caret, or do nothing to the text.
bool IsNavigationKey(int key) {
    static constexpr std::array keys{Qt::Key_Up,     Qt::Key_Down,    Qt::Key_PageUp, Qt::Key_PageDown,
                                     Qt::Key_Pause,  Qt::Key_Control, Qt::Key_Escape, Qt::Key_CapsLock,
                                     Qt::Key_End,    Qt::Key_Home,    Qt::Key_Select, Qt::Key_Print,
                                     Qt::Key_SysReq, Qt::Key_Help,    Qt::Key_NumLock};
    return std::ranges::find(keys, key) != keys.end() || (key >= Qt::Key_F1 && key <= Qt::Key_F12);
}

// What a key does together with Ctrl.
struct CommandKey {
    int key;
    void (*run)(Workbench&);
};

constexpr std::array<CommandKey, 5> commandKeys{{{Qt::Key_Z, UndoText},
                                                 {Qt::Key_R, RedoText},
                                                 {Qt::Key_X, CutText},
                                                 {Qt::Key_C, CopyText},
                                                 {Qt::Key_V, PasteText}}};

bool RunCommandKey(int key, Workbench& bench) {
    const auto* const found = std::ranges::find(commandKeys, key, &CommandKey::key);
    if (found == commandKeys.end()) return false;
    found->run(bench);
    return true;
}

// A modifier key may or may not report itself as held.
int WithoutOwnBit(int key, int shiftState) {
    if (key == Qt::Key_Shift) return shiftState & ~shiftBit;
    if (key == Qt::Key_Alt) return shiftState & ~altBit;
    return shiftState;
}

}  // namespace

TypingAssist::TypingAssist(Workbench& bench, Document& document) : bench_(bench), document_(document) {}

bool TypingAssist::KeyDown(int key, int shiftState, bool edits) {
    lastKey_ = u' ';
    popupKey_ = 0;
    if (IsNavigationKey(key)) {
        document_.usingKeys = false;
        if (document_.picAttr->TakeKey(key)) popupKey_ = key;
        return popupKey_ != 0;
    }
    if (shiftState == ctrlBit && RunCommandKey(key, bench_)) return true;
    const int held = WithoutOwnBit(key, shiftState);
    if (!edits && held != 0 && held != shiftBit) return false;
    if (!document_.usingKeys) document_.ProcessUndo();
    document_.usingKeys = true;
    document_.ResetRedo();
    return false;
}

bool TypingAssist::KeyPress(const QString& character, int shiftState) {
    place_ = PosInfoAtCaret(*document_.Text1);
    lastKey_ = character.at(0);
    document_.SetSaver(false);
    const bool script = IsScriptCaption(document_.Caption());
    if (document_.Text1->SelLength() == 0 && !script) {
        if (lastKey_ == u'\r' && document_.picAttr->TakeChosen(place_)) return true;
        ApplyPlaceColor(bench_.Options().Now(), *document_.Text1, place_);
    }
    if (AssistLines(shiftState)) return true;
    return !script && AssistMarkup();
}

bool TypingAssist::AssistLines(int shiftState) {
    EditSurface& surface = *document_.Text1;
    const bool tab = lastKey_ == u'\t';
    const bool enter = lastKey_ == u'\r';
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
    switch (lastKey_.unicode()) {
        case u'-':
            ColorBeforeDash(bench_.Options().Now(), *document_.Text1, place_);
            return false;
        case u'%':
            ColorBeforePercent(bench_.Options().Now(), *document_.Text1);
            return false;
        case u'<':
            ColorForOpening(bench_.Options().Now(), *document_.Text1, place_);
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
    if (place_.kind != PlaceKind::Tag || !bench_.Options()->AutoQuote) return false;
    // A tag in the plain colour has none of its own, as when colour coding is off.
    const std::optional<ColorNumber> color = surface.SelColor();
    if (!color || *color == bench_.Options()->foreColor) return false;
    const int tagOffset = place_.start - 1;
    const QString soFar = surface.Mid(tagOffset, surface.SelStart() - tagOffset);
    if (soFar.count(u'"') % 2 != 0) return false;
    surface.SetSelText(QStringLiteral("=\"\""));
    surface.SetSelStart(surface.SelStart() - 1);
    document_.picAttr->ShowAttr(place_.start);
    return true;
}

// Whether a ">" at the caret ends the tag, comment or block that the caret is in.
bool TypingAssist::EndsConstruct() const {
    const EditSurface& surface = *document_.Text1;
    const int caret = surface.SelStart();
    if (caret < 2 || place_.start == -1) return false;
    switch (place_.kind) {
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
    surface.SetSelStart(place_.start - 1);
    surface.SetSelLength(caret - (place_.start - 1));
    const QString tagText = CompletedTag(
        surface.SelText() + u'>',
        {.lowerCase = bench_.Options()->AutoCase, .closeEmpty = bench_.Options()->AutoEmptySlash}, bench_.References());
    bench_.ColorSpanLength = static_cast<std::int32_t>(tagText.size());
    bench_.ColorSpanStart = surface.SelStart();
    surface.SetSelBold(false);
    surface.RewriteSelText(tagText);
    bench_.Smartcolor();
    return true;
}

void TypingAssist::KeyUp(int key, int /*shiftState*/) {
    if (popupKey_ != 0 && key == popupKey_) {
        popupKey_ = 0;
        return;
    }
    place_ = PosInfoAtCaret(*document_.Text1);
    if (IsScriptCaption(document_.Caption()) || key == Qt::Key_Shift) return;
    if (place_.kind == PlaceKind::Tag) {
        OfferInTag();
    } else {
        OfferOutsideTag();
    }
}

void TypingAssist::OfferOutsideTag() {
    TagPopup& popup = *document_.picAttr;
    if (QStringView(u" \t\r%\"\b>;-").contains(lastKey_) && popup.isVisible()) popup.HideAttr();
    if (place_.kind == PlaceKind::Plain && document_.Text1->SelLength() == 0) {
        document_.Text1->SetSelColor(bench_.Options()->foreColor);
        if (lastKey_ == u'&' && bench_.Options()->popupTag) popup.ShowCharacters();
    }
    popup.Follow(place_);
}

void TypingAssist::OfferInTag() {
    TagPopup& popup = *document_.picAttr;
    if (document_.Text1->SelLength() > 0) return popup.HideAttr();
    if (QStringView(u" \t\r\"\b><").contains(lastKey_) && bench_.Options()->popupTag) popup.ShowAttr(place_.start);
    popup.Follow(place_);
}

void TypingAssist::MouseDown(Qt::MouseButton button) {
    if (button != Qt::LeftButton) return;
    lastKey_ = u' ';
    document_.usingKeys = false;
}

void TypingAssist::MouseMove() {
    bench_.ShowStatus(StatusPanel::Work, QStringLiteral("Edit Your Document"));
}

void TypingAssist::MouseUp(Qt::MouseButton button) {
    if (button != Qt::LeftButton || IsScriptCaption(document_.Caption())) return;
    place_ = PosInfoAtCaret(*document_.Text1);
    if (place_.kind == PlaceKind::Tag) {
        OfferInTag();
    } else {
        document_.picAttr->HideAttr();
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
