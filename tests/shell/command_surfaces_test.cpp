// What holds across menus and bars: commands without a document, other programs, the next document, the custom bar.
#include "shell/color_bar.h"
#include "shell/toolbar.h"
#include "tests/shell/main_window_fixture.h"
#include "widgets/tab_strip.h"

#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QToolButton>

namespace vellum::test {
namespace {

const QStringList needADocument{"mnuEdit",        "mnuHTMLbasic",     "mnuTools",          "mnuClose",
                                "mnuCloseAll",    "mnuImport2",       "mnuImport3",        "mnuSaveItem",
                                "mnuSaveregItem", "mnuPrintItem",     "mnuSettingsItem",   "mnuTutorialItem",
                                "mnuW3CItem",     "mnuBugReportItem", "mnuWebsiteLinkItem"};

class CommandSurfacesTest : public MainWindowFixture {
protected:
    // The items of the menu bar, of every depth, that are on.
    static void CollectOn(const QWidget& menu, QStringList& names) {
        for (const QAction* item : menu.actions()) {
            if (item->isSeparator()) continue;
            if (item->isEnabled()) names << item->objectName();
            if (item->menu()) CollectOn(*item->menu(), names);
        }
    }

    [[nodiscard]] QStringList ItemsThatAreOn() const {
        QStringList names;
        CollectOn(*window->menuBar(), names);
        return names;
    }

    void ExpectRule(bool on) const {
        for (const QString& name : needADocument) {
            const auto* item = window->findChild<QAction*>(name);
            ASSERT_NE(item, nullptr) << name.toStdString();
            EXPECT_EQ(item->isEnabled(), on) << name.toStdString();
        }
        for (const int index : {2, 3, 4, 5, 6, 8, 9, 10}) {
            EXPECT_EQ(window->Picture1->Button(ButtonArray::Command44, index)->isEnabled(), on) << index;
        }
        for (const int index : {0, 1, 7}) {
            EXPECT_TRUE(window->Picture1->Button(ButtonArray::Command44, index)->isEnabled()) << index;
        }
        for (int index = 0; index < 4; ++index) {
            EXPECT_TRUE(window->Picture1->Button(ButtonArray::Command93, index)->isEnabled()) << index;
        }
        const std::initializer_list<const QWidget*> bars{window->Picture14, window->Picture15, window->TabStrip1,
                                                         window->TabStrip2, window->clrbutton};
        for (const QWidget* bar : bars) EXPECT_EQ(bar->isEnabled(), on) << bar->objectName().toStdString();
    }
};

TEST_F(CommandSurfacesTest, WithoutADocumentTheWholeSetIsOffAndNothingElse) {
    Open();
    const QStringList before = ItemsThatAreOn();
    ExpectRule(true);
    Trigger("mnuClose");
    ExpectRule(false);
    QStringList expected = before;
    for (const QString& name : needADocument) expected.removeAll(name);
    EXPECT_EQ(ItemsThatAreOn(), expected);
    window->NewForm();
    ExpectRule(true);
    EXPECT_EQ(ItemsThatAreOn(), before);
}

TEST_F(CommandSurfacesTest, ACountThatIsOneTooHighKeepsTheSetOn) {
    Open();
    QTest::keyClicks(Active().Text1, "x");
    prompts.answers.push_back(Answer::Yes);  // and no name for the file
    Trigger("mnuClose");
    ASSERT_EQ(window->ActiveDocument(), nullptr);
    ExpectRule(true);
}

TEST_F(CommandSurfacesTest, AMenuThatIsOffDoesntAnswerToTheKeysOfItsItems) {
    Open();
    Trigger("mnuClose");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    const std::pair<const char*, Qt::Key> keys[] = {{"mnuLineItem", Qt::Key_G},
                                                    {"mnuSelectItem", Qt::Key_A},
                                                    {"mnuFindItem", Qt::Key_F},
                                                    {"mnuBitem", Qt::Key_B},
                                                    {"mnuSaveregItem", Qt::Key_S}};
    for (const auto& [name, key] : keys) {
        const QSignalSpy triggered(window->findChild<QAction*>(name), &QAction::triggered);
        QTest::keyClick(window.get(), key, Qt::ControlModifier);
        EXPECT_EQ(triggered.count(), 0) << name;
    }
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(CommandSurfacesTest, TheVisualEditorStaysOffInASessionWithoutPreview) {
    Open(false);
    EXPECT_FALSE(window->findChild<QAction*>("mnuVisualItem")->isEnabled());
    Trigger("mnuClose");
    window->NewForm();
    EXPECT_FALSE(window->findChild<QAction*>("mnuVisualItem")->isEnabled());
}

TEST_F(CommandSurfacesTest, CtrlTabGoesThroughTheDocuments) {
    Open();
    Document* const first = window->ActiveDocument();
    Document* const second = window->NewForm();
    Document* const third = window->NewForm();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    third->Text1->setFocus();
    struct Step {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Document* document;
    };
    const Qt::KeyboardModifiers back = Qt::ControlModifier | Qt::ShiftModifier;
    const Step steps[] = {
        {Qt::Key_Tab, Qt::ControlModifier, first},
        {Qt::Key_Tab, Qt::ControlModifier, second},
        {Qt::Key_Tab, Qt::ControlModifier, third},
        {Qt::Key_Backtab, back, second},
        {Qt::Key_Tab, back, first},
        {Qt::Key_F6, Qt::ControlModifier, second},
        {Qt::Key_F6, back, first},
        {Qt::Key_Backtab, back, third},
    };
    for (const auto& [key, modifiers, document] : steps) {
        QTest::keyPress(window->ActiveDocument()->Text1, Qt::Key_Control);
        QTest::keyClick(window->ActiveDocument()->Text1, key, modifiers);
        QTest::keyRelease(window->ActiveDocument()->Text1, Qt::Key_Control);
        EXPECT_EQ(window->ActiveDocument(), document);
        EXPECT_TRUE(document->Text1->hasFocus());
    }
    for (const Document* document : {first, second, third}) EXPECT_EQ(document->Text1->Text(), "");
}

TEST_F(CommandSurfacesTest, CtrlTabWithOneDocumentOrNoneDoesNothing) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Active().Text1->setFocus();
    QTest::keyClick(Active().Text1, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Active().Text1->Text(), "");
    EXPECT_TRUE(Active().Text1->hasFocus());
    Trigger("mnuClose");
    QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(window->ActiveDocument(), nullptr);
}

TEST_F(CommandSurfacesTest, AnEmptyCustomButtonWritesNothing) {
    WriteSetting(settings, keys::customText, 1, "<hr />");
    Open();
    EditSurface& surface = *Active().Text1;
    surface.SetText("ab");
    surface.SetSelStart(1);
    Active().SetSaver(true);
    const auto click = [this](int tab) {
        QTest::mouseClick(window->TabStrip2, Qt::LeftButton, {}, window->TabStrip2->tabRect(tab).center());
    };
    click(1);
    EXPECT_EQ(surface.Text(), "ab");
    EXPECT_TRUE(Active().Saver());
    click(2);
    EXPECT_EQ(surface.Text(), "a<hr />b");
}

TEST_F(CommandSurfacesTest, ACustomButtonShowsItsCaptionAsItWasTyped) {
    WriteSetting(settings, keys::customCaption, 0, "&nbsp;");
    Open();
    EXPECT_EQ(window->TabStrip2->Caption(2), "&nbsp;");
    EXPECT_EQ(window->TabStrip2->tabText(1), "&&nbsp;") << "what a tab strip shows as one ampersand";
    window->SetCustomCaption(1, "&File");
    EXPECT_EQ(window->TabStrip2->Caption(3), "&File");
}

TEST_F(CommandSurfacesTest, EveryBarHasANameForScreenReaders) {
    Open();
    EXPECT_EQ(window->Picture14->accessibleName(), "Color bar");
    EXPECT_EQ(window->clrbutton->accessibleName(), "Color chooser");
    EXPECT_EQ(window->TabStrip1->accessibleName(), "Tag bar");
    EXPECT_EQ(window->TabStrip2->accessibleName(), "Custom bar");
}

// Has a search path of its own, so that no program of this machine starts.
class OtherProgramsTest : public CommandSurfacesTest {
protected:
    void SetUp() override {
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(SitePath("bin")));
        QDir(site.path()).mkpath("bin");
    }
    void TearDown() override { qputenv("PATH", path_); }

private:
    QByteArray path_;
};

TEST_F(OtherProgramsTest, AMissingProgramIsReported) {
    Open();
    for (const char* item : {"mnuMSAppsItem(0)", "mnuMSAppsItem(1)", "mnuMSAppsItem(2)"}) {
        prompts.messages.clear();
        Trigger(item);
        EXPECT_EQ(prompts.messages, QStringList{"This Windows Application is not installed on your computer"}) << item;
    }
}

TEST_F(OtherProgramsTest, EachItemStartsItsProgram) {
    Open();
    const std::pair<const char*, const char*> programs[] = {
        {"mnuMSAppsItem(0)", "xcalc"}, {"mnuMSAppsItem(1)", "gucharmap"}, {"mnuMSAppsItem(2)", "xclipboard"}};
    for (const auto& [item, program] : programs) {
        const QString note = SitePath(QString(program) + ".note");
        const QString script =
            MakeFile("bin/" + QString(program), "#!/bin/sh\n: > '" + QFile::encodeName(note) + "'\n");
        ASSERT_TRUE(QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        Trigger(item);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(note); }, 20000)) << program;
    }
    EXPECT_TRUE(prompts.messages.isEmpty());
}

}  // namespace
}  // namespace vellum::test
