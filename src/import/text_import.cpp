#include "import/text_import.h"

#include "import/rich_text.h"
#include "values/color_hex.h"
#include "values/number_rules.h"

#include <QStringBuilder>

#include <array>

namespace vellum {
namespace {

// How many hard blanks stand for a tab in letters of at most this size. Larger ones keep their tabs.
struct TabWidth {
    int halfPoints;
    int blanks;
};

constexpr std::array<TabWidth, 6> tabWidths{{{20, 16}, {24, 12}, {28, 10}, {36, 8}, {48, 6}, {72, 4}}};

// By number of RichAlignment.
constexpr std::array<QLatin1String, 3> alignments{QLatin1String("left"), QLatin1String("right"),
                                                  QLatin1String("center")};

// What stands in the markup for some characters: an entity, so many times. None when there are no characters.
struct Replacement {
    int length = 0;  // of what is replaced
    QLatin1String entity;
    int count = 1;
};

int WholePoints(const RichFormat& format) {
    return static_cast<int>(RoundHalfEven(format.Points()));
}

// Goes through the text run by run and writes what one look at each character would: what is said of characters holds
// for each of a run.
class RichWalk {
public:
    explicit RichWalk(const RichText& rich) : rich_(rich), size_(static_cast<int>(rich.text.size())) {}

    QString Markup();

private:
    const RichFormat& FormatAt(int offset);  // offsets never decrease
    [[nodiscard]] int EndOfRun() const;

    void OpenDivision(const RichFormat& format);
    void CloseDivision();
    void NextDivision(const RichFormat& format);
    void WriteSize(double points) { markup_ += " font-size: " % NumberText(points) % "pt;"; }
    void WriteFont(const RichFormat& format) { markup_ += " font-family: " % rich_.fonts.at(format.font) % ';'; }
    void WriteColor(const RichFormat& format) { markup_ += " color: " % ColorToHex(format.color) % ';'; }
    void WriteChange(const RichFormat& format);

    void WriteStretch();
    void WriteCharacters(QStringView text, const RichFormat& format);
    Replacement ReplacementAt(int offset, const RichFormat& format);
    Replacement ReplaceUnlessNext(int& from, int offset, int length, QLatin1String entity) const;

    const RichText& rich_;
    const int size_;
    QString markup_;
    int offset_ = 0;
    std::size_t run_ = 0;     // that holds the offset
    std::size_t line_ = 0;    // that the division was opened for
    bool opened_ = false;     // just now: its style speaks for its first character
    bool lineEnded_ = false;  // what comes next belongs to a new line
    bool inItem_ = false;
    RichFormat last_;  // what the markup said last
    int lastPoints_ = 0;
    int lessFrom_ = 0;  // where characters of this kind are looked at again
    int greaterFrom_ = 0;
    int blanksFrom_ = 0;
    int quoteFrom_ = 0;
};

QString RichWalk::Markup() {
    markup_.reserve(size_ + size_ / 2);
    markup_ += "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n";
    OpenDivision(FormatAt(0));
    while (offset_ < size_) WriteStretch();
    // The end is looked at as a character is, and so is the place after it.
    const RichFormat& end = FormatAt(size_);
    if (lineEnded_) {
        NextDivision(end);
    } else if (size_ > 0) {
        WriteChange(end);
    }
    WriteChange(end);
    markup_ += "</span>\r\n";
    CloseDivision();
    markup_ += "</span>";
    return std::move(markup_);
}

const RichFormat& RichWalk::FormatAt(int offset) {
    while (run_ + 1 < rich_.runs.size() && rich_.runs[run_ + 1].offset <= offset) ++run_;
    return rich_.runs[run_].format;
}

int RichWalk::EndOfRun() const {
    return run_ + 1 < rich_.runs.size() ? rich_.runs[run_ + 1].offset : size_;
}

void RichWalk::OpenDivision(const RichFormat& format) {
    const RichParagraph& paragraph = rich_.paragraphs.at(line_);
    last_ = format;
    lastPoints_ = WholePoints(format);
    markup_ += "<div style=\"text-align: " % alignments.at(static_cast<std::size_t>(paragraph.alignment)) % ';';
    if (format.bold) markup_ += " font-weight: bold;";
    if (format.italic) markup_ += " font-style: italic;";
    if (format.underline) markup_ += " text-decoration: underline;";
    WriteSize(lastPoints_);
    WriteFont(format);
    WriteColor(format);
    markup_ += "\">\r\n";
    if (paragraph.bullet) markup_ += "<li>";
    inItem_ = paragraph.bullet;
    markup_ += "<span>";
    opened_ = true;
}

void RichWalk::CloseDivision() {
    if (inItem_) markup_ += "</li>";
    markup_ += "</div>\r\n";
}

void RichWalk::NextDivision(const RichFormat& format) {
    ++line_;
    lineEnded_ = false;
    markup_ += "&nbsp;</span>";
    CloseDivision();
    OpenDivision(format);
}

// A size that is no whole number is never the one that was noted, which is one.
void RichWalk::WriteChange(const RichFormat& format) {
    const bool otherSize = format.halfPoints != 2 * lastPoints_;
    const bool same = !otherSize && format.bold == last_.bold && format.italic == last_.italic &&
                      format.underline == last_.underline && format.font == last_.font && format.color == last_.color;
    if (same) return;
    markup_ += "</span><span style=\"";
    if (format.bold != last_.bold) markup_ += format.bold ? " font-weight: bold;" : " font-weight: normal;";
    if (format.italic != last_.italic) markup_ += format.italic ? " font-style: italic;" : " font-style: normal;";
    if (format.underline != last_.underline) {
        markup_ += format.underline ? " text-decoration: underline;" : " text-decoration: normal;";
    }
    if (format.font != last_.font) WriteFont(format);
    if (otherSize) WriteSize(format.Points());
    if (format.color != last_.color) WriteColor(format);
    markup_ += "\">";
    last_ = format;
    lastPoints_ = WholePoints(format);
}

// Up to the next character that is replaced, or to the end of the line or of the run.
void RichWalk::WriteStretch() {
    const RichFormat& format = FormatAt(offset_);
    if (lineEnded_) NextDivision(format);
    const int start = offset_;
    const int end = EndOfRun();
    Replacement replacement;
    while (offset_ < end && !lineEnded_) {
        replacement = ReplacementAt(offset_, format);
        if (replacement.length > 0) break;
        lineEnded_ = rich_.text.at(offset_) == u'\n';
        ++offset_;
    }
    WriteCharacters(QStringView(rich_.text).sliced(start, offset_ - start), format);
    for (int i = 0; i < replacement.count && replacement.length > 0; ++i) {
        WriteCharacters(QString(replacement.entity), format);
    }
    offset_ += replacement.length;
}

void RichWalk::WriteCharacters(QStringView text, const RichFormat& format) {
    if (opened_ && !text.isEmpty()) {
        markup_ += text.front();
        text = text.sliced(1);
        opened_ = false;
    }
    if (text.isEmpty()) return;
    WriteChange(format);
    if (format.halfPoints % 2 == 0) {
        markup_ += text;
        return;
    }
    markup_ += text.front();
    for (const QChar character : text.sliced(1)) {
        WriteChange(format);
        markup_ += character;
    }
}

// The offset after something that was replaced isn't looked at by the search for the same.
Replacement RichWalk::ReplaceUnlessNext(int& from, int offset, int length, QLatin1String entity) const {
    if (offset < from) return {};
    from = offset + length + 1;
    return {length, entity};
}

Replacement RichWalk::ReplacementAt(int offset, const RichFormat& format) {
    switch (rich_.text.at(offset).unicode()) {
        case u'<':
            return ReplaceUnlessNext(lessFrom_, offset, 1, QLatin1String("&lt;"));
        case u'>':
            return ReplaceUnlessNext(greaterFrom_, offset, 1, QLatin1String("&gt;"));
        case u'"':
            return ReplaceUnlessNext(quoteFrom_, offset, 1, QLatin1String("&quot;"));
        case u' ':
            if (offset + 1 == size_ || rich_.text.at(offset + 1) != u' ') return {};
            return ReplaceUnlessNext(blanksFrom_, offset, 2, QLatin1String("&nbsp; "));
        case u'\t':
            for (const TabWidth& width : tabWidths) {
                if (format.halfPoints <= width.halfPoints) return {1, QLatin1String("&nbsp;"), width.blanks};
            }
            return {};
        default:
            return {};
    }
}

}  // namespace

QString ConvertPlainText(QString text) {
    return text.replace(u'<', "&lt;")
        .replace(u'>', "&gt;")
        .replace("  ", "&nbsp;")
        .replace(u'"', "&quot;")
        .replace("\r\n", "<br />\r\n");
}

QString ConvertRichText(const RichText& rich) {
    return RichWalk(rich).Markup();
}

}  // namespace vellum
