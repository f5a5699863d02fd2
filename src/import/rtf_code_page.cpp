#include "import/rtf_code_page.h"

#include "import/rtf_symbol_font.h"

#include <algorithm>

namespace vellum {
namespace {

constexpr char16_t unknown = u'\uFFFD';

struct NumberedPage {
    int number;
    const char* name;
};

// By the names that ICU has for them. Those of Macintosh that stand for Asian scripts are near enough to these.
constexpr auto pages = std::to_array<NumberedPage>(
    {{437, "ibm-437"},        {720, "ibm-720"},          {737, "ibm-737"},       {775, "ibm-775"},
     {819, "ISO-8859-1"},     {850, "ibm-850"},          {852, "ibm-852"},       {855, "ibm-855"},
     {857, "ibm-857"},        {858, "ibm-858"},          {860, "ibm-860"},       {861, "ibm-861"},
     {862, "ibm-862"},        {863, "ibm-863"},          {864, "ibm-864"},       {865, "ibm-865"},
     {866, "ibm-866"},        {869, "ibm-869"},          {874, "windows-874"},   {932, "windows-31j"},
     {936, "windows-936"},    {949, "windows-949"},      {950, "windows-950"},   {1250, "windows-1250"},
     {1251, "windows-1251"},  {1252, "windows-1252"},    {1253, "windows-1253"}, {1254, "windows-1254"},
     {1255, "windows-1255"},  {1256, "windows-1256"},    {1257, "windows-1257"}, {1258, "windows-1258"},
     {10000, "macintosh"},    {10001, "windows-31j"},    {10002, "windows-950"}, {10003, "windows-949"},
     {10006, "x-mac-greek"},  {10007, "x-mac-cyrillic"}, {10008, "windows-936"}, {10029, "x-mac-ce"},
     {10081, "x-mac-turkish"}});

const char* NameOf(int number) {
    const auto* const found = std::ranges::find(pages, number, &NumberedPage::number);
    return found == pages.end() ? "windows-1252" : found->name;
}

// The first bytes of the characters of several bytes.
int LengthOf(unsigned char byte, QByteArrayView name) {
    if (byte <= 0x80) return 1;
    if (name == QByteArrayView("windows-31j")) return (byte < 0xA0 || byte >= 0xE0) && byte < 0xFD ? 2 : 1;
    const bool isChineseOrKorean = name == QByteArrayView("windows-936") || name == QByteArrayView("windows-949") ||
                                   name == QByteArrayView("windows-950");
    return isChineseOrKorean && byte < 0xFF ? 2 : 1;
}

int LengthInUtf8(unsigned char byte) {
    if (byte < 0xC2 || byte > 0xF4) return 1;
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

int CodePageOfCharset(int charset) {
    static constexpr auto charsets = std::to_array<std::pair<int, int>>({{0, 1252},   {2, codePages::symbol},
                                                                         {77, 10000}, {78, 10001},
                                                                         {79, 10003}, {80, 10008},
                                                                         {81, 10002}, {85, 10006},
                                                                         {86, 10081}, {88, 10029},
                                                                         {89, 10007}, {128, 932},
                                                                         {129, 949},  {134, 936},
                                                                         {136, 950},  {161, 1253},
                                                                         {162, 1254}, {163, 1258},
                                                                         {177, 1255}, {178, 1256},
                                                                         {186, 1257}, {204, 1251},
                                                                         {222, 874},  {238, 1250},
                                                                         {254, 437},  {255, 850}});
    const auto* const found = std::ranges::find(charsets, charset, &std::pair<int, int>::first);
    return found == charsets.end() ? 0 : found->second;
}

int KnownCodePage(int number) {
    const bool isOther = number == codePages::symbol || number == codePages::utf8;
    const bool isKnown = isOther || std::ranges::find(pages, number, &NumberedPage::number) != pages.end();
    return isKnown ? number : codePages::western;
}

RtfCodePage::RtfCodePage(int number)
    : isUtf8_(number == codePages::utf8), converter_(IcuConverter::Open(NameOf(number))) {
    FillSingles(number);
}

// U+FFFD unless the bytes are one character that may stand in a text.
char16_t RtfCodePage::CharacterOf(QByteArrayView bytes) const {
    const std::optional<QString> text = converter_ && !isUtf8_ ? converter_->Decode(bytes) : std::nullopt;
    if (!text || text->size() != 1) return unknown;
    const char16_t character = text->front().unicode();
    return character < 0x20 || (character >= 0x7F && character < 0xA0) ? unknown : character;
}

void RtfCodePage::FillSingles(int number) {
    const char* const name = NameOf(number);
    for (std::size_t index = 0; index < singles_.size(); ++index) {
        const auto byte = static_cast<unsigned char>(index);
        const auto character = static_cast<char>(byte);
        lengths_.at(index) = static_cast<unsigned char>(isUtf8_ ? LengthInUtf8(byte) : LengthOf(byte, name));
        if (byte == '\t') {
            singles_.at(index) = u'\t';
        } else if (byte < 0x20 || byte == 0x7F) {
            singles_.at(index) = 0;
        } else if (number == codePages::symbol) {
            singles_.at(index) = SymbolCharacter(byte);
        } else if (byte < 0x7F) {
            singles_.at(index) = byte;
        } else {
            singles_.at(index) = CharacterOf({&character, 1});
        }
    }
}

void RtfCodePage::Decode(QByteArrayView bytes, QString& text) {
    const char* at = bytes.begin();
    while (at != bytes.end()) {
        if (begun_.isEmpty()) at = DecodeSingles(at, bytes.end(), text);
        if (at != bytes.end()) DecodeByte(*at++, text);
    }
}

// Stops at a byte that begins a longer character.
const char* RtfCodePage::DecodeSingles(const char* at, const char* end, QString& text) const {
    const qsizetype before = text.size();
    text.resize(before + (end - at));
    QChar* out = text.data() + before;
    for (; at != end; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        if (lengths_[byte] > 1) break;
        if (singles_[byte] != 0) *out++ = QChar(singles_[byte]);
    }
    text.truncate(out - text.constData());
    return at;
}

void RtfCodePage::DecodeByte(char byte, QString& text) {
    const auto unit = static_cast<unsigned char>(byte);
    if (!begun_.isEmpty() && isUtf8_ && (unit & 0xC0U) != 0x80) Finish(text);
    if (begun_.isEmpty() && lengths_[unit] == 1) {
        if (singles_[unit] != 0) text += QChar(singles_[unit]);
        return;
    }
    begun_ += byte;
    if (begun_.size() < lengths_[static_cast<unsigned char>(begun_.front())]) return;
    if (isUtf8_) {
        text += QString::fromUtf8(begun_);
    } else {
        DecodePair(text);
    }
    begun_.clear();
}

// A letter that can't be the second byte stands for itself: the first one is what is wrong.
void RtfCodePage::DecodePair(QString& text) {
    const auto trail = static_cast<unsigned char>(begun_.back());
    const std::size_t number = static_cast<unsigned char>(begun_.front()) * std::size_t{256} + trail;
    if (pairs_.empty()) pairs_.resize(std::size_t{256} * 256);
    char16_t& character = pairs_.at(number);
    if (character == 0) character = CharacterOf(begun_);
    text += QChar(character);
    if (character == unknown && lengths_[trail] == 1 && trail < 0x80 && singles_[trail] != 0) {
        text += QChar(singles_[trail]);
    }
}

void RtfCodePage::Finish(QString& text) {
    if (begun_.isEmpty()) return;
    text += QChar(unknown);
    begun_.clear();
}

}  // namespace vellum
