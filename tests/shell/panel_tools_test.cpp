// The tools that the website panel opens, from a file in its list to the text of the document.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tools/framework/tool_dialog.h"
#include "website/website_panel.h"

#include <QAbstractButton>
#include <QImage>

namespace vellum::test {
namespace {

class PanelTools : public MainWindowFixture {
protected:
    static void PressOk(ToolDialog& tool) {
        QTest::mouseClick(tool.findChild<QAbstractButton*>("cmdOK"), Qt::LeftButton);
    }

    // A double click on a file of the panel, as soon as it is listed.
    void DoubleClick(const QString& name) const {
        FileList& files = *window->Picture11->File2;
        ASSERT_TRUE(QTest::qWaitFor([&] { return files.SelectFile(name); }));
        const QPoint place = files.visualRect(files.currentIndex()).center();
        QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(files.viewport(), Qt::LeftButton, {}, place);
    }

    [[nodiscard]] QString Text() const { return Active().Text1->Text(); }
};

TEST_F(PanelTools, APictureOfThePanelGoesIntoThePage) {
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(SitePath("a photo.jpg")));
    Open();
    InModal<ToolDialog>([&] { DoubleClick("a photo.jpg"); }, PressOk);
    EXPECT_EQ(Text(), "<img src=\"a photo.jpg\" height=\"20\" width=\"30\" />");
    EXPECT_EQ(window->OpenDocCount(), 1);
}

TEST_F(PanelTools, ASoundOfThePanelGoesIntoThePage) {
    (void)MakeFile("song.mid", "MThd");
    Open();
    InModal<ToolDialog>([&] { DoubleClick("song.mid"); }, PressOk);
    EXPECT_EQ(Text(), "<bgsound src=\"song.mid\" loop=\"INFINITE\">");
}

TEST_F(PanelTools, AFileOfThePanelIsLinkedTo) {
    (void)MakeFile("next page.htm", "x");
    Open();
    Active().Text1->SetText("word");
    Active().Text1->SetSelStart(0);
    Active().Text1->SetSelLength(4);
    FileList& files = *window->Picture11->File2;
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.SelectFile("next page.htm"); }));
    InModal<ToolDialog>([&] { Trigger("mnuWebsiteLinkItem"); }, PressOk);
    EXPECT_EQ(Text(), "<a href=\"next page.htm\">word</a>");
}

TEST_F(PanelTools, ADocumentOutlivesTheNewNameAndTheEndOfItsFile) {
    const QString path = MakeFile("page.htm", "words");
    Open(false, path);
    FileList& files = *window->Picture11->File2;
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.SelectFile("page.htm"); }));
    prompts.inputs = {"other.htm"};
    Trigger("mnuWebsiteRenameItem");
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.FileName() == "other.htm"; }));
    EXPECT_EQ(Text(), "words");
    Active().Text1->SetText("more words");
    prompts.choices = {"Save"};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "more words");
    EXPECT_EQ(Bytes(SitePath("other.htm")), "words");

    ASSERT_TRUE(QTest::qWaitFor([&] { return files.SelectFile("page.htm"); }));
    prompts.answers = {Answer::Yes};
    Trigger("mnuWebsiteDeleteItem");
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(Text(), "more words");
    prompts.choices = {"Save"};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), "more words");
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(PanelTools, WithoutADocumentAPictureOfThePanelDoesNothing) {
    (void)MakeFile("a.gif", "GIF89a");
    Open();
    Trigger("mnuClose");
    DoubleClick("a.gif");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(window->OpenDocCount(), 0);
    EXPECT_FALSE(window->findChild<QAction*>("mnuWebsiteLinkItem")->isEnabled());
}

}  // namespace
}  // namespace vellum::test
