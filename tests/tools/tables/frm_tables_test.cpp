#include "tools/tables/frm_tables.h"

#include "tests/tools/tables/builder_fixture.h"

namespace vellum::test {
namespace {

class TableBuilder : public BuilderFixture {};

QString CellTag(const QString& width, const QString& rest, const QString& style, const QString& content) {
    return "<td width=\"" + width + "\"" + rest + " align=\"LEFT\" valign=\"TOP\">\r\n<span style=\"" + style +
           "\">\r\n" + content + "\r\n</span>\r\n</td>\r\n";
}

QString PlainCell(const QString& content) {
    return CellTag("126.666666666667", {}, "font-size: 12pt", content);
}

// Two by two cells between what is written around them.
QString Table(const QString& before, const QString& attributes, const QStringList& cells, const QString& after = {}) {
    return "\r\n<!-- Begin Table -->\r\n" + before + "<table" + attributes + ">\r\n<tr>\r\n" + cells.at(0) +
           cells.at(1) + "</tr>\r\n<tr>\r\n" + cells.at(2) + cells.at(3) + "</tr>\r\n</table>\r\n" + after +
           "<!-- End Table -->";
}

constexpr auto usual = " cellpadding=\"3\" cellspacing=\"2\"";

QStringList FourPlain(const QString& first = {}) {
    return {PlainCell(first), PlainCell({}), PlainCell({}), PlainCell({})};
}

TEST_F(TableBuilder, WritesAnEmptyTableByDefault) {
    EXPECT_EQ(Written([](frmTables& tool) {
                  EXPECT_EQ(tool.windowTitle(), "The Table Builder");
                  EXPECT_EQ(tool.focusWidget(), &Editor(tool)) << "ready to type";
              }),
              Table({}, usual, FourPlain()));
    EXPECT_EQ(window.focusWidget(), document.Text1);
}

TEST_F(TableBuilder, WritesInPlaceOfTheSelection) {
    document.Text1->SetText("axb");
    document.Text1->SetSelStart(1);
    document.Text1->SetSelLength(1);
    Open([](frmTables& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "a" + Table({}, usual, FourPlain()) + "b");
    document.HandleUndo();
    EXPECT_EQ(Text(), "axb");
}

TEST_F(TableBuilder, WritesWhatWasTypedAndSet) {
    EXPECT_EQ(Written([](frmTables& tool) {
                  TypeIn(tool, 0, 0, "a<b");
                  QTest::keyClick(tool.focusWidget(), Qt::Key_Tab);
                  QTest::keyClicks(tool.focusWidget(), "a&b");
                  Tab(tool, 1);
                  Type(tool, "Combo1", "center");
                  Type(tool, "Combo8", "1");
                  Type(tool, "Combo3", "RED");
                  Type(tool, "Combo10", "4");
                  Type(tool, "Combo9", "5");
                  Type(tool, "Combo4", "VOID");
                  Type(tool, "Combo6", "ALL");
                  Type(tool, "txtTVAngle", "-90");
                  Type(tool, "txtTVColor", "#112233");
                  Type(tool, "cboTVTrans", "10");
              }),
              Table("<center>\r\n",
                    " align=center border=\"1\" bordercolor=\"RED\" cellpadding=\"4\" cellspacing=\"5\" frame=\"VOID\" "
                    "rules=\"ALL\" gradangle=\"-90\" gradcolor=\"#112233\" transparency=\"10\"",
                    {PlainCell("a&lt;b"), PlainCell("a&b"), PlainCell({}), PlainCell({})}, "</center>\r\n"));
}

TEST_F(TableBuilder, OpensCenterForTheListsWordAlone) {
    EXPECT_EQ(Written([](frmTables& tool) {
                  Tab(tool, 1);
                  auto& box = Get<QComboBox>(tool, "Combo1");
                  box.setFocus();
                  QTest::keyClick(&box, Qt::Key_Down);
                  QTest::keyClick(&box, Qt::Key_Down);
                  EXPECT_EQ(box.currentText(), "CENTER");
              }),
              Table("<center>\r\n", QString(" align=CENTER") + usual, FourPlain()));
}

TEST_F(TableBuilder, PutsATitleOverAllColumns) {
    const QString text = Written([](frmTables& tool) {
        Tab(tool, 1);
        Type(tool, "Text9", "Prices");
    });
    EXPECT_TRUE(
        text.contains(">\r\n<thead>\r\n<tr>\r\n<th colspan=\"2\">Prices</th>\r\n</tr>\r\n</thead>\r\n"
                      "<tbody>\r\n<tr>\r\n<td "));
    EXPECT_TRUE(text.contains("</td>\r\n</tr>\r\n</tbody>\r\n</table>\r\n"));
}

TEST_F(TableBuilder, SharesTheWidthOut) {
    const QString half = CellTag("50%", {}, "font-size: 12pt", {});
    EXPECT_EQ(Written([](frmTables& tool) {
                  Tab(tool, 1);
                  EXPECT_EQ(Field(tool, "Combo11"), "100%");
                  Click(tool, "Check3");
              }),
              Table({}, QString(usual) + " width=\"100%\"", {half, half, half, half}));
}

TEST_F(TableBuilder, WritesTheWidthsThatWereDragged) {
    const QString text = Written([](frmTables& tool) {
        DragSection(*Grid(tool).horizontalHeader(), 0, 34);
        DragSection(*Grid(tool).verticalHeader(), 1, 15);
        Tab(tool, 1);
        Click(tool, "chkRowHeight");
    });
    const auto cell = [](const QString& width, const QString& height) {
        return CellTag(width, " height=\"" + height + "\"", "font-size: 12pt", {});
    };
    EXPECT_EQ(text, Table({}, usual,
                          {cell("160", "21"), cell("126.666666666667", "21"), cell("160", "36"),
                           cell("126.666666666667", "36")}));
}

TEST_F(TableBuilder, ColorsBackgrounds) {
    bench.prompts.colors = {0x0080FF, 0};
    EXPECT_EQ(Written([](frmTables& tool) {
                  EXPECT_FALSE(Enabled(tool, "Command6"));
                  Tab(tool, 1);
                  Click(tool, "Check2");
                  Tab(tool, 0);
                  DragCells(Grid(tool), {0, 0}, {1, 0});
                  Click(tool, "Command6");
                  ClickCell(Grid(tool), 1, 0);
                  Click(tool, "Command6");
                  ClickCell(Grid(tool), 1, 1);
                  Click(tool, "Command6");  // the dialog is cancelled
              }),
              Table({}, usual,
                    {CellTag("126.666666666667", " bgcolor=\"#FF8000\"", "font-size: 12pt", {}),
                     CellTag("126.666666666667", " bgcolor=\"#FF8000\"", "font-size: 12pt", {}),
                     CellTag("126.666666666667", " bgcolor=\"#000000\"", "font-size: 12pt", {}),
                     CellTag("126.666666666667", " bgcolor=\"#FFFFFF\"", "font-size: 12pt", {})}));
}

TEST_F(TableBuilder, ColorsTextsWhileThatIsChecked) {
    bench.prompts.colors = {0x0000FF};
    const QString red = CellTag("126.666666666667", {}, "color: #FF0000; font-size: 12pt", "a");
    const QString black = CellTag("126.666666666667", {}, "color: #000000; font-size: 12pt", {});
    EXPECT_EQ(Written([](frmTables& tool) {
                  EXPECT_FALSE(Enabled(tool, "Command1"));
                  Tab(tool, 1);
                  Click(tool, "Check4");
                  Tab(tool, 0);
                  TypeIn(tool, 0, 0, "a");
                  Click(tool, "Command1");
                  EXPECT_EQ(Editor(tool).palette().color(QPalette::Text), QColor(Qt::red));
                  EXPECT_EQ(tool.focusWidget(), &Editor(tool));
              }),
              Table({}, usual, {red, black, black, black}));
}

TEST_F(TableBuilder, ForgetsTextColorsWhenTheyAreSwitchedOff) {
    bench.prompts.colors = {0x0000FF};
    Open([](frmTables& tool) {
        Tab(tool, 1);
        Click(tool, "Check4");
        Tab(tool, 0);
        Grid(tool).selectAll();
        Click(tool, "Command1");
        Tab(tool, 1);
        Click(tool, "Check4");
        EXPECT_FALSE(Enabled(tool, "Command1"));
        EXPECT_EQ(Cell(tool, 1, 1).color, 0U);
        EXPECT_TRUE(Editor(tool).isHidden());
        Click(tool, "Check4");
        EXPECT_EQ(Cell(tool, 0, 0).color, 0U);
    });
}

TEST_F(TableBuilder, StartsColorDialogsAtTheColorOfTheCell) {
    bench.prompts.colors = {0x0000FF, 0x00FF00};
    Open([this](frmTables& tool) {
        Tab(tool, 1);
        Click(tool, "Check4");
        Click(tool, "Check2");
        Tab(tool, 0);
        for (const char* button : {"Command1", "Command6", "Command1", "Command6"}) Click(tool, button);
        EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0, 0xFFFFFF, 0x0000FF, 0x00FF00}));
    });
}

TEST_F(TableBuilder, PutsColorsIntoTheFieldsOfTheTable) {
    bench.prompts.colors = {0x0080FF, 0x332211};
    Open([](frmTables& tool) {
        Tab(tool, 1);
        Click(tool, "Command5");
        Click(tool, "Command7");
        EXPECT_EQ(Field(tool, "Combo3"), "#FF8000");
        EXPECT_EQ(Field(tool, "txtTVColor"), "#112233");
        Click(tool, "Command5");
        EXPECT_EQ(Field(tool, "Combo3"), "#FF8000") << "a dialog that is cancelled";
    });
}

TEST_F(TableBuilder, SizesEverySelectedCell) {
    const QString large = CellTag("126.666666666667", {}, "font-size: 36pt", {});
    const QString small = CellTag("126.666666666667", {}, "font-size: 9.75pt", {});
    EXPECT_EQ(Written([](frmTables& tool) {
                  DragCells(Grid(tool), {0, 0}, {1, 0});
                  ChooseSize(tool, "36");
                  ClickCell(Grid(tool), 1, 1);
                  EXPECT_EQ(Get<QComboBox>(tool, "Combo2").currentText(), "12");
                  ChooseSize(tool, "10");
                  EXPECT_EQ(Editor(tool).font().pixelSize(), 13);
                  ClickCell(Grid(tool), 0, 1);
                  EXPECT_EQ(Get<QComboBox>(tool, "Combo2").currentText(), "36");
                  ClickCell(Grid(tool), 1, 1);
                  EXPECT_EQ(Get<QComboBox>(tool, "Combo2").currentText(), "10");
                  EXPECT_EQ(Cell(tool, 1, 1).fontSize, 9.75F) << "showing the size changed nothing";
              }),
              Table({}, usual, {large, large, PlainCell({}), small}));
}

TEST_F(TableBuilder, PutsAnImageInPlaceOfAText) {
    bench.prompts.openNames = {MakePicture("a.gif")};
    EXPECT_EQ(Written([this](frmTables& tool) {
                  DragCells(Grid(tool), {0, 0}, {1, 1});
                  QTest::keyClicks(tool.focusWidget(), "x");
                  Click(tool, "Command2");
                  EXPECT_EQ(bench.prompts.requests.back().filter, "Image Files (*.GIF;*.JPG;*.BMP)|*.GIF;*.JPG;*.BMP");
                  EXPECT_EQ(bench.prompts.requests.back().directory, folder.path());
                  EXPECT_TRUE(Editor(tool).isHidden());
                  EXPECT_EQ(Cell(tool, 0, 0).picture.size(), QSize(30, 20));
                  Click(tool, "Command2");  // the dialog is cancelled
                  EXPECT_EQ(Cell(tool, 0, 0).image, "a.gif");
              }),
              Table({}, usual, {PlainCell("<img src=\"a.gif\">"), PlainCell("x"), PlainCell("x"), PlainCell("x")}));
}

TEST_F(TableBuilder, LeavesTheCellWhenTheImageIsNone) {
    QFile file(folder.filePath("broken.gif"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("GIF89a");
    file.close();
    bench.prompts.openNames = {file.fileName(), folder.filePath("missing.gif")};
    Open([this](frmTables& tool) {
        TypeIn(tool, 0, 0, "x");
        Click(tool, "Command2");
        Click(tool, "Command2");
        EXPECT_EQ(Cell(tool, 0, 0).text, "x");
        EXPECT_EQ(Cell(tool, 0, 0).image, "");
        EXPECT_EQ(bench.prompts.messages, QStringList());
    });
}

TEST_F(TableBuilder, AddsAndTakesRowsAndColumns) {
    Open([](frmTables& tool) {
        const auto counts = [&tool] {
            return Get<QLabel>(tool, "Label14").text() + "x" + Get<QLabel>(tool, "Label15").text();
        };
        TypeIn(tool, 1, 1, "d");
        EXPECT_EQ(counts(), "2x2");
        Click(tool, "cmdRowPlus");
        EXPECT_TRUE(Editor(tool).isHidden());
        Click(tool, "cmdColPlus");
        Click(tool, "cmdColPlus");
        EXPECT_EQ(counts(), "3x4");
        EXPECT_EQ(Grid(tool).Cells().ColumnWidth(3), 1900);
        EXPECT_EQ(Cell(tool, 1, 1).text, "d");
        Click(tool, "cmdColMinus");
        Click(tool, "cmdRowMinus");
        EXPECT_EQ(counts(), "2x3");
        Click(tool, "cmdRowMinus");
        ClickCell(Grid(tool), 0, 0);
        Click(tool, "cmdRowMinus");
        EXPECT_EQ(counts(), "1x3") << "one row stays";
        EXPECT_FALSE(Editor(tool).isHidden()) << "nothing happened";
        for (int i = 0; i < 5; ++i) Click(tool, "cmdColMinus");
        EXPECT_EQ(counts(), "1x1");
        Click(tool, "cmdRowPlus");
        Click(tool, "cmdColPlus");
        EXPECT_EQ(Cell(tool, 1, 1).text, "");
    });
}

TEST_F(TableBuilder, LosesTheImagesOfARowThatGoes) {
    bench.prompts.openNames = {MakePicture("a.gif"), MakePicture("b.gif")};
    Open([](frmTables& tool) {
        Click(tool, "Command2");
        ClickCell(Grid(tool), 1, 1);
        Click(tool, "Command2");
        Click(tool, "cmdColPlus");
        Click(tool, "cmdRowMinus");
        Click(tool, "cmdRowPlus");
        EXPECT_EQ(Cell(tool, 0, 0).image, "a.gif");
        EXPECT_EQ(Cell(tool, 1, 1).image, "");
        EXPECT_TRUE(Cell(tool, 1, 1).picture.isNull());
    });
}

TEST_F(TableBuilder, TellsThatATableIsTooWideAndKeepsIt) {
    Open([this](frmTables& tool) {
        TypeIn(tool, 0, 0, "x");
        for (int i = 0; i < 16; ++i) Click(tool, "cmdColPlus");
        Click(tool, "cmdOK");
        EXPECT_TRUE(tool.isVisible());
        EXPECT_EQ(bench.prompts.messages,
                  QStringList("The table is too wide: its columns come to 2280 pixels, and 2184 is the most. Make "
                              "columns narrower, or take some away."));
        EXPECT_EQ(Text(), "");
        EXPECT_EQ(Cell(tool, 0, 0).text, "x");
        Click(tool, "cmdColMinus");
        Click(tool, "cmdOK");
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text().count("<td "), 34);
}

TEST_F(TableBuilder, OffersItsLists) {
    Open([](frmTables& tool) {
        const QStringList sides{"LEFT", "CENTER", "RIGHT"};
        const QStringList gaps{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "20", "30", "50", "100"};
        EXPECT_EQ(Values(tool, "Combo2"), QStringList({"8", "10", "12", "14", "18", "24", "36"}));
        EXPECT_EQ(Values(tool, "Combo1"), sides);
        EXPECT_EQ(Values(tool, "Combo8"), QStringList({"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}));
        EXPECT_EQ(Values(tool, "Combo3").size(), 16);
        EXPECT_EQ(Values(tool, "Combo10"), gaps);
        EXPECT_EQ(Values(tool, "Combo9"), gaps);
        EXPECT_EQ(Values(tool, "Combo4"),
                  QStringList({"VOID", "ABOVE", "BELOW", "HSIDES", "LHS", "RHS", "VSIDES", "BOX", "BORDER"}));
        EXPECT_EQ(Values(tool, "Combo6"), QStringList({"NONE", "GROUPS", "ROWS", "COLS", "ALL"}));
        EXPECT_EQ(Values(tool, "Combo5"), sides);
        EXPECT_EQ(Values(tool, "Combo7"), QStringList({"TOP", "MIDDLE", "BOTTOM", "BASELINE"}));
        EXPECT_EQ(Values(tool, "Combo11").first() + Values(tool, "Combo11").last(), "10%120%");
        EXPECT_EQ(Values(tool, "txtTVAngle").first() + Values(tool, "txtTVAngle").last(), "-9090");
        EXPECT_EQ(Values(tool, "cboTVTrans").size(), 11);
    });
}

TEST_F(TableBuilder, NamesAndCaptionsItsFields) {
    Open([](frmTables& tool) {
        const std::pair<const char*, const char*> captions[] = {{"Combo2", "Font Size"},
                                                                {"Combo1", "Alignment"},
                                                                {"Combo8", "Border Size"},
                                                                {"Combo3", "Border Color"},
                                                                {"Combo10", "Cell Padding"},
                                                                {"Combo9", "Cell Spacing"},
                                                                {"Combo4", "Frame"},
                                                                {"Combo6", "Rules"},
                                                                {"Text9", "Table Title"},
                                                                {"Combo5", "Text Alignment"},
                                                                {"Combo7", "Text Vertical Alignment"},
                                                                {"txtTVAngle", "Gradient Angle"},
                                                                {"txtTVColor", "Gradient Color"},
                                                                {"cboTVTrans", "Transparency"}};
        for (const auto& [name, caption] : captions) EXPECT_EQ(Caption(tool, name), caption);
        const std::pair<const char*, const char*> buttons[] = {{"Command1", "Text Color"},
                                                               {"Command6", "Back Color"},
                                                               {"Command2", "Image"},
                                                               {"Check1", "Retain Info On Exit"},
                                                               {"Command5", "Set Color"},
                                                               {"Command7", "Set Color"},
                                                               {"Check3", "Percentage Width"},
                                                               {"Check4", "Text Color"},
                                                               {"Check2", "Transparent Cell Backgrounds"},
                                                               {"chkRowHeight", "Include Cell Height Information"},
                                                               {"Command4", "Cancel"}};
        for (const auto& [name, caption] : buttons) {
            EXPECT_EQ(Shown(Get<QAbstractButton>(tool, name).text()), caption);
        }
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        EXPECT_EQ(Shown(tabs.tabText(0)), "Grid Cells");
        EXPECT_EQ(Shown(tabs.tabText(1)), "Table Settings");
        EXPECT_EQ(tabs.widget(0)->objectName(), "Picture4");
        EXPECT_EQ(tabs.widget(1)->objectName(), "Picture5");
    });
}

TEST_F(TableBuilder, TurnsItsPanesFromWithinTheGrid) {
    Open([](frmTables& tool) {
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        QTest::keyClick(tool.focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(tabs.currentIndex(), 1);
        QTest::keyClick(tool.focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(tabs.currentIndex(), 0);
        EXPECT_EQ(tool.focusWidget(), &Editor(tool));
    });
}

}  // namespace
}  // namespace vellum::test
