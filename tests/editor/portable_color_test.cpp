#include "settings/settings_keys.h"
#include "tests/support/color_of.h"
#include "tests/support/test_workbench.h"

#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr ColorNumber plain = 0x111111;
constexpr ColorNumber links = 8388608;
constexpr ColorNumber comments = 8421504;
constexpr ColorNumber server = 6776628;
constexpr ColorNumber odd = 0xABCDEF;

// Notes the range that is to be painted, and what the document looked like by then.
class NotingWorkbench : public test::TestWorkbench {
public:
    void Smartcolor() override {
        ++passes;
        spanStart = ColorSpanStart;
        spanLength = ColorSpanLength;
        textThen = active->Text1->Text();
    }

    int passes = 0;
    int spanStart = -1;
    int spanLength = -1;
    QString textThen;
};

class PortableColorTest : public testing::Test {
protected:
    PortableColorTest() {
        bench.Store(keys::foreColor, QString::number(plain));
        bench.active = &document;
    }

    // A text in one odd colour, with what stands between two "|" selected, or the caret where the only one stands.
    void Show(QString marked, bool bold = false) {
        const auto from = static_cast<int>(marked.indexOf(u'|'));
        const auto to = static_cast<int>(marked.lastIndexOf(u'|'));
        surface.SetText(marked.remove(u'|'));
        surface.SetFormat({0, surface.Length()}, {odd, bold});
        surface.SetSelStart(from);
        if (to > from) surface.SetSelLength(to - from - 1);
    }

    // Answers what the text was turned into.
    QString Insert(QString markup) {
        bench.PortableColor(markup);
        return markup;
    }

    NotingWorkbench bench;
    test::PlainDocument document{bench};
    EditSurface& surface = *document.Text1;
};

TEST_F(PortableColorTest, PlainTextIsGivenToTheScanAsASpan) {
    Show("one |two", true);
    Insert("<b></b>");
    EXPECT_EQ(surface.Text(), "one <b></b>two");
    EXPECT_EQ(bench.passes, 1);
    EXPECT_EQ(bench.spanStart, 4);
    EXPECT_EQ(bench.spanLength, 7);
    EXPECT_EQ(bench.textThen, "one <b></b>two");
    EXPECT_EQ(test::ColorOf(surface, {4, 7}), plain);
    EXPECT_FALSE(surface.FormatAt(4).bold);
    EXPECT_EQ(test::ColorOf(surface, {0, 4}), odd);
    EXPECT_EQ(test::ColorOf(surface, {11, 3}), odd);
}

TEST_F(PortableColorTest, TheSelectionIsReplaced) {
    Show("a |b\r\nc| d", true);
    Insert("<i>");
    EXPECT_EQ(surface.Text(), "a <i> d");
    EXPECT_EQ(bench.spanStart, 2);
    EXPECT_EQ(bench.spanLength, 3);
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{plain, false}));
}

TEST_F(PortableColorTest, MarksTheDocumentAndEndsTheTypingRun) {
    Show("a|");
    document.SetSaver(true);
    document.usingKeys = true;
    Insert("");
    EXPECT_FALSE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
}

TEST_F(PortableColorTest, ATagsTextTakesTheTagsColorUnscanned) {
    Show("<p |>");
    surface.SetFormat({0, 1}, {.color = links, .bold = {}});
    Insert("<b> id");
    EXPECT_EQ(surface.Text(), "<p <b> id>");
    EXPECT_EQ(test::ColorOf(surface, {3, 6}), links);
    EXPECT_EQ(bench.passes, 0);
    EXPECT_EQ(surface.SelStart(), 9);
}

TEST_F(PortableColorTest, ATagColorBeforeTheCaretIsKept) {
    Show("<p |>");
    surface.SetFormat({2, 1}, {.color = links, .bold = {}});
    Insert("id");
    EXPECT_EQ(test::ColorOf(surface, {3, 2}), links);
}

TEST_F(PortableColorTest, CommentsAndRegionsColorWhateverComes) {
    for (const char* text : {"<!-- |", "<script>|", "<STYLE>|"}) {
        Show(text);
        const int offset = surface.SelStart();
        Insert("<b>x</b>");
        EXPECT_EQ(test::ColorOf(surface, {offset, 8}), comments) << text;
        EXPECT_EQ(surface.SelStart(), offset + 8);
        EXPECT_EQ(bench.passes, 0);
    }
}

TEST_F(PortableColorTest, AServerSideBlockColorsWhateverComesAndLeavesTheWeight) {
    Show("<% |", true);
    Insert("<b>");
    EXPECT_EQ(surface.FormatAt(3), (CharFormat{server, true}));
    Show("<% |", false);
    Insert("<b>");
    EXPECT_EQ(surface.FormatAt(3), (CharFormat{server, false}));
    EXPECT_EQ(bench.passes, 0);
}

TEST_F(PortableColorTest, WithColorsDisabledOnlyPlainTextAndTagsTakeAColor) {
    bench.Store(keys::colorOnOff, "1");
    for (const char* text : {"<!-- |", "<script>|", "<% |"}) {
        Show(text);
        const int offset = surface.SelStart();
        Insert("x");
        EXPECT_EQ(test::ColorOf(surface, {offset, 1}), odd) << text;
    }
    Show("a|");
    Insert("x");
    EXPECT_EQ(test::ColorOf(surface, {1, 1}), plain);
}

TEST_F(PortableColorTest, EachLineTakesTheTabsOfTheCaretsLine) {
    Show("\tone\r\n\t\ttwo|");
    EXPECT_EQ(Insert("<p>\r\n\tx\r\n</p>"), "<p>\r\n\t\t\tx\r\n\t\t</p>");
    EXPECT_EQ(surface.Text(), "\tone\r\n\t\ttwo<p>\r\n\t\t\tx\r\n\t\t</p>");
    EXPECT_EQ(bench.spanStart, 11);
    EXPECT_EQ(bench.spanLength, 17);
}

TEST_F(PortableColorTest, OnlyTheTabsBeforeTheCaretCount) {
    Show("\t|\t\tx");
    Insert("a\r\nb");
    EXPECT_EQ(surface.Text(), "\ta\r\n\tb\t\tx");
    Show("\t \t|x");
    Insert("a\r\nb");
    EXPECT_EQ(surface.Text(), "\t \ta\r\n\tbx");
    Show("|\t\tx");
    Insert("a\r\nb");
    EXPECT_EQ(surface.Text(), "a\r\nb\t\tx");
    Show("y\r\n|\tx");
    Insert("a\r\nb");
    EXPECT_EQ(surface.Text(), "y\r\na\r\nb\tx");
    Show("\t\tx|y\r\nz|");  // a selection stands for its start
    Insert("a\r\nb");
    EXPECT_EQ(surface.Text(), "\t\txa\r\n\t\tb");
}

TEST_F(PortableColorTest, AutoTabOffLeavesTheLinesAlone) {
    bench.Store(keys::autoTab, "0");
    Show("\tx|");
    EXPECT_EQ(Insert("a\r\nb"), "a\r\nb");
    EXPECT_EQ(surface.Text(), "\txa\r\nb");
}

TEST_F(PortableColorTest, AnyLineEndBecomesTheSurfacesOwn) {
    for (const char* autoTab : {"0", "1"}) {
        bench.Store(keys::autoTab, autoTab);
        Show("|");
        EXPECT_EQ(Insert("a\nb\rc\r\nd\r\r\ne"), "a\r\nb\r\nc\r\nd\r\n\r\ne");
        EXPECT_EQ(surface.Text(), "a\r\nb\r\nc\r\nd\r\n\r\ne");
        EXPECT_EQ(bench.spanLength, surface.Length());
    }
    Show("\t|");
    Insert("a\nb");
    EXPECT_EQ(surface.Text(), "\ta\r\n\tb");
}

TEST_F(PortableColorTest, TheSurfaceGetsTheKeyboardUnlessTheScanGivesIt) {
    document.show();
    QWidget elsewhere(&document);
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    document.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&document));
    for (const char* text : {"<p |>", "<!-- |", "<% |"}) {
        Show(text);
        elsewhere.setFocus();
        ASSERT_FALSE(surface.hasFocus());
        Insert("x");
        EXPECT_TRUE(surface.hasFocus()) << text;
    }
}

TEST_F(PortableColorTest, WithoutADocumentNothingHappens) {
    bench.active = nullptr;
    EXPECT_EQ(Insert("a\nb"), "a\nb");
    bench.Addstuff("<b>", "</b>");
    EXPECT_EQ(bench.passes, 0);
}

TEST_F(PortableColorTest, AddstuffWrapsTheSelection) {
    Show("one |two| three");
    bench.Addstuff("<b>", "</b>");
    EXPECT_EQ(surface.Text(), "one <b>two</b> three");
    EXPECT_EQ(bench.spanStart, 4);
    EXPECT_EQ(bench.spanLength, 10);
    Show("one |two| three");
    bench.Addstuff("<br />", "");
    EXPECT_EQ(surface.Text(), "one <br /> three");
    Show("ab|");
    bench.Addstuff("<p>", "</p>");
    EXPECT_EQ(surface.Text(), "ab<p></p>");
}

}  // namespace
}  // namespace vellum
