#include "tools/pages/new_wizards.h"

#include "tests/tools/tool_fixture.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frame_page.h"
#include "tools/pages/frm_quick_start.h"
#include "tools/styles/css.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace vellum::test {
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
    QSignalSpy chosen{&dialog, &QDialog::accepted};
};

TEST_F(Wizards, LabelsStandInTheirOrder) {
    EXPECT_EQ(dialog.windowTitle(), "New...");
    const QStringList labels{"Blank Document",    "Quickstart Wizard", "Resume Wizard",
                             "Frame Builder",     "Slide Show Wizard", "Structural Tags",
                             "Table of Contents", "HTML Application",  "External Style Sheet"};
    for (int i = 0; i < 9; ++i) {
        ASSERT_NE(Picture(i), nullptr) << i;
        ASSERT_NE(Label(i), nullptr) << i;
        EXPECT_EQ(Label(i)->text().remove('&'), labels[i]);
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
}

TEST_F(Wizards, ClickOnALabelDoesTheSame) {
    QTest::mouseClick(Label(8), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Choice(), 8);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(dialog.Choice(), 8);
}

TEST_F(Wizards, APressThatEndsElsewhereChoosesNothing) {
    QTest::mousePress(Label(8), Qt::LeftButton);
    QTest::mouseRelease(Label(8), Qt::LeftButton, {}, Label(8)->rect().bottomRight() + QPoint(30, 0));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(chosen.count(), 0);
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

TEST_F(Wizards, EachChoiceHasALetterOfItsOwn) {
    QString letters = "c";  // of Cancel
    for (int i = 0; i < 9; ++i) {
        const QString text = Label(i)->text();
        ASSERT_GE(text.indexOf('&'), 0) << text.toStdString();
        const QChar letter = text[text.indexOf('&') + 1].toLower();
        EXPECT_FALSE(letters.contains(letter)) << text.toStdString();
        letters += letter;
    }
}

TEST_F(Wizards, TheLetterOfALabelChooses) {
    QTest::keyClick(&dialog, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !dialog.isVisible(); }));
    EXPECT_EQ(dialog.Choice(), 3);
    EXPECT_EQ(chosen.count(), 1);
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

// A main window that opens documents.
class OpeningWorkbench : public ToolWorkbench {
public:
    Document* NewForm() override {
        auto* const document = new PlainDocument(*this, window);
        document->setGeometry(0, 0, 800, 600);
        document->Text1->setGeometry(0, 0, 800, 600);
        document->show();
        made << document;
        active = document;
        return document;
    }

    QList<Document*> made;
};

class NewDialog : public ToolFixture {
protected:
    void SetUp() override {
        ToolFixture::SetUp();
        opening.window = &window;
        opening.active = &document;
        opening.website = folder.path();
    }
    // Chooses from the dialog by a click on its picture.
    void Pick(int index) {
        InModal<NewWizards>([this] { ShowNewWizards(opening); },
                            [index](NewWizards& form) { Click(form, QString("Image1(%1)").arg(index)); });
    }

    OpeningWorkbench opening;
};

TEST_F(NewDialog, CancelOpensNothing) {
    InModal<NewWizards>([this] { ShowNewWizards(opening); }, [](NewWizards& form) { Click(form, "cmdCancel"); });
    EXPECT_EQ(opening.made.size(), 0);
}

// The wizards of some choices are still to come, and those open a blank document too.
TEST_F(NewDialog, OpensABlankDocument) {
    int opened = 0;
    for (const int index : {0, 2, 4, 6, 7}) {
        Pick(index);
        ASSERT_EQ(opening.made.size(), ++opened) << index;
        EXPECT_EQ(opening.made.last()->Text1->Text(), "") << index;
    }
    EXPECT_TRUE(opening.prompts.messages.isEmpty());
}

TEST_F(NewDialog, StartsThePageWithQuickStart) {
    InModal<frmQuickStart>([this] { Pick(1); },
                           [](frmQuickStart& tool) {
                               QTest::keyClicks(tool.focusWidget(), "Vellum");
                               QTest::keyClick(tool.focusWidget(), Qt::Key_Return);
                           });
    ASSERT_EQ(opening.made.size(), 1);
    EXPECT_EQ(opening.made.last()->Text1->Text(), QuickStartMarkup({.title = "Vellum"}));
    EXPECT_EQ(Text(), "") << "the document that was open before";
}

TEST_F(NewDialog, LeavesABlankDocumentWhenQuickStartIsCancelled) {
    InModal<frmQuickStart>([this] { Pick(1); }, [](frmQuickStart& tool) { Click(tool, "cmdCancel"); });
    ASSERT_EQ(opening.made.size(), 1);
    EXPECT_EQ(opening.made.last()->Text1->Text(), "");
}

TEST_F(NewDialog, WritesAStyleSheetWithoutTags) {
    InModal<CSS>([this] { Pick(8); },
                 [](CSS& form) {
                     QTest::keyClicks(form.focusWidget(), "Arial");
                     QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                 });
    ASSERT_EQ(opening.made.size(), 1);
    EXPECT_EQ(opening.made.last()->Text1->Text(), "body {\r\n font-family: Arial;\r\n}\r\n\r\n");
}

TEST_F(NewDialog, WritesTheStructuralTags) {
    Pick(5);
    ASSERT_EQ(opening.made.size(), 1);
    Document& page = *opening.made.last();
    EXPECT_EQ(page.Text1->Text(),
              "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
              "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n<head>\r\n<title></title>\r\n</head>\r\n"
              "<body>\r\n\r\n</body>\r\n</html>");
    EXPECT_FALSE(page.Saver());
    page.ProcessUndo();
    EXPECT_EQ(Text(), "") << "the document that was open before";
}

const QString beforeFrames =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Frameset//EN\" \"DTD/xhtml1-frameset.dtd\">\r\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
    "<head xmlns=\"http://www.w3.org/1999/xhtml\">\r\n"
    "<title>Title Goes Here</title>\r\n"
    "</head>\r\n"
    "\r\n";
const QString behindFrames = "\r\n\r\n<body>\r\n&nbsp\r\n</body>\r\n</html>";

TEST_F(NewDialog, PutsFramesAmongTheEmptyLines) {
    const auto next = [this](FormWizard& form) {
        EXPECT_EQ(opening.made.last()->Text1->Text(), beforeFrames + behindFrames) << "before the wizard";
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    };
    const auto layOut = [](FormWizard3& page) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
        QTest::keyClicks(page.focusWidget(), "1");
        QTest::keyClick(page.focusWidget(), Qt::Key_Return);
        Click(page, "cmdNext");
    };
    InModal<FormWizard3>([&] { InModal<FormWizard>([this] { Pick(3); }, next); }, layOut);
    ASSERT_EQ(opening.made.size(), 1);
    Document& page = *opening.made.last();
    EXPECT_EQ(page.Text1->Text(),
              beforeFrames +
                  "<frame src=\"\" name=\"Row1Col1\" frameborder=\"0\" scrolling=\"no\" noresize=\"noresize\">\r\n" +
                  behindFrames);
    EXPECT_EQ(Text(), "");
    page.HandleUndo();
    EXPECT_EQ(page.Text1->Text(), beforeFrames + behindFrames) << "the wizard's markup is one step";
}

TEST_F(NewDialog, ACancelledWizardLeavesThePageOpen) {
    InModal<FormWizard>([this] { Pick(3); }, [](FormWizard& form) { Click(form, "cmdCancel"); });
    ASSERT_EQ(opening.made.size(), 1);
    EXPECT_EQ(opening.made.last()->Text1->Text(), beforeFrames + behindFrames);

    const auto next = [](FormWizard& form) {
        Click(form, "optColumns");
        Click(form, "cmdNext");
    };
    const auto giveUp = [](FormWizard2& page) {
        Type(page, "txtNumber", "2");
        Click(page, "cmdNext");
        Click(page, "cmdCancel");
    };
    InModal<FormWizard2>([&] { InModal<FormWizard>([this] { Pick(3); }, next); }, giveUp);
    ASSERT_EQ(opening.made.size(), 2);
    EXPECT_EQ(opening.made.last()->Text1->Text(), beforeFrames + behindFrames);
    EXPECT_EQ(window.focusWidget(), opening.made.last()->Text1);
    EXPECT_TRUE(window.isEnabled());
}

}  // namespace
}  // namespace vellum::test
