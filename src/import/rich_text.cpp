#include "import/rich_text.h"

#include <QHash>

#include <limits>
#include <utility>

namespace vellum {
namespace {

const QString standardFont = QStringLiteral("Times New Roman");

}  // namespace

RichText PlainRichText(const QString& text, const QString& font, double points) {
    RichText rich;
    rich.text = text;
    rich.fonts = {font};
    rich.runs.front().format.halfPoints = static_cast<std::uint16_t>(qBound(1, qRound(2 * points), 0xFFFF));
    rich.paragraphs.resize(static_cast<std::size_t>(text.count(u"\r\n")) + 1);
    return rich;
}

std::uint16_t RichTextBuilder::FontNumber(const QString& name) {
    if (const auto known = fontNumbers_.constFind(name); known != fontNumbers_.cend()) return *known;
    if (rich_.fonts.size() > std::numeric_limits<std::uint16_t>::max()) return 0;
    const auto number = static_cast<std::uint16_t>(rich_.fonts.size());
    rich_.fonts << name;
    fontNumbers_.insert(name, number);
    return number;
}

void RichTextBuilder::AddText(QStringView text, const RichFormat& format) {
    if (text.isEmpty()) return;
    BeginLine(format);
    rich_.text += text;
}

void RichTextBuilder::EndParagraph(const RichParagraph& paragraph, const RichFormat& format) {
    if (atLineStart_) BeginLine(format);
    rich_.paragraphs.push_back(paragraph);
    atLineStart_ = true;
}

// The line before gets its end only now, so that the last one has none. Afterwards the text goes on in `format`.
void RichTextBuilder::BeginLine(const RichFormat& format) {
    if (atLineStart_ && HasParagraphs()) rich_.text += u"\r\n";
    atLineStart_ = false;
    if (rich_.text.isEmpty()) {
        rich_.runs.front().format = format;
    } else if (rich_.runs.back().format != format) {
        rich_.runs.push_back({static_cast<int>(rich_.text.size()), format});
    }
}

// Numbers the fonts anew by their first use, and leaves out those that no character came to have.
void RichTextBuilder::KeepUsedFonts() {
    QHash<std::uint16_t, std::uint16_t> numbers;
    QStringList used;
    for (RichRun& run : rich_.runs) {
        std::uint16_t& font = run.format.font;
        const auto known = numbers.constFind(font);
        const auto number = known != numbers.cend() ? *known : static_cast<std::uint16_t>(used.size());
        if (known == numbers.cend()) {
            numbers.insert(font, number);
            used << rich_.fonts.value(font, standardFont);
        }
        font = number;
    }
    rich_.fonts = used;
}

RichText RichTextBuilder::Take() {
    if (!HasParagraphs()) rich_.paragraphs.push_back({});
    KeepUsedFonts();
    atLineStart_ = true;
    fontNumbers_.clear();
    return std::exchange(rich_, {.fonts = {}, .paragraphs = {}});
}

}  // namespace vellum
