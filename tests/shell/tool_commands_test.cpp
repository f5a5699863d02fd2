// The tools from their items in the main window to the document's text.
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tools/frames/form_wizard.h"
#include "tools/tables/frm_tables.h"
#include "tools/tables/table_importer.h"

#include <QMap>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>

namespace vellum::test {
namespace {

// A tool, what is typed into the field that it opens with, and what comes of it for the selection "x".
struct Opened {
    const char* item;
    const char* form;
    const char* typed;
    const char* markup;
    Qt::KeyboardModifier with = Qt::NoModifier;  // of the Enter key that is its OK
};

const Opened tools[] = {
    {"mnuAnchorItem", "frmAnchors", "u", "<a href=\"u\">x</a>"},
    {"mnuASPItem", "ASP", "V", "<%= Request.ServerVariables(\"V\") %>"},
    {"mnuBackgroundSoundItem", "frmSound", "s", "<bgsound src=\"s\" loop=\"INFINITE\">"},
    {"mnuFloatingFrameItem", "frmIFrame", "L", "<IFRAME align=\"L\" frameborder=\"0\" scrolling=\"no\"></iframe>"},
    {"mnuFontWizardItem", "frmFonts", "3", "<font size=\"3\">x</font>"},
    {"mnuFormWizardItem", "frmForms", "f",
     "<!-- Begin Form -->\r\n<form name=\"f\">\r\n\r\n\r\n</form>\r\n<!-- Form End -->"},
    {"mnuFormInputItem", "frmInput", "", "<button></button>"},
    {"mnuSearchEnginesItem", "frmSearchEngines", "Y",
     "<form action=\"https://search.yahoo.com/bin/search\">\r\n<input size=\"30\" name=\"p\" />"
     "<input type=\"submit\" value=\"Yahoo\" />\r\n</form>"},
    {"mnuHorizontalRuleItem", "HRule", "RED", "<hr color=\"RED\" size=\"4\" width=\"100%\" />"},
    {"mnuImageItem", "frmGraphics", "vrml", "<img vrml=\"\" />"},
    {"mnuAppletItem", "frmApplet", "C",
     "<applet name=\"\" codebase=\"\" code=\"C\" width=\"100\" height=\"100\" hspace=\"100\" vspace=\"100\"></applet>"},
    {"mnuScriptTagsItem", "frmInsertScript", "VBS",
     "<script language=\"VBS\">\r\n<!--\r\n' <![CDATA[\r\n\r\n\r\n' ]]>\r\n-->\r\n</script>"},
    {"mnuListBuilderItem", "frmLists", "i",
     "<!-- Begin List -->\r\n<ol start=\"1\" type=\"1\">\r\n<li>i</li>\r\n</ol>\r\n<!-- End List -->"},
    {"mnuQuickstartItem", "frmQuickStart", "T",
     "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"DTD/xhtml1-transitional.dtd\">\r\n"
     "<html xmlns=\"http://www.w3.org/1999/xhtml\">\r\n<head>\r\n<title>T</title>\r\n</head>\r\n<body>\r\n"
     "\r\n\r\n</body>\r\n</html>"},
    {"mnuParagraphItem", "frmParagraphs", "p",
     "<!-- Begin Paragraph -->\r\n<p>\r\n"
     "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n"
     "<div style=\"text-align: left; font-size: 12pt; font-family: Times New Roman; color: #000000;\">\r\n"
     "<span>p</span>\r\n</div>\r\n</span>\r\n</p>\r\n<!-- End Paragraph -->",
     Qt::ControlModifier},
    {"mnuStyleItem", "CSS", "f",
     "<style type=\"text/css\">\r\n<!--\r\n/* <![CDATA[ */\r\n\r\nbody {\r\n font-family: f;\r\n}\r\n\r\n"
     "/* ]]> */\r\n-->\r\n</style>"},
    {"mnuInlineItem", "CSS", "f", "<div style=\" font-family: f;\">\r\nx\r\n</div>"},
    {"inStyleItem", "CSS", "f", " style=\" font-family: f;\""},
    {"mnuSpecialEffectsItem", "CStuff", "t",
     "<!-- Begin 3D Text -->\r\n"
     "<div style=\"margin-left: 0px; margin-top: 0px; font-family: Arial; font-size: 30pt; fontsize: 30pt; "
     "font-weight: medium; font-style: normal; color: #C0C0C0;\">\r\nt\r\n</div>\r\n"
     "<div style=\"margin-left: 2px; margin-top: -48px ; font-family: Arial; font-size: 30pt; fontsize: 30pt; "
     "font-weight: medium; font-style: normal; color: #000000;\">\r\nt\r\n</div>\r\n<!-- End 3D Text -->"},
    {"mnuParameterItem", "frmParam", "n", "<param name=\"n\" value=\"\" />\r\n"},
};

class ToolCommands : public MainWindowFixture {
protected:
    void Select() const {
        Active().Text1->SetText("axb");
        Active().Text1->SetSelStart(1);
        Active().Text1->SetSelLength(1);
    }
};

TEST_F(ToolCommands, AnItemOpensItsToolAndTheKeyboardDoesTheRest) {
    Open();
    for (const Opened& tool : tools) {
        Select();
        InModal<ToolDialog>([&] { Trigger(tool.item); },
                            [&](ToolDialog& form) {
                                EXPECT_EQ(form.objectName(), tool.form);
                                QTest::keyClicks(form.focusWidget(), tool.typed);
                                QTest::keyClick(form.focusWidget(), Qt::Key_Return, tool.with);
                            });
        EXPECT_EQ(Active().Text1->Text(), QString("a%1b").arg(tool.markup)) << tool.item;
        Active().HandleUndo();
        EXPECT_EQ(Active().Text1->Text(), "axb") << tool.item;
    }
}

TEST_F(ToolCommands, EscLeavesTheTextAndItsSelection) {
    Open();
    for (const Opened& tool : tools) {
        Select();
        InModal<ToolDialog>([&] { Trigger(tool.item); },
                            [&](ToolDialog& form) {
                                QTest::keyClicks(form.focusWidget(), tool.typed);
                                QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
                            });
        EXPECT_EQ(Active().Text1->Text(), "axb") << tool.item;
        EXPECT_EQ(Active().Text1->SelText(), "x") << tool.item;
        EXPECT_TRUE(window->isEnabled()) << tool.item;
    }
}

TEST_F(ToolCommands, TheTagBarOpensTheSameForms) {
    Open();
    const QMap<QString, QString> forms{{"Anchor", "frmAnchors"},
                                       {"Image", "frmGraphics"},
                                       {"Font", "frmFonts"},
                                       {"Sound", "frmSound"},
                                       {"Java Applet", "frmApplet"},
                                       {"Floating Frame", "frmIFrame"},
                                       {"Parameter Tags", "frmParam"},
                                       {"ASP", "ASP"},
                                       {"Frame Builder", "FormWizard"},
                                       {"List Builder", "frmLists"},
                                       {"Quickstart", "frmQuickStart"},
                                       {"Paragraph Builder", "frmParagraphs"},
                                       {"Table Builder", "frmTables"},
                                       {"Script Tags", "frmInsertScript"},
                                       {"In-tag Scripts", "InScript"},
                                       {"Scripting Tools", "frmScriptWizard"},
                                       {"Object Tags", "frmControls"},
                                       {"Style Sheet", "CSS"},
                                       {"In-line Style Sheet", "CSS"},
                                       {"In-tag Style", "CSS"},
                                       {"Special Effects", "CStuff"},
                                       {"Form Wizard", "frmForms"},
                                       {"Form Input", "frmInput"},
                                       {"Search Engines", "frmSearchEngines"}};
    QStringList opened;
    for (const QMenu* popup : window->findChildren<QMenu*>(QRegularExpression("^pop"))) {
        for (QAction* item : popup->actions()) {
            if (!forms.contains(item->text())) continue;
            InModal<ToolDialog>(
                [&] { item->trigger(); },
                [&](const ToolDialog& form) { EXPECT_EQ(form.objectName(), forms.value(item->text())); });
            opened << item->text();
        }
    }
    EXPECT_EQ(opened.size(), 30) << "six of them stand on two popups";
    EXPECT_EQ(QSet<QString>(opened.begin(), opened.end()).size(), forms.size());
}

TEST_F(ToolCommands, TheTableBuilderKeepsItsCellsFromOneDocumentToTheNext) {
    Open();
    Active().Text1->SetText({});
    InModal<frmTables>([&] { Trigger("mnuTableItem"); },
                       [](frmTables& form) {
                           QTest::keyClicks(form.focusWidget(), "a");
                           QTest::keyClick(form.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
                       });
    const QString table = Active().Text1->Text();
    EXPECT_TRUE(table.contains("12pt\">\r\na\r\n</span>"));
    EXPECT_EQ(window->focusWidget(), Active().Text1);
    Active().HandleUndo();
    EXPECT_EQ(Active().Text1->Text(), "");
    Trigger("mnuClose");
    window->NewForm();
    InModal<frmTables>(
        [&] { Trigger("mnuTableItem"); },
        [](frmTables& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return, Qt::ControlModifier); });
    EXPECT_EQ(Active().Text1->Text(), table);
    window->close();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ToolCommands, ATableIsImportedIntoTheTableBuilder) {
    Open();
    Active().Text1->SetText({});
    prompts.openNames = {MakeFile("cells.txt", "a\tb\n")};
    InModal<frmTables>(
        [&] {
            InModal<TableImporter>([&] { Trigger("mnuImport3"); },
                                   [](TableImporter& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return); });
        },
        [](frmTables& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Return, Qt::ControlModifier); });
    EXPECT_EQ(prompts.requests.back().directory, site.path());
    EXPECT_EQ(Active().Text1->Text().count("<td "), 4);
    EXPECT_TRUE(Active().Text1->Text().contains("12pt\">\r\nb\r\n</span>"));
}

// Those whose first field makes no markup by itself.
TEST_F(ToolCommands, ScriptsAndControlsComeFromTheMenu) {
    Open();
    Select();
    InModal<ToolDialog>([&] { Trigger("mnuInTagScriptItem"); },
                        [](ToolDialog& form) {
                            EXPECT_EQ(form.objectName(), "InScript");
                            const char* const typed[] = {"VBS", "onclick", "f"};
                            for (const char* text : typed) {
                                QTest::keyClicks(form.focusWidget(), text);
                                QTest::keyClick(form.focusWidget(), text == typed[2] ? Qt::Key_Return : Qt::Key_Tab);
                            }
                        });
    EXPECT_EQ(Active().Text1->Text(), "a language=\"VBS\" onclick=\"f\"b");
    Active().HandleUndo();
    EXPECT_EQ(Active().Text1->Text(), "axb");

    InModal<ToolDialog>([&] { Trigger("mnuScriptingToolsItem"); },
                        [](ToolDialog& form) {
                            EXPECT_EQ(form.objectName(), "frmScriptWizard");
                            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
                            QTest::keyClick(form.focusWidget(), Qt::Key_Down);
                            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                        });
    EXPECT_TRUE(Active().Text1->Text().contains("script language=\"VBScript\"")) << "the second list";
    Active().HandleUndo();
    EXPECT_EQ(Active().Text1->Text(), "axb");

    InModal<ToolDialog>([&] { Trigger("mnuObjectItem"); },
                        [](ToolDialog& form) {
                            EXPECT_EQ(form.objectName(), "frmControls");
                            QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
                        });
    EXPECT_EQ(Active().Text1->Text(), "axb");
}

// As when the session ends around an open form.
TEST_F(ToolCommands, AFormOutlivesItsDocument) {
    Open();
    Trigger("mnuClose");
    for (const Opened& tool : tools) {
        window->NewForm();
        InModal<ToolDialog>([&] { Trigger(tool.item); },
                            [&](ToolDialog& form) {
                                QTest::keyClicks(form.focusWidget(), tool.typed);
                                Trigger("mnuCloseAll");
                                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                                ASSERT_EQ(window->ActiveDocument(), nullptr);
                                QTest::keyClick(form.focusWidget(), Qt::Key_Return, tool.with);
                                EXPECT_FALSE(form.isVisible()) << tool.item;
                            });
        EXPECT_EQ(window->OpenDocCount(), 0);
    }
}

}  // namespace
}  // namespace vellum::test
