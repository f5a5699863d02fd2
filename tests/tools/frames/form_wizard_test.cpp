#include "tools/frames/form_wizard.h"

#include "tests/tools/frames/frame_builder_fixture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace vellum::test {
namespace {

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

}  // namespace
}  // namespace vellum::test
