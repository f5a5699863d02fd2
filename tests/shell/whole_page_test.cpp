// Pages on their way from the disk through the main window, with nothing of it left out, and back to the disk.
#include "shell/frm_settings.h"
#include "tests/shell/main_window_fixture.h"
#include "tests/support/modal.h"
#include "tests/support/type_text.h"
#include "tests/support/wait_for.h"
#include "tools/framework/tool_dialog.h"
#include "website/website_panel.h"

#include <QAbstractButton>
#include <QImage>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

namespace vellum::test {
namespace {

class WholePage : public WindowFixture<MDIform1> {
protected:
    void SetUp() override { WriteSetting(settings, keys::showStart, "no"); }

    // Opens a new file by File, Open.
    void OpenPage(const QString& name, const QByteArray& bytes) {
        Open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        prompts.openNames = {MakeFile(name, bytes)};
        Trigger("mnuOpenItem");
        ASSERT_EQ(Active().Caption(), SitePath(name));
        ASSERT_TRUE(Surface().hasFocus());
    }

    [[nodiscard]] EditSurface& Surface() const { return *Active().Text1; }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, int times = 1) const {
        for (int time = 0; time < times; ++time) QTest::keyClick(&Surface(), key, modifiers);
    }
    void Undo() const { Press(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() const { Press(Qt::Key_R, Qt::ControlModifier); }

    [[nodiscard]] QString Text() const { return Surface().Text().replace("\r\n", "\n"); }

    // A letter for each character: "." plain, "o" other tags, "a" links, "c" comments, "r" pure red.
    [[nodiscard]] QString Colours() const {
        static const QMap<ColorNumber, QChar> letters{
            {0, u'.'}, {32768, u'o'}, {8388608, u'a'}, {8421504, u'c'}, {255, u'r'}};
        const QString text = Surface().Text();
        QString shown;
        for (int offset = 0; offset < text.size(); ++offset) {
            if (text.at(offset) == u'\r') continue;
            const ColorNumber color = Surface().FormatAt(offset).color.value_or(Surface().ForeColor());
            shown += text.at(offset) == u'\n' ? u'\n' : letters.value(color, u'?');
        }
        return shown;
    }

    [[nodiscard]] bool ShowsRed() const {
        const QImage shown = Surface().viewport()->grab().toImage();
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                const QColor color = shown.pixelColor(x, y);
                if (color.red() > 200 && color.green() < 100 && color.blue() < 100) return true;
            }
        }
        return false;
    }
};

TEST_F(WholePage, IsTypedOnAndKeepsItsEncoding) {
    OpenPage("page.htm",
             "<html>\r\n<body>\r\n<p>Gr\xFC\xDF"
             "e</p>\r\n</body>\r\n</html>\r\n");
    const QString before = "oooooo\noooooo\nooo.....oooo\nooooooo\nooooooo\n";
    EXPECT_EQ(Colours(), before);
    EXPECT_EQ(Panel(1), "Saved");

    Press(Qt::Key_Home, Qt::ControlModifier);
    Press(Qt::Key_Down, {}, 2);
    Press(Qt::Key_End);
    TypeText(Surface(), "<!-- x --><A HREF=\"mill.htm\">Mill</A> <BR>");
    const QString after =
        "oooooo\noooooo\nooo.....oooocccccccccc"
        "aaaaaaaaaaaaaaaaaaa"
        "....aaaa.oooooo\nooooooo\nooooooo\n";
    EXPECT_EQ(Text(),
              u"<html>\n<body>\n<p>Gr\u00FC\u00DFe</p><!-- x --><a href=\"mill.htm\">Mill</a> <br />\n"
              "</body>\n</html>\n"_qs);
    EXPECT_EQ(Colours(), after);
    EXPECT_EQ(Panel(1), "Changed");

    Undo();
    EXPECT_EQ(Text(), u"<html>\n<body>\n<p>Gr\u00FC\u00DFe</p>\n</body>\n</html>\n"_qs);
    EXPECT_EQ(Colours(), before);
    Redo();
    EXPECT_EQ(Colours(), after);

    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Bytes(SitePath("page.htm")),
              "<html>\r\n<body>\r\n<p>Gr\xFC\xDF"
              "e</p><!-- x --><a href=\"mill.htm\">Mill</a> <br />\r\n"
              "</body>\r\n</html>\r\n");
    EXPECT_EQ(Panel(1), "Saved");
    EXPECT_EQ(Colours(), after);
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(WholePage, TakesALinkFromItsToolAndGetsAnotherName) {
    OpenPage("page.htm", "<p>To the mill and back.</p>\n");
    Press(Qt::Key_Home, Qt::ControlModifier);
    Press(Qt::Key_Right, {}, 10);
    Press(Qt::Key_Right, Qt::ShiftModifier, 4);
    ASSERT_EQ(Surface().SelText(), "mill");
    InModal<ToolDialog>([this] { Trigger("mnuAnchorItem"); },
                        [](ToolDialog& form) {
                            TypeText(*form.focusWidget(), "mill.htm");
                            QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                        });
    const QString colours = "ooo.......aaaaaaaaaaaaaaaaaaa....aaaa..........oooo\n";
    EXPECT_EQ(Text(), "<p>To the <a href=\"mill.htm\">mill</a> and back.</p>\n");
    EXPECT_EQ(Colours(), colours);

    Undo();
    EXPECT_EQ(Text(), "<p>To the mill and back.</p>\n");
    EXPECT_EQ(Colours(), "ooo.....................oooo\n");
    Redo();
    EXPECT_EQ(Colours(), colours);

    prompts.saveNames = {SitePath("way.htm")};
    Trigger("mnuSaveItem");
    EXPECT_EQ(Bytes(SitePath("way.htm")), "<p>To the <a href=\"mill.htm\">mill</a> and back.</p>\n");
    EXPECT_EQ(Bytes(SitePath("page.htm")), "<p>To the mill and back.</p>\n");
    EXPECT_EQ(window->area->currentSubWindow()->windowTitle(), SitePath("way.htm"));
    EXPECT_TRUE(WaitFor([this] { return window->Picture11->File2->Names() == QStringList{"page.htm", "way.htm"}; }));
}

TEST_F(WholePage, IsShownInTheColoursThatTheAuthorPicks) {
    OpenPage("page.htm", "<p>x</p>");
    EXPECT_FALSE(ShowsRed());
    prompts.colors = {255};
    InModal<frmSettings>([this] { Trigger("mnuSettingsItem"); },
                         [](frmSettings& dialog) {
                             auto* const tabs = dialog.findChild<QTabWidget*>("TabStrip1")->tabBar();
                             QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
                             for (const char* name : {"cmdColor(5)", "cmdOK"}) {
                                 QTest::mouseClick(dialog.findChild<QAbstractButton*>(name), Qt::LeftButton);
                             }
                         });
    EXPECT_EQ(Colours(), "rrr.rrrr");
    EXPECT_TRUE(ShowsRed());
    EXPECT_EQ(Panel(1), "Saved");
    Press(Qt::Key_End, Qt::ControlModifier);
    TypeText(Surface(), "<B>y");
    EXPECT_EQ(Text(), "<p>x</p><b>y");
    EXPECT_EQ(Colours(), "rrr.rrrrrrr.");
}

TEST_F(WholePage, BeginsAsATextThatHasNoColours) {
    OpenPage("notes.txt", "<p>x</p>");
    Press(Qt::Key_End, Qt::ControlModifier);
    TypeText(Surface(), "<BR>");
    EXPECT_EQ(Text(), "<p>x</p><BR>");
    EXPECT_EQ(Colours(), "............");

    prompts.saveNames = {SitePath("notes.htm")};
    Trigger("mnuSaveItem");
    const QObject& owner = *window;
    QTest::mouseClick(owner.findChild<QToolButton*>("Command44(8)"), Qt::LeftButton);
    EXPECT_EQ(Colours(), "ooo.oooooooo");
    TypeText(Surface(), "<BR>");
    EXPECT_EQ(Text(), "<p>x</p><BR><br />");
    EXPECT_EQ(Colours(), "ooo.oooooooooooooo");
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Bytes(SitePath("notes.htm")), "<p>x</p><BR><br />");
    EXPECT_EQ(Bytes(SitePath("notes.txt")), "<p>x</p>");
}

}  // namespace
}  // namespace vellum::test
