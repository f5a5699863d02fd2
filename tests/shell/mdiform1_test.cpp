#include "files/paths.h"
#include "shell/color_bar.h"
#include "shell/frm_settings.h"
#include "shell/toolbar.h"
#include "tests/shell/main_window_fixture.h"
#include "website/website_panel.h"
#include "widgets/color_swatch.h"
#include "widgets/tab_strip.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>

namespace vellum::test {
namespace {

class MainWindowTest : public MainWindowFixture {
protected:
    [[nodiscard]] QString State(const SettingKey& key) const { return ReadSetting(settings, key); }

    static QStringList Items(const QListWidget& list) {
        QStringList items;
        for (int i = 0; i < list.count(); ++i) items << list.item(i)->text();
        return items;
    }
};

TEST_F(MainWindowTest, StartsWithOneBlankMaximisedDocument) {
    Open();
    EXPECT_EQ(Active().Caption(), "New 1");
    EXPECT_TRUE(window->area->currentSubWindow()->isMaximized());
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(window->documents.NewDocCount, 1);
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Panel(3), "");
}

TEST_F(MainWindowTest, AnEmptyStoreGivesTheBuiltInListsAndPlaces) {
    Open();
    EXPECT_EQ(Items(*window->List4), (QStringList{".bmp", ".jpg", ".gif", ".png", ".wrl"}));
    EXPECT_EQ(Items(*window->lstDocTypes), (QStringList{".asa", ".asp", ".css", ".hta", ".htm", ".html", ".inc", ".js",
                                                        ".jsp", ".smil", ".txt", ".vbs", ".xml"}));
    EXPECT_EQ(window->TabStrip2->Caption(1), "Customize/");
    EXPECT_EQ(window->TabStrip2->Caption(2), "Custom1");
    EXPECT_EQ(window->TabStrip2->Caption(7), "Custom6");
    EXPECT_TRUE(window->isMaximized());
    EXPECT_EQ(window->Picture11->height(), 2600 / 15);
}

TEST_F(MainWindowTest, TakesStoredValues) {
    WriteSetting(settings, keys::tablesColor, "255");
    WriteSetting(settings, keys::refreshRate, "12");
    WriteSetting(settings, keys::graphicsCount, "2");
    WriteSetting(settings, keys::graphicsEntry, 0, ".svg");
    WriteSetting(settings, keys::docTypesCount, "1");
    WriteSetting(settings, keys::docTypesEntry, 0, ".md");
    WriteSetting(settings, keys::customCaption, 5, "Sixth");
    WriteSetting(settings, keys::wordWrap, "1");
    Open();
    EXPECT_EQ(window->Options()->TablesColor, 255U);
    EXPECT_EQ(window->Options()->RefreshRate, 12);
    EXPECT_EQ(Items(*window->List4), (QStringList{".svg", "-1"}));
    EXPECT_EQ(Items(*window->lstDocTypes), QStringList{".md"});
    EXPECT_EQ(window->TabStrip2->Caption(7), "Sixth");
    EXPECT_TRUE(Active().WordWrapOn);
    EXPECT_TRUE(window->findChild<QAction*>("mnuWrapItem")->isChecked());
}

TEST_F(MainWindowTest, TakesTheOptionsThatAnotherRunningProgramHasStored) {
    Open();
    ASSERT_TRUE(window->Options()->autoTab);
    SettingsStore other(home.filePath("settings.json"));
    WriteSetting(other, keys::autoTab, "0");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->Options()->autoTab; }));
}

TEST_F(MainWindowTest, StoresTheFontNames) {
    Open();
    EXPECT_EQ(Items(*window->List6), (QStringList{"Alpha", "Beta"}));
    EXPECT_EQ(State(keys::fontsNumber), "2");
    EXPECT_EQ(ReadSetting(settings, keys::fontsEntry, 1), "Beta");
}

TEST_F(MainWindowTest, RestoresANormalWindow) {
    WriteSetting(settings, keys::windowState, "0");
    WriteSetting(settings, keys::windowTop, "600");
    WriteSetting(settings, keys::windowLeft, "450");
    WriteSetting(settings, keys::windowWidth, "11250");
    WriteSetting(settings, keys::windowHeight, "8250");
    Open();
    EXPECT_FALSE(window->isMaximized());
    EXPECT_EQ(window->geometry(), QRect(30, 40, 750, 550));
}

TEST_F(MainWindowTest, BringsAnAbsurdPlaceBackToTheScreen) {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    WriteSetting(settings, keys::windowState, "0");
    for (const char* absurd : {"1e6", "-1e300", "1e300", "NaN", "-7", ""}) {
        for (const SettingKey* key : {&keys::windowTop, &keys::windowLeft, &keys::windowWidth, &keys::windowHeight,
                                      &keys::pic11Height, &keys::editPercent}) {
            WriteSetting(settings, *key, absurd);
        }
        Open(true);
        EXPECT_TRUE(room.contains(window->geometry().topLeft())) << absurd;
        EXPECT_LE(window->width(), room.width()) << absurd;
        EXPECT_LE(window->height(), room.height()) << absurd;
        EXPECT_GE(window->width(), window->minimumSizeHint().width()) << absurd;
        EXPECT_GE(window->PanelHeight(), 100) << absurd;
        EXPECT_LT(window->Picture11->height(), room.height()) << absurd;
        EXPECT_LE(Active().Text1->width(), room.width()) << absurd;
        EXPECT_GE(Active().Text1->x(), 0) << absurd;
    }
}

TEST_F(MainWindowTest, AHiddenPanelOfAnAbsurdHeightLeavesRoomForDocumentsWhenItIsShown) {
    WriteSetting(settings, keys::picture11, "False");
    WriteSetting(settings, keys::pic11Height, "1e6");
    Open();
    EXPECT_LE(window->PanelHeight(), 15 * window->screen()->availableGeometry().height() - 3000);
    Trigger("mnuViewItem(3)");
    EXPECT_GT(window->area->height(), 0);
    EXPECT_LT(window->Picture11->height(), window->height() - window->area->y());
}

TEST_F(MainWindowTest, RestoresHiddenBarsOnlyByTheExactWord) {
    WriteSetting(settings, keys::picture1, "False");
    WriteSetting(settings, keys::picture14, "false");
    WriteSetting(settings, keys::picture15, "False");
    WriteSetting(settings, keys::picture11, "0");
    Open();
    EXPECT_FALSE(window->Picture1->isVisible());
    EXPECT_FALSE(window->findChild<QAction*>("mnuViewItem(0)")->isChecked());
    EXPECT_TRUE(window->Picture14->isVisible());
    EXPECT_FALSE(window->Picture15->isVisible());
    EXPECT_FALSE(window->findChild<QAction*>("mnuViewItem(2)")->isChecked());
    EXPECT_TRUE(window->Picture11->isVisible());
}

TEST_F(MainWindowTest, ViewItemsToggleTheirPanels) {
    Open();
    const std::pair<const char*, QWidget*> panels[] = {{"mnuViewItem(0)", window->Picture1},
                                                       {"mnuViewItem(1)", window->Picture14},
                                                       {"mnuViewItem(2)", window->Picture15},
                                                       {"mnuViewItem(3)", window->Picture11}};
    for (const auto& [item, panel] : panels) {
        Trigger(item);
        EXPECT_FALSE(panel->isVisible()) << item;
        Trigger(item);
        EXPECT_TRUE(panel->isVisible()) << item;
    }
}

TEST_F(MainWindowTest, AMissingCommandLineFileLeavesTheBlankDocumentAndShowsTheTips) {
    Open(false, SitePath("missing.htm"));
    EXPECT_EQ(Active().Caption(), "New 1");
    EXPECT_EQ(window->tips, 1);
    EXPECT_EQ(window->colored, 1);
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(MainWindowTest, AQuotedCommandLineFailsAsAPath) {
    Open(false, "\"" + MakeFile("page.htm", "x") + "\"");
    EXPECT_EQ(Active().Caption(), "New 1");
}

TEST_F(MainWindowTest, ACommandLineFileWithTextSuppressesTheTips) {
    Open(false, MakeFile("page.htm", "x"));
    EXPECT_EQ(window->tips, 0);
}

TEST_F(MainWindowTest, AnEmptyCommandLineFileGivesItsPathAsCaption) {
    const QString path = MakeFile("empty.htm", {});
    Open(false, path);
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(Active().Text1->Length(), 0);
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(window->tips, 1) << "the tips look at the text and not at the caption";
}

TEST_F(MainWindowTest, ASessionWithPreviewHasTheVisualEditorAndItRefusesFramesets) {
    Open(true, MakeFile("frames.htm", "<html><frameset cols=\"*\"></frameset></html>"));
    Trigger("mnuVisualItem");
    EXPECT_EQ(prompts.messages, QStringList{"Cannot load Frameset documents"});
}

TEST_F(MainWindowTest, ADamagedCountDoesNotHoldTheStartUp) {
    WriteSetting(settings, keys::graphicsCount, "1e9");
    WriteSetting(settings, keys::refreshRate, "abc");
    Open(true);
    EXPECT_EQ(window->List4->count(), 5) << "the built-in list stays";
}

TEST_F(MainWindowTest, ALowWindowMakesThePanelLowerAndNotItselfHigher) {
    WriteSetting(settings, keys::windowState, "0");
    WriteSetting(settings, keys::windowWidth, "12000");
    WriteSetting(settings, keys::windowHeight, "9000");
    WriteSetting(settings, keys::pic11Height, "8000");
    Open();
    EXPECT_EQ(window->height(), 600);
    EXPECT_EQ(window->Picture11->height(), 400);
    window->resize(800, 320);
    EXPECT_EQ(window->height(), 320);
    EXPECT_LE(window->Picture11->height(), 120);
}

TEST_F(MainWindowTest, F6LeadsFromPaneToPane) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Active().Text1->setFocus();
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_TRUE(window->Picture11->Dir1->hasFocus() ||
                window->Picture11->Dir1->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(window.get(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(Active().Text1->hasFocus());
}

TEST_F(MainWindowTest, ThePanelRefusesCachingFiles) {
    const QString path = MakeFile("caching.htm", "x");
    Open();
    emit window->Picture11->FileActivated(path);
    EXPECT_EQ(prompts.messages, QStringList{"Cannot Load Caching File"});
    EXPECT_EQ(window->OpenDocCount(), 1);
}

TEST_F(MainWindowTest, CustomizeOpensTheSettingsAndTheyReachTheWindow) {
    Open(false, MakeFile("page.htm", "some text"));
    Active().Text1->SetFormat({0, 4}, {std::nullopt, true});
    QTimer::singleShot(0, window.get(), [] {
        auto* dialog = qobject_cast<frmSettings*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QComboBox*>("Combo1")->setEditText("14");
        dialog->findChild<QCheckBox*>("chkOnOff")->setChecked(true);
        dialog->findChild<ColorSwatch*>("lblForeColor")->SetColor(255);
        dialog->findChild<QTableWidget*>("Grid1")->item(0, 0)->setText("Mine");
        QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        if (dialog->isVisible()) dialog->reject();
    });
    QTest::mouseClick(window->TabStrip2, Qt::LeftButton, {}, window->TabStrip2->tabRect(0).center());
    EXPECT_EQ(window->Options()->EditorFontSize, "14");
    EXPECT_EQ(Active().Text1->SelFontSize(), "14");
    EXPECT_EQ(window->TabStrip2->Caption(2), "Mine");
    EXPECT_EQ(Active().Text1->FormatAt(3), (CharFormat{ColorNumber{255}, true})) << "the weight stays";
    EXPECT_EQ(Active().Text1->FormatAt(8), (CharFormat{ColorNumber{255}, false}));
    EXPECT_EQ(State(keys::fontSize), "14");
    EXPECT_EQ(State(keys::colorOnOff), "1");
    EXPECT_TRUE(Active().Saver()) << "colours are no change of the text";
}

TEST_F(MainWindowTest, WritesItsStateWhenTheLastDocumentHasGone) {
    WriteSetting(settings, keys::windowState, "0");
    WriteSetting(settings, keys::windowWidth, "12000");
    WriteSetting(settings, keys::windowHeight, "9000");
    WriteSetting(settings, keys::recentFile, 1, "/some/file.htm");
    Open();
    Trigger("mnuViewItem(1)");
    window->setGeometry(60, 70, 900, 650);
    const QSignalSpy unloaded(window.get(), &MDIform1::Unloaded);
    Trigger("mnuExitItem");
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(State(keys::picture1), "True");
    EXPECT_EQ(State(keys::picture14), "False");
    EXPECT_EQ(State(keys::picture11), "True");
    EXPECT_EQ(State(keys::picture15), "True");
    EXPECT_EQ(State(keys::windowTop), "1050");
    EXPECT_EQ(State(keys::windowLeft), "900");
    EXPECT_EQ(State(keys::windowWidth), "13500");
    EXPECT_EQ(State(keys::windowHeight), "9750");
    EXPECT_EQ(State(keys::windowState), "0");
    EXPECT_EQ(State(keys::filePath), site.path());
    EXPECT_EQ(State(keys::director), site.path());
    EXPECT_EQ(ReadSetting(settings, keys::recentFile, 1), "/some/file.htm");
}

TEST_F(MainWindowTest, WithNoDocumentOpenTheStopWritesAtOnceWithoutAQuestion) {
    Open();
    Trigger("mnuClose");
    ASSERT_EQ(window->OpenDocCount(), 0);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(prompts.questions.isEmpty());
    EXPECT_EQ(State(keys::windowState), "2");
}

TEST_F(MainWindowTest, ACancelKeepsTheDocumentsThatAreLeftAndWritesNoState) {
    WriteSetting(settings, keys::windowState, "0");
    WriteSetting(settings, keys::windowWidth, "9000");
    WriteSetting(settings, keys::windowHeight, "9000");
    Open();
    QTest::keyClicks(Active().Text1, "first");
    window->NewForm();
    QTest::keyClicks(Active().Text1, "second");
    window->resize(1000, 700);
    prompts.answers = {Answer::No, Answer::Cancel};
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(Active().Text1->Text(), "first");
    EXPECT_EQ(State(keys::windowWidth), "9000");
    prompts.answers = {Answer::No};
    EXPECT_TRUE(window->close());
    EXPECT_EQ(State(keys::windowWidth), "15000");
}

TEST_F(MainWindowTest, ToolbarButtonsGiveTheirTipsAndHints) {
    Open();
    QToolButton* save = window->Picture1->Button(ButtonArray::Command44, 3);
    EXPECT_EQ(save->toolTip(), "Saves the Current Document With a Choice of a New Name");
    QTest::mouseMove(save, {3, 3});
    QTest::mouseMove(save, {6, 6});
    EXPECT_EQ(Panel(3), "Saves the document");
    QTest::mouseMove(window->area->viewport(), {1, 1});
    EXPECT_EQ(window->Picture1->Button(ButtonArray::Command44, 8)->toolTip(), "Color-Codes  XHTML Syntax");
    EXPECT_EQ(window->Picture1->Button(ButtonArray::Command93, 3)->toolTip(), "Font Browser");
}

TEST_F(MainWindowTest, TheDragBarResizesThePanel) {
    WriteSetting(settings, keys::windowState, "0");
    WriteSetting(settings, keys::windowWidth, "15000");
    WriteSetting(settings, keys::windowHeight, "12000");
    Open();
    const int before = window->Picture11->height();
    DragBar* bar = window->Picture11->Picture2;
    QTest::mousePress(bar, Qt::LeftButton, {}, {40, 2});
    QTest::mouseMove(bar, {40, -28});
    EXPECT_GT(window->Picture11->height(), before + 20);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, {40, 2});
    QTest::mousePress(bar, Qt::LeftButton, {}, {40, 2});
    QTest::mouseMove(bar, {40, 2000});
    EXPECT_EQ(window->Picture11->height(), 100 / 15);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, {40, 2});
}

TEST_F(MainWindowTest, AFileOfThePanelOpensInAWindow) {
    const QString path = MakeFile("page.htm", "panel");
    Open();
    emit window->Picture11->FileActivated(path);
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(Active().Text1->Text(), "panel");
}

TEST_F(MainWindowTest, AWebsiteDirectoryThatHasGoneLeavesTheProgramsOwn) {
    Open();
    const auto directoryAfter = [this](const SettingKey& key, const QString& place) {
        window.reset();
        WriteSetting(settings, keys::drive, QDir::homePath());
        WriteSetting(settings, keys::director, site.path());
        WriteSetting(settings, keys::filePath, site.path());
        WriteSetting(settings, key, place);
        window = std::make_unique<CountingWindow>(settings, prompts, recovery, QStringList{}, false);
        window->Load({}, [] {});
        return window->Picture11->Directory() + ' ' + window->WebsiteDirectory();
    };
    EXPECT_EQ(directoryAfter(keys::drive, QDir::homePath()), site.path() + ' ' + site.path());
    const QString own = OwnDirectory();
    EXPECT_EQ(directoryAfter(keys::director, SitePath("gone")), own + ' ' + own);
    EXPECT_EQ(directoryAfter(keys::filePath, SitePath("gone")), own + ' ' + own);
    EXPECT_TRUE(prompts.messages.isEmpty());
}

}  // namespace
}  // namespace vellum::test
