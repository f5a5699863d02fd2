// The Edit menu on a real document.
#include "tests/shell/main_window_fixture.h"
#include "widgets/tab_strip.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

namespace vellum::test {
namespace {

class EditMenuTest : public MainWindowFixture {
protected:
    // Opens a document with what stands between two "|" selected.
    EditSurface& OpenText(QString marked) {
        Open();
        const auto from = static_cast<int>(marked.indexOf(u'|'));
        const auto to = static_cast<int>(marked.lastIndexOf(u'|'));
        EditSurface& surface = *Active().Text1;
        surface.SetText(marked.remove(u'|'));
        surface.SetSelStart(from);
        if (to > from) surface.SetSelLength(to - from - 1);
        Active().SetSaver(true);
        return surface;
    }
};

TEST_F(EditMenuTest, ShowsTheKeysThatItLeavesToTheEditor) {
    EditSurface& surface = OpenText("a|b|c");
    const std::pair<const char*, Qt::Key> items[] = {{"mnuUndoItem", Qt::Key_Z},
                                                     {"mnuRedoItem", Qt::Key_R},
                                                     {"mnuCutItem", Qt::Key_X},
                                                     {"mnuCopyItem", Qt::Key_C},
                                                     {"mnuItemPaste", Qt::Key_V}};
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    for (const auto& [name, key] : items) {
        auto* const item = window->findChild<QAction*>(name);
        ASSERT_NE(item, nullptr) << name;
        EXPECT_EQ(item->shortcut(), QKeySequence(QKeyCombination(Qt::ControlModifier, key))) << name;
        const QSignalSpy triggered(item, &QAction::triggered);
        for (QWidget* place : {static_cast<QWidget*>(&surface), static_cast<QWidget*>(window->TabStrip1)}) {
            place->setFocus();
            QTest::keyClick(place, key, Qt::ControlModifier);
        }
        EXPECT_EQ(triggered.count(), 0) << name;
    }
}

TEST_F(EditMenuTest, TheClipboardCommandsReachTheActiveDocument) {
    EditSurface& surface = OpenText("a|bc|d");
    Trigger("mnuCopyItem");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "bc");
    EXPECT_TRUE(Active().Saver());
    Trigger("mnuDeleteItem");
    EXPECT_EQ(surface.Text(), "ad");
    Trigger("mnuItemPaste");
    EXPECT_EQ(surface.Text(), "abcd");
    Trigger("mnuSelectItem");
    EXPECT_EQ(surface.SelText(), "abcd");
    Trigger("mnuCutItem");
    EXPECT_EQ(surface.Text(), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "abcd");
    EXPECT_FALSE(Active().Saver());
}

TEST_F(EditMenuTest, TheCaseCommandsConvertAndPaint) {
    EditSurface& surface = OpenText("<A HREF=\"X\">T</A>|");
    const int colored = window->colored;
    Trigger("mnuCaseLowerItem");
    EXPECT_EQ(surface.Text(), "<a href=\"X\">T</a>");
    EXPECT_EQ(window->colored, colored + 1);
    Trigger("mnuCaseUpperItem");
    EXPECT_EQ(surface.Text(), "<A HREF=\"X\">T</A>");
    EXPECT_EQ(window->colored, colored + 2);
}

TEST_F(EditMenuTest, GotoLineAsksAndSelects) {
    EditSurface& surface = OpenText("one\r\ntwo\r\nthree|");
    prompts.inputs = {"2", "4"};
    Trigger("mnuLineItem");
    EXPECT_EQ(surface.SelText(), "two");
    EXPECT_EQ(surface.SelStart(), 5);
    ASSERT_EQ(prompts.questions.size(), 1);
    EXPECT_TRUE(prompts.questions.constFirst().endsWith("|Goto Line..."));
    Trigger("mnuLineItem");
    EXPECT_EQ(prompts.messages, QStringList{"Line Does Not Exist"});
    EXPECT_EQ(surface.SelStart(), 5);
}

}  // namespace
}  // namespace vellum::test
