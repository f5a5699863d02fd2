#include "tools/new_wizards.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class Wizards : public testing::Test {
protected:
    void SetUp() override {
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    QToolButton* Picture(int index) { return dialog.findChild<QToolButton*>(QString("Image1(%1)").arg(index)); }
    QLabel* Label(int index) { return dialog.findChild<QLabel*>(QString("Label1(%1)").arg(index)); }
    void Press(int key) { QTest::keyClick(dialog.focusWidget(), static_cast<Qt::Key>(key)); }

    NewWizards dialog;
    QSignalSpy chosen{&dialog, &NewWizards::Chosen};
};

TEST_F(Wizards, LabelsStandInTheirOrder) {
    EXPECT_EQ(dialog.windowTitle(), "New...");
    const QStringList labels{"Blank Document",    "Quickstart Wizard", "Resume Wizard",
                             "Frame Builder",     "Slide Show Wizard", "Structural Tags",
                             "Table of Contents", "HTML Application",  "External Style Sheet"};
    for (int i = 0; i < 9; ++i) {
        ASSERT_NE(Picture(i), nullptr) << i;
        ASSERT_NE(Label(i), nullptr) << i;
        EXPECT_EQ(Label(i)->text(), labels[i]);
        EXPECT_EQ(Label(i)->buddy(), Picture(i));
        EXPECT_EQ(Picture(i)->accessibleName(), labels[i]);
        EXPECT_FALSE(Picture(i)->icon().isNull()) << i;
        EXPECT_GT(Label(i)->y(), Picture(i)->y());
        EXPECT_GT(Picture(i)->geometry().intersected({0, 0, dialog.width(), dialog.height()}).height(), 47);
    }
    EXPECT_EQ(Picture(9), nullptr);
    EXPECT_EQ(NewWizardLabels(), labels);
}

TEST_F(Wizards, ClickOnAPictureChooses) {
    QTest::mouseClick(Picture(3), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), 3);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 3);
}

TEST_F(Wizards, ClickOnALabelDoesTheSame) {
    QTest::mouseClick(Label(8), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), 8);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 8);
}

TEST_F(Wizards, RightClickChoosesNothing) {
    QTest::mouseClick(Label(2), Qt::RightButton);
    QTest::mouseClick(Picture(2), Qt::RightButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Wizards, EnterTakesTheBlankDocumentFirst) {
    EXPECT_EQ(dialog.focusWidget(), Picture(0));
    Press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), 0);
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(Wizards, ArrowsMoveInTheGridAndStopAtItsEdges) {
    const std::vector<std::pair<int, int>> steps{{Qt::Key_Right, 1}, {Qt::Key_Right, 2}, {Qt::Key_Right, 2},
                                                 {Qt::Key_Down, 5},  {Qt::Key_Down, 8},  {Qt::Key_Down, 8},
                                                 {Qt::Key_Left, 7},  {Qt::Key_Left, 6},  {Qt::Key_Left, 6},
                                                 {Qt::Key_Up, 3},    {Qt::Key_Up, 0},    {Qt::Key_Up, 0}};
    for (const auto& [key, index] : steps) {
        Press(key);
        ASSERT_EQ(dialog.focusWidget(), Picture(index)) << index;
    }
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Wizards, TheFocusedChoiceIsMarked) {
    EXPECT_TRUE(Label(0)->autoFillBackground());
    Press(Qt::Key_Right);
    EXPECT_FALSE(Label(0)->autoFillBackground());
    EXPECT_TRUE(Label(1)->autoFillBackground());
    EXPECT_EQ(Label(1)->backgroundRole(), QPalette::Highlight);
    EXPECT_EQ(Label(1)->foregroundRole(), QPalette::HighlightedText);
}

TEST_F(Wizards, SpaceAndTheKeypadsEnterChooseTheFocusedOne) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_EQ(dialog.Choice(), 3);
    dialog.show();
    Press(Qt::Key_Right);
    Press(Qt::Key_Enter);
    EXPECT_EQ(dialog.Choice(), 4);
    EXPECT_EQ(chosen.count(), 2);
}

TEST_F(Wizards, EscapeChoosesNothing) {
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), std::nullopt);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Wizards, CancelChoosesNothing) {
    auto* cancel = dialog.findChild<QPushButton*>("cmdCancel");
    ASSERT_NE(cancel, nullptr);
    EXPECT_EQ(cancel->text(), "&Cancel");
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), std::nullopt);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Wizards, EnterOnCancelCancels) {
    dialog.findChild<QPushButton*>("cmdCancel")->setFocus();
    Press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), std::nullopt);
}

}  // namespace
}  // namespace vellum
