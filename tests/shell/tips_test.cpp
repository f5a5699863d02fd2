// The tips and the About page, as the main window shows them.
#include "help/didyouknow.h"
#include "help/frm_about.h"
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tools/pages/new_wizards.h"

#include <QAbstractButton>

namespace vellum::test {
namespace {

class TipsTest : public MainWindowFixture {
protected:
    // Starts a main window that shows the tips itself.
    void Start(const QString& commandLine = {}) {
        shown = std::make_unique<MDIform1>(settings, prompts, recovery, QStringList{"Alpha"}, false);
        shown->Load(commandLine, [] {});
    }

    static void Click(const QWidget& form, const char* button) {
        QTest::mouseClick(form.findChild<QAbstractButton*>(button), Qt::LeftButton);
    }

    std::unique_ptr<MDIform1> shown;
};

TEST_F(TipsTest, OpenAtStartOverTheBlankDocument) {
    InModal<Didyouknow>([this] { Start(); },
                        [this](Didyouknow& tips) {
                            ASSERT_NE(shown->ActiveDocument(), nullptr);
                            EXPECT_EQ(shown->ActiveDocument()->Caption(), "New 1");
                            QTest::keyClick(&tips, Qt::Key_Escape);
                        });
}

TEST_F(TipsTest, StayAwayOnceTheirBoxWasCleared) {
    InModal<Didyouknow>([this] { Start(); },
                        [](Didyouknow& tips) {
                            auto* const box = tips.findChild<QAbstractButton*>("Check1");
                            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
                        });
    EXPECT_EQ(ReadSetting(settings, keys::showStart), "no");
    shown.reset();
    Start();  // would wait here for the tips to close
    EXPECT_EQ(shown->OpenDocCount(), 1);
}

TEST_F(TipsTest, StayAwayForAnyWordButYes) {
    WriteSetting(settings, keys::showStart, "Yes");
    Start();
    EXPECT_EQ(shown->OpenDocCount(), 1);
}

TEST_F(TipsTest, StayAwayWhenThePageOfTheCommandLineHasText) {
    Start(MakeFile("page.htm", "text"));
    EXPECT_EQ(shown->ActiveDocument()->Text1->Text(), "text");
}

TEST_F(TipsTest, ComeFromTheMenuWhateverTheSettingSays) {
    WriteSetting(settings, keys::showStart, "no");
    Open();
    InModal<Didyouknow>([this] { Trigger("mnuDidYouKnow"); }, [](Didyouknow& tips) { tips.close(); });
}

TEST_F(TipsTest, LeadToTheNewDialog) {
    Open();
    InModal<Didyouknow>(
        [this] {
            InModal<NewWizards>([this] { Trigger("mnuDidYouKnow"); },
                                [](NewWizards& wizards) { Click(wizards, "Image1(0)"); });
        },
        [](Didyouknow& tips) { Click(tips, "Command3"); });
    EXPECT_EQ(Active().Caption(), "New 2");
}

TEST_F(TipsTest, LeadToTheOpenDialog) {
    prompts.openNames = {MakeFile("page.htm", "opened")};
    Open();
    InModal<Didyouknow>([this] { Trigger("mnuDidYouKnow"); }, [](Didyouknow& tips) { Click(tips, "Command5"); });
    EXPECT_EQ(Active().Text1->Text(), "opened");
}

TEST_F(TipsTest, TheAboutPageOpensFromTheHelpMenu) {
    Open();
    InModal<frmAbout>([this] { Trigger("mnuAboutItem"); }, [](frmAbout& about) { Click(about, "cmdOK"); });
}

}  // namespace
}  // namespace vellum::test
