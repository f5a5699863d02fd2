#include "import/rtf_reader.h"

#include "import/rtf_body.h"
#include "import/rtf_characters.h"
#include "import/rtf_groups.h"
#include "import/rtf_symbol_font.h"
#include "import/rtf_tables.h"
#include "import/rtf_tokens.h"
#include "import/rtf_words.h"

#include <algorithm>
#include <utility>

namespace vellum {
namespace {

using Kind = RtfToken::Kind;

// Private characters by which fonts of pictures are written: the byte of such a font and this.
constexpr char16_t pictureBase = 0xF000;

// Whether a word that turns something on and off turns it on.
bool IsOn(const RtfToken& token) {
    return !token.hasNumber || token.number != 0;
}

class RtfReader {
public:
    explicit RtfReader(QByteArrayView bytes) : tokens_(bytes) {}

    RichText Read();

private:
    void Take(const RtfToken& token);
    void TakeWord(const RtfToken& token);
    void TakeSymbol(int symbol);
    void TakeByte(int value);
    void TakeText(QByteArrayView bytes);
    bool TakeFallback(RtfToken& token);

    void Run(const RtfWord& word, const RtfToken& token);
    bool RunFormat(const RtfWord& word, const RtfToken& token);
    bool RunParagraph(const RtfWord& word, const RtfToken& token);
    void RunTable(const RtfWord& word, int number);

    void Enter(RtfDestination destination);
    bool Close();
    void Leave(const RtfGroup& group);
    void SetDocumentPage(int codePage);
    void EndParagraph();
    void EndLine();

    void PutBytes(QByteArrayView bytes);
    void PutNumber(int number);
    void PutUnit(char16_t unit);
    void Put(QStringView text);

    // Whether there is a text that shows.
    [[nodiscard]] bool InText() const;
    [[nodiscard]] RtfParagraph ParagraphOf(const RtfGroup& group) const;
    [[nodiscard]] RichFormat FormatOf(const RtfGroup& group);
    void FindFont(int number);

    RtfTokens tokens_;
    RtfGroup group_;  // the innermost
    RtfGroupStack groups_;
    bool starred_ = false;  // the next word is one that readers may not know
    int fallback_ = 0;      // how much is still to come of one

    RtfFonts fonts_;
    RtfColors colors_;
    RtfLists lists_;
    int defaultFont_ = 0;
    int documentPage_ = codePages::western;

    // The font that was looked up last.
    struct {
        bool isKnown = false;
        int number = 0;
        std::uint16_t inText = 0;
        int codePage = 0;
    } font_;

    RtfCharacters characters_;
    RtfBody body_;
};

RichText RtfReader::Read() {
    for (RtfToken token = tokens_.Next(); token.kind != Kind::End; token = tokens_.Next()) {
        if (token.kind != Kind::Byte && token.kind != Kind::Text) Put(characters_.FinishBytes());
        if (token.kind == Kind::Open) {
            groups_.Push(group_);
            starred_ = false;
            fallback_ = 0;
        } else if (token.kind == Kind::Close) {
            fallback_ = 0;
            if (!Close()) break;
        } else if (group_.destination != RtfDestination::Nothing && !TakeFallback(token)) {
            Take(token);
        }
    }
    Put(characters_.Finish());
    return body_.Take(ParagraphOf(group_), FormatOf(group_));
}

void RtfReader::Take(const RtfToken& token) {
    switch (token.kind) {
        case Kind::Word:
            return TakeWord(token);
        case Kind::Symbol:
            return TakeSymbol(token.number);
        case Kind::Byte:
            return TakeByte(token.number);
        default:
            return TakeText(token.text);
    }
}

// True for what only stands in for a Unicode character. Of a text the rest is left. Words that are no characters don't
// count, and some writers give no fallback at all, so the end of a line must not go for one.
bool RtfReader::TakeFallback(RtfToken& token) {
    if (fallback_ == 0) return false;
    if (token.kind == Kind::Text) {
        const qsizetype length = std::min<qsizetype>(fallback_, token.text.size());
        fallback_ -= static_cast<int>(length);
        token.text = token.text.sliced(length);
        return token.text.isEmpty();
    }
    if (token.kind == Kind::Word) {
        const RtfAction action = FindRtfWord(token.text).action;
        if (action >= RtfAction::Paragraph && action <= RtfAction::Row) fallback_ = 0;
        if (action != RtfAction::Character) return false;
    }
    --fallback_;
    return true;
}

void RtfReader::TakeWord(const RtfToken& token) {
    const RtfWord word = FindRtfWord(token.text);
    const bool mayBeUnknown = std::exchange(starred_, false);
    if (mayBeUnknown && word.action != RtfAction::Destination) return Enter(RtfDestination::Nothing);
    Run(word, token);
}

void RtfReader::TakeSymbol(int symbol) {
    switch (symbol) {
        case '*':
            starred_ = true;
            return;
        case '\n':
            return EndParagraph();
        case '\t':
        case '{':
        case '}':
        case '\\':
            return PutUnit(static_cast<char16_t>(symbol));
        case '~':
            return PutUnit(u'\u00A0');
        case '_':
            return PutUnit(u'\u2011');
        case '-':
            return PutUnit(u'\u00AD');
        default:
            return;
    }
}

void RtfReader::TakeByte(int value) {
    if (value == '\r' || value == '\n') return EndParagraph();
    const char byte = static_cast<char>(value);
    PutBytes({&byte, 1});
}

// In the tables of fonts and colours a semicolon ends an entry.
void RtfReader::TakeText(QByteArrayView bytes) {
    const bool isTable = group_.destination == RtfDestination::Fonts || group_.destination == RtfDestination::Colors;
    for (qsizetype end = isTable ? bytes.indexOf(';') : -1; end >= 0; end = bytes.indexOf(';')) {
        PutBytes(bytes.first(end));
        if (group_.destination == RtfDestination::Fonts) fonts_.End();
        if (group_.destination == RtfDestination::Colors) colors_.End();
        bytes = bytes.sliced(end + 1);
    }
    PutBytes(bytes);
}

void RtfReader::Run(const RtfWord& word, const RtfToken& token) {
    switch (word.action) {
        case RtfAction::None:
            return;
        case RtfAction::Document:
            return SetDocumentPage(word.value != 0 ? word.value : token.number);
        case RtfAction::Destination:
            return Enter(static_cast<RtfDestination>(word.value));
        case RtfAction::Character:
            return PutUnit(static_cast<char16_t>(word.value));
        case RtfAction::Unicode:
            PutNumber(token.number);
            fallback_ = group_.fallbackLength;
            return;
        case RtfAction::UnicodeFallback:
            group_.fallbackLength = std::max(token.number, 0);
            return;
        case RtfAction::DefaultFont:
            defaultFont_ = token.number;
            return;
        default:
            if (!RunFormat(word, token) && !RunParagraph(word, token)) RunTable(word, token.number);
    }
}

bool RtfReader::RunFormat(const RtfWord& word, const RtfToken& token) {
    RichFormat& format = group_.format;
    switch (word.action) {
        case RtfAction::Plain:
            format = {};
            group_.font = -1;
            group_.hidden = false;
            return true;
        case RtfAction::Bold:
            format.bold = IsOn(token);
            return true;
        case RtfAction::Italic:
            format.italic = IsOn(token);
            return true;
        case RtfAction::Underline:
            format.underline = IsOn(token);
            return true;
        case RtfAction::NoUnderline:
            format.underline = false;
            return true;
        case RtfAction::Strike:
            format.strike = IsOn(token);
            return true;
        case RtfAction::Hidden:
            group_.hidden = IsOn(token);
            return true;
        case RtfAction::Deleted:
            group_.deleted = IsOn(token);
            return true;
        case RtfAction::Size: {
            constexpr int greatest = 2 * 1638;
            format.halfPoints = RichFormat().halfPoints;
            if (token.number > 0) format.halfPoints = static_cast<std::uint16_t>(std::min(token.number, greatest));
            return true;
        }
        case RtfAction::Color:
            format.color = colors_.Find(token.number);
            return true;
        case RtfAction::Font:
            if (group_.destination == RtfDestination::Fonts) {
                fonts_.Begin(token.number);
            } else {
                group_.font = token.number;
            }
            return true;
        default:
            return false;
    }
}

bool RtfReader::RunParagraph(const RtfWord& word, const RtfToken& token) {
    switch (word.action) {
        case RtfAction::StandardParagraph:
            group_.alignment = RichAlignment::Left;
            group_.numbering = RtfNumbering::None;
            group_.inTable = false;
            group_.list = 0;
            group_.level = 0;
            return true;
        case RtfAction::Alignment:
            group_.alignment = static_cast<RichAlignment>(word.value);
            return true;
        case RtfAction::InTable:
            group_.inTable = IsOn(token);
            return true;
        case RtfAction::ListLevel:
            group_.level = token.number;
            return true;
        case RtfAction::PnKind:
            group_.numbering = static_cast<RtfNumbering>(word.value);
            return true;
        case RtfAction::Paragraph:
            EndParagraph();
            return true;
        case RtfAction::Line:
            EndLine();
            return true;
        case RtfAction::Page:
            if (InText()) body_.FinishLine(ParagraphOf(group_), FormatOf(group_));
            return true;
        case RtfAction::Cell:
            if (InText()) body_.EndCell(ParagraphOf(group_));
            return true;
        case RtfAction::Row:
            if (InText()) body_.EndRow(ParagraphOf(group_), FormatOf(group_));
            return true;
        default:
            return false;
    }
}

void RtfReader::RunTable(const RtfWord& word, int number) {
    switch (word.action) {
        case RtfAction::FontCharset:
            return fonts_.SetCharset(number);
        case RtfAction::FontCodePage:
            return fonts_.SetCodePage(number);
        case RtfAction::Red:
            return colors_.SetRed(number);
        case RtfAction::Green:
            return colors_.SetGreen(number);
        case RtfAction::Blue:
            return colors_.SetBlue(number);
        case RtfAction::NewList:
            return lists_.NewList();
        case RtfAction::LevelKind:
            if (group_.destination == RtfDestination::Lists) lists_.AddLevel(number);
            return;
        case RtfAction::ListNumber:
            return lists_.SetNumber(number);
        case RtfAction::List:
            if (group_.destination == RtfDestination::ListOverrides) {
                lists_.SetLink(number);
            } else {
                group_.list = number;
            }
            return;
        default:
            return;
    }
}

// The document's own group can't become anything else. A table holds no text, whatever its groups are called.
void RtfReader::Enter(RtfDestination destination) {
    if (groups_.Depth() < 2) return;
    const RtfDestination now = group_.destination;
    const bool isText = now == RtfDestination::Body || now == RtfDestination::TextBox;
    if (isText && destination == RtfDestination::Body) return;
    if (!isText && now != RtfDestination::Inside && destination != RtfDestination::Nothing) return;
    if (destination == RtfDestination::TextBox) body_.FinishLine(ParagraphOf(group_), FormatOf(group_));
    group_.destination = destination;
}

// False at the end of the document, which leaves everything as it was in it.
bool RtfReader::Close() {
    if (groups_.Depth() == 0) return true;
    if (groups_.Depth() == 1) return false;
    const RtfGroup closed = std::exchange(group_, groups_.Pop());
    if (closed.destination != group_.destination) Leave(closed);
    return true;
}

void RtfReader::Leave(const RtfGroup& group) {
    switch (group.destination) {
        case RtfDestination::TextBox:
            return body_.FinishLine(ParagraphOf(group), FormatOf(group));
        case RtfDestination::Fonts:
            fonts_.End();
            font_.isKnown = false;
            return;
        case RtfDestination::Numbering:
            group_.numbering = group.numbering;
            return;
        default:
            return;
    }
}

void RtfReader::SetDocumentPage(int codePage) {
    if (codePage <= 0) return;
    documentPage_ = codePage;
    font_.isKnown = false;
}

void RtfReader::EndParagraph() {
    Put(characters_.Finish());
    if (InText()) body_.EndParagraph(ParagraphOf(group_), FormatOf(group_));
}

void RtfReader::EndLine() {
    Put(characters_.Finish());
    if (InText()) body_.EndLine(ParagraphOf(group_), FormatOf(group_));
}

void RtfReader::PutBytes(QByteArrayView bytes) {
    int codePage = 0;
    if (group_.destination == RtfDestination::Fonts) {
        codePage = fonts_.CodePage();
        if (codePage == codePages::symbol) codePage = 0;
    } else {
        FindFont(group_.font);
        codePage = font_.codePage;
    }
    Put(characters_.FromBytes(bytes, codePage != 0 ? codePage : documentPage_));
}

// Numbers above 32767 are written as negative ones; some writers give the number of the character itself.
void RtfReader::PutNumber(int number) {
    if (number >= 0x10000 && number <= static_cast<int>(QChar::LastValidCodePoint)) {
        PutUnit(QChar::highSurrogate(static_cast<char32_t>(number)));
        PutUnit(QChar::lowSurrogate(static_cast<char32_t>(number)));
    } else if (number < 0x10000 && number >= -0x8000) {
        PutUnit(static_cast<char16_t>(number));
    }
}

void RtfReader::PutUnit(char16_t unit) {
    switch (unit) {
        case u'\n':
        case u'\r':
        case u'\u2029':
            return EndParagraph();
        case u'\v':
        case u'\u2028':
            return EndLine();
        default:
            break;
    }
    const bool isControl = (unit < 0x20 && unit != u'\t') || (unit >= 0x7F && unit < 0xA0) || unit >= 0xFFFE;
    if (isControl) return;
    FindFont(group_.font);
    if (font_.codePage == codePages::symbol && unit >= pictureBase + 0x20 && unit <= pictureBase + 0xFF) {
        unit = SymbolCharacter(static_cast<unsigned char>(unit - pictureBase));
    }
    Put(characters_.FromUnit(unit));
}

void RtfReader::Put(QStringView text) {
    if (text.isEmpty()) return;
    if (group_.destination == RtfDestination::Fonts) {
        fonts_.AddName(text);
    } else if (group_.destination == RtfDestination::Marker) {
        body_.AddMarker(text, FormatOf(group_));
    } else if (InText()) {
        if (body_.HasMarker()) body_.PlaceMarker(ParagraphOf(group_));
        body_.AddText(text, FormatOf(group_));
    }
}

bool RtfReader::InText() const {
    const bool isText = group_.destination == RtfDestination::Body || group_.destination == RtfDestination::TextBox;
    return isText && !group_.hidden && !group_.deleted;
}

RtfParagraph RtfReader::ParagraphOf(const RtfGroup& group) const {
    RtfNumbering numbering = group.list != 0 ? lists_.Find(group.list, group.level) : group.numbering;
    if (numbering == RtfNumbering::Unknown) numbering = group.numbering;
    return {group.alignment, numbering, group.inTable};
}

RichFormat RtfReader::FormatOf(const RtfGroup& group) {
    FindFont(group.font);
    RichFormat format = group.format;
    format.font = font_.inText;
    return format;
}

void RtfReader::FindFont(int number) {
    if (number < 0) number = defaultFont_;
    if (font_.isKnown && font_.number == number) return;
    RtfFont font = fonts_.Find(number);
    if (font.name.isEmpty()) font.name = fonts_.Find(defaultFont_).name;
    if (font.name.isEmpty()) font.name = QStringLiteral("Times New Roman");
    font_ = {true, number, body_.FontNumber(font.name), font.codePage != 0 ? font.codePage : documentPage_};
}

}  // namespace

bool IsRtf(QByteArrayView bytes) {
    return bytes.startsWith("{\\rtf");
}

RichText ReadRtf(QByteArrayView bytes) {
    return RtfReader(bytes).Read();
}

}  // namespace vellum
