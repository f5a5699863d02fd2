#include "tools/tables/table_clipboard.h"

#include "tests/support/modal.h"
#include "tests/tools/tables/grid_fixture.h"

#include <QClipboard>

namespace vellum::test {
namespace {

class TableClipboard : public GridFixture {};

TEST_F(TableClipboard, HasDeleteBesideIt) {
    grid->ChangeActive([](TableCell& cell) { cell.image = "a.gif"; });
    EXPECT_TRUE(editor->isHidden()) << "an image can't be typed into";
    EXPECT_EQ(form.focusWidget(), grid);
    Type("x");
    EXPECT_EQ(Cell(0, 0), "00");
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Texts(), ",,02|10,11,12|20,21,22");
    EXPECT_EQ(grid->Cells().At(0, 0).image, "");
    ExpectIn(0, 0);
}

TEST_F(TableClipboard, TakesABlockAndGivesIt) {
    DragCells(*grid, {0, 0}, {1, 1});
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "00\t01\n10\t11");
    ClickCell(*grid, 1, 1);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "00,01,02|10,00,01|20,10,11");
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "00,01,02|10,,|20,,") << "what was pasted is selected";
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "00\t01\n10\t11");
}

TEST_F(TableClipboard, MakesTheTableGrow) {
    QGuiApplication::clipboard()->setText("a\tb\tc\r\nd\r\n\"e\nf\"\tg\r\n");
    ClickCell(*grid, 2, 1);
    grid->ChangeActive([](TableCell& cell) { cell.image = "a.gif"; });
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "00,01,02,|10,11,12,|20,a,b,c|,d,,|,e\nf,g,");
    EXPECT_EQ(grid->Cells().At(2, 1).image, "");
    EXPECT_EQ(grid->Cells().ColumnWidth(3), 1900);
    EXPECT_EQ(grid->Cells().RowHeight(4), 615);
    ExpectIn(2, 1);
}

TEST_F(TableClipboard, GivesASingleTextToEverySelectedCell) {
    QGuiApplication::clipboard()->setText("x");
    ClickCell(*grid, 0, 1);
    ClickCell(*grid, 2, 1, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "00,x,02|10,11,12|20,x,22");
    QGuiApplication::clipboard()->clear();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Texts(), "00,x,02|10,11,12|20,x,22");
}

TEST_F(TableClipboard, GoesIntoTheTextThatIsTyped) {
    QGuiApplication::clipboard()->setText("x\ty");
    Type("a");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Cell(0, 0), "ax\ty");
    EXPECT_EQ(Cell(0, 1), "01");
}

TEST_F(TableClipboard, HasAMenu) {
    DragCells(*grid, {0, 0}, {1, 0});
    const auto choose = [this](int row, int column, const QString& caption) {
        const auto [widget, place] = Under(*grid, row, column);
        QTest::mousePress(widget, Qt::RightButton, {}, place);
        InPopup(
            [&, target = widget, at = place] {
                QContextMenuEvent event(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
                QCoreApplication::sendEvent(target, &event);
            },
            [&](QMenu& menu) {
                for (QAction* action : menu.actions()) {
                    if (action->text().remove('&') == caption) action->trigger();
                }
            });
    };
    choose(0, 1, "Cut");
    EXPECT_EQ(Texts(), ",,02|10,11,12|20,21,22") << "within the selection the button leaves it";
    choose(2, 1, "Paste");
    EXPECT_EQ(Texts(), ",,02|10,11,12|20,00,01") << "elsewhere it moves it";
    choose(2, 1, "Clear");
    EXPECT_EQ(Texts(), ",,02|10,11,12|20,,");
    ClickCell(*grid, 1, 0);
    choose(1, 0, "Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "10");
}

}  // namespace
}  // namespace vellum::test
