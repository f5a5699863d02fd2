// The tools in the real main window: from the menu, the tag bar and the website panel to the text of the document.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tools/framework/tool_dialog.h"
#include "website/website_panel.h"

#include <QAbstractButton>
#include <QImage>

namespace vellum::test {
namespace {

struct ToolCase {
    const char* menuItem;
    const char* barItem;  // null when no bar has the tool
    const char* form;
    std::vector<std::pair<const char*, const char*>> fields;  // names and what is typed
    const char* ok;
    const char* markup;
};

const std::vector<ToolCase>& Cases() {
    static const std::vector<ToolCase> cases{
        {"mnuAnchorItem",
         "popNonCodingToolsItem(1)",
         "frmAnchors",
         {{"txtURL", "a.htm"}},
         "cmdOK",
         "<a href=\"a.htm\">word</a>"},
        {"mnuASPItem", "popScriptingItem(6)", "ASP", {{"cboConditional", "If"}}, "cmdConditionalOK", "<%= If %>"},
        {"mnuBackgroundSoundItem",
         "popGraphicsSoundItem(2)",
         "frmSound",
         {{"txtSource", "a.mid"}},
         "cmdOK",
         "<bgsound src=\"a.mid\" loop=\"INFINITE\">"},
        {"mnuFloatingFrameItem",
         "popFramesItem(1)",
         "frmIFrame",
         {{"txtName", "side"}},
         "cmdOK",
         "<IFRAME align=\"TOP\" name=\"side\" frameborder=\"0\" scrolling=\"no\"></iframe>"},
        {"mnuFontWizardItem",
         "popFontItem(1)",
         "frmFonts",
         {{"cboSize", "3"}},
         "cmdOK",
         "<font size=\"3\">word</font>"},
        {"mnuHorizontalRuleItem", nullptr, "HRule", {{"cboHeight", "2"}}, "cmdOK", "<hr size=\"2\" width=\"100%\" />"},
        {"mnuImageItem",
         "popNonCodingToolsItem(3)",
         "frmGraphics",
         {{"txtURL", "a.gif"}},
         "cmdOK",
         "<img src=\"a.gif\" />"},
        {"mnuAppletItem",
         "popScriptingItem(4)",
         "frmApplet",
         {{"txtName", "x"}},
         "cmdOK",
         "<applet name=\"x\" codebase=\"\" code=\"\" width=\"100\" height=\"100\" hspace=\"100\" "
         "vspace=\"100\"></applet>"},
        {"mnuParameterItem",
         "popScriptingItem(5)",
         "frmParam",
         {{"Text1", "n"}},
         "cmdOK",
         "<param name=\"n\" value=\"\" />\r\n"},
    };
    return cases;
}

class ToolsTest : public MainWindowFixture {
protected:
    void SelectWord() const {
        Active().Text1->SetText("word");
        Active().Text1->SetSelStart(0);
        Active().Text1->SetSelLength(4);
    }

    static void Type(const ToolDialog& tool, const char* field, const QString& text) {
        auto* const box = tool.findChild<QComboBox*>(field);
        QLineEdit* const line = box ? box->lineEdit() : tool.findChild<QLineEdit*>(field);
        ASSERT_NE(line, nullptr) << field;
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
    }

    static void Click(const ToolDialog& tool, const char* button) {
        QTest::mouseClick(tool.findChild<QAbstractButton*>(button), Qt::LeftButton);
    }

    void Work(const char* item, const ToolCase& work) const {
        InModal<ToolDialog>([&] { Trigger(item); },
                            [&](ToolDialog& tool) {
                                EXPECT_EQ(tool.objectName(), work.form) << item;
                                for (const auto& [field, text] : work.fields) Type(tool, field, text);
                                Click(tool, work.ok);
                            });
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

TEST_F(ToolsTest, WriteTheirMarkupInPlaceOfTheSelection) {
    Open();
    for (const ToolCase& work : Cases()) {
        for (const char* item : {work.menuItem, work.barItem}) {
            if (!item) continue;
            SelectWord();
            Work(item, work);
            EXPECT_EQ(Text(), work.markup) << item;
            EXPECT_TRUE(Active().Text1->hasFocus() || window->focusWidget() == Active().Text1) << item;
            Trigger("mnuUndoItem");
            EXPECT_EQ(Text(), "word") << item << " is one step of undo";
        }
    }
}

TEST_F(ToolsTest, LeaveTheTextAloneWhenTheyAreCancelled) {
    Open();
    for (const ToolCase& work : Cases()) {
        SelectWord();
        Active().SetSaver(true);
        InModal<ToolDialog>([&] { Trigger(work.menuItem); },
                            [](ToolDialog& tool) { QTest::keyClick(&tool, Qt::Key_Escape); });
        EXPECT_EQ(Text(), "word") << work.menuItem;
        EXPECT_EQ(Active().Text1->SelLength(), 4) << work.menuItem;
        EXPECT_TRUE(Active().Saver()) << work.menuItem;
    }
}

TEST_F(ToolsTest, AreOffWithoutADocument) {
    Open();
    Trigger("mnuClose");
    EXPECT_FALSE(window->findChild<QAction*>("mnuTools")->isEnabled());
    window->NewForm();
    EXPECT_TRUE(window->findChild<QAction*>("mnuTools")->isEnabled());
}

TEST_F(ToolsTest, APictureOfThePanelGoesIntoThePage) {
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(SitePath("a photo.jpg")));
    Open();
    InModal<ToolDialog>([&] { DoubleClick("a photo.jpg"); }, [](ToolDialog& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "<img src=\"a photo.jpg\" height=\"20\" width=\"30\" />");
    EXPECT_EQ(window->OpenDocCount(), "1");
}

TEST_F(ToolsTest, ASoundOfThePanelGoesIntoThePage) {
    (void)MakeFile("song.mid", "MThd");
    Open();
    InModal<ToolDialog>([&] { DoubleClick("song.mid"); }, [](ToolDialog& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "<bgsound src=\"song.mid\" loop=\"INFINITE\">");
}

TEST_F(ToolsTest, AFileOfThePanelIsLinkedTo) {
    (void)MakeFile("next page.htm", "x");
    Open();
    SelectWord();
    FileList& files = *window->Picture11->File2;
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.SelectFile("next page.htm"); }));
    InModal<ToolDialog>([&] { Trigger("mnuWebsiteLinkItem"); }, [](ToolDialog& tool) { Click(tool, "cmdOK"); });
    EXPECT_EQ(Text(), "<a href=\"next page.htm\">word</a>");
}

TEST_F(ToolsTest, WithoutADocumentAPictureOfThePanelDoesNothing) {
    (void)MakeFile("a.gif", "GIF89a");
    Open();
    Trigger("mnuClose");
    DoubleClick("a.gif");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(window->OpenDocCount(), "0");
    EXPECT_FALSE(window->findChild<QAction*>("mnuWebsiteLinkItem")->isEnabled());
}

}  // namespace
}  // namespace vellum::test
