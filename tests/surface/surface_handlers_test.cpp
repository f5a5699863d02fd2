#include "surface/surface_handlers.h"

#include "surface/edit_surface.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace vellum {
namespace {

// Notes what it is asked, and swallows what it is told to.
class NotingHandlers : public SurfaceHandlers {
public:
    bool KeyDown(int key, int shiftState, bool edits) override {
        notes << QStringLiteral("down %1 %2%3").arg(key, 0, 16).arg(shiftState).arg(edits ? " edits" : "");
        return key == swallowedKey;
    }
    bool KeyPress(const QString& character, int shiftState) override {
        notes << QStringLiteral("press %1 %2")
                     .arg(QString(character).replace('\r', "CR").replace('\t', "TAB").replace('\b', "BS"))
                     .arg(shiftState);
        return character == swallowedCharacter;
    }
    void KeyUp(int key, int shiftState) override {
        notes << QStringLiteral("up %1 %2").arg(key, 0, 16).arg(shiftState);
    }
    void MouseDown(Qt::MouseButton button) override { notes << QStringLiteral("mouse down %1").arg(button); }
    void MouseMove() override { notes << "move"; }
    void MouseUp(Qt::MouseButton button) override { notes << QStringLiteral("mouse up %1").arg(button); }
    void ContextMenu(QPoint /*place*/) override { notes << "menu"; }
    void Paste(const QString& text) override {
        notes << "paste " + text;
        surface->SetSelText(text);
    }
    void Cut() override { notes << "cut"; }
    void Copy() override { notes << "copy"; }

    QStringList Taken() { return std::exchange(notes, {}); }

    EditSurface* surface = nullptr;
    int swallowedKey = 0;
    QString swallowedCharacter;
    QStringList notes;
};

class SurfaceHandlersTest : public testing::Test {
protected:
    void SetUp() override {
        handlers.surface = &surface;
        surface.SetHandlers(&handlers);
        surface.resize(400, 300);
        surface.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface));
    }

    void Commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&surface, &event);
    }

    void Drop(const QString& text, QPoint place) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.viewport(), &enter);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(surface.viewport(), &event);
    }

    NotingHandlers handlers;
    EditSurface surface;
};

TEST_F(SurfaceHandlersTest, AKeyGoesDownIsTypedAndGoesUp) {
    QTest::keyClick(&surface, Qt::Key_A);
    EXPECT_EQ(handlers.Taken(), (QStringList{"down 41 0", "press a 0", "up 41 0"}));
    EXPECT_EQ(surface.Text(), "a");
    QTest::keyClick(&surface, 'A', Qt::ShiftModifier);
    const QString shift = QString::number(Qt::Key_Shift, 16);  // goes down and up by itself
    EXPECT_EQ(handlers.Taken(),
              (QStringList{"down " + shift + " 1", "down 41 1", "press A 1", "up 41 1", "up " + shift + " 0"}));
}

TEST_F(SurfaceHandlersTest, EnterTabAndBackspaceAreCharacters) {
    QTest::keyClick(&surface, Qt::Key_Return);
    QTest::keyClick(&surface, Qt::Key_Tab);
    QTest::keyClick(&surface, Qt::Key_Backspace);
    QTest::keyClick(&surface, Qt::Key_Backtab, Qt::ShiftModifier);
    const QStringList presses = handlers.Taken().filter("press");
    EXPECT_EQ(presses, (QStringList{"press CR 0", "press TAB 0", "press BS 0", "press TAB 1"}));
    EXPECT_EQ(surface.Text(), "\r\n\t");
}

TEST_F(SurfaceHandlersTest, EnterAndBackspaceAreCharactersWhileAltGrIsHeld) {
    QTest::keyClick(&surface, Qt::Key_Return, Qt::GroupSwitchModifier);
    QTest::keyClick(&surface, Qt::Key_Backspace, Qt::GroupSwitchModifier);
    EXPECT_EQ(handlers.Taken().filter("press"), (QStringList{"press CR 0", "press BS 0"}));
    EXPECT_EQ(surface.Text(), "");
}

TEST_F(SurfaceHandlersTest, OtherKeysAreNone) {
    surface.SetText("ab");
    QTest::keyClick(&surface, Qt::Key_Right);
    QTest::keyClick(&surface, Qt::Key_Delete);
    QTest::keyClick(&surface, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&surface, Qt::Key_Escape);
    EXPECT_TRUE(handlers.Taken().filter("press").isEmpty());
    EXPECT_EQ(surface.Text(), "a");
}

TEST_F(SurfaceHandlersTest, ASwallowedKeyDoesNothing) {
    handlers.swallowedKey = Qt::Key_A;
    QTest::keyClick(&surface, Qt::Key_A);
    EXPECT_EQ(handlers.Taken(), (QStringList{"down 41 0", "up 41 0"}));
    handlers.swallowedKey = 0;
    handlers.swallowedCharacter = "a";
    QTest::keyClick(&surface, Qt::Key_A);
    QTest::keyClick(&surface, Qt::Key_B);
    EXPECT_EQ(surface.Text(), "b");
    handlers.swallowedCharacter = "\b";
    QTest::keyClick(&surface, Qt::Key_Backspace);
    EXPECT_EQ(surface.Text(), "b");
}

TEST_F(SurfaceHandlersTest, DeletingAWordCountsAsEditing) {
    surface.SetText("one two");
    surface.SetSelStart(7);
    QTest::keyClick(&surface, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(surface.Text(), "one ");
    EXPECT_EQ(handlers.Taken().filter("edits"),
              QStringList{QStringLiteral("down %1 2 edits").arg(Qt::Key_Backspace, 0, 16)});
}

TEST_F(SurfaceHandlersTest, AnInputMethodTypesCharacterByCharacter) {
    handlers.swallowedCharacter = "x";
    Commit(QString::fromUtf8("äx😀"));
    EXPECT_EQ(surface.Text(), QString::fromUtf8("ä😀"));
    const QString unknown = QString::number(Qt::Key_unknown, 16);
    EXPECT_EQ(handlers.Taken(), (QStringList{"down " + unknown + " 0", QString::fromUtf8("press ä 0"), "press x 0",
                                             QString::fromUtf8("press 😀 0"), "up " + unknown + " 0"}));
}

TEST_F(SurfaceHandlersTest, PastedTextGoesToTheHandlers) {
    QApplication::clipboard()->setText("<b>x</b>");
    surface.paste();
    EXPECT_EQ(handlers.Taken(), QStringList{"paste <b>x</b>"});
    QTest::keyClick(&surface, Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(handlers.Taken().filter("paste"), QStringList{"paste <b>x</b>"});
    QTest::keyClick(&surface, Qt::Key_Insert, Qt::ControlModifier);
    QTest::keyClick(&surface, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(handlers.Taken().filter(QRegularExpression("^c")), (QStringList{"copy", "cut"}));
}

TEST_F(SurfaceHandlersTest, OnePastedCharacterIsTyped) {
    QApplication::clipboard()->setText("<");
    surface.paste();
    EXPECT_EQ(handlers.Taken().filter(QRegularExpression("^p")), QStringList{"press < 0"});
    EXPECT_EQ(surface.Text(), "<");
}

TEST_F(SurfaceHandlersTest, DroppedTextIsPasted) {
    surface.SetText("one");
    Drop("<i>", {395, 5});
    EXPECT_EQ(handlers.Taken().filter("paste"), QStringList{"paste <i>"});
    EXPECT_EQ(surface.Text(), "one<i>");
}

class ComposingTest : public SurfaceHandlersTest {
protected:
    void SetUp() override {
        SurfaceHandlersTest::SetUp();
        surface.SetText("<b>\r\none");
        surface.SetFormat({0, 3}, {.color = 0xFF, .bold = true});
        Compose();
    }
    void Compose() {
        surface.SetSelStart(3);
        QInputMethodEvent compose("xyz", {});
        QApplication::sendEvent(&surface, &compose);
        ASSERT_EQ(Composed(), "xyz");
    }
    [[nodiscard]] QString Composed() const {
        QString all;
        for (QTextBlock block = surface.document()->begin(); block.isValid(); block = block.next()) {
            all += block.layout()->preeditAreaText();
        }
        return all;
    }
};

TEST_F(ComposingTest, KeysThatActOnTheTextEndIt) {
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_Down, Qt::Key_A, Qt::Key_Return,
                              Qt::Key_Tab, Qt::Key_Backspace, Qt::Key_Delete}) {
        Compose();
        QTest::keyClick(&surface, Qt::Key_Shift);
        ASSERT_EQ(Composed(), "xyz");
        QTest::keyClick(&surface, key);
        EXPECT_EQ(Composed(), QString()) << key;
    }
}

TEST_F(ComposingTest, AClickEndsItAndLeavesTheColours) {
    QTest::mouseClick(surface.viewport(), Qt::LeftButton, {}, {300, 200});
    EXPECT_EQ(Composed(), QString());
    surface.grab();
    EXPECT_EQ(surface.document()->begin().layout()->formats().size(), 1);
}

TEST_F(ComposingTest, ACommandEndsIt) {
    surface.SetSelStart(5);
    EXPECT_EQ(Composed(), QString());
    Compose();
    const EditSurface::Snapshot snapshot = surface.TakeSnapshot();
    surface.Restore(snapshot);
    EXPECT_EQ(Composed(), QString());
    Compose();
    surface.SetSelText("one\ntwo");
    EXPECT_EQ(Composed(), QString());
    Compose();
    surface.SetText("other");
    EXPECT_EQ(Composed(), QString());
}

TEST_F(SurfaceHandlersTest, ButtonsAndMovesAreReported) {
    QTest::mouseClick(surface.viewport(), Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(handlers.Taken().filter("mouse"), (QStringList{"mouse down 1", "mouse up 1"}));
    surface.viewport()->setMouseTracking(true);
    QTest::mouseMove(surface.viewport(), {30, 30});
    EXPECT_TRUE(handlers.Taken().contains("move"));
}

TEST_F(SurfaceHandlersTest, TheRightButtonAsksForTheMenuOnce) {
    QTest::mousePress(surface.viewport(), Qt::RightButton, {}, {5, 5});
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(surface.viewport(), &byMouse);
    EXPECT_EQ(handlers.Taken(), QStringList{"menu"});
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(surface.viewport(), &byKey);
    EXPECT_EQ(handlers.Taken(), QStringList{"menu"});
}

}  // namespace
}  // namespace vellum
