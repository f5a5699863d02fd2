#include "files/encodings.h"

#include "files/icu_converter.h"
#include "files/single_byte_table.h"
#include "files/utf8.h"

#include <QHash>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <utility>

namespace vellum {
namespace {

// Code units as they stand, so that half a surrogate pair survives. Needs an even number of bytes.
QString DecodeUtf16(QByteArrayView bytes, bool bigEndian) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    auto* const units = reinterpret_cast<char16_t*>(text.data());
    if (bigEndian)
        qFromBigEndian<char16_t>(bytes.data(), text.size(), units);
    else
        qFromLittleEndian<char16_t>(bytes.data(), text.size(), units);
    return text;
}

QByteArray EncodeUtf16(QStringView text, bool bigEndian) {
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    if (bigEndian)
        qToBigEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    else
        qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    return bytes;
}

// A name that means less to one reader than to another.
struct SharedName {
    const char* name;
    const char* browsers;
    const char* parsers;
};

const SharedName* FindShared(const QByteArray& encoding) {
    static constexpr auto names = std::to_array<SharedName>({
        {"GBK", "gb18030", "windows-936"},
        {"GB2312", "gb18030", "GB2312"},
        {"Big5", "Big5-HKSCS", "Big5"},
        {"EUC-KR", "windows-949", "EUC-KR"},
        {"ISO-8859-1", windows1252Name, "ISO-8859-1"},
        {"US-ASCII", windows1252Name, "US-ASCII"},
        {"ISO-8859-9", "windows-1254", "ISO-8859-9"},
        {"ISO-8859-11", "windows-874", "ISO-8859-11"},
    });
    const auto* const found =
        std::ranges::find_if(names, [&](const SharedName& each) { return encoding == each.name; });
    return found == names.end() ? nullptr : found;
}

std::optional<QByteArray> EncodeByTable(QStringView text, const QByteArray& encoding) {
    if (const SingleByteTable* const table = SingleByteTable::Find(encoding.toLower())) return table->Encode(text);
    const std::optional<IcuConverter> converter = IcuConverter::Open(encoding);
    return converter ? converter->Encode(text) : std::nullopt;
}

std::optional<QString> DecodeByTable(QByteArrayView bytes, const QByteArray& encoding) {
    if (const SingleByteTable* const table = SingleByteTable::Find(encoding.toLower())) return table->Decode(bytes);
    const std::optional<IcuConverter> converter = IcuConverter::Open(encoding);
    return converter ? converter->Decode(bytes) : std::nullopt;
}

// Asked once for each character: whether it comes back from the encoding.
class Repertoire {
public:
    explicit Repertoire(QByteArray encoding) : encoding_(std::move(encoding)) {}

    [[nodiscard]] bool Holds(QStringView character) {
        const char16_t unit = character[0].unicode();
        if ((unit >= u' ' && unit < 0x7F) || unit == u'\n' || unit == u'\t') return true;
        const char32_t key = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1]) : unit;
        const auto known = known_.constFind(key);
        if (known != known_.constEnd()) return *known;
        const std::optional<QByteArray> bytes = EncodeUnits(character, encoding_);
        const std::optional<QString> text = bytes ? DecodeBytes(*bytes, encoding_) : std::nullopt;
        return *known_.insert(key, text && *text == character);
    }

private:
    QByteArray encoding_;
    QHash<char32_t, bool> known_;
};

}  // namespace

std::optional<QByteArray> EncodeUnits(QStringView text, const QByteArray& encoding) {
    if (encoding == utf8Name) return EncodeUtf8(text);
    if (encoding == utf16LeName) return EncodeUtf16(text, false);
    if (encoding == utf16BeName) return EncodeUtf16(text, true);
    const SharedName* const shared = FindShared(encoding);
    if (!shared) return EncodeByTable(text, encoding);
    // The parsers' reading comes first: it is the one that more texts fail.
    std::optional<QByteArray> bytes = EncodeByTable(text, shared->parsers);
    return bytes && EncodeByTable(text, shared->browsers) == bytes ? bytes : std::nullopt;
}

std::optional<QString> DecodeBytes(QByteArrayView bytes, const QByteArray& encoding) {
    if (encoding == utf8Name) return bytes.isValidUtf8() ? std::optional(DecodeUtf8(bytes)) : std::nullopt;
    if (encoding == utf16LeName) return DecodeUtf16(bytes, false);
    if (encoding == utf16BeName) return DecodeUtf16(bytes, true);
    const SharedName* const shared = FindShared(encoding);
    std::optional<QString> text = DecodeByTable(bytes, shared ? QByteArray(shared->browsers) : encoding);
    if (!text || EncodeUnits(*text, encoding) != bytes.toByteArray()) return std::nullopt;
    return text;
}

std::vector<TextRange> FindMisfits(QStringView text, const QByteArray& encoding) {
    std::vector<TextRange> misfits;
    Repertoire repertoire(encoding);
    for (qsizetype index = 0, length = 1; index < text.size(); index += length) {
        const bool pair = text[index].isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        length = pair ? 2 : 1;
        if (repertoire.Holds(text.sliced(index, length))) continue;
        const auto offset = static_cast<int>(index);
        if (misfits.empty() || misfits.back().End() != offset) misfits.push_back({offset, 0});
        misfits.back().length += static_cast<int>(length);
    }
    return misfits;
}

QByteArray LooksLikeUtf16(QByteArrayView bytes) {
    constexpr qsizetype fewest = 2;  // one unit may be anything
    constexpr qsizetype mostLookedAt = 8192;
    const qsizetype units = std::min(bytes.size() / 2, mostLookedAt);
    if (units < fewest || !bytes.first(2 * units).contains('\0')) return {};
    const auto isText = [](unsigned char byte) {
        return (byte >= 0x20 && byte < 0x7F) || byte == '\n' || byte == '\r' || byte == '\t';
    };
    for (const char* const name : {utf16LeName, utf16BeName}) {
        const qsizetype low = name == QByteArrayView(utf16LeName) ? 0 : 1;
        qsizetype ascii = 0;
        qsizetype strange = 0;
        bool markup = false;
        for (qsizetype unit = 0; unit < units; ++unit) {
            const auto lowByte = static_cast<unsigned char>(bytes[2 * unit + low]);
            const auto highByte = static_cast<unsigned char>(bytes[2 * unit + 1 - low]);
            ascii += highByte == 0 && isText(lowByte);
            markup = markup || (highByte == 0 && lowByte == '<');
            strange += highByte == 0 && !isText(lowByte) && lowByte < 0xA0;  // NUL and other controls
        }
        // Markup may be the little that is ASCII in a page of another script.
        if (strange == 0 && ascii >= fewest && ascii * (markup ? 8 : 2) >= units) return name;
    }
    return {};
}

}  // namespace vellum
