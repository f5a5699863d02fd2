#include "files/single_byte_table.h"

#include "files/icu_converter.h"

namespace vellum {
namespace {

using Difference = SingleByteTable::Difference;

constexpr char16_t none = u'\uFFFF';

// The five bytes that the code page leaves undefined stand for the control characters of the same number, so that
// every byte has a character of its own.
constexpr auto windows1252 = std::to_array<Difference>(
    {{0x80, 0x20AC}, {0x82, 0x201A}, {0x83, 0x0192}, {0x84, 0x201E}, {0x85, 0x2026}, {0x86, 0x2020}, {0x87, 0x2021},
     {0x88, 0x02C6}, {0x89, 0x2030}, {0x8A, 0x0160}, {0x8B, 0x2039}, {0x8C, 0x0152}, {0x8E, 0x017D}, {0x91, 0x2018},
     {0x92, 0x2019}, {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022}, {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x02DC},
     {0x99, 0x2122}, {0x9A, 0x0161}, {0x9B, 0x203A}, {0x9C, 0x0153}, {0x9E, 0x017E}, {0x9F, 0x0178}});

constexpr auto iso885916 = std::to_array<Difference>(
    {{0xA1, 0x0104}, {0xA2, 0x0105}, {0xA3, 0x0141}, {0xA4, 0x20AC}, {0xA5, 0x201E}, {0xA6, 0x0160}, {0xA8, 0x0161},
     {0xAA, 0x0218}, {0xAC, 0x0179}, {0xAE, 0x017A}, {0xAF, 0x017B}, {0xB2, 0x010C}, {0xB3, 0x0142}, {0xB4, 0x017D},
     {0xB5, 0x201D}, {0xB8, 0x017E}, {0xB9, 0x010D}, {0xBA, 0x0219}, {0xBC, 0x0152}, {0xBD, 0x0153}, {0xBE, 0x0178},
     {0xBF, 0x017C}, {0xC3, 0x0102}, {0xC5, 0x0106}, {0xD0, 0x0110}, {0xD1, 0x0143}, {0xD5, 0x0150}, {0xD7, 0x015A},
     {0xD8, 0x0170}, {0xDD, 0x0118}, {0xDE, 0x021A}, {0xE3, 0x0103}, {0xE5, 0x0107}, {0xF0, 0x0111}, {0xF1, 0x0144},
     {0xF5, 0x0151}, {0xF7, 0x015B}, {0xF8, 0x0171}, {0xFD, 0x0119}, {0xFE, 0x021B}});

constexpr auto koi8u = std::to_array<Difference>({{0xAE, 0x045E}, {0xBE, 0x040E}});

constexpr auto windows1255 = std::to_array<Difference>({{0xCA, 0x05BA}});

}  // namespace

SingleByteTable::SingleByteTable(const QByteArray& base, std::span<const Difference> differences) {
    characters_.fill(none);
    const std::optional<IcuConverter> converter = IcuConverter::Open(base);
    for (std::size_t byte = 0; converter && byte < characters_.size(); ++byte) {
        const char single = static_cast<char>(byte);
        const std::optional<QString> character = converter->Decode({&single, 1});
        if (character && character->size() == 1) characters_.at(byte) = character->at(0).unicode();
    }
    for (const Difference& difference : differences) characters_.at(difference.byte) = difference.character;
    for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
        if (characters_.at(byte) != none) bytes_.emplace(characters_.at(byte), static_cast<char>(byte));
    }
}

const SingleByteTable* SingleByteTable::Find(const QByteArray& encoding) {
    static const std::unordered_map<std::string, SingleByteTable> tables = [] {
        std::unordered_map<std::string, SingleByteTable> made;
        made.try_emplace("windows-1252", "ISO-8859-1", windows1252);
        made.try_emplace("iso-8859-16", "ISO-8859-1", iso885916);
        made.try_emplace("koi8-u", "KOI8-U", koi8u);
        made.try_emplace("windows-1255", "windows-1255", windows1255);
        return made;
    }();
    const auto found = tables.find(encoding.toStdString());
    return found == tables.end() ? nullptr : &found->second;
}

std::optional<QString> SingleByteTable::Decode(QByteArrayView bytes) const {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const char16_t character = characters_[static_cast<unsigned char>(byte)];
        if (character == none) return std::nullopt;
        *out++ = QChar(character);
    }
    return text;
}

std::optional<QByteArray> SingleByteTable::Encode(QStringView text) const {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < characters_.size() && characters_[unit] == unit) {
            *out++ = static_cast<char>(unit);
            continue;
        }
        const auto found = bytes_.find(unit);
        if (found == bytes_.end()) return std::nullopt;
        *out++ = found->second;
    }
    return bytes;
}

}  // namespace vellum
