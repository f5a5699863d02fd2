#include "editor/markup_scan.h"

#include "tests/editor/marked_text.h"
#include "tests/editor/markup_oracle.h"
#include "tests/editor/random_markup.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

namespace vellum {

void PrintTo(const FormatStep& step, std::ostream* out) {
    *out << step.range.offset << "+" << step.range.length
         << (step.change.color ? " color " + std::to_string(step.change.color->value()) : " no color")
         << (step.change.bold ? " bold" : "") << (step.ofOneColor ? " of one color" : "");
}

namespace {

constexpr const MarkupColors& colors = test::markColors;
constexpr ColorNumber comments = colors.comments;
constexpr ColorNumber other = colors.other;
constexpr ColorNumber asp = colors.asp;
constexpr CharFormat plain{.color = test::markForeColor, .bold = false};

FormatStep Colored(TextRange range, ColorNumber color, bool ofOneColor = false) {
    return {range, {.color = color, .bold = {}}, ofOneColor};
}

QString Letters(const test::ArraySurface& surface) {
    QString letters;
    for (std::size_t index = 0; index < surface.colors.size(); ++index) {
        letters += test::LetterOf(surface.colors[index], surface.bold[index]);
    }
    return letters;
}

// The scan of a range, as of text that was just inserted.
MarkupScan Scan(const QString& text, const MarkupColors& look, TextRange range) {
    const QString excerpt = text.mid(range.offset, range.length + 1);
    const auto find = [&text](QStringView closing, int offset) {
        return static_cast<int>(text.indexOf(closing, offset, Qt::CaseInsensitive));
    };
    const auto size = static_cast<int>(text.size());
    return ScanRange({.text = excerpt, .range = range, .endOfText = size, .find = find}, look);
}

MarkupScan Scan(const QString& text, const MarkupColors& look = colors) {
    return Scan(text, look, {0, static_cast<int>(text.size())});
}

QString PaintedInSteps(const QString& text, const MarkupColors& look = colors) {
    test::ArraySurface surface(text, test::markForeColor);
    for (const FormatStep& step : Scan(text, look).steps) surface.Apply(step);
    return Letters(surface);
}

QString PaintedAtOnce(const QString& text, const MarkupColors& look = colors) {
    test::ArraySurface surface(text, test::markForeColor);
    int end = 0;
    for (const auto& [range, format] : MarkupFormats(text, look, plain)) {
        EXPECT_GE(range.offset, end) << "runs ascend without overlaps";
        EXPECT_GT(range.length, 0);
        end = range.End();
        EXPECT_LE(end, text.size());
        if (end > text.size()) break;
        std::fill_n(surface.colors.begin() + range.offset, range.length, format.color.value_or(0));
        std::fill_n(surface.bold.begin() + range.offset, range.length, format.bold);
    }
    return Letters(surface);
}

// The same with a line feed alone for each CR LF.
test::MarkedText WithoutCr(const test::MarkedText& marked) {
    test::MarkedText result;
    for (qsizetype at = 0; at < marked.text.size(); ++at) {
        if (marked.text.at(at) == u'\r') continue;
        result.text += marked.text.at(at);
        result.letters += marked.letters.at(at);
    }
    return result;
}

// In steps and at once.
testing::AssertionResult PaintedAs(const QString& marked, const MarkupColors& look = colors) {
    const test::MarkedText expected = test::FromMarks(marked);
    const test::MarkedText single = WithoutCr(expected);
    const test::MarkedText inSteps{expected.text, PaintedInSteps(expected.text, look)};
    const test::MarkedText atOnce{single.text, PaintedAtOnce(single.text, look)};
    if (inSteps.letters == expected.letters && atOnce.letters == single.letters) return testing::AssertionSuccess();
    return testing::AssertionFailure() << qPrintable(test::ToMarks(inSteps)) << " in steps and "
                                       << qPrintable(test::ToMarks(atOnce)) << " at once aren't " << qPrintable(marked);
}

char ClassOf(const QString& tag) {
    const QString letters = PaintedInSteps(tag);
    EXPECT_EQ(letters, QString(tag.size(), letters.front())) << qPrintable(tag);
    const test::MarkedText single = WithoutCr({tag, letters});
    EXPECT_EQ(PaintedAtOnce(single.text), single.letters) << qPrintable(tag);
    return letters.front().toLatin1();
}

TEST(MarkupScan, ListedNamesArePlainTags) {
    for (const char* tag : {"<B>", "<I>", "<P>", "<H>", "<T>", "<TABL>", "<NOFRAME>", "<FRAM>", "<>", "</>", "<IFRAM>",
                            "<TFOO>", "</tbod>", "<s>", "</s>", "</z>", "< table>", "<\ttd>", "<b<c>"}) {
        EXPECT_EQ(ClassOf(tag), 'o') << tag;
    }
}

TEST(MarkupScan, UnknownNamesArePlainTagsToo) {
    for (const char* tag :
         {"<BODY>", "<BR>", "<HTML>", "<IMG src='x'>", "<HR>", "<APPLET>", "<AREA>", "<!DOCTYPE html>",
          "<?xml version='1.0'?>", "</script>", "</style>", "<scripts>", "<tables>"}) {
        EXPECT_EQ(ClassOf(tag), 'o') << tag;
    }
}

TEST(MarkupScan, Anchors) {
    for (const char* tag : {"<A href='x'>", "</a>", "<a>", "<a\tname='x'>", "<a\r\nname='x'>"}) {
        EXPECT_EQ(ClassOf(tag), 'l') << tag;
    }
    EXPECT_EQ(PaintedInSteps("<a\nx>"), "ooooo") << "a lone line feed is part of the name";
    EXPECT_EQ(PaintedAtOnce("<a\nx>"), "lllll") << "unless it stands for a whole line end";
    EXPECT_EQ(PaintedAtOnce("x\n<td\n>\n"), "..ttttt.");
}

TEST(MarkupScan, TableTags) {
    for (const char* tag :
         {"TABLE", "TD", "TR", "TH", "THEAD", "TFOOT", "TBODY", "COL", "COLGROUP", "td", "Th", "co"}) {
        EXPECT_EQ(ClassOf(QStringLiteral("<%1>").arg(tag)), 't') << tag;
        EXPECT_EQ(ClassOf(QStringLiteral("</%1>").arg(tag)), 't') << tag;
    }
    EXPECT_EQ(ClassOf("<table<td>"), 't');
    EXPECT_EQ(ClassOf("<td align='left'>"), 't');
}

TEST(MarkupScan, FrameTags) {
    for (const char* tag : {"FRAME", "FRAMESET", "IFRAME", "NOFRAMES", "frames"}) {
        EXPECT_EQ(ClassOf(QStringLiteral("<%1>").arg(tag)), 'f') << tag;
        EXPECT_EQ(ClassOf(QStringLiteral("</%1>").arg(tag)), 'f') << tag;
    }
    EXPECT_EQ(ClassOf("<frame/ src='x'>"), 'o');
}

TEST(MarkupScan, NamesBeyondTheListsAndBeyondLatinLetters) {
    EXPECT_EQ(ClassOf(QStringLiteral("<\u00E9>")), 'o');
    EXPECT_EQ(ClassOf(QStringLiteral("<t\u00E9>")), 'o');
    EXPECT_EQ(ClassOf("<thiselementhasalongname>"), 'o');
    EXPECT_EQ(ClassOf("<td<thiselementhasalongname>"), 'o');
    EXPECT_EQ(ClassOf("<colgroup<col>"), 't');
    EXPECT_EQ(ClassOf("<frameset<frame>"), 'f');
    // A letter that another case takes to a Latin one is that letter.
    EXPECT_EQ(ClassOf(QStringLiteral("<\u212A>")), 'o');  // the kelvin sign: K
    EXPECT_TRUE(PaintedAs(QStringLiteral("«o:<\u017Ftyle>»«c:x»")));
}

TEST(MarkupScan, Regions) {
    for (const char* name : {"sc", "SCR", "scri", "scrip", "Script", "SCRIPT src='x'"}) {
        EXPECT_TRUE(PaintedAs(QStringLiteral("«o:<%1>»«c:<b></style>»«o:</script>»z").arg(name)));
    }
    for (const char* name : {"st", "STY", "styl", "Style", "style type='text/css'"}) {
        EXPECT_TRUE(PaintedAs(QStringLiteral("«o:<%1>»«c:<b></script>»«o:</style>»z").arg(name)));
    }
    EXPECT_TRUE(PaintedAs("«o:<script></script>»"));
}

TEST(MarkupScan, ARegionClosesWithoutRegardToCase) {
    EXPECT_TRUE(PaintedAs("«o:<script>»«c:a»«o:</SCRIPT>»b"));
}

TEST(MarkupScan, AnUnclosedRegionRunsToTheEnd) {
    EXPECT_TRUE(PaintedAs("«o:<script>»«c:a<b>\r\n</style>»"));
    EXPECT_TRUE(PaintedAs("«o:<script>»"));
    EXPECT_TRUE(PaintedAs("«o:<script>»«c:a</script >»"));
    EXPECT_EQ(Scan("<script>a <").tagCount, 2);  // its last character is looked at
}

TEST(MarkupScan, AnOpenerBeforeTheClosingTagBelongsToIt) {
    EXPECT_TRUE(PaintedAs("«o:<script>»«c:a»«o:<</script>»b"));
    EXPECT_TRUE(PaintedAs("«o:<style><</style>»b"));
}

TEST(MarkupScan, AnUnterminatedTagEndsTheTagsOnly) {
    EXPECT_TRUE(PaintedAs("«o:<b>»<a href=\"x «a:<% y %>» z"));
    EXPECT_TRUE(PaintedAs("«a:<% y %>»«o:<b>»<a href=\"x z"));
    EXPECT_TRUE(PaintedAs("«o:<b>»<% y"));
}

TEST(MarkupScan, AnUnterminatedCommentEndsTheTags) {
    EXPECT_TRUE(PaintedAs("«o:<b>»<!-- x > <b>"));
    EXPECT_TRUE(PaintedAs("«c:<!-- x -->»«o:<b>»"));
    EXPECT_TRUE(PaintedAs("«c:<!-->»«o:<b>»"));
    EXPECT_TRUE(PaintedAs("«c:<!--->»«o:<b>»"));
    EXPECT_TRUE(PaintedAs("«o:<!-x-->»«o:<b>»"));
}

TEST(MarkupScan, ABlockDoesNotEndTheTagAroundIt) {
    EXPECT_TRUE(PaintedAs("«o:<img alt=\"»«a:<%=x%>»«o:\" src=\"y\">»z"));
    MarkupColors look = colors;
    look.aspBold = false;
    EXPECT_TRUE(PaintedAs("«o:<img alt=\"»«n:<%=x%>»«o:\" src=\"y\">»z", look));
    EXPECT_TRUE(PaintedAs("«t:<td x%>y>»z"));
}

TEST(MarkupScan, ATagThatHoldsACommentIsOne) {
    EXPECT_TRUE(PaintedAs("«c:<a href=\"<!--x-->»\">"));
    EXPECT_TRUE(PaintedAs("«c:<script <!-- x>»y"));
    EXPECT_TRUE(PaintedAs("«l:<a <b<!-x>»"));
}

TEST(MarkupScan, BlocksHaveTheirOwnColor) {
    EXPECT_TRUE(PaintedAs("a«a:<% x %>»b«a:<%=x%>»c«a:<%>»d«a:<%%>»"));
    EXPECT_TRUE(PaintedAs("«c:<!-- »«a:<% <b> %>»«c: -->»"));
    EXPECT_TRUE(PaintedAs("«o:<script>»«c:a»«a:<%b%>»«c:c»«o:</script>»"));
    EXPECT_TRUE(PaintedAs("«o:<b »«a:<% x><i>%>»«o:<u>»"));
    EXPECT_TRUE(PaintedAs("100 %> 5%"));
}

TEST(MarkupScan, ABlockOverSeveralTags) {
    EXPECT_TRUE(PaintedAs("«o:<b »«a:<%>»«o:<i>»«o:<u %> »«o:<u>»"));
    EXPECT_TRUE(PaintedAs("«o:<b x»«a:<%y><i><u>%>»z«o:<p>»"));
    EXPECT_TRUE(PaintedAs("«o:<b x»«a:<%y><i><u%>»«o:><p x»«a:<%z%>»«o:>»"));
}

TEST(MarkupScan, SwitchedOffItCountsAndMakesBlocksBold) {
    MarkupColors look = colors;
    look.off = true;
    const QString text = "<b>x</b><%=x%><!-- -->";
    EXPECT_TRUE(PaintedAs("<b>x</b>«b:<%=x%>»<!-- -->", look));
    const MarkupScan scan = Scan(text, look);
    EXPECT_EQ(scan.tagCount, 4);
    ASSERT_EQ(scan.steps.size(), 1U);
    EXPECT_EQ(scan.steps[0], (FormatStep{{8, 6}, {.color = {}, .bold = true}}));
    const std::vector<FormatRun> formats = MarkupFormats(text, look, plain);
    ASSERT_EQ(formats.size(), 1U);
    EXPECT_EQ(formats[0].format, (CharFormat{.color = 0, .bold = true}));
    look.aspBold = false;
    EXPECT_TRUE(Scan(text, look).steps.empty());
    EXPECT_TRUE(MarkupFormats(text, look, plain).empty());
    // A script's body is walked like any text then.
    EXPECT_EQ(Scan("<script>a<b>c</script>", look).tagCount, 3);
    EXPECT_EQ(Scan("<script>a<b>c</script>").tagCount, 2);
}

TEST(MarkupScan, StepsTellWhatTheyCompare) {
    const MarkupScan scan = Scan("<p><br><script>x</script><%=y%>");
    const std::vector<FormatStep> expected{
        Colored({0, 3}, other, true),
        Colored({3, 4}, other),
        Colored({7, 8}, other, true),
        Colored({15, 1}, comments, true),
        Colored({16, 9}, other),
        Colored({25, 6}, other),
        {{25, 6}, {.color = asp, .bold = true}},
    };
    EXPECT_EQ(scan.steps, expected);
}

TEST(MarkupScan, TellsWhereTheLastSelectionBegins) {
    const auto selected = [](const QString& text) { return Scan(text).selected; };
    EXPECT_EQ(selected("<b></b>"), 3);
    EXPECT_EQ(selected("<b>x</b"), 0);        // the second tag has no end
    EXPECT_EQ(selected("<%=x%><b>"), 0);      // blocks are selected last
    EXPECT_EQ(selected("<b><script>x"), 11);  // the body of the region
    EXPECT_EQ(selected("<script>x</script>"), 9);
    EXPECT_EQ(selected("x < y"), -1);
    EXPECT_EQ(selected(""), -1);
}

TEST(MarkupScan, ARangePaintsWhatEndsInIt) {
    const QString text = "<b><i>x</i></b>";
    const auto steps = [&](int start, int length) {
        QString found;
        const MarkupScan scan = Scan(text, colors, {start, length});
        for (const FormatStep& step : scan.steps) found += text.mid(step.range.offset, step.range.length) + ' ';
        return found + QString::number(scan.tagCount);
    };
    EXPECT_EQ(steps(3, 8), "<i> </i> 2");
    EXPECT_EQ(steps(3, 7), "<i> 2");  // counted, but its end is beyond
    EXPECT_EQ(steps(3, 4), "<i> 1");
    EXPECT_EQ(steps(4, 7), "</i> 1");
    EXPECT_EQ(steps(0, 15), "<b> <i> </i> </b> 4");
    EXPECT_EQ(steps(15, 3), "0");
}

TEST(MarkupScan, ARangeTakesABlockWhosePercentIsTheLastCharacter) {
    const QString text = "ab<%=x%>cd";
    EXPECT_EQ(Scan(text, colors, {2, 5}).steps, (std::vector<FormatStep>{{{2, 6}, {.color = asp, .bold = true}}}));
    EXPECT_TRUE(Scan(text, colors, {2, 4}).steps.empty());
}

TEST(MarkupScan, ARegionRunsBeyondItsRange) {
    const MarkupScan scan = Scan("<style>a<b>c</style><i>", colors, {0, 8});
    ASSERT_EQ(scan.steps.size(), 2U);
    EXPECT_EQ(scan.steps[1], Colored({7, 5}, comments, true));
    EXPECT_EQ(scan.tagCount, 1);
    EXPECT_EQ(scan.selected, 7);
}

// How a text is painted, and the last caret, by the slow steps and by the fast ones.
struct Outcome {
    QString letters;
    int tagCount = 0;
    int caret = 0;

    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << qPrintable(outcome.letters) << " tags " << outcome.tagCount << " caret " << outcome.caret;
}

constexpr int unmoved = -1;

Outcome SlowFull(const QString& text, const MarkupColors& look) {
    test::ArraySurface surface(text, test::markForeColor);
    test::MarkupOracle oracle(surface, look);
    oracle.FullPass(test::markForeColor);
    return {Letters(surface), oracle.TagCount(), 0};
}

test::ArraySurface Mottled(const QString& text, std::mt19937& random) {
    test::ArraySurface surface(text, test::markForeColor);
    ColorNumber color = 0;
    for (ColorNumber& each : surface.colors) {
        if (random() % 8 == 0) color = static_cast<ColorNumber>(random() % 3);
        each = color;
    }
    return surface;
}

MarkupColors RandomColors(std::mt19937& random) {
    MarkupColors look = colors;
    look.off = random() % 5 == 0;
    look.aspBold = random() % 2 == 0;
    if (random() % 4 == 0) look.comments = 0;  // the colour of plain text
    return look;
}

constexpr int randomTexts = 20000;

TEST(MarkupScanRandom, FullPassesAgreeWithTheStepsOneByOne) {
    std::mt19937 random(1);
    for (int round = 0; round < randomTexts; ++round) {
        const bool loose = round % 2 == 0;
        QString text = test::RandomMarkup(random, static_cast<int>(random() % 40), loose);
        const MarkupColors look = RandomColors(random);
        const Outcome slow = SlowFull(text, look);
        ASSERT_EQ(PaintedInSteps(text, look), slow.letters) << qPrintable(text);
        ASSERT_EQ(Scan(text, look).tagCount, slow.tagCount) << qPrintable(text);
        if (loose) continue;
        const test::MarkedText single = WithoutCr({text, slow.letters});
        ASSERT_EQ(PaintedAtOnce(single.text, look), single.letters) << qPrintable(text);
    }
}

TEST(MarkupScanRandom, RangePassesAgreeWithTheStepsOneByOne) {
    std::mt19937 random(2);
    for (int round = 0; round < randomTexts; ++round) {
        const QString text = test::RandomMarkup(random, static_cast<int>(random() % 40), round % 2 == 0);
        const auto size = static_cast<int>(text.size());
        const int start = static_cast<int>(random() % static_cast<unsigned>(size + 1));
        const int length = static_cast<int>(random() % static_cast<unsigned>(size - start + 2));
        const MarkupColors look = RandomColors(random);
        const test::ArraySurface before = Mottled(text, random);

        test::ArraySurface slow = before;
        slow.selStart = unmoved;
        test::MarkupOracle oracle(slow, look);
        oracle.RangePass(start, length);
        const Outcome expected{Letters(slow), oracle.TagCount(), slow.selStart};

        const MarkupScan scan = Scan(text, look, {start, length});
        test::ArraySurface surface = before;
        for (const FormatStep& step : scan.steps) {
            ASSERT_GE(step.range.offset, start);
            ASSERT_GT(step.range.length, 0);
            ASSERT_LE(step.range.End(), size);
            surface.Apply(step);
        }
        ASSERT_EQ((Outcome{Letters(surface), scan.tagCount, scan.selected}), expected)
            << qPrintable(text) << " range " << start << "+" << length;
    }
}

TEST(MarkupScan, NothingIsReadAfterAnUnterminatedText) {
    // Texts on the heap without anything after them: a sanitizer sees a step too far.
    for (const QString& text : {QStringLiteral("<"), QStringLiteral("<!-"), QStringLiteral("<%"), QStringLiteral("a<"),
                                QStringLiteral("<script>"), QStringLiteral("<script><"), QStringLiteral("<!--"),
                                QStringLiteral("<script></script"), QStringLiteral("%>"), QStringLiteral("<b%>")}) {
        const auto size = static_cast<std::size_t>(text.size());
        const auto copy = std::make_unique<char16_t[]>(size);
        std::copy_n(text.utf16(), size, copy.get());
        test::ArraySurface surface(text, test::markForeColor);
        test::MarkupOracle oracle(surface, colors);
        oracle.FullPass(test::markForeColor);
        const QStringView view(copy.get(), text.size());
        const int length = static_cast<int>(size);
        const auto none = [](QStringView /*closing*/, int /*offset*/) { return -1; };
        const MarkupScan scan =
            ScanRange({.text = view, .range = {0, length}, .endOfText = length, .find = none}, colors);
        EXPECT_EQ(scan.tagCount, oracle.TagCount()) << qPrintable(text);
        const auto painted = std::ranges::count_if(surface.colors, [](ColorNumber color) { return color != 0; });
        std::ptrdiff_t inRuns = 0;
        for (const FormatRun& run : MarkupFormats(view, colors, plain)) inRuns += run.range.length;
        EXPECT_EQ(inRuns, painted) << qPrintable(text);
    }
}

}  // namespace
}  // namespace vellum
