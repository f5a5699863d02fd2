#include "editor/text_commands.h"

#include "tests/support/color_of.h"
#include "tests/support/test_workbench.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class CountingWorkbench : public test::TestWorkbench {
public:
    void Smartcolor() override {
        ++passes;
        caretThen = active->Text1->SelStart();
        saverThen = active->Saver();
        busyThen = QGuiApplication::overrideCursor() != nullptr;
    }

    int passes = 0;
    int caretThen = -1;
    bool saverThen = false;
    bool busyThen = false;
};

class TextCommandsTest : public testing::Test {
protected:
    TextCommandsTest() {
        bench.active = &document;
        Clipboard().setText("old");
    }

    static QClipboard& Clipboard() { return *QGuiApplication::clipboard(); }

    // A saved text with what stands between two "|" selected, or the caret where the only one stands.
    void Show(QString marked) {
        const auto from = static_cast<int>(marked.indexOf(u'|'));
        const auto to = static_cast<int>(marked.lastIndexOf(u'|'));
        surface.SetText(marked.remove(u'|'));
        surface.SetSelStart(from);
        if (to > from) surface.SetSelLength(to - from - 1);
        document.SetSaver(true);
        document.usingKeys = true;
    }

    // What is asked and where the caret or the selection is afterwards.
    void Go(const QString& answer) {
        bench.prompts.inputs = {answer};
        GoToLine(bench);
    }

    void ShowWindow() {
        document.resize(400, 200);
        surface.setGeometry(document.rect());
        document.show();
        document.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&document));
    }

    CountingWorkbench bench;
    test::PlainDocument document{bench};
    EditSurface& surface = *document.Text1;
};

TEST_F(TextCommandsTest, CutMovesTheSelectionToTheClipboard) {
    Show("a|b\r\nc|d");
    CutText(bench);
    EXPECT_EQ(surface.Text(), "ad");
    EXPECT_EQ(Clipboard().text(), "b\nc") << "as other programs take line ends";
    EXPECT_FALSE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
}

TEST_F(TextCommandsTest, CutWithNothingSelectedStillEndsTheRunAndClearsTheClipboard) {
    Show("ab|");
    CutText(bench);
    EXPECT_EQ(surface.Text(), "ab");
    EXPECT_EQ(Clipboard().text(), "");
    EXPECT_FALSE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
}

TEST_F(TextCommandsTest, CopyLeavesTheText) {
    Show("a|b\r\nc|d");
    CopyText(bench);
    EXPECT_EQ(surface.Text(), "ab\r\ncd");
    EXPECT_EQ(surface.SelText(), "b\r\nc");
    EXPECT_EQ(Clipboard().text(), "b\nc");
    EXPECT_TRUE(document.Saver());
    EXPECT_TRUE(document.usingKeys);
}

TEST_F(TextCommandsTest, CopyWithNothingSelectedClearsTheClipboard) {
    Show("ab|");
    CopyText(bench);
    EXPECT_EQ(Clipboard().text(), "");
}

TEST_F(TextCommandsTest, PasteTakesTheTextAlone) {
    auto* const rich = new QMimeData;
    rich->setHtml("<b>bold</b>");
    rich->setText("x\ny");
    Clipboard().setMimeData(rich);
    Show("\ta|b|c");
    PasteText(bench);
    EXPECT_EQ(surface.Text(), "\tax\r\n\tyc");
    EXPECT_EQ(bench.ColorSpanStart, 2);
    EXPECT_EQ(bench.ColorSpanLength, 5);
    EXPECT_EQ(bench.passes, 1);
    EXPECT_FALSE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
}

TEST_F(TextCommandsTest, PasteTakesTheColorOfItsPlace) {
    Show("<!-- |");
    PasteText(bench);
    EXPECT_EQ(surface.Text(), "<!-- old");
    EXPECT_EQ(test::ColorOf(surface, {5, 3}), ColorNumber{8421504});
    EXPECT_EQ(bench.passes, 0);
}

TEST_F(TextCommandsTest, PasteOfAnEmptyClipboardInsertsNothingAndIsAStepAllTheSame) {
    Clipboard().clear();
    Show("a|");
    PasteText(bench);
    EXPECT_EQ(surface.Text(), "a");
    EXPECT_FALSE(document.usingKeys);
    EXPECT_FALSE(document.Saver());
}

TEST_F(TextCommandsTest, DeleteRemovesTheSelectionAndLeavesTheRun) {
    Show("a|b|c");
    DeleteText(bench);
    EXPECT_EQ(surface.Text(), "ac");
    EXPECT_FALSE(document.Saver());
    EXPECT_TRUE(document.usingKeys);
    EXPECT_EQ(Clipboard().text(), "old");
    Show("a|c");
    DeleteText(bench);
    EXPECT_EQ(surface.Text(), "ac");
    EXPECT_FALSE(document.Saver()) << "with nothing selected too";
}

TEST_F(TextCommandsTest, SelectAllTakesEveryCharacter) {
    Show("a\r\nb|");
    SelectAllText(bench);
    EXPECT_EQ(surface.SelStart(), 0);
    EXPECT_EQ(surface.SelLength(), 4);
    EXPECT_TRUE(document.Saver());
}

TEST_F(TextCommandsTest, CutAndCopyGiveTheKeyboardToTheTextAndDeleteDoesNot) {
    ShowWindow();
    QWidget elsewhere(&document);
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    const auto focusAfter = [&](void (*command)(Workbench&)) {
        Show("a|b|c");
        elsewhere.setFocus();
        command(bench);
        return surface.hasFocus();
    };
    EXPECT_TRUE(focusAfter(CutText));
    EXPECT_TRUE(focusAfter(CopyText));
    EXPECT_TRUE(focusAfter(UndoText));
    EXPECT_TRUE(focusAfter(RedoText));
    EXPECT_FALSE(focusAfter(DeleteText));
}

TEST_F(TextCommandsTest, LowerCaseConvertsTheWholeDocument) {
    Show("<A HREF=\"Big.htm\">T|ex|t</A><% X = 1 %>");
    LowerCaseMarkup(bench);
    EXPECT_EQ(surface.Text(), "<a href=\"Big.htm\">Text</a><% X = 1 %>");
    EXPECT_EQ(surface.SelStart(), 19);
    EXPECT_EQ(bench.passes, 1);
    EXPECT_EQ(bench.ColorSpanLength, 0);
    EXPECT_EQ(bench.caretThen, 19);
    EXPECT_FALSE(bench.busyThen) << "the pointer is busy for the conversion only";
    EXPECT_FALSE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
}

TEST_F(TextCommandsTest, LowerCaseMarksADocumentAsChangedThatHadNothingToLower) {
    Show("text|");
    LowerCaseMarkup(bench);
    EXPECT_FALSE(document.Saver());
}

TEST_F(TextCommandsTest, UpperCaseConvertsBlocksTooAndLeavesTheSavedMark) {
    Show("<a href=\"Big.htm\">Text</a><% x = 1 %>|");
    UpperCaseMarkup(bench);
    EXPECT_EQ(surface.Text(), "<A HREF=\"Big.htm\">Text</A><% X = 1 %>");
    EXPECT_EQ(surface.SelStart(), 37);
    EXPECT_EQ(bench.passes, 1);
    EXPECT_TRUE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
    document.SetSaver(false);
    UpperCaseMarkup(bench);
    EXPECT_FALSE(document.Saver());
}

TEST_F(TextCommandsTest, CommentsKeepTheirCase) {
    for (auto* const command : {LowerCaseMarkup, UpperCaseMarkup}) {
        Show("<!-- <B> <i> -->|");
        command(bench);
        EXPECT_EQ(surface.Text(), "<!-- <B> <i> -->");
    }
}

TEST_F(TextCommandsTest, ChangeOfCaseKeepsTheViewWhereItIs) {
    ShowWindow();
    Show(QString("<B>line</B>\r\n").repeated(300) + "|");
    surface.SetSelStart(0);
    surface.verticalScrollBar()->setValue(150);
    ASSERT_EQ(surface.verticalScrollBar()->value(), 150);
    LowerCaseMarkup(bench);
    EXPECT_EQ(surface.verticalScrollBar()->value(), 150);
    EXPECT_EQ(surface.SelStart(), 0);
}

TEST_F(TextCommandsTest, GoesToALineAndSelectsItWithoutItsEnd) {
    Show("first\r\n\tsecond\r\n\r\nlast|");
    Go("2");
    EXPECT_EQ(surface.SelStart(), 7);
    EXPECT_EQ(surface.SelText(), "\tsecond");
    Go("1");
    EXPECT_EQ(surface.SelStart(), 0);
    EXPECT_EQ(surface.SelText(), "first");
    Go("3");
    EXPECT_EQ(surface.SelStart(), 16);
    EXPECT_EQ(surface.SelText(), "");
    Go("4");
    EXPECT_EQ(surface.SelStart(), 18);
    EXPECT_EQ(surface.SelText(), "last");
    EXPECT_EQ(bench.prompts.questions.size(), 4);
    EXPECT_TRUE(bench.prompts.questions.constFirst().endsWith("|Goto Line...")) << "the box's prompt";
    EXPECT_TRUE(bench.prompts.messages.isEmpty());
    EXPECT_TRUE(document.Saver());
}

TEST_F(TextCommandsTest, TakesEveryWayToWriteALineNumber) {
    for (const char* answer : {" 2 ", "+2", "2.0", "2E0", "02", "1.6", "2.5"}) {
        Show("a\r\nb\r\nc|");
        Go(answer);
        EXPECT_EQ(surface.SelText(), "b") << answer;
    }
    Show("a\r\nb\r\nc|");
    Go("0.2");
    EXPECT_EQ(surface.SelText(), "a");
    EXPECT_TRUE(bench.prompts.messages.isEmpty());
}

TEST_F(TextCommandsTest, OtherAnswersDoNothing) {
    for (const char* answer : {"", "0", "-1", "abc", "2x", "2,5", " "}) {
        Show("a\r\n|b|\r\nc");
        Go(answer);
        EXPECT_EQ(surface.SelStart(), 3) << answer;
        EXPECT_EQ(surface.SelText(), "b") << answer;
    }
    Show("a\r\n|b|\r\nc");
    bench.prompts.inputs.clear();  // cancelled
    GoToLine(bench);
    EXPECT_EQ(surface.SelText(), "b");
    EXPECT_TRUE(bench.prompts.messages.isEmpty());
}

TEST_F(TextCommandsTest, TellsThatALineBeyondTheEndDoesNotExist) {
    int told = 0;
    for (const char* answer : {"4", "3.1", "99999999999", "1E300"}) {
        Show("a\r\n|b|\r\nc");
        Go(answer);
        EXPECT_EQ(bench.prompts.messages.size(), ++told) << answer;
        EXPECT_EQ(bench.prompts.messages.constLast(), "Line Does Not Exist");
        EXPECT_EQ(surface.SelStart(), 3) << answer;
    }
}

TEST_F(TextCommandsTest, ShowsTheLineThatItGoesTo) {
    ShowWindow();
    QWidget elsewhere(&document);
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    elsewhere.setFocus();
    Show("|" + QString("line\r\n").repeated(250) + QString("long ").repeated(200) + QString("\r\nline").repeated(250));
    Go("251");
    EXPECT_EQ(surface.SelLength(), 1000);
    EXPECT_TRUE(surface.viewport()->rect().contains(surface.cursorRect().center()));
    EXPECT_GT(surface.verticalScrollBar()->value(), 200);
    EXPECT_EQ(surface.horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(surface.hasFocus());
}

TEST_F(TextCommandsTest, WithoutADocumentNothingHappens) {
    bench.active = nullptr;
    for (auto* const command : {UndoText, RedoText, CutText, CopyText, PasteText, DeleteText, RemoveSelection,
                                SelectAllText, LowerCaseMarkup, UpperCaseMarkup, GoToLine}) {
        command(bench);
    }
    EXPECT_EQ(Clipboard().text(), "old");
    EXPECT_TRUE(bench.prompts.questions.isEmpty());
}

TEST_F(TextCommandsTest, RemovingTheSelectionTouchesNothingElse) {
    Show("ab|c");
    RemoveSelection(bench);
    EXPECT_EQ(surface.Text(), "abc");
    EXPECT_TRUE(document.Saver());
    EXPECT_TRUE(document.usingKeys);
    Show("a|b|c");
    RemoveSelection(bench);
    EXPECT_EQ(surface.Text(), "ac");
}

}  // namespace
}  // namespace vellum
