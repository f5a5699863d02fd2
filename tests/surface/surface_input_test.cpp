#include "surface/surface_input.h"

#include "tests/surface/surface_fixture.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace vellum {
namespace {

using test::blue;
using test::red;

using SurfaceInputTest = test::SurfaceFixture;

TEST_F(SurfaceInputTest, TypesWithRealKeys) {
    QTest::keyClicks(&surface, "<p>");
    QTest::keyClick(&surface, Qt::Key_Return);
    QTest::keyClick(&surface, Qt::Key_Tab);
    QTest::keyClicks(&surface, "x");
    QTest::keyClick(&surface, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(&surface, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(surface.Text(), "<p>\r\n\tx\r\n\r\n");
    EXPECT_EQ(surface.SelStart(), 11);
}

TEST_F(SurfaceInputTest, DeletesWithRealKeys) {
    surface.SetText("one two\r\nthree four");
    surface.SetSelStart(9);
    QTest::keyClick(&surface, Qt::Key_Backspace);
    EXPECT_EQ(surface.Text(), "one twothree four");
    EXPECT_EQ(surface.SelStart(), 7);
    QTest::keyClick(&surface, Qt::Key_Delete);
    EXPECT_EQ(surface.Text(), "one twohree four");
    QTest::keyClick(&surface, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "one hree four");
    QTest::keyClick(&surface, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "one four");
    surface.SetText("a\r\nb");
    surface.SetSelStart(1);
    QTest::keyClick(&surface, Qt::Key_Delete);
    EXPECT_EQ(surface.Text(), "ab");
    surface.SetSelStart(0);
    QTest::keyClick(&surface, Qt::Key_Backspace);
    EXPECT_EQ(surface.Text(), "ab");
    surface.SetText(QString("x") + QChar(0xD83D) + QChar(0xDE00));
    surface.SetSelStart(3);
    QTest::keyClick(&surface, Qt::Key_Backspace);
    EXPECT_EQ(surface.Text(), "x");
}

TEST_F(SurfaceInputTest, SelectsAndReplacesWithRealKeys) {
    surface.SetText("abcd\r\nefgh");
    surface.SetSelStart(2);
    for (int step = 0; step < 4; ++step) QTest::keyClick(&surface, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(surface.SelStart(), 2);
    EXPECT_EQ(surface.SelLength(), 5);
    EXPECT_EQ(surface.SelText(), "cd\r\ne");
    QTest::keyClicks(&surface, "X");
    EXPECT_EQ(surface.Text(), "abXfgh");
    QTest::keyClick(&surface, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(surface.SelText(), "X");
    EXPECT_EQ(surface.SelStart(), 2);
}

TEST_F(SurfaceInputTest, UndoAndRedoKeysDoNothingHere) {
    QTest::keyClicks(&surface, "abc");
    QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&surface, Qt::Key_R, Qt::ControlModifier);
    QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(surface.Text(), "abc");
}

TEST_F(SurfaceInputTest, CopiesAndPastesPlainText) {
    surface.SetText(QString("a") + QChar(0xA0) + "b\r\nc");
    QTest::keyClick(&surface, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&surface, Qt::Key_C, Qt::ControlModifier);
    const QMimeData* const copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), QString("a") + QChar(0xA0) + "b\nc");
    EXPECT_FALSE(copied->hasHtml());
    QTest::keyClick(&surface, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "");
    auto* const rich = new QMimeData;
    rich->setHtml("<b>bold</b>");
    rich->setText("x\ny");
    QApplication::clipboard()->setMimeData(rich);
    QTest::keyClick(&surface, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "x\r\ny");
    EXPECT_EQ(surface.SelStart(), 4);
}

TEST_F(SurfaceInputTest, AnInputMethodComposesAndCommits) {
    surface.SetText("ab");
    surface.SetFormat({0, 1}, {red, false});
    surface.SetFormat({1, 1}, {blue, true});
    surface.SetSelStart(1);
    QSignalSpy changed(&surface, &EditSurface::Changed);
    Commit({}, "~");
    EXPECT_EQ(surface.Text(), "ab");
    EXPECT_EQ(changed.count(), 0);
    surface.viewport()->grab();  // painting while something is composed keeps both
    EXPECT_EQ(surface.document()->firstBlock().layout()->preeditAreaText(), "~");
    Commit(QString(QChar(0xF1)), {});
    EXPECT_EQ(surface.Text(), QString("a") + QChar(0xF1) + "b");
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(surface.SelStart(), 2);
    EXPECT_EQ(surface.FormatAt(0), (CharFormat{red, false}));
    EXPECT_EQ(surface.FormatAt(1), (CharFormat{red, false}));
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{blue, true}));
    Commit("n", {}, -1, 1);
    EXPECT_EQ(surface.Text(), "anb");
    EXPECT_EQ(surface.FormatAt(2), (CharFormat{blue, true}));
    surface.selectAll();
    Commit({}, "^");
    EXPECT_EQ(surface.Text(), "");
    Commit("z");
    EXPECT_EQ(surface.Text(), "z");
}

TEST_F(SurfaceInputTest, TakesDroppedTextAsPlainText) {
    surface.SetText("abcd");
    QTextCursor cursor(surface.document());
    cursor.setPosition(2);
    const QPoint place = surface.cursorRect(cursor).center();
    QMimeData dragged;
    dragged.setText("x\ny");
    dragged.setHtml("<b>x</b>");
    QDragEnterEvent enter(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface.viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(surface.viewport(), &drop);
    EXPECT_EQ(surface.Text(), "abx\r\nycd");
}

}  // namespace
}  // namespace vellum
