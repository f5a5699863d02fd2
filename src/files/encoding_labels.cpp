#include "files/encoding_labels.h"

#include "files/encodings.h"
#include "files/icu_converter.h"
#include "files/single_byte_table.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <utility>

namespace vellum {
namespace {

bool IsPlainName(const QByteArray& label) {
    return !label.isEmpty() && label.size() < 60 && std::all_of(label.begin(), label.end(), [](char character) {
        return std::isalnum(static_cast<unsigned char>(character)) != 0 || std::strchr("-_.:+", character) != nullptr;
    });
}

// Labels that browsers know and ICU doesn't, or takes for something else.
QByteArray KnownLabel(const QByteArray& label) {
    static constexpr auto known = std::to_array<std::pair<const char*, const char*>>({
        {"chinese", "gbk"},
        {"csiso58gb231280", "gbk"},
        {"gb_2312-80", "gbk"},
        {"iso-ir-58", "gbk"},
        {"cn-big5", "big5"},
        {"x-x-big5", "big5"},
        {"koi", "koi8-r"},
        {"koi8-ru", "koi8-u"},
        {"visual", "iso-8859-8"},
        {"logical", "iso-8859-8"},
        {"csiso88598e", "iso-8859-8"},
        {"csiso88598i", "iso-8859-8"},
        {"csiso88596e", "iso-8859-6"},
        {"csiso88596i", "iso-8859-6"},
        {"dos-874", "windows-874"},
        {"x-mac-ukrainian", "x-mac-cyrillic"},
        {"x-user-defined", "windows-1252"},
    });
    const QByteArray lower = label.toLower();
    const auto* const found = std::ranges::find_if(known, [&](const auto& each) { return lower == each.first; });
    return found == known.end() ? lower : QByteArray(found->second);
}

// An encoding that browsers read as a wider one.
struct Family {
    const char* canonicalName;           // ICU's
    std::array<const char*, 3> inPages;  // what a page's own label means, the narrowest first
    const char* inXml;                   // what comes before these where XML parsers read the label
};

const Family* FindFamily(const QByteArray& canonicalName) {
    static constexpr auto families = std::to_array<Family>({
        {"windows-936", {"GBK", "gb18030", "windows-936"}, nullptr},
        {"ibm-1383", {"GBK", "gb18030", "windows-936"}, "GB2312"},
        {"windows-950", {"Big5", "Big5-HKSCS", "windows-950"}, nullptr},
        {"ibm-1375", {"Big5-HKSCS", "windows-950"}, nullptr},
        {"ibm-970", {"EUC-KR", "windows-949"}, nullptr},
        {"windows-949", {"EUC-KR", "windows-949"}, nullptr},
        {"ISO-8859-1", {windows1252Name}, "ISO-8859-1"},
        {"US-ASCII", {windows1252Name}, "US-ASCII"},
        {"ibm-5348", {windows1252Name}, nullptr},
        {"ibm-920", {"windows-1254"}, "ISO-8859-9"},
        {"iso-8859_11", {"windows-874"}, "ISO-8859-11"},
    });
    const auto* const found = std::ranges::find_if(
        families, [&](const Family& family) { return canonicalName.startsWith(family.canonicalName); });
    return found == families.end() ? nullptr : found;
}

std::vector<QByteArray> MembersOf(const Family& family, bool byXml) {
    std::vector<QByteArray> names;
    if (byXml && family.inXml) names.emplace_back(family.inXml);
    for (const char* const name : family.inPages) {
        if (name) names.emplace_back(name);
    }
    return names;
}

}  // namespace

std::vector<QByteArray> EncodingsOfLabel(const QByteArray& label, bool byXml) {
    if (!IsPlainName(label)) return {};
    const QByteArray known = KnownLabel(label);
    const std::optional<IcuConverter> converter = IcuConverter::Open(known);
    if (!converter) return SingleByteTable::Find(known) ? std::vector{known.toUpper()} : std::vector<QByteArray>();
    // Whoever could read the declaration didn't read UTF-16.
    if (converter->IsUtf8() || converter->IsUtf16()) return {utf8Name};
    const QByteArray canonical = converter->CanonicalName();
    if (const Family* const family = FindFamily(canonical)) return MembersOf(*family, byXml);
    // The declaration itself was found as ASCII, so an encoding that would spell it in another way can't be meant.
    if (converter->Encode(u"<meta charset=\"x\">") != QByteArray("<meta charset=\"x\">")) return {};
    const QByteArray name = StandardName(known);
    const std::optional<IcuConverter> named = IcuConverter::Open(name);
    return {named && named->CanonicalName() == canonical ? name : known};
}

}  // namespace vellum
