// Importing text, from the menu to the document.
#include "import/import_commands.h"
#include "import/rich_text.h"
#include "import/text_import.h"
#include "tests/shell/main_window_fixture.h"

namespace vellum::test {
namespace {

constexpr auto rtf = R"({\rtf1{\fonttbl{\f0 Times;}}\b a<b\par})";

// The main window, with what it showed while it was painted as busy.
class WatchedWindow : public CountingWindow {
public:
    using CountingWindow::CountingWindow;

    void ShowStatus(StatusPanel panel, const QString& text) override {
        if (panel == StatusPanel::Work) work << text;
        CountingWindow::ShowStatus(panel, text);
    }
    void Smartcolor() override {
        busyWhileColored = QGuiApplication::overrideCursor() != nullptr;
        CountingWindow::Smartcolor();
    }

    QStringList work;
    bool busyWhileColored = false;
};

class ImportCommand : public WindowFixture<WatchedWindow> {
protected:
    void Import(const char* item, const QString& path) {
        window->work.clear();
        window->colored = 0;
        prompts.openNames = {path};
        Trigger(item);
    }
    void ImportNew(const QString& path) { Import("mnuImport1", path); }
    void ImportHere(const QString& path) { Import("mnuImport2", path); }

    [[nodiscard]] QString Text() const { return Active().Text1->Text(); }

    [[nodiscard]] static QString RtfMarkup() {
        return "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n"
               "<div style=\"text-align: left; font-weight: bold; font-size: 12pt; font-family: Times; color: "
               "#000000;\">\r\n"
               "<span>a&lt;b</span>\r\n</div>\r\n</span>";
    }
};

TEST_F(ImportCommand, AsksForTextInTheWebsitesDirectory) {
    Open();
    for (const char* item : {"mnuImport1", "mnuImport2"}) {
        prompts.requests.clear();
        Import(item, {});
        ASSERT_EQ(prompts.requests.size(), 1U);
        EXPECT_EQ(prompts.requests.front().filter, "Rich Text Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt");
        EXPECT_EQ(prompts.requests.front().directory, site.path());
        EXPECT_FALSE(prompts.requests.front().several);
    }
    EXPECT_EQ(window->OpenDocCount(), 1) << "nothing was chosen";
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(window->work, QStringList());
}

TEST_F(ImportCommand, MakesAPageInTheBlankDocument) {
    Open();
    ImportNew(MakeFile("a.txt", "one  \"two\"\nthree"));
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Active().Caption(), "New 1");
    EXPECT_EQ(Text(), ImportedPage("one&nbsp;&quot;two&quot;<br />\r\nthree"));
    EXPECT_FALSE(Active().Saver());
    EXPECT_EQ(window->colored, 1);
}

TEST_F(ImportCommand, MakesAPageInANewDocumentBesideText) {
    Open();
    Active().Text1->SetText("text");
    ImportNew(MakeFile("a.rtf", rtf));
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), ImportedPage(RtfMarkup()));
    EXPECT_EQ(window->Documents().front()->Text1->Text(), "text");
}

TEST_F(ImportCommand, MakesAPageWithNoDocumentOpen) {
    Open();
    Trigger("mnuClose");
    ASSERT_EQ(window->OpenDocCount(), 0);
    ImportNew(MakeFile("a.txt", "x"));
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Active().Caption(), "New 2");
    EXPECT_EQ(Text(), ImportedPage("x"));
}

TEST_F(ImportCommand, TellsWhatItDoes) {
    Open();
    ImportNew(MakeFile("a.rtf", rtf));
    EXPECT_EQ(window->work, (QStringList{"Importing File", ""}));
    EXPECT_TRUE(window->busyWhileColored);
    EXPECT_EQ(Panel(4), "");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ImportCommand, SaysNothingOfAFileThatCanNotBeRead) {
    Open();
    Active().Text1->SetText("text");
    ImportNew(SitePath("none.rtf"));
    EXPECT_EQ(prompts.messages, QStringList());
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(Text(), "") << "the new document stays blank";
    EXPECT_EQ(window->work, (QStringList{"Importing File", ""}));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    ImportHere(SitePath("none.txt"));
    EXPECT_EQ(prompts.messages, QStringList());
    EXPECT_EQ(Text(), "");
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(window->work, (QStringList{"Importing File", ""}));
}

TEST_F(ImportCommand, MakesAnEmptyPageOfAnotherKindOfFile) {
    Open();
    ImportNew(MakeFile("a.doc", "x"));
    EXPECT_EQ(Text(), ImportedPage(""));
}

TEST_F(ImportCommand, PutsMarkupInPlaceOfTheSelection) {
    Open();
    EditSurface& text = *Active().Text1;
    text.SetText("<p>here</p>");
    text.SetSelStart(3);
    text.SetSelLength(4);
    ImportHere(MakeFile("a.txt", "one\ntwo"));
    EXPECT_EQ(Text(), "<p>one<br />\r\ntwo</p>");
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(window->work.first(), "Importing File");
    EXPECT_EQ(Panel(4), "");
    Trigger("mnuUndoItem");
    EXPECT_EQ(Text(), "<p>here</p>");

    text.SetText("");
    ImportHere(MakeFile("a.rtf", rtf));
    EXPECT_EQ(Text(), RtfMarkup());
}

TEST_F(ImportCommand, NeedsADocumentOnlyToPutMarkupIntoIt) {
    Open();
    Trigger("mnuClose");
    const QObject& owner = *window;
    EXPECT_TRUE(owner.findChild<QAction*>("mnuImport1")->isEnabled());
    EXPECT_FALSE(owner.findChild<QAction*>("mnuImport2")->isEnabled());
}

TEST_F(ImportCommand, HasTheEditorsFontForTextWithoutFormats) {
    WriteSetting(settings, keys::fontName, "Courier New");
    WriteSetting(settings, keys::fontSize, "14");
    Open();
    ImportNew(MakeFile("a.rtf", "plain"));
    EXPECT_EQ(Text(), ImportedPage(ConvertRichText(PlainRichText("plain", "Courier New", 14))));
}

}  // namespace
}  // namespace vellum::test
