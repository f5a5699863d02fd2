// The New command of the real main window, from the menu to the documents.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frame_page.h"
#include "tools/pages/new_wizards.h"
#include "tools/pages/page_skeletons.h"
#include "tools/styles/css.h"

#include <QToolButton>

namespace vellum::test {
namespace {

class NewCommand : public MainWindowFixture {
protected:
    // Chooses from the dialog by a click on its picture.
    void Pick(int index) {
        InModal<NewWizards>([this] { Trigger("mnuNewItem"); },
                            [index](NewWizards& form) {
                                QTest::mouseClick(form.findChild<QToolButton*>(QString("Image1(%1)").arg(index)),
                                                  Qt::LeftButton);
                            });
    }

    [[nodiscard]] QString Text() const { return Active().Text1->Text(); }
};

TEST_F(NewCommand, OpensABlankDocument) {
    Open();
    Pick(0);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(window->OpenDocCount(), 2);
}

TEST_F(NewCommand, WritesTheStructuralTags) {
    Open();
    Pick(5);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), StructuralSkeleton());
}

TEST_F(NewCommand, BuildsFramesInANewDocument) {
    Open();
    const auto next = [](FormWizard& wizard) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&wizard));
        QTest::keyClick(wizard.focusWidget(), Qt::Key_Return);
    };
    const auto layOut = [this](FormWizard3& page) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
        EXPECT_FALSE(window->isEnabled());
        EXPECT_TRUE(page.isEnabled());
        QTest::keyClicks(page.focusWidget(), "1");
        QTest::keyClick(page.focusWidget(), Qt::Key_Return);
        QTest::keyClick(page.focusWidget(), Qt::Key_F, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !page.isVisible(); }));
    };
    InModal<FormWizard3>([&] { InModal<FormWizard>([this] { Pick(3); }, next); }, layOut);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), FramesetSkeleton().replace(
                          "</head>\r\n\r\n",
                          "</head>\r\n\r\n<frame src=\"\" name=\"Row1Col1\" frameborder=\"0\" scrolling=\"no\" "
                          "noresize=\"noresize\">\r\n"));
}

TEST_F(NewCommand, WritesAStyleSheetIntoANewDocument) {
    Open();
    Active().Text1->SetText("old");
    InModal<CSS>([this] { Pick(8); },
                 [](CSS& form) {
                     QTest::keyClicks(form.focusWidget(), "Arial");
                     QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                 });
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), "body {\r\n font-family: Arial;\r\n}\r\n\r\n");
}

}  // namespace
}  // namespace vellum::test
