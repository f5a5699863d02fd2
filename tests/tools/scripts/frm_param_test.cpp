#include "tools/scripts/frm_param.h"

#include "tests/tools/tool_fixture.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

namespace vellum::test {
namespace {

TEST(ParamMarkupOf, NoRows) {
    EXPECT_EQ(ParamMarkup({}), "");
}

TEST(ParamMarkupOf, EveryRowAlsoAnEmptyOne) {
    EXPECT_EQ(ParamMarkup({{"speed", "10"}, {"", ""}, {"<\"&", ""}, {"", "on"}}),
              "<param name=\"speed\" value=\"10\" />\r\n"
              "<param name=\"\" value=\"\" />\r\n"
              "<param name=\"<\"&\" value=\"\" />\r\n"
              "<param name=\"\" value=\"on\" />\r\n");
}

class ParamForm : public ToolFixture {
protected:
    static void Keys(const QWidget& form, const QString& text) { QTest::keyClicks(form.focusWidget(), text); }
};

TEST_F(ParamForm, ShowsItsCaptionsAndOneRow) {
    Open<frmParam>([](frmParam& tool) {
        EXPECT_EQ(tool.windowTitle(), "Insert Parameters");
        const auto& grid = Get<QTableWidget>(tool, "Grid1");
        ASSERT_EQ(grid.columnCount(), 2);
        EXPECT_EQ(grid.horizontalHeaderItem(0)->text(), "Parameter Name");
        EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), "Parameter Value");
        EXPECT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(Get<QLabel>(tool, "lblRows").text(), "1");
        EXPECT_EQ(Get<QPushButton>(tool, "cmdPlus").text(), "+");
        EXPECT_EQ(Get<QPushButton>(tool, "cmdMinus").text(), "-");
        EXPECT_EQ(tool.focusWidget()->objectName(), "Text1");
        EXPECT_EQ(grid.currentRow(), 0);
        EXPECT_EQ(grid.currentColumn(), 0);
    });
}

TEST_F(ParamForm, TakesARowByKeysAlone) {
    Open<frmParam>([](frmParam& tool) {
        Keys(tool, "speed");
        Press(tool, Qt::Key_Tab);
        Keys(tool, "10");
        Press(tool, Qt::Key_Return);
    });
    EXPECT_EQ(Text(), "<param name=\"speed\" value=\"10\" />\r\n");
}

TEST_F(ParamForm, TakesMoreRowsByKeysAlone) {
    Open<frmParam>([](frmParam& tool) {
        Keys(tool, "a");
        Press(tool, Qt::Key_Tab);
        Press(tool, Qt::Key_Tab);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cmdPlus");
        Press(tool, Qt::Key_Space);
        Press(tool, Qt::Key_Space);
        EXPECT_EQ(tool.focusWidget()->objectName(), "cmdPlus");
        EXPECT_EQ(Get<QLabel>(tool, "lblRows").text(), "3");
        Press(tool, Qt::Key_Backtab, Qt::ShiftModifier);
        Keys(tool, "1");
        Press(tool, Qt::Key_Tab);
        Press(tool, Qt::Key_Down);
        Keys(tool, "c");
        Press(tool, Qt::Key_Return, Qt::ControlModifier);
    });
    EXPECT_EQ(Text(),
              "<param name=\"a\" value=\"1\" />\r\n"
              "<param name=\"\" value=\"\" />\r\n"
              "<param name=\"c\" value=\"\" />\r\n");
}

TEST_F(ParamForm, AnEmptyGridGivesAnEmptyParameter) {
    Open<frmParam>([](frmParam& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "<param name=\"\" value=\"\" />\r\n");
}

TEST_F(ParamForm, TakesTheLastRowAwayButNeverTheOnlyOne) {
    Open<frmParam>([](frmParam& tool) {
        Keys(tool, "first");
        Click(tool, "cmdMinus");
        EXPECT_EQ(Get<QTableWidget>(tool, "Grid1").rowCount(), 1);
        Click(tool, "cmdPlus");
        EXPECT_EQ(Get<QTableWidget>(tool, "Grid1").rowCount(), 2);
        auto& grid = Get<QTableWidget>(tool, "Grid1");
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(1, 0)).center());
        Keys(tool, "second");
        Click(tool, "cmdMinus");
        EXPECT_EQ(Get<QLabel>(tool, "lblRows").text(), "1");
        Click(tool, "cmdMinus");
        EXPECT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(Get<QLabel>(tool, "lblRows").text(), "1");
        Click(tool, "cmdPlus");
        EXPECT_EQ(grid.model()->index(1, 0).data().toString(), "") << "a new row is empty";
        Click(tool, "cmdMinus");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "<param name=\"first\" value=\"\" />\r\n");
}

TEST_F(ParamForm, StartsAnewEachTimeAndEscChangesNothing) {
    for (int i = 0; i < 2; ++i) {
        Open<frmParam>([](frmParam& tool) {
            EXPECT_EQ(Get<QTableWidget>(tool, "Grid1").rowCount(), 1);
            EXPECT_EQ(Get<QLineEdit>(tool, "Text1").text(), "");
            Click(tool, "cmdPlus");
            Type(tool, "Text1", "lost");
            Press(tool, Qt::Key_Escape);
        });
    }
    EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace vellum::test
