#include "import/rtf_words.h"

#include "import/rich_text.h"
#include "import/rtf_code_page.h"

#include <array>
#include <string_view>
#include <unordered_map>

namespace vellum {
namespace {

using Words = std::unordered_map<std::string_view, RtfWord>;

void AddDestinations(Words& words) {
    const auto add = [&words](RtfDestination destination, std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) {
            words[name] = {RtfAction::Destination, static_cast<int>(destination)};
        }
    };
    add(RtfDestination::Body, {"fldrslt", "result", "ud"});
    add(RtfDestination::TextBox, {"shptxt"});
    add(RtfDestination::Marker, {"listtext", "pntext"});
    add(RtfDestination::Inside, {"object", "shp", "shpinst", "upr"});
    // Those that come after \* alone need no mention: what isn't known there is left out.
    add(RtfDestination::Nothing, {"aftncn",  "aftnsep",      "aftnsepc",   "annotation", "filetbl",  "fldinst",
                                  "footer",  "footerf",      "footerl",    "footerr",    "footnote", "ftncn",
                                  "ftnsep",  "ftnsepc",      "header",     "headerf",    "headerl",  "headerr",
                                  "info",    "nonesttables", "nonshppict", "objalias",   "objclass", "objdata",
                                  "objname", "objsect",      "pict",       "private",    "revtbl",   "rxe",
                                  "shprslt", "stylesheet",   "tc",         "tcn",        "txe",      "xe"});
    add(RtfDestination::Fonts, {"fonttbl"});
    add(RtfDestination::Colors, {"colortbl"});
    add(RtfDestination::Lists, {"listtable"});
    add(RtfDestination::ListOverrides, {"listoverridetable"});
    add(RtfDestination::Numbering, {"pn"});
}

void AddCharacters(Words& words) {
    static constexpr auto characters = std::to_array<std::pair<std::string_view, char16_t>>({
        {"tab", u'\t'},
        {"emdash", u'\u2014'},
        {"endash", u'\u2013'},
        {"emspace", u'\u2003'},
        {"enspace", u'\u2002'},
        {"qmspace", u'\u2005'},
        {"bullet", u'\u2022'},
        {"lquote", u'\u2018'},
        {"rquote", u'\u2019'},
        {"ldblquote", u'\u201C'},
        {"rdblquote", u'\u201D'},
        {"zwj", u'\u200D'},
        {"zwnj", u'\u200C'},
        {"zwbo", u'\u200B'},
        {"zwnbo", u'\u2060'},
        {"ltrmark", u'\u200E'},
        {"rtlmark", u'\u200F'},
        {"nestcell", u'\t'},
    });
    for (const auto& [name, character] : characters) words[name] = {RtfAction::Character, character};
}

void AddFormats(Words& words) {
    using enum RtfAction;
    for (const std::string_view name :
         {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhair", "ulhwave", "ulldash", "ulth", "ulthd",
          "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw", "ulwave"}) {
        words[name] = {Underline};
    }
    words["plain"] = {Plain};
    words["b"] = {Bold};
    words["i"] = {Italic};
    words["ulnone"] = {NoUnderline};
    words["strike"] = {Strike};
    words["striked"] = {Strike};
    words["v"] = {Hidden};
    words["deleted"] = {Deleted};
    words["f"] = {Font};
    words["fs"] = {Size};
    words["cf"] = {Color};
}

void AddParagraphs(Words& words) {
    using enum RtfAction;
    for (const std::string_view name : {"ql", "qj", "qd", "qk", "qt"}) {
        words[name] = {Alignment, static_cast<int>(RichAlignment::Left)};
    }
    words["qr"] = {Alignment, static_cast<int>(RichAlignment::Right)};
    words["qc"] = {Alignment, static_cast<int>(RichAlignment::Center)};
    words["pard"] = {StandardParagraph};
    words["intbl"] = {InTable};
    words["ls"] = {List};
    words["ilvl"] = {ListLevel};
    words["pnlvlblt"] = {PnKind, static_cast<int>(RtfNumbering::Bullet)};
    words["pnlvlbody"] = {PnKind, static_cast<int>(RtfNumbering::Number)};
    words["pnlvl"] = {PnKind, static_cast<int>(RtfNumbering::Number)};
    words["pnlvlcont"] = {PnKind, static_cast<int>(RtfNumbering::None)};
    words["par"] = {Paragraph};
    words["line"] = {Line};
    words["lbr"] = {Line};
    words["page"] = {Page};
    words["column"] = {Page};
    words["sect"] = {Page};
    words["cell"] = {Cell};
    words["row"] = {Row};
}

void AddTables(Words& words) {
    using enum RtfAction;
    words["ansi"] = {Document, codePages::western};
    words["mac"] = {Document, 10000};
    words["pc"] = {Document, 437};
    words["pca"] = {Document, 850};
    words["ansicpg"] = {Document};
    words["u"] = {Unicode};
    words["uc"] = {UnicodeFallback};
    words["deff"] = {DefaultFont};
    words["fcharset"] = {FontCharset};
    words["cpg"] = {FontCodePage};
    words["red"] = {Red};
    words["green"] = {Green};
    words["blue"] = {Blue};
    words["list"] = {NewList};
    words["levelnfc"] = {LevelKind};
    words["listid"] = {ListNumber};
}

}  // namespace

RtfWord FindRtfWord(QByteArrayView name) {
    static const Words words = [] {
        Words made;
        AddDestinations(made);
        AddCharacters(made);
        AddFormats(made);
        AddParagraphs(made);
        AddTables(made);
        return made;
    }();
    const auto found = words.find({name.data(), static_cast<std::size_t>(name.size())});
    return found == words.end() ? RtfWord() : found->second;
}

}  // namespace vellum
