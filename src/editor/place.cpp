#include "editor/place.h"

#include "surface/edit_surface.h"

#include <QVarLengthArray>

#include <algorithm>

namespace vellum {
namespace {

constexpr int windowBefore = 12000;
constexpr int windowLength = 14000;
constexpr int windowAfter = windowLength - windowBefore;
constexpr qsizetype farAway = 1'000'000;
constexpr qsizetype noTagEnd = 100'000;

// What lies between two positions, neither of them included.
struct Block {
    qsizetype start = farAway;
    qsizetype end = -1;

    [[nodiscard]] bool Holds(qsizetype pos) const { return pos > start && pos < end; }
    // The place test also takes in the end.
    [[nodiscard]] bool Reaches(qsizetype pos) const { return pos > start && pos <= end; }
};

// One look at a text. Positions count from 1, and 0 says that there is none.
class PlaceScan {
public:
    PlaceScan(QStringView text, qsizetype pos) : text_(text), pos_(pos) {
        for (qsizetype index = text.indexOf(u'<'); index >= 0 && index < pos; index = text.indexOf(u'<', index + 1)) {
            openings_.push_back(index);
        }
        server_.start = Last(u"<%", pos_);
        server_.end = server_.start > 0 ? OrFarAway(Next(u"%>", server_.start + 2)) : -1;
        if (server_.start == 0) server_.start = farAway;
    }

    [[nodiscard]] PosInfo Place() const {
        if (server_.Reaches(pos_)) return {PlaceKind::Server, static_cast<int>(server_.start)};
        for (const Block& body : {Region(u"<script", u"</script"), Region(u"<style", u"</style")}) {
            if (body.Reaches(pos_)) return {PlaceKind::Region, static_cast<int>(body.start)};
        }
        if (const Block comment = Comment(); comment.Reaches(pos_)) {
            return {PlaceKind::Comment, static_cast<int>(comment.start)};
        }
        if (pos_ < 2) return {};
        const Block tag = Tag();
        if (!tag.Reaches(pos_)) return {};
        return {PlaceKind::Tag, static_cast<int>(tag.start), static_cast<int>(tag.end)};
    }

private:
    static qsizetype OrFarAway(qsizetype pos) { return pos > 0 ? pos : farAway; }

    // The last occurrence that ends at or before `pos`. All that is searched this way begins with "<".
    [[nodiscard]] qsizetype Last(QStringView opener, qsizetype pos, Qt::CaseSensitivity cs = Qt::CaseSensitive) const {
        auto candidate = std::upper_bound(openings_.begin(), openings_.end(), pos - opener.size());
        while (candidate != openings_.begin()) {
            --candidate;
            if (text_.sliced(*candidate).startsWith(opener, cs)) return *candidate + 1;
        }
        return 0;
    }

    [[nodiscard]] qsizetype LastOutsideServer(QStringView opener, Qt::CaseSensitivity cs) const {
        qsizetype pos = Last(opener, pos_, cs);
        while (pos != 0 && server_.Holds(pos)) pos = Last(opener, pos - 1, cs);
        return pos;
    }

    [[nodiscard]] qsizetype Next(QStringView what, qsizetype pos, Qt::CaseSensitivity cs = Qt::CaseSensitive) const {
        return pos > text_.size() ? 0 : text_.indexOf(what, pos - 1, cs) + 1;
    }

    [[nodiscard]] qsizetype NextOutsideServer(QStringView what, qsizetype pos, Qt::CaseSensitivity cs) const {
        qsizetype found = Next(what, pos, cs);
        while (found != 0 && server_.Holds(found)) found = Next(what, found + 1, cs);
        return found;
    }

    // The next ">" that ends no server-side block.
    [[nodiscard]] qsizetype NextClose(qsizetype pos) const {
        qsizetype found = NextOutsideServer(u">", pos, Qt::CaseSensitive);
        while (found > 1 && text_[found - 2] == u'%') {
            found = NextOutsideServer(u">", found + 1, Qt::CaseSensitive);
        }
        return found;
    }

    [[nodiscard]] Block Comment() const {
        const qsizetype start = LastOutsideServer(u"<!--", Qt::CaseSensitive);
        if (start == 0) return {};
        return {start, OrFarAway(NextOutsideServer(u"-->", start, Qt::CaseSensitive))};
    }

    [[nodiscard]] Block Region(QStringView opener, QStringView closer) const {
        const qsizetype name = LastOutsideServer(opener, Qt::CaseInsensitive);
        const qsizetype start = name == 0 ? 0 : NextClose(name);
        if (start == 0) return {};
        return {start, OrFarAway(NextOutsideServer(closer, start, Qt::CaseInsensitive))};
    }

    [[nodiscard]] Block Tag() const {
        qsizetype start = Last(u"<", pos_ - 1);
        while (start > 0 && (server_.Holds(start) || OpensServer(start))) {
            if (start == 1) break;  // so a text that begins with a block reads as a tag after it
            start = Last(u"<", start - 1);
        }
        if (start < 1) return {};
        const qsizetype end = NextClose(start);
        return {start, end > 0 ? end : noTagEnd};
    }

    [[nodiscard]] bool OpensServer(qsizetype pos) const { return pos < text_.size() && text_[pos] == u'%'; }

    QStringView text_;
    qsizetype pos_;
    QVarLengthArray<qsizetype, 1024> openings_;  // of every "<" before `pos_`, from 0
    Block server_;
};

PosInfo Shifted(PosInfo place, int offset) {
    if (place.start > 0) place.start += offset;
    if (place.end > 0) place.end += offset;
    return place;
}

}  // namespace

PosInfo GetPosInfo(QStringView text, int pos) {
    if (pos <= windowBefore) return PlaceScan(text, pos).Place();
    const int offset = pos - windowBefore;
    return Shifted(PlaceScan(text.mid(offset, windowLength), windowBefore).Place(), offset);
}

// Near the start of the text the window ends 2000 characters after the caret too, where the scan of the whole text
// would look on. Kind and start stay the same: an opener counts only when it ends before the caret, so a cut further on
// hides none; and an end that the cut hides lies beyond the caret, where it makes no difference whether the construct
// ends there or not at all. A server-side block that doesn't hold the caret ends before it, so what counts as inside
// the block is the same too, and the longest closer that may begin before the caret, "</script", has room in the
// window. Only a tag's own end is told from what lies ahead.
PosInfo PosInfoAtCaret(const EditSurface& surface) {
    const int pos = surface.SelStart() + 1;
    const int offset = std::max(pos - windowBefore, 0);
    return Shifted(GetPosInfo(surface.Mid(offset, pos - offset + windowAfter), pos - offset), offset);
}

}  // namespace vellum
