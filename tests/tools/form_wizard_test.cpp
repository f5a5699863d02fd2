#include "tools/form_wizard.h"

#include "tests/tools/tool_fixture.h"
#include "tools/frame_grid.h"
#include "tools/frame_page.h"

#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace vellum::test {
namespace {

QString Indexed(const QString& name, int index) {
    return QStringLiteral("%1(%2)").arg(name).arg(index);
}

QString Shown(const QString& caption) {
    return QString(caption).remove(u'&');
}

class FrameBuilder : public ToolFixture {
protected:
    // The page of the wizard with so many lines laid out on it.
    template <typename Page>
    void OpenPage(const QString& lines, const std::function<void(Page&)>& steps) {
        Open<Page>([&](Page& page) {
            ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
            Type(page, "txtNumber", lines);
            Click(page, "cmdNext");
            steps(page);
        });
    }

    static FrameGrid& Grid(const QWidget& page, int line) { return Get<FrameGrid>(page, Indexed("Row1", line)); }

    static void PressFrame(const QWidget& page, int line, int frame) {
        FrameGrid& grid = Grid(page, line);
        const bool stacked = page.objectName() == u"FormWizard2";
        const QModelIndex index = grid.model()->index(stacked ? frame : 0, stacked ? 0 : frame);
        QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(index).center());
    }

    static QString Field(const QWidget& page, const QString& name) { return Get<QLineEdit>(page, name).text(); }
    static bool DetailsShow(const QWidget& page) { return Get<QFrame>(page, "picControl").isVisible(); }
    // The line and frame that is marked, as "line/frame"; several would be told apart by blanks.
    static QString Marked(const QWidget& page) {
        QStringList marks;
        for (int line = 0; line < 4; ++line) {
            for (const QModelIndex& index : Grid(page, line).selectionModel()->selectedIndexes()) {
                marks << QString("%1/%2").arg(line).arg(index.row() + index.column());
            }
        }
        return marks.join(u' ');
    }
};

TEST_F(FrameBuilder, AsksForTheDirectionFirst) {
    InModal<FormWizard>([this] { ShowFrameBuilder(bench); },
                        [](FormWizard& form) {
                            EXPECT_EQ(form.windowTitle(), "Frame Builder");
                            EXPECT_EQ(form.findChild<QGroupBox*>()->title(), "Step 1");
                            EXPECT_EQ(Shown(Get<QRadioButton>(form, "optRows").text()), "Start With Rows");
                            EXPECT_EQ(Shown(Get<QRadioButton>(form, "optColumns").text()), "Start With Columns");
                            EXPECT_TRUE(Get<QRadioButton>(form, "optRows").isChecked());
                            EXPECT_FALSE(Get<QRadioButton>(form, "optColumns").isChecked());
                            EXPECT_EQ(Get<QPushButton>(form, "cmdNext").text(), "&Next");
                            EXPECT_TRUE(Get<QPushButton>(form, "cmdNext").isDefault());
                            EXPECT_EQ(Get<QPushButton>(form, "cmdCancel").text(), "&Cancel");
                            Click(form, "cmdCancel");
                        });
    EXPECT_EQ(Text(), "");
}

TEST_F(FrameBuilder, StartsWithRowsByTheKeyboardAlone) {
    const auto next = [](FormWizard& form) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    };
    const auto layOut = [](FormWizard3& page) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
        EXPECT_TRUE(Get<QLineEdit>(page, "txtNumber").hasFocus());
        QTest::keyClicks(page.focusWidget(), "2");
        QTest::keyClick(page.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(page.focusWidget(), &Grid(page, 0));
        QTest::keyClick(&page, Qt::Key_F, Qt::AltModifier);  // the button goes down for a moment first
        EXPECT_TRUE(QTest::qWaitFor([&] { return !page.isVisible(); }));
    };
    InModal<FormWizard3>([&] { InModal<FormWizard>([this] { ShowFrameBuilder(bench); }, next); }, layOut);
    EXPECT_EQ(Text(),
              "<frameset rows=\"50%,50%\">\r\n"
              "<frame src=\"\" name=\"Row1Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "<frame src=\"\" name=\"Row2Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n"
              "</frameset>");
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(window.focusWidget(), document.Text1);
}

TEST_F(FrameBuilder, StartsWithColumns) {
    const auto next = [](FormWizard& form) {
        Click(form, "optColumns");
        Click(form, "cmdNext");
    };
    const auto layOut = [](FormWizard2& page) {
        Type(page, "txtNumber", "1");
        Click(page, "cmdNext");
        Click(page, "cmdNext");
    };
    InModal<FormWizard2>([&] { InModal<FormWizard>([this] { ShowFrameBuilder(bench); }, next); }, layOut);
    EXPECT_EQ(Text(),
              "<frame src=\"\" name=\"Col1Row1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n");
}

TEST_F(FrameBuilder, FirstStepAsksForTheNumberOfLines) {
    Open<FormWizard2>([](FormWizard2& page) {
        EXPECT_EQ(page.objectName(), "FormWizard2");
        EXPECT_EQ(page.windowTitle(), "Frame Wizard");
        EXPECT_TRUE(Get<QWidget>(page, "Stepper(0)").isVisible());
        EXPECT_FALSE(Get<QWidget>(page, "Stepper(1)").isVisible());
        QStringList labels;
        for (const QLabel* label : Get<QWidget>(page, "Stepper(0)").findChildren<QLabel*>()) {
            labels << Shown(label->text());
            EXPECT_EQ(label->buddy(), &Get<QLineEdit>(page, "txtNumber"));
        }
        EXPECT_EQ(labels, QStringList("Number Of Columns (1 - 4)"));
        EXPECT_EQ(Get<QPushButton>(page, "cmdNext").text(), "&Next");
    });
    Open<FormWizard3>([](FormWizard3& page) {
        EXPECT_EQ(page.windowTitle(), "Frame Wizard");
        EXPECT_EQ(Shown(Get<QWidget>(page, "Stepper(0)").findChild<QLabel*>()->text()), "Number Of Rows (1 - 4)");
    });
    EXPECT_EQ(Text(), "");
}

TEST_F(FrameBuilder, RefusesNumbersOutsideOneToFour) {
    Open<FormWizard2>([this](FormWizard2& page) {
        int asked = 0;
        for (const char* text : {"", "0", "5", "4.5", "two"}) {
            Type(page, "txtNumber", text);
            Click(page, "cmdNext");
            EXPECT_EQ(bench.prompts.messages.size(), ++asked) << text;
            EXPECT_EQ(bench.prompts.messages.value(asked - 1), "Invalid Value") << text;
            EXPECT_TRUE(Get<QWidget>(page, "Stepper(0)").isVisible()) << text;
            EXPECT_EQ(page.focusWidget(), &Get<QLineEdit>(page, "txtNumber"));
        }
        Type(page, "txtNumber", "2.5");
        Click(page, "cmdNext");
        EXPECT_EQ(bench.prompts.messages.size(), asked);
        EXPECT_TRUE(Get<QWidget>(page, "LabelRow(2)").isVisible());
        EXPECT_FALSE(Get<QWidget>(page, "LabelRow(3)").isVisible());
    });
}

template <typename Page>
void ExpectLines(const Page& page, const char* plus, const QString& word, int lines) {
    EXPECT_FALSE(page.template findChild<QWidget*>("Stepper(0)")->isVisible());
    EXPECT_TRUE(page.template findChild<QWidget*>("Stepper(1)")->isVisible());
    EXPECT_EQ(page.template findChild<QPushButton*>("cmdNext")->text(), "&Finish");
    for (int line = 0; line < 4; ++line) {
        for (const char* name : {"Row1", "LabelRow", plus, "cmdMinus"}) {
            const auto* const part = page.template findChild<QWidget*>(Indexed(name, line));
            ASSERT_NE(part, nullptr) << name << line;
            EXPECT_EQ(part->isVisible(), line < lines) << name << line;
        }
        const auto* const label = page.template findChild<QLabel*>(Indexed("LabelRow", line));
        EXPECT_EQ(Shown(label->text()), QString("%1 %2").arg(word).arg(line + 1));
        EXPECT_EQ(label->buddy()->objectName(), Indexed("Row1", line));
        EXPECT_EQ(page.template findChild<QPushButton*>(Indexed(plus, line))->text(), "+");
        EXPECT_EQ(page.template findChild<QPushButton*>(Indexed("cmdMinus", line))->text(), "-");
    }
}

TEST_F(FrameBuilder, SecondStepShowsTheLinesThereAre) {
    for (int lines = 1; lines <= 4; ++lines) {
        OpenPage<FormWizard2>(QString::number(lines), [lines](FormWizard2& page) {
            ExpectLines(page, "cndPlus", "Column", lines);
            EXPECT_FALSE(DetailsShow(page));
            EXPECT_EQ(Marked(page), "");
            if (lines == 1) return;
            EXPECT_GT(Grid(page, 1).mapTo(&page, QPoint()).x(), Grid(page, 0).mapTo(&page, QPoint()).x());
        });
        OpenPage<FormWizard3>(QString::number(lines), [lines](FormWizard3& page) {
            ExpectLines(page, "cmdPlus", "Row", lines);
            EXPECT_FALSE(DetailsShow(page));
            if (lines == 1) return;
            EXPECT_GT(Grid(page, 1).mapTo(&page, QPoint()).y(), Grid(page, 0).mapTo(&page, QPoint()).y());
        });
    }
}

TEST_F(FrameBuilder, TheMainWindowTakesNoInputMeanwhile) {
    OpenPage<FormWizard2>("1", [this](FormWizard2& page) {
        EXPECT_FALSE(window.isEnabled());
        EXPECT_TRUE(page.isEnabled());
        PressFrame(page, 0, 0);
        Type(page, "txtName", "works");
        EXPECT_EQ(Field(page, "txtName"), "works");
        Click(page, "cmdCancel");
    });
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(window.focusWidget(), document.Text1);
    EXPECT_EQ(Text(), "");
    EXPECT_TRUE(document.Saver());

    Open<FormWizard3>([this](FormWizard3& page) {
        EXPECT_FALSE(window.isEnabled());
        EXPECT_TRUE(page.isEnabled());
        page.close();
    });
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(window.focusWidget(), document.Text1);
    EXPECT_EQ(Text(), "");

    Open<FormWizard3>([](FormWizard3& page) { QTest::keyClick(&page, Qt::Key_Escape); });
    EXPECT_TRUE(window.isEnabled());
    EXPECT_EQ(Text(), "");
}

TEST_F(FrameBuilder, APressShowsTheFieldsOfAFrame) {
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

TEST_F(FrameBuilder, TheFieldsHaveTheirCaptions) {
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
TEST_F(FrameBuilder, AccessKeysAreTheirOwn) {
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

TEST_F(FrameBuilder, WritesWhatWasTypedOfEachFrame) {
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
TEST_F(FrameBuilder, PressingAFrameEditsNothing) {
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

TEST_F(FrameBuilder, OnRowsTheHeightBelongsToTheLine) {
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

TEST_F(FrameBuilder, FramesAreAddedAndDroppedBetweenOneAndFour) {
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

TEST_F(FrameBuilder, OneFrameLessHidesTheFields) {
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

TEST_F(FrameBuilder, OneFrameMoreReplacesTheTypedSize) {
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

TEST_F(FrameBuilder, ADroppedFrameComesBackWithItsFields) {
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

TEST_F(FrameBuilder, CellsFillTheirGrid) {
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

TEST_F(FrameBuilder, EachCellTellsItsFrame) {
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

TEST_F(FrameBuilder, ArrowsChooseFramesOfAllLines) {
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

TEST_F(FrameBuilder, KeepsNothingBetweenOpenings) {
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
