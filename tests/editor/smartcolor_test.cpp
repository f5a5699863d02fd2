#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "tests/editor/marked_text.h"
#include "tests/editor/markup_oracle.h"
#include "tests/editor/random_markup.h"
#include "tests/support/color_of.h"
#include "tests/support/test_workbench.h"
#include "widgets/wait_pointer.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vellum {
namespace {

// Notes what the fourth panel shows, and whether the wait pointer is on at that time.
class NotingWorkbench : public test::TestWorkbench {
public:
    void ShowStatus(StatusPanel panel, const QString& text) override {
        TestWorkbench::ShowStatus(panel, text);
        shown << QStringLiteral("%1:%2%3").arg(QString::number(static_cast<int>(panel)), text,
                                               Waiting() ? " (waiting)" : "");
    }
    static bool Waiting() { return QGuiApplication::overrideCursor() != nullptr; }

    QStringList shown;
};

class SmartcolorTest : public testing::Test {
protected:
    SmartcolorTest() {
        workbench.active = &document;
        for (const auto& [key, color] : {std::pair{&keys::tablesColor, test::markColors.tables},
                                         {&keys::framesColor, test::markColors.frames},
                                         {&keys::linksColor, test::markColors.links},
                                         {&keys::commentsColor, test::markColors.comments},
                                         {&keys::otherColor, test::markColors.other},
                                         {&keys::aspColor, test::markColors.asp}}) {
            workbench.Store(*key, QString::number(color));
        }
        document.SetCaption("/home/author/page.htm");
    }

    // What the surface shows, in marks.
    [[nodiscard]] std::string Marks() const {
        test::MarkedText shown{surface.Text(), {}};
        for (int offset = 0; offset < shown.text.size(); ++offset) {
            const CharFormat format = surface.FormatAt(offset);
            shown.letters += test::LetterOf(format.color.value_or(surface.ForeColor()), format.bold);
        }
        return test::ToMarks(shown).toStdString();
    }

    // Puts text at the caret as the tools do, and colours it.
    void Insert(const QString& text) {
        workbench.ColorSpanStart = surface.SelStart();
        workbench.ColorSpanLength = static_cast<int>(text.size());
        surface.SetSelColor(test::markForeColor);
        surface.SetSelBold(false);
        surface.SetSelText(text);
        workbench.Smartcolor();
    }

    void ColorSpan(int start, int length) {
        workbench.ColorSpanStart = start;
        workbench.ColorSpanLength = length;
        workbench.Smartcolor();
    }

    void Store(const SettingKey& key, const QString& value) { workbench.Store(key, value); }

    NotingWorkbench workbench;
    test::PlainDocument document{workbench};
    EditSurface& surface = *document.Text1;
};

TEST_F(SmartcolorTest, PaintsTheWholeText) {
    surface.SetText("<p>text\r\n<td>\r\n<!-- x\r\ny --> <%=z%>");
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "«o:<p>»text\n«t:<td>»\n«c:<!-- x\ny -->» «a:<%=z%>»");
}

TEST_F(SmartcolorTest, WithoutADocumentNothingHappens) {
    workbench.active = nullptr;
    workbench.ColorSpanLength = 3;
    workbench.Smartcolor();
    EXPECT_EQ(workbench.ColorSpanLength, 3);
    EXPECT_TRUE(workbench.shown.isEmpty());
}

TEST_F(SmartcolorTest, AFullPassResetsColorsAndWeights) {
    surface.SetText("one <b>two</b> three");
    surface.SetFormat({0, 20}, {.color = 0xFF00FF, .bold = true});
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "one «o:<b>»two«o:</b>» three");
    surface.SetText("one two");
    surface.SetFormat({0, 3}, {.color = 0xFF00FF, .bold = true});
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "one two");
}

TEST_F(SmartcolorTest, TakesThePlainColorAndTheBackgroundFromTheSettings) {
    Store(keys::foreColor, "255");
    Store(keys::backColor, "8421376");
    surface.SetText("a<b>");
    workbench.Smartcolor();
    EXPECT_EQ(surface.BackColor(), 8421376U);
    EXPECT_EQ(surface.ForeColor(), 255U);
    EXPECT_EQ(test::ColorOf(surface, {0, 1}), 255U);
    Store(keys::foreColor, "254");
    surface.SetText("no markup");
    workbench.Smartcolor();
    EXPECT_EQ(test::ColorOf(surface, {0, 9}), 254U);
}

TEST_F(SmartcolorTest, TheNextCharacterTakesTheNewColorsToo) {
    surface.SetText("notes");
    surface.SetSelStart(3);
    surface.SetSelColor(0x112233);
    Store(keys::foreColor, "255");
    workbench.Smartcolor();
    EXPECT_EQ(surface.SelColor(), 255U);
}

TEST_F(SmartcolorTest, ARangePassTakesTheBackgroundAndLeavesThePlainColor) {
    surface.SetText("x<b>");
    workbench.Smartcolor();
    Store(keys::foreColor, "255");
    Store(keys::backColor, "8421376");
    ColorSpan(1, 3);
    EXPECT_EQ(surface.BackColor(), 8421376U);
    EXPECT_EQ(Marks(), "x«o:<b>»");
}

TEST_F(SmartcolorTest, ChangesColorsOnly) {
    const QString text = "<p>\r\n\ttext & <%=x%> \u2029<b>\r\n";
    surface.SetText(text);
    document.SetSaver(true);
    QSignalSpy changed(&surface, &EditSurface::Changed);
    workbench.Smartcolor();
    ColorSpan(0, 5);
    EXPECT_EQ(surface.Text(), text);
    EXPECT_TRUE(document.Saver());
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(SmartcolorTest, AFullPassTellsOfItselfBehindTheWaitPointer) {
    surface.SetText("<p>");
    workbench.Smartcolor();
    EXPECT_EQ(workbench.shown, (QStringList{"4:Color Coding", "4: (waiting)"}));
    EXPECT_FALSE(NotingWorkbench::Waiting());
}

TEST_F(SmartcolorTest, WithoutMarkupTheWaitPointerStaysAsItIs) {
    surface.SetText("plain");
    workbench.Smartcolor();
    EXPECT_EQ(workbench.shown, (QStringList{"4:Color Coding", "4:"}));
    workbench.shown.clear();
    ColorSpan(0, 2);
    EXPECT_EQ(workbench.shown, QStringList{"4:"});
    const WaitPointer caller;
    workbench.Smartcolor();
    EXPECT_TRUE(NotingWorkbench::Waiting());
}

TEST_F(SmartcolorTest, ARangePassSaysNothingAndTakesTheWaitPointerOff) {
    surface.SetText("<p>");
    ColorSpan(0, 3);
    EXPECT_TRUE(workbench.shown.isEmpty());
    EXPECT_FALSE(NotingWorkbench::Waiting());
}

TEST_F(SmartcolorTest, ThePassClearsTheRange) {
    surface.SetText("a <p> b");
    ColorSpan(2, 3);
    EXPECT_EQ(workbench.ColorSpanStart, 0);
    EXPECT_EQ(workbench.ColorSpanLength, 0);
    workbench.ColorSpanStart = 4;
    workbench.Smartcolor();
    EXPECT_EQ(workbench.ColorSpanStart, 0);
}

TEST_F(SmartcolorTest, WithoutMarkupTheRangeStaysSet) {
    surface.SetText("one two");
    surface.SetSelStart(5);
    ColorSpan(2, 3);
    EXPECT_EQ(workbench.ColorSpanStart, 2);
    EXPECT_EQ(workbench.ColorSpanLength, 3);
    EXPECT_EQ(surface.SelStart(), 5);
}

TEST_F(SmartcolorTest, MarkupOutsideTheRangeMakesItACompletePass) {
    surface.SetText("one two <b>");
    ColorSpan(2, 3);
    EXPECT_EQ(workbench.ColorSpanLength, 0);
    EXPECT_EQ(surface.SelStart(), 5);
    EXPECT_EQ(Marks(), "one two <b>");
}

TEST_F(SmartcolorTest, AFullPassKeepsTheCaretAndDropsTheSelection) {
    for (const char* text : {"one <b>two</b> three", "one two three, no markup"}) {
        surface.SetText(text);
        surface.SetSelStart(5);
        surface.SetSelLength(4);
        workbench.Smartcolor();
        EXPECT_EQ(surface.SelStart(), 5) << text;
        EXPECT_EQ(surface.SelLength(), 0) << text;
        EXPECT_EQ(surface.textCursor().position(), 5) << text;
    }
}

TEST_F(SmartcolorTest, TheViewStaysWhereItIs) {
    document.resize(200, 200);
    surface.resize(200, 200);
    document.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&document));
    surface.SetText("<b>\r\n" + QString("line\r\n").repeated(500));
    surface.verticalScrollBar()->setValue(100);
    workbench.Smartcolor();
    EXPECT_EQ(surface.verticalScrollBar()->value(), 100);
    surface.SetSelStart(0);
    QTextCursor backwards = surface.textCursor();  // selected from its end, so that the caret needn't move
    backwards.setPosition(2);
    backwards.setPosition(0, QTextCursor::KeepAnchor);
    surface.setTextCursor(backwards);
    surface.verticalScrollBar()->setValue(100);
    workbench.Smartcolor();
    EXPECT_EQ(surface.SelLength(), 0);
    EXPECT_EQ(surface.verticalScrollBar()->value(), 100);
}

TEST_F(SmartcolorTest, GivesTheSurfaceTheFocus) {
    document.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&document));
    QWidget other(&document);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    other.setFocus();
    surface.SetText("no markup");
    workbench.Smartcolor();
    EXPECT_FALSE(surface.hasFocus());  // this pass ends early
    surface.SetText("<b>");
    workbench.Smartcolor();
    EXPECT_TRUE(surface.hasFocus());
    other.setFocus();
    surface.setFocusPolicy(Qt::NoFocus);
    surface.setEnabled(false);
    workbench.Smartcolor();  // a surface that can't take it is no failure
    EXPECT_FALSE(surface.hasFocus());
}

TEST_F(SmartcolorTest, ScriptDocumentsAreNeverColored) {
    for (const char* caption : {"/x/a.js", "/x/NOTES.TXT", "/x/a.css", "/x/a.Vbs"}) {
        document.SetCaption(caption);
        surface.SetText("<b>x</b> <%=y%>");
        surface.SetFormat({0, 3}, {.color = 0xFF00FF, .bold = true});
        workbench.shown.clear();
        workbench.Smartcolor();
        EXPECT_EQ(Marks(), "<b>x</b> <%=y%>") << caption;
        EXPECT_EQ(workbench.shown, (QStringList{"4:Color Coding", "4: (waiting)"}));
        ColorSpan(0, 4);
        EXPECT_EQ(Marks(), "<b>x</b> <%=y%>") << caption;
        EXPECT_EQ(surface.SelStart(), 4);
        EXPECT_EQ(workbench.ColorSpanLength, 0);
        // Nothing is counted, so a pair doesn't have the caret between its tags.
        ColorSpan(0, 8);
        EXPECT_EQ(surface.SelStart(), 8);
    }
}

TEST_F(SmartcolorTest, ColorsSwitchedOff) {
    for (const char* off : {"1", "True"}) {
        Store(keys::colorOnOff, off);
        surface.SetText("<p>x <%=y%></p>");
        workbench.Smartcolor();
        EXPECT_EQ(Marks(), "<p>x «b:<%=y%>»</p>") << off;
    }
    surface.SetText("");
    Insert("<b></b>");
    EXPECT_EQ(Marks(), "<b></b>");
    EXPECT_EQ(surface.SelStart(), 3);
    Store(keys::aspBold, "0");
    surface.SetText("<p>x <%=y%></p>");
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "<p>x <%=y%></p>");
    Store(keys::colorOnOff, "0");
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "«o:<p>»x «n:<%=y%>»«o:</p>»");
}

TEST_F(SmartcolorTest, ThePairThatWasInsertedHasTheCaretInside) {
    surface.SetText("one\r\n<hr>two");
    surface.SetSelStart(9);
    Insert("<b></b>");
    EXPECT_EQ(surface.SelStart(), 12);
    EXPECT_EQ(surface.SelLength(), 0);
    EXPECT_EQ(Marks(), "one\n<hr>«o:<b></b>»two");
    surface.SetText("");
    Insert("<td>one</td>");
    EXPECT_EQ(surface.SelStart(), 7);  // the start of the second tag, whatever stands between
}

TEST_F(SmartcolorTest, AnyOtherNumberOfTagsHasTheCaretAfterThem) {
    for (const char* text : {"<br />", "<b><i></i>", "<b></b><i></i>", "text", "<b", "<!-- <b> </b> -->"}) {
        surface.SetText("<p>");
        surface.SetSelStart(3);
        Insert(text);
        EXPECT_EQ(surface.SelStart(), 3 + static_cast<int>(strlen(text))) << text;
    }
}

TEST_F(SmartcolorTest, TwoTagsLeaveTheCaretAtTheLastSelection) {
    const auto caretAfter = [&](const QString& text) {
        surface.SetText("ab<hr>");
        surface.SetSelStart(2);
        Insert(text);
        return surface.SelStart() - 2;
    };
    EXPECT_EQ(caretAfter("<script></script>"), 8);
    EXPECT_EQ(caretAfter("<b><script>"), 11);  // the body of the region
    EXPECT_EQ(caretAfter("<p><%=x%>"), 3);     // the block, found last
    EXPECT_EQ(caretAfter("<%=x%><p>"), 0);
    EXPECT_EQ(caretAfter("<p><b"), 0);  // the second one has no end in the range
}

TEST_F(SmartcolorTest, ARangeLeavesEverythingElse) {
    surface.SetText("<p><b>x</b></p>");
    ColorSpan(3, 8);
    EXPECT_EQ(Marks(), "<p>«o:<b>»x«o:</b>»</p>");
}

TEST_F(SmartcolorTest, ARegionIsPaintedBeyondItsRange) {
    surface.SetText("<p> a < b\r\nmore</STYLE><i>");
    surface.SetSelStart(0);
    Insert("<style>");
    EXPECT_EQ(Marks(), "«o:<style>»«c:<p> a < b\nmore»</STYLE><i>");
    EXPECT_EQ(surface.SelStart(), 7);
}

TEST_F(SmartcolorTest, AnUnclosedRegionIsPaintedToTheEndOfTheDocument) {
    surface.SetText("a\r\nb\r\n");
    surface.SetSelStart(3);
    Insert("<script>");
    EXPECT_EQ(Marks(), "a\n«o:<script>»«c:b\n»");
}

TEST_F(SmartcolorTest, ARegionOverSeveralColorsKeepsThem) {
    surface.SetText("<p>text</script>");
    workbench.Smartcolor();
    surface.SetSelStart(0);
    Insert("<script>");
    EXPECT_EQ(Marks(), "«o:<script><p>»text«o:</script>»");
}

TEST_F(SmartcolorTest, AComparedTagOfSeveralColorsKeepsThemAnotherDoesNot) {
    surface.SetText("<p><br>");
    surface.SetFormat({1, 1}, {.color = 2, .bold = {}});
    surface.SetFormat({4, 1}, {.color = 2, .bold = {}});
    ColorSpan(0, 7);
    EXPECT_EQ(Marks(), "<«f:p»>«o:<br>»");
}

TEST_F(SmartcolorTest, ABlockMayEndOneCharacterAfterTheRange) {
    surface.SetText("a<%=x%>b");
    ColorSpan(1, 5);
    EXPECT_EQ(Marks(), "a«a:<%=x%>»b");
    surface.SetText("a<%=x%>b");
    ColorSpan(1, 4);
    EXPECT_EQ(Marks(), "a<%=x%>b");
}

TEST_F(SmartcolorTest, ARangeOutsideTheTextIsCut) {
    surface.SetText("<b>x");
    ColorSpan(2, 100);
    EXPECT_EQ(surface.SelStart(), 4);
    ColorSpan(50, 10);
    EXPECT_EQ(surface.SelStart(), 4);
    ColorSpan(-3, 10);
    EXPECT_EQ(Marks(), "«o:<b>»x");
    ColorSpan(1, -1);
    EXPECT_EQ(surface.SelStart(), 1);
    EXPECT_EQ(workbench.ColorSpanLength, 0);
}

TEST_F(SmartcolorTest, AChangedTextIsReadAnew) {
    surface.SetText("<p>");
    workbench.Smartcolor();
    surface.SetSelStart(3);
    surface.SetSelText("<td>");
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), "«o:<p>»«t:<td>»");
}

TEST_F(SmartcolorTest, PassesOverAnyTextAgreeWithTheStepsOneByOne) {
    std::mt19937 random(4);
    for (int round = 0; round < 1500; ++round) {
        surface.SetText(test::RandomMarkup(random, static_cast<int>(random() % 60)));
        const QString text = surface.Text();
        test::ArraySurface slow(text, test::markForeColor);
        test::MarkupOracle full(slow, test::markColors);
        full.FullPass(test::markForeColor);
        const auto shown = [&] {
            QString letters;
            for (std::size_t at = 0; at < slow.colors.size(); ++at) {
                letters += test::LetterOf(slow.colors[at], slow.bold[at]);
            }
            return test::ToMarks({text, letters}).toStdString();
        };
        workbench.Smartcolor();
        ASSERT_EQ(Marks(), shown());

        // Over what the full pass left, so that many ranges are of several colours.
        const auto size = static_cast<unsigned>(text.size());
        if (size == 0 || !text.contains(u'<')) continue;
        const int start = static_cast<int>(random() % size);
        const int length = 1 + static_cast<int>(random() % (size - static_cast<unsigned>(start)));
        test::MarkupOracle pass(slow, test::markColors);
        slow.selLength = 0;
        pass.RangePass(start, length);
        ColorSpan(start, length);
        ASSERT_EQ(Marks(), shown()) << "range " << start << "+" << length;
        int caret = pass.TagCount() == 2 ? slow.selStart : start + length;
        if (caret > 0 && caret < text.size() && text.at(caret) == u'\n') --caret;  // no caret stands between CR and LF
        ASSERT_EQ(surface.SelStart(), caret) << qPrintable(text) << " range " << start << "+" << length;
    }
}

QString GoldenFolder() {
    return QStringLiteral(VELLUM_SOURCE_DIR "/tests/editor/golden/");
}

class SmartcolorPage : public SmartcolorTest, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override {
        QFile file(GoldenFolder() + QString::fromStdString(GetParam()));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString written = QString::fromUtf8(file.readAll());
        ASSERT_TRUE(written.endsWith(u'\n'));
        page = test::FromMarks(written.chopped(1));
        marks = test::ToMarks(page).toStdString();  // neighbours of one colour share a mark on the surface
    }

    std::string marks;
    test::MarkedText page;
};

TEST_P(SmartcolorPage, IsPaintedInOnePass) {
    surface.SetText(page.text);
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), marks);
    workbench.Smartcolor();
    EXPECT_EQ(Marks(), marks) << "once more";
}

// The constructs of a page as they would be inserted: text, a tag, a comment, a block, a whole region.
QStringList Constructs(const QString& text) {
    static const QRegularExpression construct(
        R"(<%.*?(?:%>|\z))"
        R"(|<!--.*?(?:-->|\z))"
        R"(|<sc(?:r(?:i(?:pt?)?)?)?[ \r>].*?(?:</script>|\z))"
        R"(|<st(?:y(?:le?)?)?[ \r>].*?(?:</style>|\z))"
        R"(|<(?:[^>]|(?<=%)>)*(?<!%)>)",
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::CaseInsensitiveOption);
    QStringList pieces;
    qsizetype end = 0;
    for (auto matches = construct.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        pieces << text.mid(end, match.capturedStart() - end) << match.captured();
        end = match.capturedEnd();
    }
    pieces << text.mid(end);
    pieces.removeAll(QString());
    return pieces;
}

TEST_P(SmartcolorPage, IsPaintedPieceByPiece) {
    QString text = page.text;
    const QStringList pieces = Constructs(text.replace(u'\n', QLatin1String("\r\n")));
    ASSERT_EQ(pieces.join(QString()), text);
    ASSERT_GE(pieces.size(), 3);
    for (const QString& piece : pieces) {
        surface.SetSelStart(surface.Length());
        Insert(piece);
    }
    EXPECT_EQ(Marks(), marks);
}

std::vector<std::string> GoldenPages() {
    std::vector<std::string> names;
    for (const QString& name : QDir(GoldenFolder()).entryList({"*.txt"})) names.push_back(name.toStdString());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Golden, SmartcolorPage, testing::ValuesIn(GoldenPages()),
                         [](const auto& page) { return page.param.substr(0, page.param.find('.')); });

TEST(SmartcolorPages, AreThere) {
    EXPECT_GE(GoldenPages().size(), 8U);
}

}  // namespace
}  // namespace vellum
