#include "editor/tag_class.h"

#include <algorithm>

namespace vellum {
namespace {

constexpr QStringView plainTags =
    u"<B<C<D<E<FRAM<G<H<IFRAM<J<K<L<M<NOFRAME<O<P<Q<R<S<TABL<TFOO<TBOD<U<V<W<X<Y<Z"
    u"</B</C</D</E</FRAM</G</H</IFRAM</J</K</L</M</NOFRAME</O</P</Q</R</S</TABL</TFOO</TBOD</U</V</W</X</Y</Z";
constexpr QStringView linkTags = u"<A </A";
constexpr QStringView tableTags =
    u"<TABLE<TD<TR<TFOOT<THEAD<COLGROUP<COL<TH<TBODY</TABLE</TD</TR</TFOOT</THEAD</COLGROUP</TH</TBODY";
constexpr QStringView frameTags = u"<FRAMESET<FRAME<IFRAME<NOFRAMES</FRAMESET</IFRAME</NOFRAMES";

// Between two "<" the lists hold nothing longer, so a longer name is in none of them.
constexpr int longestListedName = 10;

constexpr int bitsPerCharacter = 7;
constexpr char16_t firstUnpacked = 1U << bitsPerCharacter;

bool EndsName(char16_t character, bool lineFeedEnds) {
    return character == u' ' || character == u'\t' || character == u'\r' || (lineFeedEnds && character == u'\n');
}

TagClass ClassOfLongName(QStringView name) {
    if (name.size() > longestListedName && !name.sliced(1).contains(u'<')) return TagClass::Unlisted;
    return ClassOfName(name);
}

}  // namespace

TagClass ClassOfName(QStringView name) {
    const auto isIn = [name](QStringView list) { return list.contains(name, Qt::CaseInsensitive); };
    if (isIn(plainTags)) return TagClass::Plain;
    if (isIn(u"<script")) return TagClass::Script;
    if (isIn(u"<style")) return TagClass::Style;
    if (isIn(linkTags)) return TagClass::Link;
    if (isIn(tableTags)) return TagClass::Table;
    if (isIn(frameTags)) return TagClass::Frame;
    if (isIn(u"<%")) return TagClass::Server;
    return TagClass::Unlisted;
}

TagClass TagClasses::ClassOf(QStringView tag, bool lineFeedEnds) {
    const char16_t* const characters = tag.utf16();
    const qsizetype end = tag.size() - 1;
    // A short name packs into a number: a 1, then its characters after the "<".
    std::uint64_t key = 1;
    qsizetype index = 1;
    for (; index < end; ++index) {
        const char16_t character = characters[index];
        if (EndsName(character, lineFeedEnds)) break;
        if (character >= firstUnpacked || index == longestListedName) {
            const char16_t* const stop =
                std::find_if(characters + index, characters + end,
                             [lineFeedEnds](char16_t next) { return EndsName(next, lineFeedEnds); });
            return ClassOfLongName({characters, stop});
        }
        key = key << bitsPerCharacter | character;
    }
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;  // the golden ratio's bits scatter similar keys
    Entry& entry = entries_[key * spread >> (64U - slotBits)];
    if (entry.key != key) entry = {key, ClassOfName(tag.first(index))};
    return entry.tagClass;
}

}  // namespace vellum
