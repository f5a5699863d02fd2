#include "editor/place.h"

#include "surface/edit_surface.h"

#include <QStringList>

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <random>

namespace vellum {

void PrintTo(const PosInfo& place, std::ostream* out) {
    *out << "kind " << static_cast<int>(place.kind) << " from " << place.start << " to " << place.end;
}

namespace {

constexpr PosInfo plain{};
constexpr PosInfo Tag(int start, int end) {
    return {PlaceKind::Tag, start, end};
}
constexpr PosInfo Comment(int start) {
    return {PlaceKind::Comment, start};
}
constexpr PosInfo Region(int start) {
    return {PlaceKind::Region, start};
}
constexpr PosInfo Server(int start) {
    return {PlaceKind::Server, start};
}

// The text and the position of a caret that a "|" stands for.
struct Marked {
    explicit Marked(QString marked) : pos(static_cast<int>(marked.indexOf(u'|')) + 1), text(marked.remove(u'|')) {}
    int pos;
    QString text;
};

PosInfo InfoAt(const QString& marked) {
    const Marked place(marked);
    return GetPosInfo(place.text, place.pos);
}

QString Filler(int length) {
    return {length, u'x'};
}

TEST(GetPosInfo, IsPlainAtOffset0) {
    EXPECT_EQ(InfoAt("|"), plain);
    EXPECT_EQ(InfoAt("|<b>"), plain);
    EXPECT_EQ(InfoAt("|<%x%>"), plain);
}

TEST(GetPosInfo, ATagReachesFromAfterItsOpeningToBeforeItsClose) {
    EXPECT_EQ(InfoAt("ab|<b>c"), plain);
    EXPECT_EQ(InfoAt("ab<|b>c"), Tag(3, 5));
    EXPECT_EQ(InfoAt("ab<b|>c"), Tag(3, 5));
    EXPECT_EQ(InfoAt("ab<b>|c"), plain);
}

TEST(GetPosInfo, ATagWithoutACloseIsOpen) {
    EXPECT_EQ(InfoAt("<a href=\"x|"), Tag(1, 100000));
    EXPECT_EQ(InfoAt("<a href|=\"x and so on"), Tag(1, 100000));
}

TEST(GetPosInfo, TheCloseOfABlockInATagDoesNotCloseTheTag) {
    EXPECT_EQ(InfoAt("<img alt=\"<%=x%>\" src|=\"y\">"), Tag(1, 26));
    EXPECT_EQ(InfoAt("<img| alt=\"<%=x%>\" src=\"y\">"), Tag(1, 26));
    EXPECT_EQ(InfoAt("<img alt=\"<%=|x%>\" src=\"y\">"), Server(11));
}

TEST(GetPosInfo, ACommentReachesToItsEnd) {
    EXPECT_EQ(InfoAt("a<!--|b-->c"), Comment(2));
    EXPECT_EQ(InfoAt("a<!--b|-->c"), Comment(2));
    EXPECT_EQ(InfoAt("a<!--b-->|c"), plain);
    EXPECT_EQ(InfoAt("a<!-|-b-->c"), Comment(2)) << "the character after the caret counts";
    EXPECT_EQ(InfoAt("a<!|--b-->c"), Tag(2, 9));
}

TEST(GetPosInfo, AnUnclosedCommentReachesToTheEndOfTheText) {
    EXPECT_EQ(InfoAt("<!-- never closed|"), Comment(1));
    EXPECT_EQ(InfoAt("<!-- never closed <b>|"), Comment(1));
    EXPECT_EQ(InfoAt("<!-- one --> <!-- two|"), Comment(14));
}

TEST(GetPosInfo, AnUnclosedCommentEndsBeyondTheWindow) {
    const QString text = "<!--" + Filler(20000);
    EXPECT_EQ(GetPosInfo(text, 11900), Comment(1));
    EXPECT_EQ(GetPosInfo(text, 12000), Comment(1));
    EXPECT_EQ(GetPosInfo(text, 12001), plain);
    EXPECT_EQ(GetPosInfo("ab" + text, 12002), Comment(3));
    EXPECT_EQ(GetPosInfo("ab" + text, 12003), plain);
}

TEST(GetPosInfo, AnswersInPositionsOfTheWholeTextFromWithinAWindow) {
    EXPECT_EQ(GetPosInfo(Filler(30000) + "<p id>", 30003), Tag(30001, 30006));
    EXPECT_EQ(GetPosInfo(Filler(30000) + "<p id" + Filler(2000) + ">", 30003), Tag(30001, 118003))
        << "100000 from where the window begins, as the close is out of it";
    EXPECT_EQ(GetPosInfo(Filler(30000) + "<% x", 30005), Server(30001));
    EXPECT_EQ(GetPosInfo(Filler(30000) + "<!-- x", 30007), Comment(30001));
    EXPECT_EQ(GetPosInfo(Filler(30000) + "<script>x", 30010), Region(30008));
}

TEST(GetPosInfo, ARegionsBodyReachesFromItsOpeningTagToItsClosingOne) {
    EXPECT_EQ(InfoAt("<script |src='x'>a < b</script>"), Tag(1, 16));
    EXPECT_EQ(InfoAt("<script src='x'>|a < b</script>"), Region(16));
    EXPECT_EQ(InfoAt("<script src='x'>a < b|</script>"), Region(16));
    EXPECT_EQ(InfoAt("<script src='x'>a < b<|/script>"), Tag(22, 30));
    EXPECT_EQ(InfoAt("<STYLE>p|{}</Style>"), Region(7));
    EXPECT_EQ(InfoAt("<style>p{}</STYLE>|"), plain);
    EXPECT_EQ(InfoAt("<script>never closed <b>|"), Region(8));
}

TEST(GetPosInfo, ABlockInARegionsOpeningTagDoesNotCloseIt) {
    EXPECT_EQ(InfoAt("<script src=<%=x%>>|a</script>"), Region(19));
    EXPECT_EQ(InfoAt("<script src=<%=x%>|>a</script>"), Tag(1, 19));
}

TEST(GetPosInfo, ARegionBeatsTheCommentInIt) {
    EXPECT_EQ(InfoAt("<script><!-- x|"), Region(8));
    EXPECT_EQ(InfoAt("<!-- <script>x|"), Region(13));
}

TEST(GetPosInfo, ABlockBeatsEverything) {
    EXPECT_EQ(InfoAt("<!-- <%x|"), Server(6));
    EXPECT_EQ(InfoAt("<script><% x|"), Server(9));
    EXPECT_EQ(InfoAt("<a <% x|"), Server(4));
    EXPECT_EQ(InfoAt("<% a <b> <!-- |"), Server(1));
    EXPECT_EQ(InfoAt("<b><% x |%>"), Server(4));
    EXPECT_EQ(InfoAt("<b><% x %|>"), plain) << "after the \"%\" the block is over";
}

TEST(GetPosInfo, OpenersInABlockDoNotCount) {
    EXPECT_EQ(InfoAt("<p><% \"<!--\" %> x|"), plain);
    EXPECT_EQ(InfoAt("<p><% \"<script>\" %> x|"), plain);
    EXPECT_EQ(InfoAt("<!-- <% --> <!-- %> x|"), Comment(1)) << "neither the end nor the opener in it";
}

TEST(GetPosInfo, ATextThatBeginsWithABlockReadsAsATagAfterIt) {
    EXPECT_EQ(InfoAt("<%x%> a|"), Tag(1, 100000));
    EXPECT_EQ(InfoAt("<%x%> a| <b>"), Tag(1, 11));
    EXPECT_EQ(InfoAt(" <%x%> a|"), plain);
}

TEST(GetPosInfo, TakesAnyPosition) {
    for (const QString& text : {QString(), QString("<"), QString("<b>x"), QString("<%"), Filler(100)}) {
        for (const int pos : {std::numeric_limits<int>::min(), -1, 0, 1}) EXPECT_EQ(GetPosInfo(text, pos), plain);
        for (const int pos : {12001, 100000, std::numeric_limits<int>::max()}) {
            EXPECT_EQ(GetPosInfo(text, pos), plain) << text.toStdString() << " at " << pos;
        }
    }
    EXPECT_EQ(GetPosInfo(u"<b", 11999), Tag(1, 100000));
}

// The same answer once more, found by the plainest of searches in copies of the text.
class PlainAnswer {
public:
    PlainAnswer(QString text, int pos) : text_(std::move(text)), pos_(pos) {
        int offset = 0;
        if (pos_ > 12000) {
            offset = pos_ - 12000;
            text_ = text_.mid(offset, 14000);
            pos_ = 12000;
        }
        text_ += u' ';
        answer_ = Decide(offset);
    }

    [[nodiscard]] PosInfo Answer() const { return answer_; }

private:
    [[nodiscard]] QString At(int pos, int length) const { return pos < 1 ? QString() : text_.mid(pos - 1, length); }

    [[nodiscard]] int Back(const QString& what, int pos) const {
        const int length = static_cast<int>(what.size());
        for (int start = std::min(pos, static_cast<int>(text_.size())) - length + 1; start >= 1; --start) {
            if (At(start, length).toLower() == what) return start;
        }
        return 0;
    }

    [[nodiscard]] int Ahead(const QString& what, int pos) const {
        const int length = static_cast<int>(what.size());
        for (int start = std::max(pos, 1); start + length - 1 <= text_.size(); ++start) {
            if (At(start, length).toLower() == what) return start;
        }
        return 0;
    }

    [[nodiscard]] bool InBlock(int pos) const { return pos > aspStart_ && pos < aspEnd_; }
    [[nodiscard]] bool Passed(int pos) const { return At(pos - 1, 1) == "%" || InBlock(pos); }

    [[nodiscard]] int Opener(const QString& what) const {
        int found = Back(what, pos_);
        while (found != 0 && InBlock(found)) found = Back(what, found - 1);
        if (found == 0) return 0;
        int close = Ahead(">", found);
        while (close != 0 && Passed(close)) close = Ahead(">", close + 1);
        return close;
    }

    [[nodiscard]] int End(const QString& what, int from) const {
        int found = Ahead(what, from);
        while (found != 0 && InBlock(found)) found = Ahead(what, found + 1);
        return found == 0 ? 1000000 : found;
    }

    PosInfo Decide(int offset) {
        aspStart_ = Back("<%", pos_);
        if (aspStart_ == 0) {
            aspStart_ = 1000000;
        } else {
            aspEnd_ = Ahead("%>", aspStart_ + 2);
            if (aspEnd_ == 0) aspEnd_ = 1000000;
        }
        int comment = Back("<!--", pos_);
        while (comment != 0 && InBlock(comment)) comment = Back("<!--", comment - 1);
        const int script = Opener("<script");
        const int style = Opener("<style");
        const auto inside = [&](int from, int to) { return pos_ > from && pos_ <= to; };
        if (inside(aspStart_, aspEnd_)) return Server(offset + aspStart_);
        if (script != 0 && inside(script, End("</script", script))) return Region(offset + script);
        if (style != 0 && inside(style, End("</style", style))) return Region(offset + style);
        if (comment != 0 && inside(comment, End("-->", comment))) return Comment(offset + comment);
        if (pos_ < 2) return plain;
        int open = Back("<", pos_ - 1);
        while (open != 0 && (At(open + 1, 1) == "%" || InBlock(open))) {
            if (open == 1) break;
            open = Back("<", open - 1);
        }
        int close = -1;
        if (open >= 1) {
            close = Ahead(">", open);
            while (close != 0 && Passed(close)) close = Ahead(">", close + 1);
            if (close == 0) close = 100000;
        }
        if (inside(open, close)) return Tag(offset + open, offset + close);
        return plain;
    }

    QString text_;
    int pos_;
    int aspStart_ = 0;
    int aspEnd_ = -1;
    PosInfo answer_;
};

class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

    // So many pieces of markup, at places with up to `filler` other characters between.
    QString Markup(int pieces, int filler) {
        static const QStringList choices{"<",        ">",       "%",        "<%",       "%>",        "<!--",
                                         "-->",      "<script", "</script", "<SCRIPT>", "</Script>", "<style>",
                                         "</style>", "<STYLE ", "a",        " ",        "-",         "\"",
                                         "\r\n",     "<b>",     "</p>",     "<%x%>",    "<!-- x -->"};
        QString text;
        for (int piece = 0; piece < pieces; ++piece) {
            text += choices.at(Number(0, static_cast<int>(choices.size()) - 1));
            if (filler > 0 && Number(0, 3) == 0) text += QString(Number(0, filler), u'x');
        }
        return text;
    }

private:
    std::mt19937 random_;
};

TEST(GetPosInfo, AnswersAsThePlainestSearchDoes) {
    RandomText random(7);
    for (int round = 0; round < 4000; ++round) {
        const QString text = random.Markup(random.Number(0, 14), 2);
        for (int pos = -2; pos <= text.size() + 3; ++pos) {
            ASSERT_EQ(GetPosInfo(text, pos), PlainAnswer(text, pos).Answer()) << text.toStdString() << " at " << pos;
        }
    }
}

TEST(GetPosInfo, AnswersAsThePlainestSearchDoesInAWindow) {
    RandomText random(8);
    for (int round = 0; round < 60; ++round) {
        const QString text = random.Markup(random.Number(4, 60), 3000);
        for (int place = 0; place < 5; ++place) {
            const int pos = random.Number(11990, static_cast<int>(text.size()) + 12010);
            ASSERT_EQ(GetPosInfo(text, pos), PlainAnswer(text, pos).Answer()) << "round " << round << " at " << pos;
        }
    }
}

TEST(GetPosInfo, NeedsOnly2000CharactersAheadForKindAndStart) {
    RandomText random(9);
    int withoutEnd = 0;
    for (int round = 0; round < 20000; ++round) {
        const QString text = random.Markup(random.Number(1, 20), 1500);
        const int pos = random.Number(1, std::min(12000, static_cast<int>(text.size()) + 1));
        const PosInfo whole = GetPosInfo(text, pos);
        const PosInfo cut = GetPosInfo(QStringView(text).left(pos + 2000), pos);
        ASSERT_EQ(cut.kind, whole.kind) << text.toStdString() << " at " << pos;
        ASSERT_EQ(cut.start, whole.start) << text.toStdString() << " at " << pos;
        if (cut.end == whole.end) continue;
        ++withoutEnd;
        ASSERT_EQ(cut.end, 100000);
        ASSERT_GT(whole.end, pos + 2000);
    }
    EXPECT_GT(withoutEnd, 20) << "some tags must end beyond the cut";
}

TEST(PosInfoAtCaret, IsThePlaceOfTheCaret) {
    EditSurface surface;
    EXPECT_EQ(PosInfoAtCaret(surface), plain);
    surface.SetText("one\r\n<b>two\r\n</b>");
    surface.SetSelStart(7);
    EXPECT_EQ(PosInfoAtCaret(surface), Tag(6, 8));
    surface.SetSelStart(6);
    surface.SetSelLength(4);
    EXPECT_EQ(PosInfoAtCaret(surface), Tag(6, 8)) << "a selection stands for its start";
    surface.SetSelStart(surface.Length());
    EXPECT_EQ(PosInfoAtCaret(surface), plain);
}

TEST(PosInfoAtCaret, KnowsNoEndThatLiesFarAhead) {
    EditSurface surface;
    surface.SetText("<b" + Filler(1998) + ">");
    surface.SetSelStart(1);
    EXPECT_EQ(PosInfoAtCaret(surface).end, 2001);
    surface.SetText("<b" + Filler(2100) + ">");
    surface.SetSelStart(1);
    EXPECT_EQ(PosInfoAtCaret(surface), Tag(1, 100000));
}

TEST(PosInfoAtCaret, AgreesWithTheWholeText) {
    RandomText random(10);
    EditSurface surface;
    int beyond = 0;
    for (int round = 0; round < 150; ++round) {
        surface.SetText(random.Markup(random.Number(1, 60), 2500));
        const QString text = surface.Text();
        for (int place = 0; place < 20; ++place) {
            surface.SetSelStart(random.Number(0, surface.Length()));
            const int pos = surface.SelStart() + 1;
            const PosInfo whole = GetPosInfo(text, pos);
            const PosInfo found = PosInfoAtCaret(surface);
            if (pos > 12000) {
                ++beyond;
                ASSERT_EQ(found, whole) << "round " << round << " at " << pos;
                continue;
            }
            ASSERT_EQ(found.kind, whole.kind) << "round " << round << " at " << pos;
            ASSERT_EQ(found.start, whole.start) << "round " << round << " at " << pos;
            if (found.end != whole.end) {
                ASSERT_EQ(found.end, 100000);
                ASSERT_GT(whole.end, pos + 2000);
            }
        }
    }
    EXPECT_GT(beyond, 100);
}

}  // namespace
}  // namespace vellum
