// Which commands on the text are steps of undo.
#include "editor/text_commands.h"
#include "tests/support/test_workbench.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class TextCommandsUndoTest : public testing::Test {
protected:
    TextCommandsUndoTest() {
        bench.active = &document;
        QGuiApplication::clipboard()->setText("old");
        surface.SetText("<B>one</B>");
        surface.SetSelStart(3);
        surface.SetSelLength(3);
    }

    QString AfterUndo() {
        UndoText(bench);
        return surface.Text();
    }

    test::TestWorkbench bench;
    test::PlainDocument document{bench};
    EditSurface& surface = *document.Text1;
};

TEST_F(TextCommandsUndoTest, EachCommandThatChangesTheTextIsAStep) {
    for (auto* const command : {CutText, PasteText, LowerCaseMarkup}) {
        QGuiApplication::clipboard()->setText("old");
        surface.SetText("<B>one</B>");
        surface.SetSelStart(3);
        surface.SetSelLength(3);
        command(bench);
        EXPECT_NE(surface.Text(), "<B>one</B>");
        EXPECT_EQ(AfterUndo(), "<B>one</B>");
        EXPECT_EQ(surface.SelStart(), 3);
    }
    surface.SetText("<b>one</b>");
    UpperCaseMarkup(bench);
    EXPECT_EQ(surface.Text(), "<B>one</B>");
    EXPECT_EQ(AfterUndo(), "<b>one</b>");
}

TEST_F(TextCommandsUndoTest, InsertionsAreUndoneOneByOne) {
    surface.SetSelStart(0);
    PasteText(bench);
    PasteText(bench);
    EXPECT_EQ(surface.Text(), "oldold<B>one</B>");
    EXPECT_EQ(AfterUndo(), "old<B>one</B>");
    EXPECT_EQ(AfterUndo(), "<B>one</B>");
    RedoText(bench);
    EXPECT_EQ(surface.Text(), "old<B>one</B>");
}

TEST_F(TextCommandsUndoTest, AnInsertionEndsTheRedo) {
    surface.SetSelStart(0);
    PasteText(bench);
    UndoText(bench);
    QGuiApplication::clipboard()->setText("new");
    PasteText(bench);
    RedoText(bench);
    EXPECT_EQ(surface.Text(), "new<B>one</B>");
}

TEST_F(TextCommandsUndoTest, AnEmptyPasteIsAStepToo) {
    surface.SetSelStart(0);
    PasteText(bench);
    QGuiApplication::clipboard()->clear();
    PasteText(bench);
    EXPECT_EQ(AfterUndo(), "old<B>one</B>");
    EXPECT_EQ(AfterUndo(), "<B>one</B>");
}

TEST_F(TextCommandsUndoTest, DeleteIsUndoneWithTheStepBeforeIt) {
    surface.SetSelStart(0);
    PasteText(bench);
    surface.SetSelStart(0);
    surface.SetSelLength(2);
    DeleteText(bench);
    EXPECT_EQ(surface.Text(), "d<B>one</B>");
    EXPECT_EQ(AfterUndo(), "<B>one</B>");
}

}  // namespace
}  // namespace vellum
