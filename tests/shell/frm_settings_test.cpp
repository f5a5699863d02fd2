#include "shell/frm_settings.h"

#include "tests/shell/settings_bench.h"
#include "widgets/color_swatch.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace vellum {
namespace {

constexpr int panelCount = 8;

class FrmSettingsTest : public testing::Test {
protected:
    void Open() {
        form = std::make_unique<frmSettings>(bench, bench);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    template <typename Widget>
    [[nodiscard]] Widget* Get(const QString& name) const {
        auto* const widget = form->findChild<Widget*>(name);
        if (!widget) throw std::runtime_error("no field " + name.toStdString());
        return widget;
    }

    [[nodiscard]] QTabBar* Tabs() const { return Get<QTabWidget>("TabStrip1")->tabBar(); }
    [[nodiscard]] QWidget* Panel(int index) const { return Get<QWidget>(QString("picOption(%1)").arg(index)); }

    // Changes the tab by a click on it.
    void ClickTab(int index) {
        QTest::mouseClick(Tabs(), Qt::LeftButton, {}, Tabs()->tabRect(index).center());
        ASSERT_EQ(Tabs()->currentIndex(), index);
    }

    static void Click(QAbstractButton* button) {
        ASSERT_TRUE(button->isVisible()) << button->objectName().toStdString();
        if (auto* check = qobject_cast<QCheckBox*>(button)) {
            QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
        } else if (auto* radio = qobject_cast<QRadioButton*>(button)) {
            QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(8, radio->height() / 2));
        } else {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    static void Type(QLineEdit* line, const QString& text) {
        ASSERT_TRUE(line->isVisible()) << line->objectName().toStdString();
        line->setFocus();
        line->selectAll();
        if (text.isEmpty()) QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, text);
    }

    void ClickCell(int row, int column) {
        const QRect cell =
            Get<QTableWidget>("Grid1")->visualRect(Get<QTableWidget>("Grid1")->model()->index(row, column));
        QTest::mouseClick(Get<QTableWidget>("Grid1")->viewport(), Qt::LeftButton, {}, cell.center());
    }

    static QStringList Entries(const QListWidget* list) {
        QStringList entries;
        for (int row = 0; row < list->count(); ++row) entries << list->item(row)->text();
        return entries;
    }

    test::SettingsBench bench;
    std::unique_ptr<frmSettings> form;
};

TEST_F(FrmSettingsTest, HasItsTitleTabsAndButtons) {
    Open();
    EXPECT_EQ(form->windowTitle(), "Settings");
    const QStringList captions{
        "Editor Settings",           "SmartColor",      "File Types", "Customizations", "FTP", "XML Helpers",
        "Document Type Definitions", "Preview Settings"};
    ASSERT_EQ(Tabs()->count(), captions.size());
    for (int i = 0; i < captions.size(); ++i) EXPECT_EQ(Tabs()->tabText(i), captions[i]);
    EXPECT_EQ(Get<QPushButton>("cmdOK")->text(), "&OK");
    EXPECT_EQ(Get<QPushButton>("cmdCancel")->text(), "&Cancel");
    EXPECT_TRUE(Get<QPushButton>("cmdOK")->isDefault());
    EXPECT_EQ(QString(Get<QCheckBox>("chkPurge")->text()).remove('&'), "Purge Settings");
}

TEST_F(FrmSettingsTest, WhatTheTabKeyPassesIsFoundByItsName) {
    Open();
    for (const char* name :
         {"picOption(0)", "picOption(7)", "picColor(0)", "picColor(5)", "optXHTML(2)", "optHorizontal"}) {
        EXPECT_EQ(form->findChildren<QWidget*>(name).size(), 1) << name;
    }
}

TEST_F(FrmSettingsTest, CaptionsAreThoseOfTheFields) {
    Open();
    const std::pair<QAbstractButton*, const char*> captions[] = {
        {Get<QCheckBox>("chkWrap"), "Word Wrap By Default"},
        {Get<QCheckBox>("chkAutoTab"), "AutoTab"},
        {Get<QCheckBox>("chkPop"), "Popup Tag/Attribute List"},
        {Get<QCheckBox>("chkOnOff"), "Disable Color Coding"},
        {Get<QPushButton>("cmdColor(0)"), "Tables"},
        {Get<QPushButton>("cmdColor(1)"), "Frames"},
        {Get<QPushButton>("cmdColor(2)"), "Links"},
        {Get<QPushButton>("cmdColor(3)"), "Comments"},
        {Get<QPushButton>("cmdColor(4)"), "ASP / JSP"},
        {Get<QPushButton>("cmdColor(5)"), "Other Tags"},
        {Get<QCheckBox>("chkASPBold"), "Bolderize ASP/JSP Tags"},
        {Get<QPushButton>("Command11"), "Add"},
        {Get<QPushButton>("Command12"), "Delete"},
        {Get<QCheckBox>("chkXMLCase"), "Automatically Lowercase all XHTML Tags"},
        {Get<QCheckBox>("chkXMLQuotes"), "Automatically Quote Tag Attributes"},
        {Get<QCheckBox>("chkXMLSlash"), "Enforce backslashing of empty elements"},
        {Get<QRadioButton>("optXHTML(0)"), "Transitional"},
        {Get<QRadioButton>("optXHTML(1)"), "Strict"},
        {Get<QRadioButton>("optXHTML(2)"), "Frameset"},
        {Get<QCheckBox>("chkMath"), "MaHTML 2.0 Specification"},
        {Get<QCheckBox>("chkSmil"), "SMIL 1.0 Specification"},
        {Get<QCheckBox>("chkSVG"), "SVG 1.0 Specification"},
        {Get<QCheckBox>("chkOpenBook"), "Open eBook Specification"},
        {Get<QCheckBox>("chkWML"), "WML 1.3 Specification"},
        {Get<QCheckBox>("chkX3D"), "X3D Compromise Specification"},
        {Get<QPushButton>("cmbBrowser(0)"), "Choose"},
        {Get<QPushButton>("cmbBrowser(2)"), "Choose"},
        {Get<QRadioButton>("OptVertical"), "Vertical"},
        {Get<QRadioButton>("optHorizontal"), "Horizontal"},
    };
    for (const auto& [button, caption] : captions) EXPECT_EQ(QString(button->text()).remove('&'), caption);
}

TEST_F(FrmSettingsTest, LabelsLeadToTheirFields) {
    Open();
    const std::pair<const char*, const char*> buddies[] = {
        {"Editor Font Size", "Combo1"},
        {"Editor Font Name", "Combo2"},
        {"Editor Forecolor", "lblForeColor"},
        {"Editor Backcolor", "lblBackColor"},
        {"Document Types", "lstDocuments"},
        {"Image Types", "List1"},
        {"Custom List", "List2"},
        {"Upload URL", "Text5"},
        {"FTP Username", "Text6"},
        {"FTP Password", "Text7"},
        {"External Browser 1:", "txtBrowser(0)"},
        {"External Browser 2:", "txtBrowser(1)"},
        {"External Browser 3:", "txtBrowser(2)"},
        {"Preview Refresh Rate In Seconds (IE)", "txtRate"},
        {"Default % of Window For Editing (IE)", "txtPercent"},
    };
    for (const auto& [caption, name] : buddies) {
        bool found = false;
        for (const QLabel* label : form->findChildren<QLabel*>()) {
            if (QString(label->text()).remove('&') != caption) continue;
            found = true;
            ASSERT_NE(label->buddy(), nullptr) << caption;
            EXPECT_EQ(label->buddy()->objectName(), name) << caption;
        }
        EXPECT_TRUE(found) << caption;
    }
}

TEST_F(FrmSettingsTest, EveryFieldThatTakesTextHasALabel) {
    Open();
    QList<QWidget*> buddies;
    for (const QLabel* label : form->findChildren<QLabel*>()) buddies << label->buddy();
    for (QWidget* field : form->findChildren<QWidget*>()) {
        const bool inside =
            qobject_cast<QComboBox*>(field->parentWidget()) != nullptr || field->objectName().startsWith("qt_");
        if (inside || !(qobject_cast<QLineEdit*>(field) || qobject_cast<QComboBox*>(field))) continue;
        EXPECT_TRUE(buddies.contains(field)) << field->objectName().toStdString();
    }
}

TEST_F(FrmSettingsTest, AccessKeysDoNotClash) {
    Open();
    const auto addKey = [](std::set<QString>& keys, const QString& text, const QString& where) {
        const QString key = QKeySequence::mnemonic(text).toString();
        EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << text.toStdString() << where.toStdString();
    };
    for (int index = 0; index < panelCount; ++index) {
        const QWidget* const panel = Panel(index);
        std::set<QString> keys;
        for (const QAbstractButton* button : {static_cast<QAbstractButton*>(Get<QPushButton>("cmdOK")),
                                              static_cast<QAbstractButton*>(Get<QPushButton>("cmdCancel")),
                                              static_cast<QAbstractButton*>(Get<QCheckBox>("chkPurge"))}) {
            addKey(keys, button->text(), {});
        }
        for (const auto* button : panel->findChildren<QAbstractButton*>()) {
            addKey(keys, button->text(), panel->objectName());
        }
        for (const auto* label : panel->findChildren<QLabel*>()) addKey(keys, label->text(), panel->objectName());
    }
}

TEST_F(FrmSettingsTest, TabsShowTheirPanelAndHideTheOthers) {
    Open();
    for (int tab = 0; tab < panelCount; ++tab) {
        ClickTab(tab);
        for (int panel = 0; panel < panelCount; ++panel) {
            EXPECT_EQ(Panel(panel)->isVisible(), panel == tab) << panel << " at tab " << tab;
        }
    }
}

TEST_F(FrmSettingsTest, TabsAreReachedByTheKeyboard) {
    Open();
    Get<QComboBox>("Combo2")->setFocus();
    QTest::keyClick(Get<QComboBox>("Combo2"), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    EXPECT_TRUE(Panel(1)->isVisible());
    QTest::keyClick(form.get(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 2);
    QTest::keyClick(form.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    QTest::keyClick(form.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(form.get(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 7);
    QTest::keyClick(form.get(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 0);
}

TEST_F(FrmSettingsTest, TheSizeIsThatOfTheLargestPanel) {
    Open();
    const QSize size = form->size();
    for (int tab = 0; tab < panelCount; ++tab) {
        ClickTab(tab);
        QCoreApplication::processEvents();
        EXPECT_EQ(form->size(), size) << tab;
        const QSize wanted = Panel(tab)->minimumSizeHint();
        EXPECT_LE(wanted.width(), Panel(tab)->width()) << tab;
        EXPECT_LE(wanted.height(), Panel(tab)->height()) << tab;
    }
}

TEST_F(FrmSettingsTest, TheTabKeyGoesDownEachPanel) {
    Open();
    const QStringList orders[] = {
        {"Combo1", "Combo2", "lblForeColor", "lblBackColor", "chkWrap", "chkAutoTab", "chkPop"},
        {"chkOnOff", "cmdColor(0)", "cmdColor(1)", "cmdColor(2)", "cmdColor(3)", "cmdColor(4)", "cmdColor(5)",
         "chkASPBold"},
        {"lstDocuments", "txtDocuments", "cmdAddDocument", "lstDocsRemove", "List1", "Text2", "Command9", "Command10"},
        {"Grid1", "Text3", "List2", "Text4", "Command11", "Command12"},
        {"Text5", "Text6", "Text7"},
        {"chkXMLCase", "chkXMLQuotes", "chkXMLSlash"},
        {"optXHTML(0)", "chkMath", "chkSmil", "chkSVG", "chkOpenBook", "chkWML", "chkX3D"},
        {"txtBrowser(0)", "cmbBrowser(0)", "txtBrowser(1)", "cmbBrowser(1)", "txtBrowser(2)", "cmbBrowser(2)",
         "txtRate", "OptVertical", "txtPercent"}};
    for (int tab = 0; tab < panelCount; ++tab) {
        ClickTab(tab);
        Tabs()->setFocus();
        const QStringList expected = orders[tab] + QStringList{"chkPurge", "cmdOK", "cmdCancel", "TabStrip1"};
        QStringList visited;
        while (visited.size() < expected.size()) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* const field = QApplication::focusWidget();
            ASSERT_NE(field, nullptr);
            visited << (field == Tabs() ? "TabStrip1" : field->objectName());
        }
        EXPECT_EQ(visited.join(' ').toStdString(), expected.join(' ').toStdString());
    }
}

TEST_F(FrmSettingsTest, ShowsTheSettings) {
    WriteSetting(bench.store, keys::tablesColor, "255");
    WriteSetting(bench.store, keys::backColor, "65280");
    WriteSetting(bench.store, keys::wordWrap, "1");
    WriteSetting(bench.store, keys::dtdXhtml, "1");
    WriteSetting(bench.store, keys::dtdMath, "1");
    WriteSetting(bench.store, keys::verticalMain, "False");
    WriteSetting(bench.store, keys::browser2, "firefox");
    WriteSetting(bench.store, keys::customTagsCount, "1");
    WriteSetting(bench.store, keys::customTagsEntry, 0, "<hr />");
    WriteSetting(bench.store, keys::customText, 4, "<b>");
    bench.ReadOptions();
    Open();
    EXPECT_EQ(Get<QComboBox>("Combo1")->currentText(), "8.5");
    EXPECT_EQ(Get<QComboBox>("Combo2")->currentText(), "Courier New");
    EXPECT_EQ(Get<ColorSwatch>("picColor(0)")->Color(), 255U);
    EXPECT_EQ(Get<ColorSwatch>("picColor(4)")->Color(), 6776628U);
    EXPECT_EQ(Get<ColorSwatch>("lblBackColor")->Color(), 65280U);
    EXPECT_EQ(Get<ColorSwatch>("lblBackColor")->accessibleDescription(), "#00FF00");
    EXPECT_TRUE(Get<QCheckBox>("chkWrap")->isChecked());
    EXPECT_TRUE(Get<QRadioButton>("optXHTML(1)")->isChecked());
    EXPECT_FALSE(Get<QCheckBox>("chkMath")->isChecked());
    EXPECT_TRUE(Get<QRadioButton>("optHorizontal")->isChecked());
    EXPECT_EQ(Get<QLineEdit>("txtBrowser(1)")->text(), "firefox");
    EXPECT_EQ(Entries(Get<QListWidget>("List2")), QStringList({"<hr />"}));
    EXPECT_EQ(Entries(Get<QListWidget>("lstDocuments")), QStringList({".htm", ".txt"}));
    EXPECT_EQ(Entries(Get<QListWidget>("List1")), QStringList({".bmp", ".jpg"}));
    EXPECT_EQ(Get<QTableWidget>("Grid1")->rowCount(), 6);
    EXPECT_EQ(Get<QTableWidget>("Grid1")->columnCount(), 2);
    EXPECT_EQ(Get<QTableWidget>("Grid1")->horizontalHeaderItem(0)->text(), "Caption");
    EXPECT_EQ(Get<QTableWidget>("Grid1")->horizontalHeaderItem(1)->text(), "Text Inserted");
    EXPECT_EQ(Get<QTableWidget>("Grid1")->item(5, 0)->text(), "Custom6");
    EXPECT_EQ(Get<QTableWidget>("Grid1")->item(4, 1)->text(), "<b>");
    EXPECT_EQ(Get<QLineEdit>("txtRate")->text(), "7");
    EXPECT_EQ(Get<QLineEdit>("txtPercent")->text(), "50");
}

TEST_F(FrmSettingsTest, FontBoxesOfferTheirListsAndTakeAnyText) {
    Open();
    QStringList sizes;
    for (int i = 0; i < Get<QComboBox>("Combo1")->count(); ++i) sizes << Get<QComboBox>("Combo1")->itemText(i);
    EXPECT_EQ(sizes, QStringList({"6", "8", "10", "12", "14", "16"}));
    EXPECT_EQ(Get<QComboBox>("Combo2")->count(), 3);
    Type(Get<QComboBox>("Combo1")->lineEdit(), "9");
    Type(Get<QComboBox>("Combo2")->lineEdit(), "Missing Font");
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_EQ(bench.Options()->EditorFontSize, "9");
    EXPECT_EQ(bench.Options()->EditorFontName, "Missing Font");
}

TEST_F(FrmSettingsTest, ThePasswordIsHiddenBehindStars) {
    Open();
    ClickTab(4);
    Type(Get<QLineEdit>("Text7"), "geheim");
    EXPECT_EQ(Get<QLineEdit>("Text7")->displayText(), "******");
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_EQ(bench.Stored(keys::ftpPassword), "geheim");
}

TEST_F(FrmSettingsTest, EntriesAreAddedAndRemoved) {
    Open();
    struct Case {
        int tab;
        QListWidget* list;
        QLineEdit* line;
        QPushButton* add;
        QPushButton* remove;
    };
    for (const auto& [tab, list, line, add, remove] :
         {Case{2, Get<QListWidget>("lstDocuments"), Get<QLineEdit>("txtDocuments"), Get<QPushButton>("cmdAddDocument"),
               Get<QPushButton>("lstDocsRemove")},
          Case{2, Get<QListWidget>("List1"), Get<QLineEdit>("Text2"), Get<QPushButton>("Command9"),
               Get<QPushButton>("Command10")},
          Case{3, Get<QListWidget>("List2"), Get<QLineEdit>("Text4"), Get<QPushButton>("Command11"),
               Get<QPushButton>("Command12")}}) {
        ClickTab(tab);
        const QStringList before = Entries(list);
        Type(line, "new");
        Click(add);
        EXPECT_EQ(Entries(list), before + QStringList{"new"});
        EXPECT_EQ(line->text(), "");
        Click(add);
        EXPECT_EQ(Entries(list), before + QStringList{"new"}) << "an empty text is no entry";
        Type(line, "new");
        Click(add);
        EXPECT_EQ(Entries(list), before + QStringList({"new", "new"})) << "an entry may stand twice";
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(static_cast<int>(before.size()))).center());
        Click(remove);
        EXPECT_EQ(Entries(list), before + QStringList{"new"});
    }
}

TEST_F(FrmSettingsTest, RemoveWithNothingChosenRemovesNothing) {
    Open();
    ClickTab(2);
    Click(Get<QPushButton>("lstDocsRemove"));
    EXPECT_EQ(Get<QListWidget>("lstDocuments")->count(), 2);
}

TEST_F(FrmSettingsTest, KeysAddAndRemoveToo) {
    Open();
    ClickTab(2);
    Type(Get<QLineEdit>("txtDocuments"), ".new");
    QTest::keyClick(Get<QLineEdit>("txtDocuments"), Qt::Key_Return);
    EXPECT_EQ(Entries(Get<QListWidget>("lstDocuments")), QStringList({".htm", ".txt", ".new"}));
    EXPECT_TRUE(form->isVisible());
    Get<QListWidget>("lstDocuments")->setFocus();
    QTest::keyClick(Get<QListWidget>("lstDocuments"), Qt::Key_End);
    QTest::keyClick(Get<QListWidget>("lstDocuments"), Qt::Key_Delete);
    EXPECT_EQ(Entries(Get<QListWidget>("lstDocuments")), QStringList({".htm", ".txt"}));
    QTest::keyClick(Get<QLineEdit>("txtDocuments"), Qt::Key_Return);  // nothing to add: it is OK
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmSettingsTest, CellsAreEditedThroughTheLine) {
    Open();
    ClickTab(3);
    EXPECT_EQ(Get<QLineEdit>("Text3")->text(), "Custom1");
    ClickCell(2, 0);
    EXPECT_EQ(Get<QLineEdit>("Text3")->text(), "Custom3");
    Type(Get<QLineEdit>("Text3"), "Note");
    EXPECT_EQ(Get<QTableWidget>("Grid1")->item(2, 0)->text(), "Note");
    ClickCell(2, 1);
    EXPECT_EQ(Get<QLineEdit>("Text3")->text(), "");
    Type(Get<QLineEdit>("Text3"), "<p class=\"note\">");
    QTest::keyClick(Get<QTableWidget>("Grid1"), Qt::Key_Up);
    EXPECT_EQ(Get<QTableWidget>("Grid1")->currentRow(), 1);
    EXPECT_EQ(Get<QLineEdit>("Text3")->text(), "");
    QTest::keyClick(Get<QTableWidget>("Grid1"), Qt::Key_Left);
    EXPECT_EQ(Get<QLineEdit>("Text3")->text(), "Custom2");
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_EQ(ReadSetting(bench.store, keys::customCaption, 2), "Note");
    EXPECT_EQ(ReadSetting(bench.store, keys::customText, 2), "<p class=\"note\">");
    EXPECT_EQ(ReadSetting(bench.store, keys::customText, 1), "");
}

TEST_F(FrmSettingsTest, ALineEndInACellSurvivesTheVisit) {
    WriteSetting(bench.store, keys::customText, 0, "<ul>\r\n</ul>");
    Open();
    ClickTab(3);
    ClickCell(0, 1);
    ClickCell(1, 1);
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_EQ(ReadSetting(bench.store, keys::customText, 0), "<ul>\r\n</ul>");
}

TEST_F(FrmSettingsTest, SwatchesTakeTheChosenColor) {
    Open();
    bench.prompts.colors = {0x0000FF, 0x00FF00, 0xFF0000};
    Click(Get<ColorSwatch>("lblForeColor"));
    EXPECT_EQ(Get<ColorSwatch>("lblForeColor")->Color(), 0x0000FFU);
    ClickTab(1);
    Click(Get<ColorSwatch>("picColor(3)"));
    EXPECT_EQ(Get<ColorSwatch>("picColor(3)")->Color(), 0x00FF00U);
    Get<QPushButton>("cmdColor(5)")->setFocus();
    QTest::keyClick(Get<QPushButton>("cmdColor(5)"), Qt::Key_Space);
    EXPECT_EQ(Get<ColorSwatch>("picColor(5)")->Color(), 0xFF0000U);
    Click(Get<QPushButton>("cmdColor(0)"));  // cancelled: no colour is left
    EXPECT_EQ(Get<ColorSwatch>("picColor(0)")->Color(), 8388736U);
}

TEST_F(FrmSettingsTest, ABrowserIsChosenFromTheFiles) {
    Open();
    ClickTab(7);
    bench.prompts.openNames = {"/usr/bin/firefox"};
    Click(Get<QPushButton>("cmbBrowser(1)"));
    EXPECT_EQ(Get<QLineEdit>("txtBrowser(1)")->text(), "/usr/bin/firefox");
    ASSERT_EQ(bench.prompts.requests.size(), 1U);
    EXPECT_EQ(bench.prompts.requests[0].filter, "Executable Files (*.EXE)|*.EXE");
    Click(Get<QPushButton>("cmbBrowser(1)"));  // cancelled
    EXPECT_EQ(Get<QLineEdit>("txtBrowser(1)")->text(), "/usr/bin/firefox");
}

TEST_F(FrmSettingsTest, OkWritesAndCloses) {
    Open();
    Click(Get<QCheckBox>("chkWrap"));
    ClickTab(1);
    Click(Get<QCheckBox>("chkOnOff"));
    ClickTab(6);
    Click(Get<QRadioButton>("optXHTML(2)"));
    Click(Get<QCheckBox>("chkMath"));
    ClickTab(7);
    Type(Get<QLineEdit>("txtRate"), "1.5");
    Click(Get<QRadioButton>("optHorizontal"));
    Type(Get<QLineEdit>("txtPercent"), "100");
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(bench.prompts.messages, QStringList());
    EXPECT_EQ(bench.Stored(keys::wordWrap), "1");
    EXPECT_EQ(bench.Stored(keys::colorOnOff), "1");
    EXPECT_EQ(bench.Stored(keys::dtdXhtml), "2");
    EXPECT_EQ(bench.Stored(keys::dtdMath), "1");
    EXPECT_EQ(bench.Stored(keys::refreshRate), "1.5");
    EXPECT_EQ(bench.Options()->RefreshRate, 1);
    EXPECT_EQ(bench.Stored(keys::verticalMain), "False");
    EXPECT_EQ(bench.Stored(keys::editPercent), "100");
    EXPECT_EQ(bench.events.last(), "Smartcolor");

    Open();
    EXPECT_FALSE(Get<QCheckBox>("chkMath")->isChecked());
    EXPECT_TRUE(Get<QCheckBox>("chkWrap")->isChecked());
    EXPECT_EQ(Get<QLineEdit>("txtRate")->text(), "1");
}

TEST_F(FrmSettingsTest, ABadRateKeepsTheDialogAsTyped) {
    Open();
    Click(Get<QCheckBox>("chkWrap"));
    Type(Get<QComboBox>("Combo1")->lineEdit(), "14");
    ClickTab(7);
    Type(Get<QLineEdit>("txtRate"), "31");
    Type(Get<QLineEdit>("txtPercent"), "60");
    ClickTab(0);
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench.prompts.messages, QStringList({"Refresh Rate Needs to be between 1 and 30 seconds."}));
    EXPECT_EQ(bench.events, QStringList());
    EXPECT_EQ(bench.Stored(keys::wordWrap), "(none)");
    EXPECT_EQ(Get<QLineEdit>("txtRate")->text(), "31");
    EXPECT_EQ(Get<QLineEdit>("txtPercent")->text(), "60");
    EXPECT_EQ(Get<QComboBox>("Combo1")->currentText(), "14");
    EXPECT_TRUE(Get<QCheckBox>("chkWrap")->isChecked());
    EXPECT_TRUE(Get<QLineEdit>("txtRate")->hasFocus());
    Type(Get<QLineEdit>("txtRate"), "30");
    QTest::keyClick(Get<QLineEdit>("txtRate"), Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(bench.Stored(keys::refreshRate), "30");
    EXPECT_EQ(bench.Stored(keys::fontSize), "14");
}

TEST_F(FrmSettingsTest, ABadPercentKeepsTheDialogAsTyped) {
    Open();
    ClickTab(7);
    Type(Get<QLineEdit>("txtPercent"), "101");
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench.prompts.messages, QStringList({"Percent of editing space must be between 0 and 100."}));
    EXPECT_TRUE(Get<QLineEdit>("txtPercent")->hasFocus());
    EXPECT_EQ(bench.Stored(keys::editPercent), "(none)");
}

TEST_F(FrmSettingsTest, EscapeAndCancelWriteNothing) {
    for (const bool escape : {true, false}) {
        Open();
        Click(Get<QCheckBox>("chkWrap"));
        Click(Get<QCheckBox>("chkPurge"));
        ClickTab(2);
        Type(Get<QLineEdit>("txtDocuments"), ".new");
        Click(Get<QPushButton>("cmdAddDocument"));
        if (escape) {
            QTest::keyClick(form.get(), Qt::Key_Escape);
        } else {
            Click(Get<QPushButton>("cmdCancel"));
        }
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(form->result(), QDialog::Rejected);
        EXPECT_EQ(bench.events, QStringList());
        EXPECT_EQ(bench.documentTypes, QStringList({".htm", ".txt"}));
        EXPECT_FALSE(QFile::exists(bench.folder.filePath("settings.json")));
    }
}

TEST_F(FrmSettingsTest, PurgeDeletesThePreferencesAndSavesNothing) {
    WriteSetting(bench.store, keys::autoTab, "0");
    WriteSetting(bench.store, keys::recentFile, 0, "/tmp/a.htm");
    WriteSetting(bench.store, keys::useIE, "Yes");
    Open();
    Click(Get<QCheckBox>("chkPop"));
    ClickTab(7);
    Type(Get<QLineEdit>("txtRate"), "abc");  // is not looked at
    Click(Get<QCheckBox>("chkPurge"));
    Click(Get<QPushButton>("cmdOK"));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(bench.prompts.messages, QStringList({"Please Restart Program"}));
    EXPECT_EQ(bench.Stored(keys::autoTab), "(none)");
    EXPECT_EQ(bench.Stored(keys::popupTag), "(none)");
    EXPECT_EQ(bench.StoredEntry(keys::recentFile, 0), "/tmp/a.htm");
    EXPECT_EQ(bench.Stored(keys::useIE), "Yes");
    EXPECT_EQ(bench.events, QStringList({"ApplyEditorFont Courier New 8.5"}));
}

TEST_F(FrmSettingsTest, RunsAsAModalDialog) {
    frmSettings dialog(bench, bench);
    QTimer::singleShot(0, &dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Return); });
    QTimer::singleShot(10000, &dialog, &QDialog::reject);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(bench.Stored(keys::editPercent), "50");
}

}  // namespace
}  // namespace vellum
