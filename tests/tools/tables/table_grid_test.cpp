#include "tools/tables/table_grid.h"

#include "tests/tools/tables/grid_fixture.h"

namespace vellum::test {
namespace {

class TableGrids : public GridFixture {};

TEST_F(TableGrids, EnterACellByAClick) {
    ExpectIn(0, 0);
    before->setFocus();
    ClickCell(*grid, 2, 1);
    ExpectIn(2, 1);
}

TEST_F(TableGrids, TakeWhatIsTypedInPlaceOfTheText) {
    Type("new");
    EXPECT_EQ(Cell(0, 0), "new");
    EXPECT_TRUE(editor->mask().isEmpty()) << "what is typed has the room beside the cell";
    Key(Qt::Key_Tab);
    ExpectIn(0, 1);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Cell(0, 1), "");
    EXPECT_EQ(Texts(), "new,,02|10,11,12|20,21,22");
}

TEST_F(TableGrids, GoDownByEnterAndOnAtTheTop) {
    Type("a");
    Key(Qt::Key_Return);
    ExpectIn(1, 0);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    Key(Qt::Key_Return);
    ExpectIn(0, 1);
    ClickCell(*grid, 2, 2);
    Key(Qt::Key_Return);
    ExpectIn(2, 2);
    EXPECT_EQ(confirmed, 0) << "Enter in the last cell is no OK";
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(TableGrids, GoThroughByTabAndLeaveAtTheEnds) {
    for (int cell = 1; cell < 9; ++cell) {
        Key(Qt::Key_Tab);
        ExpectIn(cell / 3, cell % 3);
    }
    Key(Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), after);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectIn(2, 2);
    for (int cell = 7; cell >= 0; --cell) {
        Key(Qt::Key_Backtab, Qt::ShiftModifier);
        ExpectIn(cell / 3, cell % 3);
    }
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.focusWidget(), before);
}

TEST_F(TableGrids, GoByArrowsWhileNothingIsTyped) {
    Key(Qt::Key_Right);
    ExpectIn(0, 1);
    Key(Qt::Key_Down);
    ExpectIn(1, 1);
    Key(Qt::Key_Left);
    Key(Qt::Key_Up);
    ExpectIn(0, 0);
    Key(Qt::Key_Up);
    Key(Qt::Key_Left);
    ExpectIn(0, 0);
    Key(Qt::Key_End, Qt::ControlModifier);
    ExpectIn(2, 2);
    Key(Qt::Key_Home);
    ExpectIn(2, 0);
    Key(Qt::Key_End);
    Key(Qt::Key_Up, Qt::ControlModifier);
    ExpectIn(0, 2);
    Key(Qt::Key_PageDown);
    ExpectIn(2, 2);
    Key(Qt::Key_Home, Qt::ControlModifier);
    ExpectIn(0, 0);
}

TEST_F(TableGrids, KeepArrowsInTheTextThatIsTypedUpToItsEnds) {
    Type("ab");
    Key(Qt::Key_Left);
    Type("x");
    EXPECT_EQ(Cell(0, 0), "axb");
    Key(Qt::Key_Right);
    EXPECT_EQ(Place(), QPoint(0, 0));
    Key(Qt::Key_Right);
    ExpectIn(0, 1);
    Type("a");
    Key(Qt::Key_Left);
    Key(Qt::Key_Left);
    ExpectIn(0, 0);
    Type("a");
    Key(Qt::Key_Down);
    ExpectIn(1, 0);
}

TEST_F(TableGrids, EditATextByF2AndByADoubleClick) {
    Key(Qt::Key_F2);
    Type("x");
    EXPECT_EQ(Cell(0, 0), "00x");
    ClickCell(*grid, 1, 1);
    const auto [widget, place] = Under(*grid, 1, 1);
    QTest::mouseDClick(widget, Qt::LeftButton, {}, {0, place.y()});
    Type("x");
    EXPECT_EQ(Cell(1, 1), "x11") << "where the pointer was";
}

TEST_F(TableGrids, BringATextBackByEscAndLeaveTheNextOneToTheForm) {
    DragCells(*grid, {0, 0}, {1, 0});
    Type("new");
    EXPECT_EQ(Texts(), "new,new,02|10,11,12|20,21,22");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Texts(), "00,01,02|10,11,12|20,21,22");
    ExpectIn(0, 0);
    EXPECT_TRUE(form.isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TableGrids, BreakLinesAndGrowWithThem) {
    Key(Qt::Key_Return, Qt::AltModifier);
    Type("b");
    EXPECT_EQ(Cell(0, 0), "00\nb") << "after what stands there";
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Cell(0, 0), "00\nb\n");
    EXPECT_EQ(grid->Cells().RowHeight(0), 3 * 300 + 15);
    EXPECT_EQ(grid->rowHeight(0), 61);
    EXPECT_EQ(editor->verticalScrollBar()->value(), 0) << "all lines show";
    Key(Qt::Key_Up);
    EXPECT_EQ(Place(), QPoint(0, 0)) << "there are lines above";
    Key(Qt::Key_Up);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Place(), QPoint(0, 0));
    Key(Qt::Key_Down);
    ExpectIn(1, 0);
}

TEST_F(TableGrids, ChangeEverySelectedCell) {
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Type("x");
    EXPECT_EQ(Texts(), "x,x,02|x,x,12|20,21,22");
    EXPECT_EQ(Place(), QPoint(0, 0)) << "the selection began there";
    ClickCell(*grid, 1, 1);
    ClickCell(*grid, 2, 2, Qt::ShiftModifier);
    Type("y");
    EXPECT_EQ(Texts(), "x,x,02|x,y,y|20,y,y");
    DragCells(*grid, {2, 1}, {1, 0});
    Type("z");
    EXPECT_EQ(Texts(), "x,z,z|x,z,z|20,y,y");
    EXPECT_EQ(Place(), QPoint(2, 1));
    Key(Qt::Key_Tab);
    ExpectIn(2, 0);
    Type("1");
    EXPECT_EQ(Texts(), "x,z,z|x,z,z|1,y,y") << "a key without Shift goes on with one cell";
}

TEST_F(TableGrids, ExtendASelectionFromWhereTheKeyboardCame) {
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    ClickCell(*grid, 2, 2, Qt::ShiftModifier);
    Type("x");
    EXPECT_EQ(Texts(), "00,01,02|10,x,x|20,x,x");
    Key(Qt::Key_Escape);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    Type("y");
    EXPECT_EQ(Texts(), "00,01,02|10,y,12|20,21,22") << "back to the one cell";
}

TEST_F(TableGrids, DragASelectionFromTheCellThatIsActive) {
    DragCells(*grid, {0, 0}, {1, 1});
    Type("x");
    EXPECT_EQ(Texts(), "x,x,02|x,x,12|20,21,22");
}

TEST_F(TableGrids, AddSingleCellsToTheSelectionWithCtrl) {
    ClickCell(*grid, 1, 1, Qt::ControlModifier);
    ClickCell(*grid, 2, 0, Qt::ControlModifier);
    Type("x");
    EXPECT_EQ(Texts(), "x,01,02|10,x,12|x,21,22");
}

TEST_F(TableGrids, SelectAColumnByItsHeaderAndAllByCtrlA) {
    const QHeaderView& header = *grid->horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      {header.sectionViewportPosition(1) + header.sectionSize(1) / 2, header.height() / 2});
    EXPECT_EQ(Place(), QPoint(1, 0));
    Type("x");
    EXPECT_EQ(Texts(), "00,x,02|10,x,12|20,x,22");
    ClickCell(*grid, 0, 0);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type("y");
    EXPECT_EQ(Texts(), "y,y,y|y,y,y|y,y,y");
}

TEST_F(TableGrids, GoOnSelectingWhileTheMouseIsBeyondTheEdge) {
    grid->Resize(200, 3);
    QWidget* const cells = grid->viewport();
    QTest::mousePress(cells, Qt::LeftButton, {}, grid->visualRect(grid->model()->index(1, 0)).center());
    const QPoint below(10, cells->height() + 50);
    QMouseEvent move(QEvent::MouseMove, below, cells->mapToGlobal(below), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(cells, &move);
    const int reached = grid->currentIndex().row();
    EXPECT_TRUE(QTest::qWaitFor([&] { return grid->currentIndex().row() >= reached + 3; }));
    QTest::mouseRelease(cells, Qt::LeftButton, {}, below);
    EXPECT_TRUE(grid->selectionModel()->isSelected(grid->model()->index(reached + 3, 0)));
    EXPECT_EQ(Place(), QPoint(0, 1));
}

TEST_F(TableGrids, PassACellWithAnImage) {
    grid->ChangeActive([](TableCell& cell) { cell.image = "a.gif"; });
    Key(Qt::Key_Right);
    ExpectIn(0, 1);
    Key(Qt::Key_Left);
    EXPECT_TRUE(editor->isHidden());
    Key(Qt::Key_Tab);
    ExpectIn(0, 1);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    Key(Qt::Key_Return);
    ExpectIn(1, 0);
    Key(Qt::Key_Up);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(TableGrids, TakeWidthsAndHeightsThatTheMouseDrags) {
    int told = 0;
    QObject::connect(grid, &TableGrid::SizesChanged, &form, [&told] { ++told; });
    DragSection(*grid->horizontalHeader(), 1, 24);
    EXPECT_EQ(grid->Cells().ColumnWidth(1), (126 + 24) * 15);
    EXPECT_EQ(grid->Cells().ColumnWidth(0), 1900) << "what nobody drags stays exact";
    DragSection(*grid->verticalHeader(), 0, 10);
    EXPECT_EQ(grid->Cells().RowHeight(0), 465);
    EXPECT_EQ(told, 2);
    ClickCell(*grid, 0, 1);
    ExpectIn(0, 1);
    DragSection(*grid->horizontalHeader(), 1, -50);
    ExpectIn(0, 1);
}

TEST_F(TableGrids, KeepARowLowThatNeedsNoMore) {
    DragSection(*grid->verticalHeader(), 0, -8);
    Type("x");
    EXPECT_EQ(grid->Cells().RowHeight(0), 195);
    grid->ChangeSelected([](TableCell& cell) { cell.fontSize = 36; });
    EXPECT_EQ(grid->Cells().RowHeight(0), 915);
}

TEST_F(TableGrids, FitAColumnByADoubleClickOnItsEdge) {
    grid->SetText(1, 0, "a text that is far too long for its column");
    QHeaderView& header = *grid->horizontalHeader();
    const QPoint edge(header.sectionViewportPosition(0) + header.sectionSize(0) - 1, header.height() / 2);
    QTest::mouseDClick(header.viewport(), Qt::LeftButton, {}, edge);
    EXPECT_GT(grid->Cells().ColumnWidth(0), 1900);
}

TEST_F(TableGrids, HideTheFieldUntilTheyAreUsedAgain) {
    grid->HideEditor();
    EXPECT_TRUE(editor->isHidden());
    EXPECT_EQ(form.focusWidget(), grid);
    Type("x");
    EXPECT_EQ(Cell(0, 0), "x");
    after->setFocus();
    grid->HideEditor();
    EXPECT_EQ(form.focusWidget(), after);
    ClickCell(*grid, 0, 0);
    ExpectIn(0, 0);
}

TEST_F(TableGrids, GoToANeighbourWhenTheActiveCellGoes) {
    ClickCell(*grid, 2, 2);
    grid->Resize(2, 3);
    EXPECT_EQ(Place(), QPoint(2, 1));
    grid->Resize(2, 1);
    EXPECT_EQ(Place(), QPoint(0, 1));
    EXPECT_EQ(editor->toPlainText(), "10");
}

TEST_F(TableGrids, ShowColorsOnPaperOfTheirOwn) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, QColor(240, 240, 240));
    grid->setPalette(dark);
    grid->ChangeAll([](TableCell& cell) { cell.text.clear(); });
    ClickCell(*grid, 2, 2);
    const auto paper = [this](int row, int column) {
        const QPoint center = grid->visualRect(grid->model()->index(row, column)).center();
        return grid->viewport()->grab().toImage().pixelColor(center);
    };
    EXPECT_EQ(paper(0, 0), QColor(Qt::white));
    EXPECT_EQ(paper(2, 2), QColor(Qt::white));
    ClickCell(*grid, 0, 0);
    grid->ChangeActive([](TableCell& cell) { cell.backColor = 0x0080FF; });
    EXPECT_EQ(paper(0, 0), QColor(Qt::white)) << "the page shows through";
    grid->SetLook({.textColors = false, .backColors = true});
    EXPECT_EQ(paper(0, 0), QColor(255, 128, 0)) << "under the field";
    ClickCell(*grid, 1, 1);
    EXPECT_EQ(paper(0, 0), QColor(255, 128, 0));
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::black));
    grid->ChangeActive([](TableCell& cell) { cell.color = 0xFF0000; });
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::black));
    grid->SetLook({.textColors = true, .backColors = true});
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::blue));
}

TEST_F(TableGrids, PaintPicturesWithinTheirCells) {
    QImage red(400, 400, QImage::Format_RGB32);
    red.fill(Qt::red);
    ClickCell(*grid, 1, 1);
    grid->ChangeActive([&](TableCell& cell) {
        cell.text.clear();
        cell.image = "a.gif";
        cell.picture = red;
    });
    ClickCell(*grid, 0, 0);
    const QImage shown = grid->viewport()->grab().toImage();
    const QRect cell = grid->visualRect(grid->model()->index(1, 1));
    EXPECT_EQ(shown.pixelColor(cell.left() + cell.height() / 2, cell.center().y()), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(cell.right() - 5, cell.center().y()), QColor(Qt::white)) << "in its own proportions";
    EXPECT_EQ(shown.pixelColor(cell.left() + 10, cell.bottom() + 3), QColor(Qt::white));
}

TEST_F(TableGrids, NeedNoWidgetACell) {
    const auto widgets = [this] { return grid->findChildren<QWidget*>().size(); };
    const auto few = widgets();
    grid->Resize(200, 17);
    EXPECT_EQ(widgets(), few);
}

TEST_F(TableGrids, StopAtTheLastRowWithTheWheel) {
    grid->Resize(60, 3);
    const auto turn = [this](int angle) {
        const QPoint middle = grid->viewport()->rect().center();
        QWheelEvent event(middle, grid->viewport()->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(grid->viewport(), &event);
    };
    for (int i = 0; i < 100; ++i) turn(-120);
    EXPECT_EQ(grid->rowAt(grid->viewport()->height() - 1), 59);
    for (int i = 0; i < 100; ++i) turn(120);
    EXPECT_EQ(grid->rowAt(0), 0);
}

}  // namespace
}  // namespace vellum::test
