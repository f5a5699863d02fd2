#include "editor/undo_history.h"

#include "tests/support/heap.h"
#include "tests/support/test_workbench.h"

#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace vellum {
namespace {

const SnapshotText emptyText = QString();
const SnapshotText marker = QString("No Undo Information!@#$%:");

class UndoHistoryTest : public testing::Test {
protected:
    // A snapshot that no other is equal to.
    EditSurface::Snapshot AnySnapshot() {
        surface.SetSelText("x");
        return surface.TakeSnapshot();
    }
    void Push(const EditSurface::Snapshot& snapshot, int caret) {
        UndoHistory::Push(history.UndoText, history.UndoPos, snapshot, caret);
    }

    EditSurface surface;
    UndoHistory history;
};

TEST_F(UndoHistoryTest, StartsWithFortyOneEmptyEntries) {
    EXPECT_EQ(history.UndoText.size(), 41U);
    EXPECT_EQ(history.RedoPos.size(), 41U);
    EXPECT_EQ(std::ranges::count(history.UndoText, emptyText), 41);
    EXPECT_EQ(std::ranges::count(history.RedoText, emptyText), 41);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_TRUE(history.CanRedo());  // until the marker is written
}

TEST_F(UndoHistoryTest, PushesOnTop) {
    const auto first = AnySnapshot();
    const auto second = AnySnapshot();
    Push(first, 3);
    Push(second, 5);
    Push(second, 5);  // the same state makes two entries
    EXPECT_TRUE(history.CanUndo());
    EXPECT_EQ(history.UndoText[0], SnapshotText(second));
    EXPECT_EQ(history.UndoText[1], SnapshotText(second));
    EXPECT_EQ(history.UndoText[2], SnapshotText(first));
    EXPECT_EQ(history.UndoPos[2], 3);
    EXPECT_EQ(history.UndoText[3], emptyText);
}

TEST_F(UndoHistoryTest, UsesThirtyOneEntries) {
    const auto oldest = AnySnapshot();
    Push(oldest, 100);
    for (int push = 1; push < 31; ++push) Push(AnySnapshot(), 100 + push);
    EXPECT_EQ(history.UndoText[30], SnapshotText(oldest));
    EXPECT_EQ(history.UndoPos[30], 100);
    Push(AnySnapshot(), 131);
    EXPECT_EQ(std::ranges::count(history.UndoText, SnapshotText(oldest)), 0);
    EXPECT_EQ(history.UndoPos[0], 131);
    EXPECT_EQ(history.UndoPos[30], 101);
    EXPECT_EQ(std::count(history.UndoText.begin() + 31, history.UndoText.end(), emptyText), 10);
    EXPECT_EQ(std::count(history.UndoPos.begin() + 31, history.UndoPos.end(), 0), 10);
}

TEST_F(UndoHistoryTest, TheDeepestEntryStaysTwice) {
    for (int push = 0; push < 31; ++push) Push(AnySnapshot(), push);
    const SnapshotText oldest = history.UndoText[30];
    UndoHistory::Drop(history.UndoText, history.UndoPos);
    EXPECT_EQ(history.UndoPos[0], 29);
    EXPECT_EQ(history.UndoText[29], oldest);
    EXPECT_EQ(history.UndoText[30], oldest);
    for (int drop = 0; drop < 100; ++drop) UndoHistory::Drop(history.UndoText, history.UndoPos);
    EXPECT_TRUE(history.CanUndo());
    EXPECT_EQ(history.UndoText[0], oldest);
    EXPECT_EQ(history.UndoPos[0], 0);
}

TEST_F(UndoHistoryTest, AStackThatWasNeverFullRunsEmpty) {
    for (int push = 0; push < 30; ++push) Push(AnySnapshot(), push);
    for (int drop = 0; drop < 30; ++drop) {
        ASSERT_TRUE(history.CanUndo());
        UndoHistory::Drop(history.UndoText, history.UndoPos);
    }
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(UndoHistoryTest, TheMarkerTakesOneTextAndNothingElse) {
    const auto first = AnySnapshot();
    const auto second = AnySnapshot();
    UndoHistory::Push(history.RedoText, history.RedoPos, first, 7);
    UndoHistory::Push(history.RedoText, history.RedoPos, second, 9);
    history.ResetRedo();
    EXPECT_EQ(history.RedoText[0], marker);
    EXPECT_EQ(history.RedoPos[0], 9);
    EXPECT_EQ(history.RedoText[1], SnapshotText(first));
    EXPECT_EQ(history.RedoPos[1], 7);
    EXPECT_FALSE(history.CanRedo());
    UndoHistory::Push(history.RedoText, history.RedoPos, second, 11);
    EXPECT_TRUE(history.CanRedo());
    EXPECT_EQ(history.RedoText[1], marker);
    UndoHistory::Drop(history.RedoText, history.RedoPos);
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.RedoText[1], SnapshotText(first));
}

class DocumentUndoTest : public testing::Test {
protected:
    DocumentUndoTest() {
        document.Text1->resize(500, 300);
        document.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&document));
    }

    // One step: a snapshot, and then this text.
    void Step(const QString& text) {
        document.ProcessUndo();
        document.ResetRedo();
        surface.SetText(text);
    }
    QString Undone() {
        document.HandleUndo();
        return surface.Text();
    }
    QString Redone() {
        document.HandleRedo();
        return surface.Text();
    }

    test::TestWorkbench workbench;
    test::PlainDocument document{workbench};
    EditSurface& surface = *document.Text1;
};

TEST_F(DocumentUndoTest, NothingToUndoOrRedoInANewWindow) {
    EXPECT_EQ(Redone(), "");
    EXPECT_EQ(Undone(), "");
    EXPECT_EQ(Redone(), "");  // the undo left the redo stack alone
    EXPECT_TRUE(document.Saver());
    surface.SetText("a");
    EXPECT_EQ(Undone(), "a");
    EXPECT_EQ(Redone(), "a");
}

TEST_F(DocumentUndoTest, BringsBackTextColorsWeightAndCaret) {
    surface.SetText("one\r\ntwo");
    surface.SetFormat({0, 2}, {0x0000FF, true});
    surface.SetSelStart(6);
    Step("three");
    surface.SetSelStart(2);
    document.HandleUndo();
    EXPECT_EQ(surface.Text(), "one\r\ntwo");
    EXPECT_EQ(surface.FormatAt(1), (CharFormat{0x0000FF, true}));
    EXPECT_EQ(surface.FormatAt(2), CharFormat());
    EXPECT_EQ(surface.SelStart(), 6);
    EXPECT_EQ(surface.SelLength(), 0);
    document.HandleRedo();
    EXPECT_EQ(surface.Text(), "three");
    EXPECT_EQ(surface.FormatAt(1), CharFormat());
    EXPECT_EQ(surface.SelStart(), 2);
}

TEST_F(DocumentUndoTest, ColorsAloneAreAStep) {
    surface.SetText("one");
    document.ProcessUndo();
    surface.SetAllFormats({0x0000FF, true}, {});
    document.HandleUndo();
    EXPECT_EQ(surface.FormatAt(0), CharFormat());
    document.HandleRedo();
    EXPECT_EQ(surface.FormatAt(0), (CharFormat{0x0000FF, true}));
}

TEST_F(DocumentUndoTest, TwoStepsThereAndBack) {
    Step("a");
    Step("b");
    EXPECT_EQ(Undone(), "a");
    EXPECT_EQ(Undone(), "");
    EXPECT_EQ(Undone(), "");
    EXPECT_EQ(Redone(), "a");
    EXPECT_EQ(Redone(), "b");
    EXPECT_EQ(Redone(), "b");  // the marker came up
    EXPECT_EQ(Undone(), "a");
}

TEST_F(DocumentUndoTest, ANewStepEndsRedo) {
    Step("a");
    Step("b");
    EXPECT_EQ(Undone(), "a");
    Step("c");
    EXPECT_EQ(Redone(), "c");
    EXPECT_EQ(Undone(), "a");
    EXPECT_EQ(Redone(), "c");
    EXPECT_EQ(Redone(), "c");
}

TEST_F(DocumentUndoTest, AStepWithoutResetLeavesRedoAsItWas) {
    Step("a");
    Step("b");
    EXPECT_EQ(Undone(), "a");
    document.ProcessUndo();
    surface.SetText("c");
    EXPECT_EQ(Redone(), "b");
    EXPECT_EQ(Undone(), "c");
    EXPECT_EQ(Undone(), "a");
}

TEST_F(DocumentUndoTest, TheOldestOfManyComesBackForEver) {
    for (int step = 1; step <= 32; ++step) Step(QString::number(step));  // snapshots of "", "1" .. "31"
    for (int step = 31; step >= 1; --step) ASSERT_EQ(Undone(), QString::number(step));
    EXPECT_EQ(Undone(), "1");
    surface.SetText("other");
    EXPECT_EQ(Undone(), "1");
    // Each of the 33 pushed on the redo stack, which lost the two newest texts.
    EXPECT_EQ(Redone(), "other");
    EXPECT_EQ(Redone(), "1");
    for (int step = 2; step <= 30; ++step) ASSERT_EQ(Redone(), QString::number(step));
    EXPECT_EQ(Redone(), "30");
    EXPECT_EQ(Redone(), "30");
}

TEST_F(DocumentUndoTest, TheTextDiffersFromTheFile) {
    Step("a");
    document.SetSaver(true);
    document.HandleUndo();
    EXPECT_FALSE(document.Saver());
    document.SetSaver(true);
    document.HandleRedo();
    EXPECT_FALSE(document.Saver());
    document.SetSaver(true);
    document.HandleRedo();  // nothing to redo
    EXPECT_TRUE(document.Saver());
}

TEST_F(DocumentUndoTest, TheSurfaceTakesTheKeyboard) {
    QWidget other(&document);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    Step("a");
    other.setFocus();
    document.HandleUndo();
    EXPECT_TRUE(surface.hasFocus());
    other.setFocus();
    document.HandleRedo();
    EXPECT_TRUE(surface.hasFocus());
}

TEST_F(DocumentUndoTest, FourLinesOfContextStandAboveTheCaret) {
    QString text;
    for (int line = 0; line < 200; ++line) text += QString("line %1\r\n").arg(line);
    surface.SetText(text);
    const auto undoneAt = [&](int line) {
        surface.SetSelStart(static_cast<int>(surface.Text().indexOf(QString("line %1\r").arg(line))));
        document.ProcessUndo();
        surface.SetSelText("x");
        surface.SetSelStart(surface.Length());
        document.HandleUndo();
        EXPECT_EQ(surface.GetLineFromChar(surface.SelStart()), line);
        return surface.cursorForPosition({5, 5}).blockNumber();
    };
    EXPECT_EQ(undoneAt(100), 96);
    EXPECT_EQ(undoneAt(5), 1);
    EXPECT_EQ(undoneAt(4), 0);
    EXPECT_EQ(undoneAt(3), 0);
}

TEST_F(DocumentUndoTest, NothingOfAStepIsKeptWithoutASnapshot) {
    constexpr int length = 9000;
    constexpr std::size_t bytesOfText = length * sizeof(QChar);
    const auto steps = [this](int from, int to) {
        for (int step = from; step < to; ++step) Step(QString(length, QChar('a' + step % 26)));
        return test::HeapBytes();
    };
    const std::size_t withOne = steps(0, 1);
    const std::size_t withAll = steps(1, 60);
    EXPECT_GT(withAll, withOne + 30 * bytesOfText);
    EXPECT_LT(steps(60, 200), withAll + 20 * bytesOfText);
}

}  // namespace
}  // namespace vellum
