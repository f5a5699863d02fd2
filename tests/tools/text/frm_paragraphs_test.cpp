#include "tools/text/frm_paragraphs.h"

#include "import/rtf_reader.h"
#include "import/rtf_writer.h"
#include "import/text_import.h"
#include "tests/tools/tool_fixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMenuBar>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>

namespace vellum::test {
namespace {

const QString opening =
    "<!-- Begin Paragraph -->\r\n<p>\r\n"
    "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n";
const QString division =
    "<div style=\"text-align: left; font-size: 12pt; font-family: Times New Roman; color: #000000;\">\r\n";
const QString closing = "</div>\r\n</span>\r\n</p>\r\n<!-- End Paragraph -->";

TEST(ParagraphMarkupOf, Nothing) {
    EXPECT_EQ(ParagraphMarkup({}), opening + division + "<span></span>\r\n" + closing);
}

TEST(ParagraphMarkupOf, TextWithFormats) {
    RichText rich;
    rich.text = "a<b";
    rich.runs = {{}, {.offset = 2, .format = {.bold = true}}};
    EXPECT_EQ(ParagraphMarkup(rich),
              opening + division + "<span>a&lt;</span><span style=\" font-weight: bold;\">b</span>\r\n" + closing);
}

TEST(ParagraphMarkupOf, AStruckTextComesOutPlain) {
    RichText rich;
    rich.text = "ab";
    rich.runs = {{}, {.offset = 1, .format = {.strike = true}}};
    EXPECT_EQ(ParagraphMarkup(rich), opening + division + "<span>ab</span>\r\n" + closing);
}

TEST(RtfNames, AreToldByTheirLettersAnywhere) {
    EXPECT_TRUE(IsRtfName("/a/notes.rtf"));
    EXPECT_TRUE(IsRtfName("/a/NOTES.RTF"));
    EXPECT_TRUE(IsRtfName("/a/notes.rtf.txt"));
    EXPECT_TRUE(IsRtfName("/my.rtf.files/notes.txt"));
    EXPECT_FALSE(IsRtfName("/a/notes.txt"));
    EXPECT_FALSE(IsRtfName("/a/rtf"));
}

class ParagraphForm : public ToolFixture {
protected:
    void SetUp() override {
        ToolFixture::SetUp();
        bench.fontNames = {"Arial", "Courier New", "Times New Roman"};
    }

    static RichSurface& Surface(const QWidget& form) { return Get<RichSurface>(form, "Text1"); }
    static void Keys(const QWidget& form, const QString& text) { QTest::keyClicks(&Surface(form), text); }
    static void SelectAll(const QWidget& form) { QTest::keyClick(&Surface(form), Qt::Key_A, Qt::ControlModifier); }

    static void Choose(const QWidget& form, const QString& item) {
        const QObject& owner = form;
        auto* const action = owner.findChild<QAction*>(item);
        ASSERT_NE(action, nullptr) << item.toStdString();
        action->trigger();
    }

    // Picks from a list by its first letters.
    static void Pick(const QWidget& form, const QString& name, const QString& letters) {
        auto& box = Get<QComboBox>(form, name);
        box.setFocus();
        QTest::keyClicks(&box, letters);
    }

    static bool Checked(const QWidget& form, const QString& name) { return Get<QToolButton>(form, name).isChecked(); }

    [[nodiscard]] QString MakeFile(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
};

TEST_F(ParagraphForm, ShowsItsFieldsAndMenus) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        EXPECT_EQ(tool.windowTitle(), "Paragraph Builder");
        EXPECT_EQ(Caption(tool, "Combo2"), "Font Name");
        EXPECT_EQ(Caption(tool, "Combo1"), "Font Size");
        EXPECT_EQ(Values(tool, "Combo2"), (QStringList{"Arial", "Courier New", "Times New Roman"}));
        EXPECT_EQ(Values(tool, "Combo1"), (QStringList{"8", "10", "12", "14", "18", "24", "36"}));
        EXPECT_EQ(Get<QComboBox>(tool, "Combo2").currentText(), "Times New Roman");
        EXPECT_EQ(Get<QComboBox>(tool, "Combo1").currentText(), "12");
        const std::pair<const char*, QString> tools[] = {{"cmdBold", "&B"},
                                                         {"cmdItalic", "&I"},
                                                         {"cmdUnderline", "&U"},
                                                         {"cmdStrike", "&S"},
                                                         {"cmdBullet", u"\u2022"_qs}};
        for (const auto& [name, caption] : tools) {
            EXPECT_EQ(Get<QToolButton>(tool, name).text(), caption);
            EXPECT_FALSE(Get<QToolButton>(tool, name).icon().isNull()) << name;
            EXPECT_FALSE(Checked(tool, name)) << name;
        }
        EXPECT_EQ(Shown(Get<QPushButton>(tool, "cmdFontColor").text()), "Font Color");
        QStringList menus;
        for (const QAction* menu : tool.findChild<QMenuBar*>()->actions()) menus << menu->text();
        EXPECT_EQ(menus, (QStringList{"&File", "&Edit"}));
        const std::pair<const char*, const char*> items[] = {{"mnuOpenItem", "Open Text or RTF File"},
                                                             {"mnuSaveItem", "Save Text or RTF File"},
                                                             {"mnuUndoItem", "&Undo"},
                                                             {"mnuCutItem", "&Cut"},
                                                             {"mnuCopyItem", "Cop&y"},
                                                             {"mnuPasteItem", "&Paste"},
                                                             {"mnuSelectItem", "&Select All"}};
        for (const auto& [name, caption] : items) {
            const QObject& owner = tool;
            EXPECT_EQ(owner.findChild<QAction*>(name)->text(), caption);
        }
        EXPECT_EQ(tool.focusWidget(), &Surface(tool));
    });
}

TEST_F(ParagraphForm, WritesTheParagraphAndGivesTheKeyboardBack) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        Keys(tool, "one");
        QTest::keyClick(&Surface(tool), Qt::Key_Return);
        Keys(tool, "two");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(), opening + division + "<span>one\r\n&nbsp;</span></div>\r\n" + division + "<span>two</span>\r\n" +
                          closing);
    EXPECT_EQ(window.focusWidget(), document.Text1);
}

TEST_F(ParagraphForm, AnEmptySurfaceGivesAnEmptyParagraph) {
    Open<frmParagraphs>(
        [](frmParagraphs& tool) { QTest::keyClick(&Surface(tool), Qt::Key_Return, Qt::ControlModifier); });
    EXPECT_EQ(Text(), opening + division + "<span></span>\r\n" + closing);
}

TEST_F(ParagraphForm, TogglesTheStylesByButtonsAndKeys) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        const std::pair<const char*, RichSurface::Style> tools[] = {{"cmdBold", &RichFormat::bold},
                                                                    {"cmdItalic", &RichFormat::italic},
                                                                    {"cmdUnderline", &RichFormat::underline},
                                                                    {"cmdStrike", &RichFormat::strike}};
        Keys(tool, "text");
        SelectAll(tool);
        for (const auto& [button, style] : tools) {
            for (const bool on : {true, false}) {
                Click(tool, button);
                EXPECT_EQ(Surface(tool).SelStyle(style), on) << button;
                EXPECT_EQ(Checked(tool, button), on) << button;
                EXPECT_EQ(tool.focusWidget(), &Surface(tool));
            }
        }
        const std::pair<Qt::Key, RichSurface::Style> keys[] = {
            {Qt::Key_B, &RichFormat::bold}, {Qt::Key_I, &RichFormat::italic}, {Qt::Key_U, &RichFormat::underline}};
        for (const auto& [key, style] : keys) {
            for (const bool on : {true, false}) {
                QTest::keyClick(&Surface(tool), key, Qt::ControlModifier);
                EXPECT_EQ(Surface(tool).SelStyle(style), on) << key;
            }
        }
        EXPECT_EQ(Surface(tool).Content().text, "text");
    });
}

TEST_F(ParagraphForm, AToggleOverAMixedSelectionSwitchesAllOn) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        Keys(tool, "a");
        Click(tool, "cmdBold");
        Keys(tool, "b");
        SelectAll(tool);
        EXPECT_FALSE(Checked(tool, "cmdBold"));
        Click(tool, "cmdBold");
        EXPECT_EQ(Surface(tool).SelStyle(&RichFormat::bold), true);
        EXPECT_TRUE(Checked(tool, "cmdBold"));
    });
}

TEST_F(ParagraphForm, PicksFontSizeAndColor) {
    bench.prompts.colors = {0x0080FF};
    Open<frmParagraphs>([](frmParagraphs& tool) {
        Pick(tool, "Combo2", "C");
        EXPECT_EQ(tool.focusWidget(), &Surface(tool));
        Pick(tool, "Combo1", "24");
        EXPECT_EQ(tool.focusWidget(), &Surface(tool));
        Click(tool, "cmdFontColor");
        EXPECT_EQ(tool.focusWidget(), &Surface(tool));
        Keys(tool, "x");
        Click(tool, "cmdFontColor");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              opening +
                  "<div style=\"text-align: left; font-size: 24pt; font-family: Courier New; color: #FF8000;\">\r\n"
                  "<span>x</span>\r\n" +
                  closing);
    EXPECT_EQ(bench.prompts.firstColors, (std::vector<ColorNumber>{0, 0x0080FF})) << "the color of the selection";
}

TEST_F(ParagraphForm, AlignsAndGivesBullets) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        Keys(tool, "x");
        EXPECT_TRUE(Checked(tool, "cmdLeft"));
        for (const char* button : {"cmdRight", "cmdCenter"}) {
            Click(tool, button);
            EXPECT_TRUE(Checked(tool, button));
            EXPECT_FALSE(Checked(tool, "cmdLeft"));
        }
        Click(tool, "cmdCenter");
        EXPECT_TRUE(Checked(tool, "cmdCenter")) << "no toggle";
        Click(tool, "cmdBullet");
        EXPECT_TRUE(Checked(tool, "cmdBullet"));
        Click(tool, "cmdBullet");
        EXPECT_FALSE(Checked(tool, "cmdBullet"));
        Click(tool, "cmdBullet");
        Click(tool, "cmdOK");
    });
    EXPECT_EQ(Text(),
              opening +
                  "<div style=\"text-align: center; font-size: 12pt; font-family: Times New Roman; color: "
                  "#000000;\">\r\n<li><span>x</span>\r\n</li></div>\r\n</span>\r\n</p>\r\n<!-- End Paragraph -->");
}

TEST_F(ParagraphForm, ShowsTheFormatWhereTheCaretIs) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        const auto& fonts = Get<QComboBox>(tool, "Combo2");
        const auto& sizes = Get<QComboBox>(tool, "Combo1");
        RichText rich;
        rich.text = "abc";
        rich.fonts = {"Arial", "Nobody Has This"};
        rich.runs = {{.offset = 0, .format = {.halfPoints = 36, .bold = true}},
                     {.offset = 2, .format = {.font = 1, .halfPoints = 21}}};
        Surface(tool).SetContent(rich);
        QTest::keyClick(&Surface(tool), Qt::Key_Right);
        EXPECT_EQ(fonts.currentText(), "Arial");
        EXPECT_EQ(sizes.currentText(), "18");
        EXPECT_TRUE(Checked(tool, "cmdBold"));
        SelectAll(tool);
        EXPECT_EQ(fonts.currentText(), "Arial") << "a mixed selection leaves it";
        EXPECT_EQ(sizes.currentText(), "18");
        EXPECT_FALSE(Checked(tool, "cmdBold"));
        QTest::keyClick(&Surface(tool), Qt::Key_End);
        EXPECT_EQ(fonts.currentText(), "Nobody Has This");
        EXPECT_EQ(sizes.currentIndex(), -1) << "10.5 is not in the list";
    });
}

TEST_F(ParagraphForm, EditsByTheMenu) {
    Open<frmParagraphs>([](frmParagraphs& tool) {
        Keys(tool, "abc");
        Choose(tool, "mnuSelectItem");
        Choose(tool, "mnuCopyItem");
        EXPECT_EQ(QApplication::clipboard()->text(), "abc");
        Choose(tool, "mnuCutItem");
        EXPECT_EQ(Surface(tool).Content().text, "");
        Choose(tool, "mnuPasteItem");
        Choose(tool, "mnuPasteItem");
        EXPECT_EQ(Surface(tool).Content().text, "abcabc");
        Choose(tool, "mnuUndoItem");
        EXPECT_EQ(Surface(tool).Content().text, "abc");
        QTest::keyClick(&Surface(tool), Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Surface(tool).Content().text, "");
        Choose(tool, "mnuUndoItem");
        EXPECT_EQ(Surface(tool).Content().text, "abc") << "what was cut";
    });
}

TEST_F(ParagraphForm, SavesRtfAndOpensItAgain) {
    const QString path = folder.filePath("notes.rtf.txt");
    bench.prompts.saveNames = {path};
    bench.prompts.openNames = {path};
    RichText saved;
    Open<frmParagraphs>([&](frmParagraphs& tool) {
        Keys(tool, "plain ");
        Click(tool, "cmdBold");
        Keys(tool, "bold");
        Click(tool, "cmdRight");
        QTest::keyClick(&Surface(tool), Qt::Key_S, Qt::ControlModifier);
        saved = Surface(tool).Content();
        EXPECT_EQ(Bytes(path), WriteRtf(saved));
        SelectAll(tool);
        Keys(tool, "gone");
        QTest::keyClick(&Surface(tool), Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(Surface(tool).Content(), saved);
        EXPECT_EQ(Surface(tool).textCursor().position(), 0);
        EXPECT_FALSE(Surface(tool).textCursor().hasSelection());
        const QTextBlockFormat block = Surface(tool).document()->begin().blockFormat();
        EXPECT_EQ(block.rightMargin(), 33);
        EXPECT_EQ(block.leftMargin() + block.textIndent(), 0);
        EXPECT_EQ(block.leftMargin(), 13);
        Choose(tool, "mnuUndoItem");
        EXPECT_NE(Surface(tool).Content().text, saved.text) << "a text that was replaced comes back";
    });
    ASSERT_EQ(bench.prompts.requests.size(), 2U);
    for (const FileRequest& request : bench.prompts.requests) {
        EXPECT_EQ(request.filter, "Rich Text Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt");
        EXPECT_EQ(request.directory, folder.path());
    }
}

TEST_F(ParagraphForm, SavesAndOpensPlainText) {
    const QString path = folder.filePath("notes.txt");
    bench.prompts.saveNames = {path};
    bench.prompts.openNames = {MakeFile("other.txt", "{\\rtf1 caf\xE9}\r\nb\n")};
    Open<frmParagraphs>([&](frmParagraphs& tool) {
        Click(tool, "cmdBold");
        Keys(tool, "a");
        QTest::keyClick(&Surface(tool), Qt::Key_Return);
        Keys(tool, "b");
        Choose(tool, "mnuSaveItem");
        EXPECT_EQ(Bytes(path), "a\r\nb");
        Choose(tool, "mnuOpenItem");
        EXPECT_EQ(Surface(tool).Content().text, u"{\\rtf1 caf\u00e9}\r\nb\r\n");
        EXPECT_EQ(Surface(tool).Content().runs, std::vector<RichRun>{RichRun{}});
    });
}

TEST_F(ParagraphForm, OpensPlainTextThatIsNamedRtf) {
    bench.prompts.openNames = {MakeFile("notes.rtf", "only {text}\n")};
    Open<frmParagraphs>([&](frmParagraphs& tool) {
        Choose(tool, "mnuOpenItem");
        EXPECT_EQ(Surface(tool).Content().text, "only {text}\r\n");
    });
}

TEST_F(ParagraphForm, ACancelledDialogChangesNothingAndAFileThatFailsIsTold) {
    bench.prompts.openNames = {"", folder.filePath("none.rtf")};
    bench.prompts.saveNames = {"", folder.filePath("no folder/x.txt")};
    Open<frmParagraphs>([&](frmParagraphs& tool) {
        Keys(tool, "stays");
        for (int i = 0; i < 2; ++i) {
            Choose(tool, "mnuOpenItem");
            Choose(tool, "mnuSaveItem");
            EXPECT_EQ(bench.prompts.messages.size(), 2 * i);
        }
        EXPECT_EQ(Surface(tool).Content().text, "stays");
    });
}

}  // namespace
}  // namespace vellum::test
