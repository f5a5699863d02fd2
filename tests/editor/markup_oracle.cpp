#include "tests/editor/markup_oracle.h"

#include <algorithm>

namespace vellum::test {
namespace {

// The position of the first match at or after a position, both from 1; 0 when there is none.
int Seek(const QString& text, const QString& what, int pos) {
    return static_cast<int>(text.indexOf(what, pos - 1)) + 1;
}

QString NameOf(const QString& tagText) {
    for (int index = 0; index < tagText.size(); ++index) {
        const QChar character = tagText.at(index);
        if (character == u' ' || character == u'\t' || character == u'\r') return tagText.left(index);
    }
    return tagText.chopped(1);
}

bool Occurs(const QString& name, const char* list) {
    return QString::fromLatin1(list).contains(name, Qt::CaseInsensitive);
}

constexpr auto plainTags =
    "<B<C<D<E<FRAM<G<H<IFRAM<J<K<L<M<NOFRAME<O<P<Q<R<S<TABL<TFOO<TBOD<U<V<W<X<Y<Z</B</C</D</E</FRAM</G</H</IFRAM"
    "</J</K</L</M</NOFRAME</O</P</Q</R</S</TABL</TFOO</TBOD</U</V</W</X</Y</Z";
constexpr auto linkTags = "<A </A";
constexpr auto tableTags =
    "<TABLE<TD<TR<TFOOT<THEAD<COLGROUP<COL<TH<TBODY</TABLE</TD</TR</TFOOT</THEAD</COLGROUP</TH</TBODY";
constexpr auto frameTags = "<FRAMESET<FRAME<IFRAME<NOFRAMES</FRAMESET</IFRAME</NOFRAMES";

}  // namespace

std::optional<ColorNumber> ArraySurface::SelColor() const {
    const auto begin = colors.begin() + selStart;
    if (selLength == 0 || std::any_of(begin, begin + selLength, [&](ColorNumber color) { return color != *begin; })) {
        return std::nullopt;
    }
    return *begin;
}

void ArraySurface::SetSelColor(ColorNumber color) {
    std::fill_n(colors.begin() + selStart, selLength, color);
}

void ArraySurface::SetSelBold(bool on) {
    std::fill_n(bold.begin() + selStart, selLength, on);
}

void ArraySurface::CompareAndSet(ColorNumber color) {
    const std::optional<ColorNumber> now = SelColor();
    if (now && *now != color) SetSelColor(color);
}

int ArraySurface::Find(const QString& what, int start) {
    const int found = static_cast<int>(text.indexOf(what, start, Qt::CaseInsensitive));
    if (found >= 0) {
        selStart = found;
        selLength = static_cast<int>(what.size());
    }
    return found;
}

void ArraySurface::Apply(const FormatStep& step) {
    selStart = step.range.offset;
    selLength = step.range.length;
    if (step.ofOneColor && !SelColor()) return;
    if (step.change.color) SetSelColor(step.change.color->value());
    if (step.change.bold) SetSelBold(*step.change.bold);
}

void MarkupOracle::FullPass(ColorNumber foreColor) {
    surface_.selStart = 0;
    surface_.selLength = static_cast<int>(surface_.text.size());
    surface_.SetSelColor(foreColor);
    surface_.SetSelBold(false);
    ScanTags();
    ScanBlocks();
}

void MarkupOracle::RangePass(int start, int length) {
    inRange_ = true;
    firstPos_ = start + 1;
    limit_ = start + length;
    ScanTags();
    ScanBlocks();
}

int MarkupOracle::EndOfTag(int pos) const {
    const QString& text = surface_.text;
    if (text.mid(pos - 1, 2) == "<%") {
        const int match = Seek(text, "%>", pos + 1);
        return match == 0 ? 0 : match + 1;
    }
    if (text.mid(pos - 1, 4) == "<!--") {
        const int match = Seek(text, "-->", pos + 1);
        return match == 0 ? 0 : match + 2;
    }
    int found = Seek(text, ">", pos + 1);
    while (found != 0 && text.at(found - 2) == u'%') found = Seek(text, ">", found + 1);
    return found;
}

void MarkupOracle::ScanTags() {
    const QString& text = surface_.text;
    for (int pos = firstPos_; true;) {
        const int begin = Seek(text, "<", pos);
        if (begin == 0 || Beyond(begin)) return;
        ++tagCount_;
        const int end = EndOfTag(begin);
        if (end == 0 || Beyond(end)) return;
        const QString tagText = text.mid(begin - 1, end - begin + 1);
        if (surface_.Find(tagText, begin - 1) == -1) return;
        pos = colors_.off ? end : PaintTag(tagText, end);
    }
}

int MarkupOracle::PaintTag(const QString& tagText, int endPos) {
    const QString name = NameOf(tagText);
    if (tagText.contains("<!--")) {
        surface_.CompareAndSet(colors_.comments);
    } else if (Occurs(name, plainTags)) {
        surface_.CompareAndSet(colors_.other);
    } else if (Occurs(name, "<script")) {
        return PaintRegion("</script>");
    } else if (Occurs(name, "<style")) {
        return PaintRegion("</style>");
    } else if (Occurs(name, linkTags)) {
        surface_.CompareAndSet(colors_.links);
    } else if (Occurs(name, tableTags)) {
        surface_.CompareAndSet(colors_.tables);
    } else if (Occurs(name, frameTags)) {
        surface_.CompareAndSet(colors_.frames);
    } else if (!Occurs(name, "<%")) {
        surface_.SetSelColor(colors_.other);
    }
    return endPos;
}

int MarkupOracle::PaintRegion(const QString& closing) {
    surface_.CompareAndSet(colors_.other);
    const int bodyStart = surface_.selStart + surface_.selLength;
    int bodyEnd = surface_.Find(closing, bodyStart);
    surface_.selStart = bodyStart;
    surface_.selLength = 0;
    if (bodyEnd == -1) bodyEnd = static_cast<int>(surface_.text.size());
    surface_.selLength = bodyEnd - bodyStart;
    surface_.CompareAndSet(colors_.comments);
    return bodyEnd;
}

void MarkupOracle::ScanBlocks() {
    const QString& text = surface_.text;
    for (int pos = firstPos_; pos <= text.size();) {
        const int begin = Seek(text, "<%", pos);
        if (begin == 0 || Beyond(begin)) return;
        const int end = Seek(text, "%>", begin + 1);
        if (end == 0 || Beyond(end)) return;
        if (surface_.Find(text.mid(begin - 1, end - begin + 2), begin - 1) == -1) return;
        if (!colors_.off) surface_.SetSelColor(colors_.asp);
        if (colors_.aspBold) surface_.SetSelBold(true);
        pos = end + 1;
    }
}

}  // namespace vellum::test
