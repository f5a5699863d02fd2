#include "tools/frames/frame_page.h"

#include "tests/tools/frames/frame_builder_fixture.h"

#include <QLabel>
#include <QPushButton>

namespace vellum::test {
namespace {

class FramePages : public FrameBuilder {};

TEST_F(FramePages, APressShowsTheFieldsOfAFrame) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        Click(page, "cndPlus(1)");
        EXPECT_FALSE(DetailsShow(page));
        PressFrame(page, 1, 1);
        EXPECT_TRUE(DetailsShow(page));
        EXPECT_EQ(Marked(page), "1/1");
        EXPECT_EQ(Field(page, "txtName"), "Col2Row2");
        EXPECT_EQ(Field(page, "txtSource"), "");
        EXPECT_EQ(Field(page, "txtWidth"), "50%");
        EXPECT_EQ(Field(page, "txtHeight"), "50%");
        for (const char* name : {"chkScrollbars", "chkBorder", "chkResize"}) {
            EXPECT_FALSE(Get<QCheckBox>(page, name).isChecked()) << name;
        }
        PressFrame(page, 0, 0);
        EXPECT_EQ(Marked(page), "0/0");
        EXPECT_EQ(Field(page, "txtName"), "Col1Row1");
        EXPECT_EQ(Field(page, "txtHeight"), "100%");
    });
    OpenPage<FormWizard3>("2", [](FormWizard3& page) {
        Click(page, "cmdPlus(1)");
        PressFrame(page, 1, 1);
        EXPECT_EQ(Marked(page), "1/1");
        EXPECT_EQ(Field(page, "txtName"), "Row2Col2");
        EXPECT_EQ(Field(page, "txtWidth"), "50%");
        EXPECT_EQ(Field(page, "txtHeight"), "50%");
        PressFrame(page, 0, 0);
        EXPECT_EQ(Field(page, "txtWidth"), "100%");
    });
}

TEST_F(FramePages, TheFieldsHaveTheirCaptions) {
    OpenPage<FormWizard2>("1", [](FormWizard2& page) {
        PressFrame(page, 0, 0);
        QStringList labels;
        for (const QLabel* label : Get<QFrame>(page, "picControl").findChildren<QLabel*>()) {
            labels << label->buddy()->objectName() + '=' + Shown(label->text());
        }
        EXPECT_EQ(labels, (QStringList{"txtName=Frame Name", "txtSource=Frame Source", "txtWidth=Frame Width",
                                       "txtHeight=Frame Height"}));
        EXPECT_EQ(Shown(Get<QPushButton>(page, "cmdSource").text()), "Find");
        EXPECT_EQ(Shown(Get<QCheckBox>(page, "chkScrollbars").text()), "Scrollbars");
        EXPECT_EQ(Shown(Get<QCheckBox>(page, "chkBorder").text()), "Frame Border");
        EXPECT_EQ(Shown(Get<QCheckBox>(page, "chkResize").text()), "Resizable");
    });
}

// No two of those that show at once have the same letter.
TEST_F(FramePages, AccessKeysAreTheirOwn) {
    OpenPage<FormWizard2>("4", [](FormWizard2& page) {
        PressFrame(page, 0, 0);
        QString letters;
        const auto take = [&](const QString& caption) {
            const auto mark = caption.indexOf(u'&');
            if (mark >= 0) letters += caption[mark + 1].toLower();
        };
        for (const QLabel* label : page.findChildren<QLabel*>()) {
            if (label->isVisible()) take(label->text());
        }
        for (const QAbstractButton* button : page.findChildren<QAbstractButton*>()) {
            if (button->isVisible()) take(button->text());
        }
        EXPECT_EQ(letters.size(), 14) << letters.toStdString();
        EXPECT_EQ(QSet<QChar>(letters.begin(), letters.end()).size(), letters.size()) << letters.toStdString();
    });
}

TEST_F(FramePages, WritesWhatWasTypedOfEachFrame) {
    bench.prompts.openNames = {"/site/sub/the \"menu\".htm"};
    OpenPage<FormWizard2>("2", [this](FormWizard2& page) {
        Click(page, "cndPlus(0)");
        PressFrame(page, 0, 0);
        Type(page, "txtName", "menu");
        Click(page, "cmdSource");
        EXPECT_EQ(Field(page, "txtSource"), "the \"menu\".htm");
        Click(page, "cmdSource");
        EXPECT_EQ(Field(page, "txtSource"), "the \"menu\".htm") << "after a cancelled pick";
        Type(page, "txtWidth", "200");
        Type(page, "txtHeight", "30%");
        Click(page, "chkScrollbars");
        PressFrame(page, 0, 1);
        EXPECT_EQ(Field(page, "txtWidth"), "200") << "the column's width";
        EXPECT_EQ(Field(page, "txtHeight"), "50%");
        Type(page, "txtHeight", "*");
        Click(page, "chkBorder");
        PressFrame(page, 1, 0);
        EXPECT_EQ(Field(page, "txtWidth"), "50%");
        EXPECT_FALSE(Get<QCheckBox>(page, "chkBorder").isChecked());
        Type(page, "txtName", "");
        Type(page, "txtSource", "body.htm");
        Type(page, "txtWidth", "*");
        Click(page, "chkResize");
        PressFrame(page, 0, 0);
        EXPECT_EQ(Field(page, "txtName"), "menu");
        EXPECT_EQ(Field(page, "txtHeight"), "30%");
        EXPECT_TRUE(Get<QCheckBox>(page, "chkScrollbars").isChecked());
        Click(page, "cmdNext");
    });
    EXPECT_EQ(Text(),
              "<frameset cols=\"200,*\">\r\n"
              "<frameset rows=\"30%,*\">\r\n"
              "<frame src=\"the \"menu\".htm\" name=\"menu\" frameborder=\"0\" scrolling=\"yes\" "
              "noresize=\"noresize\">\r\n"
              "<frame src=\"\" name=\"Col1Row2\" frameborder=\"1\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "</frameset>\r\n"
              "<frame src=\"body.htm\" frameborder=\"0\" scrolling=\"no\">\r\n"
              "</frameset>");
    ASSERT_EQ(bench.prompts.requests.size(), 2U);
    EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
    EXPECT_EQ(bench.prompts.requests[0].filter, "");
}

// A frame that was added after the width was typed has its own entry still.
TEST_F(FramePages, PressingAFrameEditsNothing) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        PressFrame(page, 0, 0);
        Type(page, "txtWidth", "200");
        Click(page, "cndPlus(0)");
        PressFrame(page, 0, 1);
        EXPECT_EQ(Field(page, "txtWidth"), "50%");
        Click(page, "cmdNext");
    });
    EXPECT_TRUE(Text().startsWith("<frameset cols=\"200,50%\">\r\n")) << Text().toStdString();
}

TEST_F(FramePages, OnRowsTheHeightBelongsToTheLine) {
    OpenPage<FormWizard3>("2", [](FormWizard3& page) {
        Click(page, "cmdPlus(0)");
        PressFrame(page, 0, 1);
        Type(page, "txtHeight", "80");
        Type(page, "txtWidth", "70%");
        PressFrame(page, 0, 0);
        EXPECT_EQ(Field(page, "txtHeight"), "80");
        EXPECT_EQ(Field(page, "txtWidth"), "50%");
        Click(page, "cmdNext");
    });
    EXPECT_EQ(Text(),
              "<frameset rows=\"80,50%\">\r\n"
              "<frameset cols=\"50%,70%\">\r\n"
              "<frame src=\"\" name=\"Row1Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "<frame src=\"\" name=\"Row1Col2\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "</frameset>\r\n"
              "<frame src=\"\" name=\"Row2Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "</frameset>");
}

TEST_F(FramePages, FramesAreAddedAndDroppedBetweenOneAndFour) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        Click(page, "cmdMinus(0)");
        EXPECT_EQ(Grid(page, 0).rowCount(), 1);
        for (const int count : {2, 3, 4, 4}) {
            Click(page, "cndPlus(0)");
            EXPECT_EQ(Grid(page, 0).rowCount(), count);
        }
        EXPECT_EQ(Grid(page, 0).columnCount(), 1);
        EXPECT_EQ(Grid(page, 1).rowCount(), 1);
        for (const int count : {3, 2, 1, 1}) {
            Click(page, "cmdMinus(0)");
            EXPECT_EQ(Grid(page, 0).rowCount(), count);
        }
    });
    OpenPage<FormWizard3>("1", [](FormWizard3& page) {
        for (const int count : {2, 3, 4, 4}) {
            Click(page, "cmdPlus(0)");
            EXPECT_EQ(Grid(page, 0).columnCount(), count);
        }
        EXPECT_EQ(Grid(page, 0).rowCount(), 1);
        Click(page, "cmdMinus(0)");
        EXPECT_EQ(Grid(page, 0).columnCount(), 3);
    });
}

TEST_F(FramePages, OneFrameLessHidesTheFields) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        PressFrame(page, 0, 0);
        Click(page, "cmdMinus(0)");
        EXPECT_TRUE(DetailsShow(page)) << "there was none to take away";
        Click(page, "cndPlus(1)");
        EXPECT_TRUE(DetailsShow(page));
        EXPECT_EQ(Marked(page), "0/0");
        Click(page, "cmdMinus(1)");
        EXPECT_FALSE(DetailsShow(page));
        EXPECT_EQ(Marked(page), "");
    });
}

TEST_F(FramePages, OneFrameMoreReplacesTheTypedSize) {
    OpenPage<FormWizard2>("1", [](FormWizard2& page) {
        Click(page, "cndPlus(0)");
        PressFrame(page, 0, 0);
        Type(page, "txtHeight", "120");
        Click(page, "cndPlus(0)");
        EXPECT_EQ(Field(page, "txtHeight"), "33%");
        Click(page, "cmdNext");
    });
    EXPECT_TRUE(Text().startsWith("<frameset rows=\"33%,33%,33%\">\r\n")) << Text().toStdString();
}

TEST_F(FramePages, ADroppedFrameComesBackWithItsFields) {
    OpenPage<FormWizard3>("1", [](FormWizard3& page) {
        Click(page, "cmdPlus(0)");
        PressFrame(page, 0, 1);
        Type(page, "txtName", "second");
        Click(page, "cmdMinus(0)");
        Click(page, "cmdPlus(0)");
        PressFrame(page, 0, 1);
        EXPECT_EQ(Field(page, "txtName"), "second");
    });
}

TEST_F(FramePages, CellsFillTheirGrid) {
    const auto twips = [](int size) { return size * 15; };
    OpenPage<FormWizard2>("2", [&](FormWizard2& page) {
        FrameGrid& grid = Grid(page, 0);
        EXPECT_EQ(grid.columnWidth(0), (twips(grid.width()) + 100) / 15);
        EXPECT_EQ(grid.rowHeight(0), (twips(grid.height()) + 200) / 15);
        Click(page, "cndPlus(0)");
        Click(page, "cndPlus(0)");
        EXPECT_EQ(grid.columnWidth(0), (twips(grid.width()) + 100) / 15);
        int sum = 0;
        for (int frame = 0; frame < 3; ++frame) {
            EXPECT_NEAR(grid.rowHeight(frame), grid.height() / 3.0, 1);
            sum += grid.rowHeight(frame);
        }
        EXPECT_NEAR(sum, grid.height(), 1);
        page.resize(page.width() + 90, page.height() + 90);
        EXPECT_NEAR(grid.rowHeight(2), grid.height() / 3.0, 1) << "after a resize";
    });
    OpenPage<FormWizard3>("1", [&](FormWizard3& page) {
        FrameGrid& grid = Grid(page, 0);
        Click(page, "cmdPlus(0)");
        EXPECT_NEAR(grid.columnWidth(0), grid.width() / 2.0, 1);
        EXPECT_NEAR(grid.columnWidth(0) + grid.columnWidth(1), grid.width(), 1);
        EXPECT_EQ(grid.rowHeight(0), (twips(grid.height()) + 200) / 15);
    });
}

TEST_F(FramePages, EachCellTellsItsFrame) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        Click(page, "cndPlus(0)");
        EXPECT_EQ(Grid(page, 0).item(1, 0)->text(), "Col1Row2\n50% × 50%");
        EXPECT_EQ(Grid(page, 1).item(0, 0)->text(), "Col2Row1\n50% × 100%");
        PressFrame(page, 0, 1);
        Type(page, "txtName", "n");
        Type(page, "txtWidth", "9");
        EXPECT_EQ(Grid(page, 0).item(1, 0)->text(), "n\n9 × 50%");
        EXPECT_EQ(Grid(page, 0).item(0, 0)->text(), "Col1Row1\n9 × 50%");
    });
}

TEST_F(FramePages, ArrowsChooseFramesOfAllLines) {
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        Click(page, "cndPlus(0)");
        Grid(page, 0).setFocus();
        EXPECT_FALSE(DetailsShow(page));
        const std::vector<std::pair<Qt::Key, QString>> steps{
            {Qt::Key_Space, "0/0"}, {Qt::Key_Down, "0/1"}, {Qt::Key_Down, "0/1"},  {Qt::Key_Right, "1/0"},
            {Qt::Key_Right, "1/0"}, {Qt::Key_Left, "0/0"}, {Qt::Key_End, "0/1"},   {Qt::Key_Up, "0/0"},
            {Qt::Key_Home, "0/0"},  {Qt::Key_Left, "0/0"}, {Qt::Key_Return, "0/0"}};
        for (const auto& [key, mark] : steps) {
            QTest::keyClick(page.focusWidget(), key);
            ASSERT_EQ(Marked(page), mark) << QKeySequence(key).toString().toStdString();
            ASSERT_TRUE(page.isVisible());
        }
        EXPECT_EQ(Field(page, "txtName"), "Col1Row1");
    });
    OpenPage<FormWizard3>("2", [](FormWizard3& page) {
        Click(page, "cmdPlus(0)");
        Grid(page, 0).setFocus();
        const std::vector<std::pair<Qt::Key, QString>> steps{
            {Qt::Key_Right, "0/1"}, {Qt::Key_Down, "1/0"}, {Qt::Key_Left, "1/0"}, {Qt::Key_Up, "0/0"}};
        for (const auto& [key, mark] : steps) {
            QTest::keyClick(page.focusWidget(), key);
            ASSERT_EQ(Marked(page), mark) << QKeySequence(key).toString().toStdString();
        }
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(page.focusWidget(), &Get<QPushButton>(page, "cmdPlus(0)"));
        QTest::keyClick(page.focusWidget(), Qt::Key_2, Qt::AltModifier);
        EXPECT_EQ(page.focusWidget(), &Grid(page, 1));
    });
}

TEST_F(FramePages, KeepsNothingBetweenOpenings) {
    OpenPage<FormWizard2>("3", [](FormWizard2& page) {
        PressFrame(page, 0, 0);
        Type(page, "txtName", "kept?");
    });
    OpenPage<FormWizard2>("2", [](FormWizard2& page) {
        EXPECT_FALSE(Get<QWidget>(page, "Row1(2)").isVisible());
        PressFrame(page, 0, 0);
        EXPECT_EQ(Field(page, "txtName"), "Col1Row1");
    });
}

}  // namespace
}  // namespace vellum::test
