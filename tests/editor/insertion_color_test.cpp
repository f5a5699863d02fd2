#include "editor/insertion_color.h"

#include "settings/settings_keys.h"
#include "tests/support/color_of.h"
#include "tests/support/test_workbench.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr ColorNumber plain = 0x111111;
constexpr ColorNumber tables = 8388736;
constexpr ColorNumber frames = 192;
constexpr ColorNumber links = 8388608;
constexpr ColorNumber comments = 8421504;
constexpr ColorNumber other = 32768;
constexpr ColorNumber server = 6776628;
constexpr ColorNumber odd = 0xABCDEF;  // a colour that no markup has

class InsertionColorTest : public testing::Test {
protected:
    InsertionColorTest() { bench.Store(keys::foreColor, QString::number(plain)); }

    // A text in one colour with the caret where "|" stands.
    void Show(QString marked, ColorNumber color, bool bold = false) {
        const auto caret = static_cast<int>(marked.indexOf(u'|'));
        surface.SetText(marked.remove(u'|'));
        surface.SetFormat({0, surface.Length()}, {color, bold});
        surface.SetSelStart(caret);
    }

    void Apply() { ApplyPlaceColor(bench.Options().Now(), surface, PosInfoAtCaret(surface)); }

    // What a character takes that is typed now.
    [[nodiscard]] CharFormat Next() const { return {surface.SelColor(), surface.SelBold().value_or(false)}; }

    // As if another rule had set it before.
    void SetNext(const CharFormat& format) {
        surface.SetSelColor(format.color.value_or(0));
        surface.SetSelBold(format.bold);
    }

    void DisableColors() { bench.Store(keys::colorOnOff, "1"); }

    test::TestWorkbench bench;
    EditSurface surface;
};

TEST_F(InsertionColorTest, PlainTextIsPlain) {
    Show("<b>|", other, true);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{plain, false}));
    Show("ab|", plain, true);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{plain, false}));
    DisableColors();
    Show("ab|", odd);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{plain, false}));
}

TEST_F(InsertionColorTest, ATagTakesTheColorOfItsOpening) {
    Show("a<b x|", odd);
    surface.SetFormat({1, 1}, {.color = links, .bold = {}});
    Apply();
    EXPECT_EQ(Next(), (CharFormat{links, false}));
    Show("a<b x|", odd);  // not one of the tags' colours, but the tag's own
    surface.SetFormat({1, 1}, {.color = 0x222222, .bold = {}});
    Apply();
    EXPECT_EQ(Next(), (CharFormat{0x222222, false}));
    surface.SetText("<b x");
    surface.SetForeColor(0x333333);
    surface.SetFormat({1, 3}, {odd, false});
    surface.SetSelStart(4);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{0x333333, false}));  // a "<" without a colour has the surface's own
}

TEST_F(InsertionColorTest, ATagKeepsTheFourTagColorsAndLosesBold) {
    for (const ColorNumber color : {tables, frames, links, other}) {
        Show("<b x|", color, true);
        surface.SetFormat({0, 1}, {.color = odd, .bold = {}});
        Apply();
        EXPECT_EQ(Next(), (CharFormat{color, false}));
    }
}

TEST_F(InsertionColorTest, CommentsAndRegionsTakeTheCommentColor) {
    for (const char* text : {"<!-- a|", "<script>a|", "<style>a|"}) {
        Show(text, odd, true);
        Apply();
        EXPECT_EQ(Next(), (CharFormat{comments, false})) << text;
    }
    DisableColors();
    Show("<!-- a|", odd, true);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{odd, false}));
}

TEST_F(InsertionColorTest, ServerSideBlocksTakeTheirColorAndBoldByTheSetting) {
    Show("<% a|", odd);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{server, true}));
    DisableColors();
    Show("<% a|", odd);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{odd, true}));
    bench.Store(keys::aspBold, "0");
    bench.Store(keys::colorOnOff, "0");
    Show("<% a|", odd);
    Apply();
    EXPECT_EQ(Next(), (CharFormat{server, false}));
}

TEST_F(InsertionColorTest, WhatIsRightAlreadyIsNotWritten) {
    // A format that was set wins over that of the character before; one that wasn't goes with it.
    const std::pair<const char*, CharFormat> places[] = {
        {"ab|", {plain, false}}, {"<b x|", {links, false}}, {"<!-- a|", {comments, false}}, {"<% a|", {server, true}}};
    for (const auto& [text, format] : places) {
        Show(text, *format.color, format.bold);
        Apply();
        surface.SetFormat({surface.SelStart() - 1, 1}, {odd, false});
        EXPECT_EQ(Next(), (CharFormat{odd, false})) << text;
    }
}

TEST_F(InsertionColorTest, ADashTurnsTheOpeningIntoAComment) {
    Show("a<!-|b", other);
    SetNext({odd, true});
    ColorBeforeDash(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(test::ColorOf(surface, {1, 3}), comments);
    EXPECT_EQ(test::ColorOf(surface, {0, 1}), other);
    EXPECT_EQ(test::ColorOf(surface, {4, 1}), other);
    EXPECT_EQ(Next(), (CharFormat{comments, false}));
    EXPECT_EQ(surface.SelStart(), 4);
    surface.SetSelText("-");
    EXPECT_EQ(surface.Text(), "a<!--b");
    EXPECT_EQ(test::ColorOf(surface, {1, 4}), comments);
}

TEST_F(InsertionColorTest, ADashDoesSoWithColorsDisabledAndAtTheStart) {
    DisableColors();
    Show("<!-|", plain);
    ColorBeforeDash(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(test::ColorOf(surface, {0, 3}), comments);
    EXPECT_EQ(Next(), (CharFormat{comments, false}));
}

TEST_F(InsertionColorTest, ADashElsewhereChangesNothing) {
    for (const char* text : {"!-|", "<-|", "<!|", "<! -|", "<script><!-|", "<% <!-|", "|<!-"}) {
        Show(text, odd);
        ColorBeforeDash(bench.Options().Now(), surface, PosInfoAtCaret(surface));
        EXPECT_EQ(test::ColorOf(surface, {0, surface.Length()}), odd) << text;
        EXPECT_NE(surface.SelColor(), comments) << text;
    }
}

TEST_F(InsertionColorTest, APercentSignTurnsTheOpeningIntoABlock) {
    Show("a<|b", other);
    SetNext({odd, false});
    ColorBeforePercent(bench.Options().Now(), surface);
    EXPECT_EQ(surface.FormatAt(1), (CharFormat{server, true}));
    EXPECT_EQ(surface.FormatAt(0), (CharFormat{other, false}));
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{other, false}));
    EXPECT_EQ(Next(), (CharFormat{server, true}));
    EXPECT_EQ(surface.SelStart(), 2);

    bench.Store(keys::aspBold, "0");
    Show("<|", other);
    ColorBeforePercent(bench.Options().Now(), surface);
    EXPECT_EQ(Next(), (CharFormat{server, false}));
    DisableColors();
    bench.Store(keys::aspBold, "1");
    Show("<|", other);
    ColorBeforePercent(bench.Options().Now(), surface);
    EXPECT_EQ(surface.FormatAt(0), (CharFormat{other, true}));
    EXPECT_EQ(Next(), (CharFormat{other, true}));
}

TEST_F(InsertionColorTest, APercentSignElsewhereChangesNothing) {
    for (const char* text : {"|<", "< |", "a|<"}) {
        Show(text, other);
        ColorBeforePercent(bench.Options().Now(), surface);
        EXPECT_EQ(test::ColorOf(surface, {0, 2}), other) << text;
        EXPECT_NE(surface.SelColor(), server) << text;
    }
}

TEST_F(InsertionColorTest, ASelectionIsDroppedWhereTheCaretGoesAfterTheOpening) {
    Show("<!-|abc", other);
    surface.SetSelLength(3);
    ColorBeforeDash(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(surface.SelLength(), 0);
    EXPECT_EQ(surface.SelStart(), 3);
    EXPECT_EQ(test::ColorOf(surface, {3, 3}), other);
}

TEST_F(InsertionColorTest, AnOpeningIsATagInPlainTextOnly) {
    Show("a|", plain, true);
    ColorForOpening(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(Next(), (CharFormat{other, false}));
    Show("<!-- |", comments);
    ColorForOpening(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(Next(), (CharFormat{comments, false}));
    DisableColors();
    Show("a|", plain, true);
    ColorForOpening(bench.Options().Now(), surface, PosInfoAtCaret(surface));
    EXPECT_EQ(Next(), (CharFormat{plain, false}));
}

}  // namespace
}  // namespace vellum
