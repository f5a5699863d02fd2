#include "tools/scripts/frm_script_wizard.h"

#include "tests/tools/tool_fixture.h"
#include "widgets/color_swatch.h"

#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableWidget>

namespace vellum::test {
namespace {

enum Pane { premade, popupImage, randomColor, randomText, linkbox, statusMessage, rollover, fade };

class ScriptWizardForm : public ToolFixture {
protected:
    static void DoubleClick(const QWidget& form, const QString& name, QPoint place) {
        QWidget* const viewport = Get<QListWidget>(form, name).viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {}, place);
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, place);
    }
    static void DoubleClickItem(const QWidget& form, const QString& name, const QString& text) {
        const auto& list = Get<QListWidget>(form, name);
        const QList<QListWidgetItem*> items = list.findItems(text, Qt::MatchExactly);
        if (items.isEmpty()) throw std::runtime_error("no item " + text.toStdString());
        DoubleClick(form, name, list.visualItemRect(items.first()).center());
    }
    static QPoint BelowItems(const QListWidget& list) {
        return {10, list.visualItemRect(list.item(list.count() - 1)).bottom() + 5};
    }
    static bool HasOK(const QWidget& form) { return Get<QPushButton>(form, "cmdOK").isVisible(); }
    static void Keys(const QWidget& form, const QString& text) { QTest::keyClicks(form.focusWidget(), text); }

    // A picture of the website that is 37 pixels wide.
    [[nodiscard]] QString Picture() const {
        const QString path = folder.filePath("wide.bmp");
        QImage(37, 11, QImage::Format_RGB32).save(path);
        return path;
    }
};

TEST_F(ScriptWizardForm, ShowsItsTabsAndCaptions) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        EXPECT_EQ(tool.windowTitle(), "Premade Scripts");
        const auto& tabs = Get<QTabWidget>(tool, "TabStrip1");
        QStringList captions;
        for (int i = 0; i < tabs.count(); ++i) captions << Shown(tabs.tabText(i));
        EXPECT_EQ(captions, (QStringList{"Premade Scripts", "Popup Image", "Random Background Color IVB Script)",
                                         "Random Text (VB Script)", "Linkbox", "Scrolling Status Bar Message",
                                         "Image Rollover Link", "Changing Background"}));
        const std::pair<const char*, const char*> fields[] = {{"List1", "JavaScript"},
                                                              {"List2", "VBScript"},
                                                              {"popupTxtBegin", "Beginning Width (Pixels)"},
                                                              {"popupTxtEnd", "Ending Width      (Pixels)"},
                                                              {"popupTxtImage", "Image"},
                                                              {"popupTxtID", "ID"},
                                                              {"LBText1", "Name"},
                                                              {"LBtxtCaption", "Displayed Caption"},
                                                              {"txtMessage", "The Message"},
                                                              {"txtMainImage", "Main Image"},
                                                              {"txtRollImage", "Mouseover Image"},
                                                              {"txtRollURL", "Link URL"},
                                                              {"lblCBColor1", "Color 1"},
                                                              {"lblCBColor2", "Color 2"},
                                                              {"txtCBSteps", "Steps"}};
        for (const auto& [name, caption] : fields) EXPECT_EQ(Caption(tool, name), caption);
        const std::pair<const char*, const char*> buttons[] = {
            {"cmdpopupTxtImage", "Find"}, {"cmdBCAdd", "Add Color"},      {"cmdBCRemove", "Remove Color"},
            {"cmdTextPlus", "+"},         {"cmdTextMinus", "-"},          {"cmdLBPlus", "+"},
            {"cmdLBMinus", "-"},          {"cmdMainImage", "Find Image"}, {"cmdRollImage", "Find Image"}};
        for (const auto& [name, caption] : buttons) EXPECT_EQ(Shown(Get<QPushButton>(tool, name).text()), caption);
    });
}

TEST_F(ScriptWizardForm, ShowsItsDefaults) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        const std::pair<const char*, const char*> defaults[] = {
            {"popupTxtBegin", "2"}, {"popupTxtEnd", ""},  {"popupTxtImage", ""}, {"popupTxtID", "Popup1"},
            {"LBText1", "LinkBox"}, {"LBtxtCaption", ""}, {"txtMessage", ""},    {"txtMainImage", ""},
            {"txtRollImage", ""},   {"txtRollURL", ""},   {"txtCBSteps", "20"}};
        for (const auto& [name, text] : defaults) EXPECT_EQ(Field(tool, name), text) << name;
        EXPECT_EQ(Get<QListWidget>(tool, "List1").count(), 14);
        EXPECT_EQ(Get<QListWidget>(tool, "List2").count(), 6);
        EXPECT_EQ(Get<QListWidget>(tool, "BCList1").count(), 0);
        EXPECT_TRUE(Get<QTableWidget>(tool, "TextGrid1").horizontalHeader()->isHidden());
        const auto& links = Get<QTableWidget>(tool, "LBGrid1");
        EXPECT_EQ(links.horizontalHeaderItem(0)->text(), "Listing");
        EXPECT_EQ(links.horizontalHeaderItem(1)->text(), "Link Address");
    });
}

TEST_F(ScriptWizardForm, ADoubleClickTakesAScript) {
    for (const auto& [list, language] :
         {std::pair{"List1", ScriptLanguage::Javascript}, {"List2", ScriptLanguage::VBScript}}) {
        for (const QString& name : PremadeNames(language)) {
            document.Text1->SetText("");
            Open<frmScriptWizard>([&, list = list](frmScriptWizard& tool) {
                DoubleClickItem(tool, list, name);
                EXPECT_FALSE(tool.isVisible());
            });
            EXPECT_EQ(Text(), PremadeScript(language, name)) << name.toStdString();
            EXPECT_FALSE(Text().isEmpty());
        }
    }
}

TEST_F(ScriptWizardForm, ADoubleClickOnNothingWritesNothingAndCloses) {
    document.Text1->SetText("axb");
    document.Text1->SetSelStart(1);
    document.Text1->SetSelLength(1);
    for (const char* list : {"List1", "List2"}) {
        Open<frmScriptWizard>([&](frmScriptWizard& tool) {
            tool.resize(tool.width(), tool.height() + 200);
            QApplication::processEvents();  // the lists grow
            DoubleClick(tool, list, BelowItems(Get<QListWidget>(tool, list)));
            EXPECT_FALSE(tool.isVisible()) << list;
        });
        EXPECT_EQ(Text(), "ab") << "an empty text goes in place of the selection";
    }
}

TEST_F(ScriptWizardForm, EnterTakesTheChosenScriptAndNothingWithoutOne) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Get<QListWidget>(tool, "List1").setFocus();
        Press(tool, Qt::Key_Return);
        EXPECT_TRUE(tool.isVisible());
        Press(tool, Qt::Key_End);
        Press(tool, Qt::Key_Return);
        EXPECT_FALSE(tool.isVisible());
    });
    EXPECT_EQ(Text(), PremadeScript(ScriptLanguage::Javascript, "View Source Code Script"));
}

TEST_F(ScriptWizardForm, TheListsHaveNoOK) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        EXPECT_FALSE(HasOK(tool));
        for (const int pane : {popupImage, randomColor, randomText, linkbox, statusMessage, rollover, fade}) {
            Tab(tool, pane);
            EXPECT_TRUE(HasOK(tool)) << pane;
        }
        Tab(tool, premade);
        EXPECT_FALSE(HasOK(tool));
    });
}

TEST_F(ScriptWizardForm, APopupImageTakesItsPictureAndItsWidth) {
    bench.prompts.openNames = {Picture()};
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Tab(tool, popupImage);
        Click(tool, "cmdpopupTxtImage");
        EXPECT_EQ(Field(tool, "popupTxtImage"), "wide.bmp");
        EXPECT_EQ(Field(tool, "popupTxtEnd"), "37");
        Type(tool, "popupTxtID", "P");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), PopupImageScript({.end = "37", .image = "wide.bmp", .id = "P"}));
    ASSERT_EQ(bench.prompts.requests.size(), 1U);
    EXPECT_EQ(bench.prompts.requests[0].filter, "Image Files (*.gif,*.jpg,*.bmp)|*.gif;*.jpg;*.bmp");
    EXPECT_EQ(bench.prompts.requests[0].directory, folder.path());
}

TEST_F(ScriptWizardForm, APopupImageThatIsNoPictureKeepsTheWidth) {
    QFile text(folder.filePath("text.gif"));
    ASSERT_TRUE(text.open(QFile::WriteOnly));
    text.write("no picture");
    text.close();
    bench.prompts.openNames = {text.fileName(), folder.filePath("missing.gif")};
    Open<frmScriptWizard>([&](frmScriptWizard& tool) {
        Tab(tool, popupImage);
        Type(tool, "popupTxtEnd", "9");
        for (const char* name : {"text.gif", "missing.gif"}) {
            Click(tool, "cmdpopupTxtImage");
            EXPECT_EQ(Field(tool, "popupTxtImage"), name);
            EXPECT_EQ(Field(tool, "popupTxtEnd"), "9");
        }
        Click(tool, "cmdpopupTxtImage");
        EXPECT_EQ(Field(tool, "popupTxtImage"), "missing.gif") << "a cancelled dialog changes nothing";
    });
    EXPECT_TRUE(bench.prompts.messages.isEmpty());
}

TEST_F(ScriptWizardForm, APopupImageWantsEveryField) {
    const QString message = "Please make sure all text boxes have a value.";
    const char* const names[] = {"popupTxtID", "popupTxtImage", "popupTxtBegin", "popupTxtEnd"};
    Open<frmScriptWizard>([&](frmScriptWizard& tool) {
        Tab(tool, popupImage);
        for (const char* name : names) Type(tool, name, "1");
        for (const char* name : names) {
            Type(tool, name, "");
            Click(tool, "cmdOK");
            EXPECT_EQ(bench.prompts.messages, QStringList{message}) << name;
            EXPECT_TRUE(tool.isVisible());
            bench.prompts.messages.clear();
            Type(tool, name, "1");
        }
    });
    EXPECT_EQ(Text(), "");
}

TEST_F(ScriptWizardForm, CollectsRandomColors) {
    bench.prompts.colors = {0x0080FF, 0x000000, 0xFF0000};
    Open<frmScriptWizard>([&](frmScriptWizard& tool) {
        Tab(tool, randomColor);
        auto& list = Get<QListWidget>(tool, "BCList1");
        for (int i = 0; i < 4; ++i) Click(tool, "cmdBCAdd");
        ASSERT_EQ(list.count(), 3) << "a cancelled dialog adds nothing";
        EXPECT_EQ(list.item(0)->icon().pixmap(8).toImage().pixelColor(4, 2), QColor("#FF8000"));
        Click(tool, "cmdBCRemove");
        EXPECT_EQ(list.count(), 3) << "nothing is selected";
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
        Click(tool, "cmdBCRemove");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), RandomColorScript({"#FF8000", "#0000FF"}));
}

TEST_F(ScriptWizardForm, WritesRandomColorsAlsoWithoutAny) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Tab(tool, randomColor);
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), RandomColorScript({}));
}

TEST_F(ScriptWizardForm, TakesRandomTextsByKeys) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Tab(tool, randomText);
        const auto& grid = Get<QTableWidget>(tool, "TextGrid1");
        EXPECT_EQ(grid.rowCount(), 1);
        Click(tool, "cmdTextMinus");
        EXPECT_EQ(grid.rowCount(), 1) << "the last row stays";
        Click(tool, "cmdTextPlus");
        Click(tool, "cmdTextPlus");
        Click(tool, "cmdTextMinus");
        EXPECT_EQ(grid.rowCount(), 2);
        for (int row = 0; row < 2; ++row) {
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                              grid.visualRect(grid.model()->index(row, 0)).center());
            EXPECT_EQ(tool.focusWidget()->objectName(), "TextText1");
            Keys(tool, row == 0 ? "one" : "two");
        }
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(0, 0)).center());
        EXPECT_EQ(Get<QLineEdit>(tool, "TextText1").selectedText(), "one");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), RandomTextScript({{"one"}, {"two"}}));
}

TEST_F(ScriptWizardForm, TakesALinkboxByKeys) {
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Tab(tool, linkbox);
        const auto& grid = Get<QTableWidget>(tool, "LBGrid1");
        Click(tool, "cmdLBMinus");
        EXPECT_EQ(grid.rowCount(), 1) << "the last row stays";
        Click(tool, "cmdLBPlus");
        Type(tool, "LBText1", "Go");
        Type(tool, "LBtxtCaption", "Where?");
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(0, 0)).center());
        EXPECT_EQ(tool.focusWidget()->objectName(), "LBText3");
        for (const char* text : {"A", "a.htm", "B", "b.htm"}) {
            Keys(tool, text);
            Press(tool, Qt::Key_Tab);
        }
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), LinkboxScript({.name = "Go", .caption = "Where?", .links = {{"A", "a.htm"}, {"B", "b.htm"}}}));
}

TEST_F(ScriptWizardForm, WritesAMessageAlsoAnEmptyOne) {
    for (const char* message : {"Hello \"you\"", ""}) {
        document.Text1->SetText("");
        Open<frmScriptWizard>([&](frmScriptWizard& tool) {
            Tab(tool, statusMessage);
            Type(tool, "txtMessage", message);
            Press(tool, Qt::Key_Return);
        });
        EXPECT_EQ(Text(), StatusMessageScript(message));
    }
}

TEST_F(ScriptWizardForm, WritesARolloverUnderAMadeUpName) {
    bench.prompts.openNames = {folder.filePath("a.gif"), folder.filePath("b.gif")};
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        document.Text1->SetText("");
        Open<frmScriptWizard>([&](frmScriptWizard& tool) {
            Tab(tool, rollover);
            Click(tool, "cmdMainImage");
            Click(tool, "cmdRollImage");
            Type(tool, "txtRollURL", "c.htm");
            Click(tool, "cmdOK");
        });
        const auto match = QRegularExpression("name=\"(imgroll[0-9]+)\"").match(Text());
        ASSERT_TRUE(match.hasMatch());
        names << match.captured(1);
        const RolloverFields fields =
            i == 0 ? RolloverFields{"a.gif", "b.gif", "c.htm"} : RolloverFields{"", "", "c.htm"};
        EXPECT_EQ(Text(), RolloverScript(fields, names.last()));
    }
    EXPECT_FALSE(names[0] == names[1] && names[1] == names[2]);
    EXPECT_EQ(bench.prompts.requests[0].filter, "All Files|*.*");
    EXPECT_EQ(bench.prompts.requests[1].directory, folder.path());
}

TEST_F(ScriptWizardForm, FadesBetweenTheSwatches) {
    bench.prompts.colors = {0x000000, 0xFFFFFF};
    Open<frmScriptWizard>([](frmScriptWizard& tool) {
        Tab(tool, fade);
        Click(tool, "lblCBColor1");
        Click(tool, "lblCBColor2");
        EXPECT_EQ(Get<ColorSwatch>(tool, "lblCBColor2").Color(), 0xFFFFFFU);
        Click(tool, "lblCBColor2");
        EXPECT_EQ(Get<ColorSwatch>(tool, "lblCBColor2").Color(), 0xFFFFFFU) << "a cancelled dialog changes nothing";
        Type(tool, "txtCBSteps", "3");
        const QImage shown = Get<QLabel>(tool, "lblCBColors").pixmap(Qt::ReturnByValue).toImage();
        const int middle = shown.height() / 2;
        EXPECT_EQ(shown.pixelColor(shown.width() / 6, middle), QColor("#000000"));
        EXPECT_EQ(shown.pixelColor(shown.width() / 2, middle), QColor("#555555"));
        EXPECT_EQ(shown.pixelColor(shown.width() * 5 / 6, middle), QColor("#AAAAAA"));
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), FadeScript({"#000000", "#555555", "#AAAAAA"}));
}

TEST_F(ScriptWizardForm, WantsStepsAboveZero) {
    const QString message = "The Steps box must be filled with a numberic value above 0.";
    Open<frmScriptWizard>([&](frmScriptWizard& tool) {
        Tab(tool, fade);
        for (const char* steps : {"0", "abc", ""}) {
            Type(tool, "txtCBSteps", steps);
            Click(tool, "cmdOK");
            EXPECT_EQ(bench.prompts.messages, QStringList{message}) << steps;
            EXPECT_TRUE(tool.isVisible());
            bench.prompts.messages.clear();
        }
    });
    EXPECT_EQ(Text(), "");
}

}  // namespace
}  // namespace vellum::test
