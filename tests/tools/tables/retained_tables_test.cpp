// What becomes of the Table Builder when it closes.
#include "tests/tools/tables/builder_fixture.h"

namespace vellum::test {
namespace {

class RetainedTableBuilder : public BuilderFixture {};

TEST_F(RetainedTableBuilder, KeepsEverythingThroughOkAndCancel) {
    bench.prompts.openNames = {MakePicture("a.gif")};
    const QWidget* first = nullptr;
    Open([&](frmTables& tool) {
        first = &tool;
        EXPECT_TRUE(Get<QCheckBox>(tool, "Check1").isChecked());
        TypeIn(tool, 0, 0, "x");
        ClickCell(Grid(tool), 1, 1);
        Click(tool, "Command2");
        Click(tool, "cmdRowPlus");
        DragSection(*Grid(tool).horizontalHeader(), 0, 34);
        Tab(tool, 1);
        Type(tool, "Text9", "Title");
        Click(tool, "cmdOK");
    });
    const QString written = Text();
    EXPECT_TRUE(written.contains("a.gif"));
    Open([&](frmTables& tool) {
        EXPECT_EQ(&tool, first);
        EXPECT_EQ(Field(tool, "Text9"), "Title");
        Tab(tool, 0);
        EXPECT_EQ(Cell(tool, 0, 0).text, "x");
        EXPECT_FALSE(Cell(tool, 1, 1).picture.isNull());
        TypeIn(tool, 0, 1, "y");
        Click(tool, "Command4");
    });
    EXPECT_EQ(Text(), written) << "Cancel writes nothing";
    EXPECT_EQ(window.focusWidget(), document.Text1);
    document.Text1->SetText({});
    Open([&](frmTables& tool) {
        EXPECT_EQ(tool.focusWidget(), &Editor(tool));
        EXPECT_EQ(Cell(tool, 0, 1).text, "y");
        QTest::keyClick(tool.focusWidget(), Qt::Key_Escape);
    });
    EXPECT_EQ(Text(), "") << "what OK wrote once isn't written again";
    Open([](frmTables& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text().count("<td width=\"160\""), 3);
}

TEST_F(RetainedTableBuilder, IsGoneWithoutTheCheck) {
    for (const char* button : {"cmdOK", "Command4"}) {
        Open([&](frmTables& tool) {
            EXPECT_EQ(Cell(tool, 0, 0).text, "") << "the defaults";
            EXPECT_TRUE(Get<QCheckBox>(tool, "Check1").isChecked());
            TypeIn(tool, 0, 0, "x");
            Click(tool, "Check1");
            Click(tool, button);
        });
        EXPECT_EQ(window.findChild<frmTables*>(), nullptr);
        EXPECT_EQ(window.focusWidget(), document.Text1) << button;
    }
    EXPECT_EQ(Text().count(">\r\nx\r\n<"), 1);
}

TEST_F(RetainedTableBuilder, GivesTheMainWindowBack) {
    for (const char* button : {"cmdOK", "Command4"}) {
        Open([&](frmTables& tool) {
            window.setEnabled(false);
            tool.setEnabled(true);
            Click(tool, button);
        });
        EXPECT_TRUE(window.isEnabled()) << button;
    }
}

class CountingTables : public frmTables {
public:
    using frmTables::frmTables;
    void Hidden() override { ++hidden; }
    int hidden = 0;
};

TEST_F(RetainedTableBuilder, TellsThatCancelHidIt) {
    auto* const tables = new CountingTables(bench);
    Open([](frmTables& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(tables->hidden, 0);
    Open([](frmTables& tool) { Click(tool, "Command4"); });
    EXPECT_EQ(tables->hidden, 1);
    Open([](frmTables& tool) { QTest::keyClick(tool.focusWidget(), Qt::Key_Escape); });
    EXPECT_EQ(tables->hidden, 2);
    int hidden = 0;
    Open([&](frmTables& tool) {
        Click(tool, "Check1");
        Click(tool, "Command4");
        hidden = tables->hidden;
    });
    EXPECT_EQ(hidden, 2) << "it isn't hidden then but gone";
}

TEST_F(RetainedTableBuilder, OutlivesTheDocumentItWroteInto) {
    Open([](frmTables& tool) { TypeIn(tool, 0, 0, "x"); });
    bench.active = nullptr;
    Open([](frmTables& tool) {
        EXPECT_EQ(Cell(tool, 0, 0).text, "x");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), "");
}

TEST_F(RetainedTableBuilder, ForgetsItsImagesWhenItsArraysAreChecked) {
    bench.prompts.openNames = {MakePicture("a.gif")};
    Open([](frmTables& tool) {
        Click(tool, "Command2");
        tool.CheckArrays();
        EXPECT_EQ(Cell(tool, 0, 0).image, "");
        EXPECT_FALSE(Editor(tool).isHidden());
    });
}

}  // namespace
}  // namespace vellum::test
