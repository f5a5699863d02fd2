#include "import/rtf_tables.h"

#include "import/rtf_code_page.h"

#include <utility>

namespace vellum {
namespace {

template <typename Entry>
void Keep(QHash<int, Entry>& table, int number, const Entry& entry) {
    if (table.size() < mostRtfEntries) table.insert(number, entry);
}

}  // namespace

void RtfFonts::Begin(int number) {
    End();
    number_ = number;
}

void RtfFonts::SetCharset(int charset) {
    begun_.codePage = CodePageOfCharset(charset);
}

void RtfFonts::SetCodePage(int codePage) {
    if (codePage > 0) begun_.codePage = codePage;
}

void RtfFonts::AddName(QStringView text) {
    constexpr qsizetype longest = 256;
    if (begun_.name.size() + text.size() <= longest) begun_.name += text;
}

// Only the font Symbol has the encoding of that name; the others of its charset show pictures, which have no
// characters.
void RtfFonts::End() {
    RtfFont font = std::exchange(begun_, {});
    const int number = std::exchange(number_, -1);
    font.name = font.name.simplified();
    if (number < 0) return;
    if (font.codePage == codePages::symbol && font.name != u"Symbol") font.codePage = 0;
    Keep(fonts_, number, font);
}

void RtfColors::SetPart(int part, unsigned shift) {
    begun_ &= ~(0xFFU << shift);
    begun_ |= static_cast<ColorNumber>(qBound(0, part, 0xFF)) << shift;
}

void RtfColors::End() {
    if (colors_.size() < mostRtfEntries) colors_.push_back(begun_);
    begun_ = 0;
}

ColorNumber RtfColors::Find(int number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colors_.size() ? colors_[index] : 0;
}

void RtfLists::NewList() {
    begun_ = {};
}

void RtfLists::AddLevel(int kind) {
    constexpr int bullet = 23;
    constexpr int most = 9;
    if (begun_.count == most) return;
    const unsigned bit = 1U << static_cast<unsigned>(begun_.count++);
    if (kind == bullet) begun_.bullets |= bit;
}

void RtfLists::SetNumber(int number) {
    number_ = number;
    if (begun_.count > 0) Keep(lists_, number, std::exchange(begun_, {}));
}

void RtfLists::SetLink(int link) {
    Keep(links_, link, number_);
}

RtfNumbering RtfLists::Find(int link, int level) const {
    const auto number = links_.constFind(link);
    const auto found = number == links_.cend() ? lists_.cend() : lists_.constFind(*number);
    if (found == lists_.cend() || level < 0 || level >= found->count) return RtfNumbering::Unknown;
    const unsigned bit = 1U << static_cast<unsigned>(level);
    return found->bullets & bit ? RtfNumbering::Bullet : RtfNumbering::Number;
}

}  // namespace vellum
