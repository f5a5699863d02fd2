#include "editor/markup_scan.h"

#include "editor/tag_class.h"

#include <algorithm>
#include <utility>

namespace vellum {
namespace {

constexpr QStringView commentOpener = u"<!--";
constexpr QStringView commentCloser = u"-->";
constexpr int charactersPerTag = 32;  // on an ordinary page

bool StartsAt(QStringView text, qsizetype offset, QStringView what) {
    return text.sliced(offset).startsWith(what);
}

// The first match of a closing tag at or after an offset, without regard to case; -1 when there is none.
qsizetype FindClosing(QStringView text, QStringView closing, qsizetype offset) {
    for (auto found = text.indexOf(u'<', offset); found >= 0; found = text.indexOf(u'<', found + 1)) {
        if (text.sliced(found).startsWith(closing, Qt::CaseInsensitive)) return found;
    }
    return -1;
}

// The walk over a text. `Canvas` takes what is found in the order of painting:
//   Tag(offset, length, color, ofOneColor)   a range that takes a colour, unless it should be of one and isn't
//   Block(offset, length)                    a server-side block
// `Closing` answers where a region ends: (closing tag, offset) to an offset, or to -1.
template <typename Canvas, typename Closing>
class Walk {
public:
    // Nothing that reaches `limit` is painted. `end` is where the text ends, which may be far after `text`.
    struct Bounds {
        qsizetype limit;
        qsizetype end;
        bool lineFeedEnds;  // a line feed ends a tag's name, as a CR does
    };

    Walk(QStringView text, Bounds bounds, const MarkupColors& colors, Canvas& canvas, const Closing& closing)
        : text_(text), bounds_(bounds), colors_(colors), canvas_(canvas), closing_(closing) {}

    void Tags() {
        nextOpener_ = -1;
        for (qsizetype from = 0; true;) {
            const qsizetype begin = Opener(from);
            if (begin < 0 || begin >= bounds_.limit) return;
            ++tagCount_;
            const qsizetype last = LastOf(begin);
            if (last < 0 || last >= bounds_.limit) return;
            selected_ = begin;
            from = colors_.off ? last : Paint(begin, last);
        }
    }

    void Blocks() {
        for (qsizetype from = 0; from < text_.size();) {
            const qsizetype begin = BlockOpener(from);
            if (begin < 0 || begin >= bounds_.limit) return;
            const qsizetype closer = BlockCloser(begin + 1);
            if (closer < 0 || closer >= bounds_.limit) return;
            selected_ = begin;
            canvas_.Block(begin, closer + 2 - begin);
            from = closer + 1;
        }
    }

    [[nodiscard]] int TagCount() const { return tagCount_; }
    [[nodiscard]] qsizetype Selected() const { return selected_; }

private:
    // The first "<" at or after an offset. Remembered, since the search for a tag's inner ones runs ahead.
    qsizetype Opener(qsizetype from) {
        if (nextOpener_ < from && !noMoreOpeners_) {
            nextOpener_ = text_.indexOf(u'<', from);
            noMoreOpeners_ = nextOpener_ < 0;
        }
        return noMoreOpeners_ ? -1 : nextOpener_;
    }

    // The ">" that ends what begins with the "<" at an offset; -1 when nothing does.
    [[nodiscard]] qsizetype LastOf(qsizetype begin) const {
        const char16_t second = begin + 1 < text_.size() ? text_.utf16()[begin + 1] : u'\0';
        if (second == u'%') {
            const qsizetype closer = BlockCloser(begin + 1);
            return closer < 0 ? -1 : closer + 1;
        }
        if (second == u'!' && StartsAt(text_, begin, commentOpener)) {
            const qsizetype closer = CommentCloser(begin + 1);
            return closer < 0 ? -1 : closer + commentCloser.size() - 1;
        }
        qsizetype closer = text_.indexOf(u'>', begin + 1);
        while (closer >= 0 && text_.utf16()[closer - 1] == u'%') closer = text_.indexOf(u'>', closer + 1);
        return closer;
    }

    [[nodiscard]] qsizetype CommentCloser(qsizetype from) const {
        qsizetype found = text_.indexOf(u'>', from + 2);
        while (found >= 0 && !StartsAt(text_, found - 2, commentCloser)) found = text_.indexOf(u'>', found + 1);
        return found < 0 ? -1 : found - 2;
    }

    [[nodiscard]] qsizetype BlockOpener(qsizetype from) const {
        qsizetype found = text_.indexOf(u'%', from + 1);
        while (found >= 0 && text_.utf16()[found - 1] != u'<') found = text_.indexOf(u'%', found + 1);
        return found < 0 ? -1 : found - 1;
    }

    [[nodiscard]] qsizetype BlockCloser(qsizetype from) const {
        qsizetype found = text_.indexOf(u'>', from + 1);
        while (found >= 0 && text_.utf16()[found - 1] != u'%') found = text_.indexOf(u'>', found + 1);
        return found < 0 ? -1 : found - 1;
    }

    // Paints one tag and answers where the search for the next one starts.
    qsizetype Paint(qsizetype begin, qsizetype last) {
        const QStringView tag = text_.sliced(begin, last + 1 - begin);
        if (HoldsComment(begin, last)) {
            canvas_.Tag(begin, tag.size(), colors_.comments, true);
            return last;
        }
        switch (classes_.ClassOf(tag, bounds_.lineFeedEnds)) {
            case TagClass::Plain:
                canvas_.Tag(begin, tag.size(), colors_.other, true);
                break;
            case TagClass::Script:
                return PaintRegion(begin, last, u"</script>");
            case TagClass::Style:
                return PaintRegion(begin, last, u"</style>");
            case TagClass::Link:
                canvas_.Tag(begin, tag.size(), colors_.links, true);
                break;
            case TagClass::Table:
                canvas_.Tag(begin, tag.size(), colors_.tables, true);
                break;
            case TagClass::Frame:
                canvas_.Tag(begin, tag.size(), colors_.frames, true);
                break;
            case TagClass::Server:
                break;
            case TagClass::Unlisted:
                canvas_.Tag(begin, tag.size(), colors_.other, false);
                break;
        }
        return last;
    }

    bool HoldsComment(qsizetype begin, qsizetype last) {
        if (text_.utf16()[begin + 1] == u'!' && StartsAt(text_, begin, commentOpener)) return true;
        const qsizetype inner = Opener(begin + 1);
        return inner >= 0 && inner < last && text_.sliced(inner, last - inner).contains(commentOpener);
    }

    // The next search starts just before the closing tag, so that a "<" there begins a tag of its own.
    qsizetype PaintRegion(qsizetype begin, qsizetype last, QStringView closing) {
        canvas_.Tag(begin, last + 1 - begin, colors_.other, true);
        const qsizetype body = last + 1;
        const qsizetype found = closing_(closing, body);
        const qsizetype bodyEnd = found < 0 ? bounds_.end : found;
        if (bodyEnd > body) canvas_.Tag(body, bodyEnd - body, colors_.comments, true);
        selected_ = body;
        return bodyEnd - 1;
    }

    QStringView text_;
    Bounds bounds_;
    const MarkupColors& colors_;
    Canvas& canvas_;
    const Closing& closing_;
    TagClasses classes_;
    qsizetype nextOpener_ = -1;
    bool noMoreOpeners_ = false;
    int tagCount_ = 0;
    qsizetype selected_ = -1;
};

// Keeps every step, its offset moved by where the text stands.
class StepCanvas {
public:
    StepCanvas(const MarkupColors& colors, int shift) : colors_(colors), shift_(shift) {}

    void Tag(qsizetype offset, qsizetype length, ColorNumber color, bool ofOneColor) {
        Add(offset, length, {.color = color, .bold = {}}, ofOneColor);
    }

    void Block(qsizetype offset, qsizetype length) {
        if (colors_.off && !colors_.aspBold) return;
        FormatChange change;
        if (!colors_.off) change.color = colors_.asp;
        if (colors_.aspBold) change.bold = true;
        Add(offset, length, change, false);
    }

    std::vector<FormatStep> Taken() { return std::move(steps_); }

private:
    void Add(qsizetype offset, qsizetype length, const FormatChange& change, bool ofOneColor) {
        steps_.push_back({{static_cast<int>(offset) + shift_, static_cast<int>(length)}, change, ofOneColor});
    }

    const MarkupColors& colors_;
    int shift_;
    std::vector<FormatStep> steps_;
};

// Keeps what shows in the end. It needn't ask whether the range of a step has one colour: in a text of one colour a
// construct lies in plain text, and the one that may begin within another, the "<" before a region's closing tag, is
// painted in any case.
class FormatCanvas {
public:
    FormatCanvas(const MarkupColors& colors, const CharFormat& rest, qsizetype textLength)
        : block_{.color = colors.off ? rest.color : std::optional(colors.asp), .bold = colors.aspBold} {
        if (!colors.off) tags_.reserve(static_cast<std::size_t>(textLength / charactersPerTag));
    }

    void Tag(qsizetype offset, qsizetype length, ColorNumber color, bool /*ofOneColor*/) {
        const int begin = static_cast<int>(offset);
        if (!tags_.empty() && tags_.back().range.End() > begin) {
            tags_.back().range.length = begin - tags_.back().range.offset;
            if (tags_.back().range.length == 0) tags_.pop_back();
        }
        tags_.push_back({{begin, static_cast<int>(length)}, {.color = color, .bold = false}});
    }

    void Block(qsizetype offset, qsizetype length) {
        blocks_.push_back({{static_cast<int>(offset), static_cast<int>(length)}, block_});
    }

    std::vector<FormatRun> Taken() {
        if (blocks_.empty()) return std::move(tags_);
        std::vector<FormatRun> all;
        all.reserve(tags_.size() + 2 * blocks_.size());
        auto block = blocks_.cbegin();
        int covered = 0;  // the end of the last block
        for (const FormatRun& tag : tags_) {
            const int end = tag.range.End();
            int begin = std::max(tag.range.offset, covered);
            for (; block != blocks_.cend() && block->range.offset < end; ++block) {
                if (begin < block->range.offset) all.push_back({{begin, block->range.offset - begin}, tag.format});
                all.push_back(*block);
                covered = block->range.End();
                begin = std::max(begin, covered);
            }
            if (begin < end) all.push_back({{begin, end - begin}, tag.format});
        }
        all.insert(all.end(), block, blocks_.cend());
        return all;
    }

private:
    CharFormat block_;
    std::vector<FormatRun> tags_;
    std::vector<FormatRun> blocks_;
};

}  // namespace

MarkupScan ScanRange(const TextExcerpt& excerpt, const MarkupColors& colors) {
    const QStringView text = excerpt.text;
    const int start = excerpt.range.offset;
    StepCanvas canvas(colors, start);
    const auto closing = [&](QStringView tag, qsizetype from) -> qsizetype {
        const qsizetype near = FindClosing(text, tag, from);
        if (near >= 0) return near;
        // Only a match that reaches beyond the excerpt is left.
        const qsizetype reach = std::max(from, text.size() + 1 - tag.size());
        const int far = excerpt.find(tag, start + static_cast<int>(reach));
        return far < 0 ? -1 : far - start;
    };
    Walk walk(text, {.limit = excerpt.range.length, .end = excerpt.endOfText - start, .lineFeedEnds = false}, colors,
              canvas, closing);
    walk.Tags();
    walk.Blocks();
    const int selected = walk.Selected() < 0 ? -1 : static_cast<int>(walk.Selected()) + start;
    return {canvas.Taken(), walk.TagCount(), selected};
}

std::vector<FormatRun> MarkupFormats(QStringView text, const MarkupColors& colors, const CharFormat& rest) {
    if (colors.off && !colors.aspBold) return {};
    FormatCanvas canvas(colors, rest, text.size());
    const auto closing = [text](QStringView tag, qsizetype from) { return FindClosing(text, tag, from); };
    Walk walk(text, {.limit = text.size(), .end = text.size(), .lineFeedEnds = true}, colors, canvas, closing);
    if (!colors.off) walk.Tags();
    walk.Blocks();
    return canvas.Taken();
}

}  // namespace vellum
