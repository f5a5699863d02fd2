#include "preview/generated_page.h"
#include "tests/shell/main_window_fixture.h"
#include "website/website_panel.h"

#include <QLineEdit>

namespace vellum::test {
namespace {

class OpenDocumentsTest : public MainWindowFixture {};

TEST_F(OpenDocumentsTest, TheHiddenFieldShowsTheCount) {
    Open();
    EXPECT_EQ(window->Text5->text(), "1");
    window->NewForm();
    EXPECT_EQ(window->Text5->text(), "2");
    Trigger("mnuCloseAll");
    EXPECT_EQ(window->Text5->text(), "0");
}

TEST_F(OpenDocumentsTest, AllDocumentsComeInTheOrderOfTheirOpening) {
    Open();
    Document* const first = window->ActiveDocument();
    Document* const second = window->NewForm();
    emit window->Picture11->FileActivated(MakeFile("page.htm", "x"));
    Document* const third = window->ActiveDocument();
    first->Activate();
    EXPECT_EQ(window->Documents(), (QList{first, second, third}));
    Trigger("mnuClose");
    EXPECT_EQ(window->Documents(), (QList{second, third}));
}

TEST_F(OpenDocumentsTest, AFileOfThePanelThatHasGoneLeavesABlankWindow) {
    Open();
    emit window->Picture11->FileActivated(SitePath("gone.htm"));
    EXPECT_EQ(prompts.messages, QStringList{"Unable to load file"});
    EXPECT_EQ(Active().Caption(), "New");
    EXPECT_EQ(Active().Text1->Text(), "");
    EXPECT_EQ(window->OpenDocCount(), 2);
}

TEST_F(OpenDocumentsTest, ABlankWindowOfAFailureTakesNoNumber) {
    Open();
    emit window->Picture11->FileActivated(SitePath("gone.htm"));
    EXPECT_EQ(window->NewForm()->Caption(), "New 2");
}

TEST_F(OpenDocumentsTest, AGeneratedPageMakesADocumentWhenThereIsNone) {
    Open(true);
    QString page = "<title>A lesson</title>";
    LoadPage(*window, page);
    EXPECT_EQ(window->OpenDocCount(), 1);
    Trigger("mnuClose");
    const int colored = window->colored;
    LoadPage(*window, page);
    ASSERT_NE(window->ActiveDocument(), nullptr);
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(window->colored, colored + 1);
}

TEST_F(OpenDocumentsTest, ACommandLineFileIsColoredOnce) {
    Open(false, MakeFile("page.htm", "<p>x</p>"));
    EXPECT_EQ(window->colored, 1);
    EXPECT_EQ(window->documents.NewDocCount, 1);
    EXPECT_EQ(window->OpenDocCount(), 1);
}

}  // namespace
}  // namespace vellum::test
