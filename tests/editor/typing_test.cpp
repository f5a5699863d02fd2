#include "editor/typing.h"

#include "tests/editor/editor_fixture.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>

#include <array>

namespace vellum {
namespace {

constexpr ColorNumber plain = 0;

class TypingTest : public test::EditorFixture {
protected:
    void ExpectTyped(const QString& typed, const QString& shown, const QString& colours) {
        Put("|");
        Type(typed);
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(Colours(), colours);
    }
};

TEST_F(TypingTest, ColoursGoAheadOfTheTypedCharacter) {
    ExpectTyped("x <b>y</b> z", "x <b>y</b> z|", "..ooo.oooo..");
    ExpectTyped("<a href=\"q", "<a href=\"q|", "oooooooooo");
    ExpectTyped("<a href=\"q\">t</a>.", "<a href=\"q\">t</a>.|", "aaaaaaaaaaaa.aaaa.");
    ExpectTyped("<!-- <b> -->x", "<!-- <b> -->x|", "cccccccccccc.");
    ExpectTyped("x<%=y%>z", "x<%=y%>z|", ".SSSSSS.");
}

TEST_F(TypingTest, ABlockIsNotBoldWhenTheSettingSaysSo) {
    Set(keys::aspBold, "0");
    ExpectTyped("x<% x %>y", "x<% x %>y|", ".sssssss.");
}

TEST_F(TypingTest, WithColoursOffOnlyACommentTakesItsColour) {
    Set(keys::colorOnOff, "1");
    ExpectTyped("<b>y", "<b>y|", "....");
    ExpectTyped("<!-- x", "<!-- x|", "cccccc");
    ExpectTyped("<% x", "<% x|", "BBBB");  // bold alone
}

TEST_F(TypingTest, ScriptDocumentsGetNeitherColoursNorAssists) {
    document.SetCaption("/x/a.js");
    Set(keys::autoQuote, "1");
    ExpectTyped("<BR> <!-- &", "<BR> <!-- &|", "...........");
    EXPECT_FALSE(document.picAttr->isVisible());
    Put("a|b\nc|d");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Shown(), "|\tab\n\tc|d");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "|ab\nc|d");
    Put("\tx|");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "\tx\n\t|");
}

TEST_F(TypingTest, AClosedTagIsLoweredAndEmptyElementsAreClosed) {
    ExpectTyped("<A HREF=\"Big.HTML\">", "<a href=\"Big.HTML\">|", "aaaaaaaaaaaaaaaaaaa");
    ExpectTyped("<BR>", "<br />|", "oooooo");
    ExpectTyped("<br/>", "<br/>|", "ooooo");
    ExpectTyped("<img src=\"x\">", "<img src=\"x\" />|", "ooooooooooooooo");
    ExpectTyped("<!-- A -->", "<!-- A -->|", "cccccccccc");
}

TEST_F(TypingTest, TheSwitchesTurnTheAssistsOff) {
    Set(keys::autoCase, "0");
    ExpectTyped("<BR>", "<BR />|", "oooooo");
    Set(keys::autoEmptySlash, "0");
    ExpectTyped("<BR>", "<BR>|", "oooo");
}

TEST_F(TypingTest, AGreaterSignInTextOrAScriptIsACharacter) {
    ExpectTyped("a > b", "a > b|", ".....");
    Put("<script>if (a |");
    Type("> b");
    EXPECT_EQ(Shown(), "<script>if (a > b|");
    Put("|");
    Type(">");
    EXPECT_EQ(Shown(), ">|");
    Put("<|");
    Type(">");
    EXPECT_EQ(Shown(), "<>|");
    Put("<!-- a|");
    Type("> -");
    EXPECT_EQ(Shown(), "<!-- a> -|");
    Put("<% a |");
    Type("> ");
    EXPECT_EQ(Shown(), "<% a > |");
}

TEST_F(TypingTest, ATagIsClosedInTheMiddleOfText) {
    Put("one <b|\ntwo");
    Type(">");
    EXPECT_EQ(Shown(), "one <b>|\ntwo");
    EXPECT_EQ(Colours(), "....ooo\n...");
}

TEST_F(TypingTest, AttributesAreQuoted) {
    Set(keys::autoQuote, "1");
    Put("|");
    Type("<a title=");
    EXPECT_EQ(Shown(), "<a title=\"|\"");
    Type("x=");
    EXPECT_EQ(Shown(), "<a title=\"x=|\"");
    Put("|");
    Type("a=");
    EXPECT_EQ(Shown(), "a=|");
    Set(keys::autoQuote, "0");
    Put("|");
    Type("<a title=");
    EXPECT_EQ(Shown(), "<a title=|");
}

TEST_F(TypingTest, NothingIsQuotedWhereTheTagHasNoColour) {
    Set(keys::autoQuote, "1");
    Set(keys::colorOnOff, "1");
    Put("|");
    Type("<a title=");
    EXPECT_EQ(Shown(), "<a title=|");
}

TEST_F(TypingTest, EnterKeepsTheIndentation) {
    Put("\t\tab|");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "\t\tab\n\t\t|");
    Put("\t|\tx");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "\t\n\t|\tx");
    Put("|\tx");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "\n|\tx");
    Set(keys::autoTab, "0");
    Put("\t\tab|");
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), "\t\tab\n|");
}

TEST_F(TypingTest, TabReplacesALineAndIndentsSeveral) {
    Put("a|b|c");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Shown(), "a\t|c");
    Put("a|b\nc|d");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Shown(), "|\tab\n\tc|d");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "|ab\nc|d");
    Put("one\ntw|o");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Shown(), "one\n|tw|o");
    Set(keys::autoTab, "0");
    Put("a|b\nc|d");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Shown(), "a\t|d");
}

TEST_F(TypingTest, AnyCharacterIsAChange) {
    document.SetSaver(true);
    Press(Qt::Key_Right);
    EXPECT_TRUE(document.Saver());
    Press(Qt::Key_Backspace);  // with nothing to delete
    EXPECT_FALSE(document.Saver());
}

TEST_F(TypingTest, InputMethodsCountAsTyping) {
    Put("|");
    QInputMethodEvent event;
    event.setCommitString("<BR>");
    QApplication::sendEvent(&Surface(), &event);
    EXPECT_EQ(Shown(), "<br />|");
    EXPECT_EQ(Colours(), "oooooo");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "|");
}

TEST_F(TypingTest, TheWorkPanelFollowsThePointer) {
    Surface().setMouseTracking(true);
    QTest::mouseMove(Surface().viewport(), {40, 40});
    EXPECT_EQ(workbench.panels[StatusPanel::Work], "Edit Your Document");
}

TEST_F(TypingTest, ArrowsOutOfATagLeaveItsColourBehind) {
    Put("<b>|");
    Press(Qt::Key_Left);
    Press(Qt::Key_Right);
    EXPECT_EQ(Surface().SelColor(), plain);
}

TEST_F(TypingTest, WritingOnAfterACaretMoveTakesTheColourOfTheTag) {
    Put("<a |>");
    Surface().SetSelColor(0x123456);
    Type("x");
    EXPECT_EQ(Colours(), "aaaaa");
}

// An area with two windows, of which the one that is active there is the active document.
class WindowsWorkbench : public test::TestWorkbench {
public:
    [[nodiscard]] Document* ActiveDocument() const override {
        const QMdiSubWindow* const child = area->currentSubWindow();
        return child ? qobject_cast<Document*>(child->widget()) : nullptr;
    }

    QMdiArea* area = nullptr;
};

TEST(TypingInWindows, WhatIsDroppedOnAWindowBehindGoesThere) {
    WindowsWorkbench workbench;
    QMdiArea area;
    workbench.area = &area;
    auto* const behind = new test::PlainDocument(workbench);
    auto* const front = new test::PlainDocument(workbench);
    for (auto* document : {behind, front}) area.addSubWindow(document);
    area.resize(800, 600);
    area.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
    area.setActiveSubWindow(area.subWindowList().at(1));
    ASSERT_EQ(workbench.ActiveDocument(), front);
    front->Text1->SetText("front");

    QMimeData data;
    data.setText("<b>x</b>");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(behind->Text1->viewport(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(behind->Text1->viewport(), &drop);
    EXPECT_EQ(behind->Text1->Text(), "<b>x</b>");
    EXPECT_EQ(front->Text1->Text(), "front");
    EXPECT_EQ(workbench.ActiveDocument(), behind);
}

TEST_F(TypingTest, AGreaterSignAtTheSecondPlacePaintsNothing) {
    Put("<|");
    Surface().SetFormat({0, 1}, {.color = workbench.Options()->LinksColor, .bold = {}});
    Type(">");
    EXPECT_EQ(Colours(), "aa");
}

TEST_F(TypingTest, KeysThatGoOnWithARunAndKeysThatEndIt) {
    const std::array ending{Qt::Key_Up,      Qt::Key_Down,   Qt::Key_PageUp,   Qt::Key_PageDown, Qt::Key_Pause,
                            Qt::Key_Control, Qt::Key_Escape, Qt::Key_CapsLock, Qt::Key_End,      Qt::Key_Home,
                            Qt::Key_Select,  Qt::Key_Print,  Qt::Key_SysReq,   Qt::Key_Help,     Qt::Key_NumLock,
                            Qt::Key_F1,      Qt::Key_F12};
    for (const Qt::Key key : ending) {
        document.usingKeys = true;
        Press(key);
        EXPECT_FALSE(document.usingKeys) << key;
        document.usingKeys = true;
        Press(key, Qt::ShiftModifier);
        EXPECT_FALSE(document.usingKeys) << "Shift and " << key;
    }
    for (const Qt::Key key :
         {Qt::Key_Left, Qt::Key_Right, Qt::Key_Shift, Qt::Key_Alt, Qt::Key_Insert, Qt::Key_Delete}) {
        Put("|");
        document.usingKeys = false;
        Type("abc");
        Press(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(Surface().Text(), "");
        document.usingKeys = false;
        Press(key);
        EXPECT_TRUE(document.usingKeys) << key;
        Press(Qt::Key_R, Qt::ControlModifier);
        EXPECT_EQ(Surface().Text(), "") << key << " clears what could be redone";
    }
}

class UndoByKeysTest : public TypingTest {
protected:
    void Undo() { Press(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { Press(Qt::Key_R, Qt::ControlModifier); }
};

TEST_F(UndoByKeysTest, ARunEndsWithANavigationKey) {
    Put("|");
    Type("abc");
    Press(Qt::Key_Up);
    Type("d");
    Undo();
    EXPECT_EQ(Surface().Text(), "abc");
    Undo();
    EXPECT_EQ(Surface().Text(), "");
    Redo();
    EXPECT_EQ(Surface().Text(), "abc");
    Redo();
    EXPECT_EQ(Surface().Text(), Surface().SelStart() == 0 ? "dabc" : "abcd");
    const QString newest = Surface().Text();
    Redo();
    EXPECT_EQ(Surface().Text(), newest);
}

TEST_F(UndoByKeysTest, LeftAndBackspaceBelongToTheRun) {
    Put("|");
    Type("abc");
    Press(Qt::Key_Left);
    Type("d");
    EXPECT_EQ(Surface().Text(), "abdc");
    Undo();
    EXPECT_EQ(Surface().Text(), "");
    Put("|");
    document.usingKeys = false;
    Type("abc");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Surface().Text(), "ab");
    Undo();
    EXPECT_EQ(Surface().Text(), "");
}

TEST_F(UndoByKeysTest, TypingClearsWhatCouldBeRedone) {
    Put("|");
    Type("abc");
    Undo();
    Type("x");
    Redo();
    EXPECT_EQ(Surface().Text(), "x");
}

TEST_F(UndoByKeysTest, LeftAloneClearsWhatCouldBeRedone) {
    Put("|");
    Type("abc");
    Undo();
    Press(Qt::Key_Left);
    Redo();
    EXPECT_EQ(Surface().Text(), "");
}

TEST_F(UndoByKeysTest, AMousePressEndsTheRun) {
    Put("|");
    Type("abc");
    QTest::mouseClick(Surface().viewport(), Qt::LeftButton, {}, {300, 300});
    Type("d");
    EXPECT_EQ(Surface().Text(), "abcd");
    Undo();
    EXPECT_EQ(Surface().Text(), "abc");
}

TEST_F(UndoByKeysTest, ARestoredTextHasItsColoursAndCaret) {
    Put("|");
    Type("x<b>y</b>");
    const QString colours = Colours();
    Press(Qt::Key_End);
    Type("<!-- c -->");
    Undo();
    EXPECT_EQ(Shown(), "x<b>y</b>|");
    EXPECT_EQ(Colours(), colours);
    Redo();
    EXPECT_EQ(Shown(), "x<b>y</b><!-- c -->|");
    EXPECT_EQ(Colours(), colours + "cccccccccc");
}

TEST_F(UndoByKeysTest, CtrlWithAnotherKeyTakesNoSnapshot) {
    Put("|");
    Type("abc");
    Undo();
    Press(Qt::Key_A, Qt::ControlModifier);
    Redo();
    EXPECT_EQ(Surface().Text(), "abc");
}

TEST_F(UndoByKeysTest, ADeletedWordComesBack) {
    Put("|");
    Type("one two");
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(Surface().Text(), "one ");
    Undo();
    EXPECT_EQ(Surface().Text(), "one two");
}

TEST_F(UndoByKeysTest, TextThatIsDraggedAwayIsAStep) {
    Put("one\n|<b>two</b>| three");
    document.usingKeys = false;
    Surface().copy();  // a drag hands the text out the same way, and the toolkit takes it away
    Surface().textCursor().removeSelectedText();
    ASSERT_EQ(Shown(), "one\n| three");
    Undo();
    EXPECT_EQ(Shown(), "one\n|<b>two</b> three");
    EXPECT_EQ(Colours(), "...\nooo...oooo......");
    Redo();
    EXPECT_EQ(Shown(), "one\n| three");
}

TEST_F(UndoByKeysTest, ClosingATagBelongsToTheRun) {
    Put("|");
    Type("<BR>");
    Undo();
    EXPECT_EQ(Surface().Text(), "");
}

TEST_F(UndoByKeysTest, CutAndPasteAreStepsOfTheirOwn) {
    Put("a|b|c");
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "a|c");
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "abb|c");
    Undo();
    EXPECT_EQ(Surface().Text(), "abc");
    Undo();
    EXPECT_EQ(Surface().Text(), "ac");
    Undo();
    EXPECT_EQ(Surface().Text(), "abc");
}

}  // namespace
}  // namespace vellum
