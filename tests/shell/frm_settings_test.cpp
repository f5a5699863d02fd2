#include "shell/frm_settings.h"

#include "tests/shell/settings_bench.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace vellum {
namespace {

class FrmSettingsTest : public testing::Test {
protected:
    void Open() {
        form = std::make_unique<frmSettings>(bench, bench);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    // Changes the tab by a click on it.
    void ClickTab(int index) {
        QTest::mouseClick(form->TabStrip1, Qt::LeftButton, {}, form->TabStrip1->tabRect(index).center());
        ASSERT_EQ(form->TabStrip1->currentIndex(), index);
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
        const QRect cell = form->Grid1->visualRect(form->Grid1->model()->index(row, column));
        QTest::mouseClick(form->Grid1->viewport(), Qt::LeftButton, {}, cell.center());
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
    ASSERT_EQ(form->TabStrip1->count(), captions.size());
    for (int i = 0; i < captions.size(); ++i) EXPECT_EQ(form->TabStrip1->tabText(i), captions[i]);
    EXPECT_EQ(form->cmdOK->text(), "&OK");
    EXPECT_EQ(form->cmdCancel->text(), "&Cancel");
    EXPECT_TRUE(form->cmdOK->isDefault());
    EXPECT_EQ(QString(form->chkPurge->text()).remove('&'), "Purge Settings");
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
        {form->chkWrap, "Word Wrap By Default"},
        {form->chkAutoTab, "AutoTab"},
        {form->chkPop, "Popup Tag/Attribute List"},
        {form->chkOnOff, "Disable Color Coding"},
        {form->cmdColor[0], "Tables"},
        {form->cmdColor[1], "Frames"},
        {form->cmdColor[2], "Links"},
        {form->cmdColor[3], "Comments"},
        {form->cmdColor[4], "ASP / JSP"},
        {form->cmdColor[5], "Other Tags"},
        {form->chkASPBold, "Bolderize ASP/JSP Tags"},
        {form->Command11, "Add"},
        {form->Command12, "Delete"},
        {form->chkXMLCase, "Automatically Lowercase all XHTML Tags"},
        {form->chkXMLQuotes, "Automatically Quote Tag Attributes"},
        {form->chkXMLSlash, "Enforce backslashing of empty elements"},
        {form->optXHTML[0], "Transitional"},
        {form->optXHTML[1], "Strict"},
        {form->optXHTML[2], "Frameset"},
        {form->chkMath, "MaHTML 2.0 Specification"},
        {form->chkSmil, "SMIL 1.0 Specification"},
        {form->chkSVG, "SVG 1.0 Specification"},
        {form->chkOpenBook, "Open eBook Specification"},
        {form->chkWML, "WML 1.3 Specification"},
        {form->chkX3D, "X3D Compromise Specification"},
        {form->cmbBrowser[0], "Choose"},
        {form->cmbBrowser[2], "Choose"},
        {form->OptVertical, "Vertical"},
        {form->optHorizontal, "Horizontal"},
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
    for (const QWidget* panel : form->picOption) {
        std::set<QString> keys;
        for (const QAbstractButton* button :
             {static_cast<QAbstractButton*>(form->cmdOK), static_cast<QAbstractButton*>(form->cmdCancel),
              static_cast<QAbstractButton*>(form->chkPurge)}) {
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
    for (int tab = 0; tab < frmSettings::panelCount; ++tab) {
        ClickTab(tab);
        for (int panel = 0; panel < frmSettings::panelCount; ++panel) {
            EXPECT_EQ(form->picOption[panel]->isVisible(), panel == tab) << panel << " at tab " << tab;
        }
    }
}

TEST_F(FrmSettingsTest, TabsAreReachedByTheKeyboard) {
    Open();
    form->Combo2->setFocus();
    QTest::keyClick(form->Combo2, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form->TabStrip1->currentIndex(), 1);
    EXPECT_TRUE(form->picOption[1]->isVisible());
    QTest::keyClick(form.get(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(form->TabStrip1->currentIndex(), 2);
    QTest::keyClick(form.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(form->TabStrip1->currentIndex(), 1);
    QTest::keyClick(form.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(form.get(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(form->TabStrip1->currentIndex(), 7);
    QTest::keyClick(form.get(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form->TabStrip1->currentIndex(), 0);
}

TEST_F(FrmSettingsTest, TheSizeIsThatOfTheLargestPanel) {
    Open();
    const QSize size = form->size();
    for (int tab = 0; tab < frmSettings::panelCount; ++tab) {
        ClickTab(tab);
        QCoreApplication::processEvents();
        EXPECT_EQ(form->size(), size) << tab;
        const QSize wanted = form->picOption[tab]->minimumSizeHint();
        EXPECT_LE(wanted.width(), form->picOption[tab]->width()) << tab;
        EXPECT_LE(wanted.height(), form->picOption[tab]->height()) << tab;
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
    for (int tab = 0; tab < frmSettings::panelCount; ++tab) {
        ClickTab(tab);
        form->TabStrip1->setFocus();
        const QStringList expected = orders[tab] + QStringList{"chkPurge", "cmdOK", "cmdCancel", "TabStrip1"};
        QStringList visited;
        while (visited.size() < expected.size()) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            visited << QApplication::focusWidget()->objectName();
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
    WriteCustomText(bench.store, 4, "<b>");
    bench.ReadOptions();
    Open();
    EXPECT_EQ(form->Combo1->currentText(), "8.5");
    EXPECT_EQ(form->Combo2->currentText(), "Courier New");
    EXPECT_EQ(form->picColor[0]->Color(), 255U);
    EXPECT_EQ(form->picColor[4]->Color(), 6776628U);
    EXPECT_EQ(form->lblBackColor->Color(), 65280U);
    EXPECT_EQ(form->lblBackColor->accessibleDescription(), "#00FF00");
    EXPECT_TRUE(form->chkWrap->isChecked());
    EXPECT_TRUE(form->optXHTML[1]->isChecked());
    EXPECT_FALSE(form->chkMath->isChecked());
    EXPECT_TRUE(form->optHorizontal->isChecked());
    EXPECT_EQ(form->txtBrowser[1]->text(), "firefox");
    EXPECT_EQ(Entries(form->List2), QStringList({"<hr />"}));
    EXPECT_EQ(Entries(form->lstDocuments), QStringList({".htm", ".txt"}));
    EXPECT_EQ(Entries(form->List1), QStringList({".bmp", ".jpg"}));
    EXPECT_EQ(form->Grid1->rowCount(), 6);
    EXPECT_EQ(form->Grid1->columnCount(), 2);
    EXPECT_EQ(form->Grid1->horizontalHeaderItem(0)->text(), "Caption");
    EXPECT_EQ(form->Grid1->horizontalHeaderItem(1)->text(), "Text Inserted");
    EXPECT_EQ(form->Grid1->item(5, 0)->text(), "Custom6");
    EXPECT_EQ(form->Grid1->item(4, 1)->text(), "<b>");
    EXPECT_EQ(form->txtRate->text(), "7");
    EXPECT_EQ(form->txtPercent->text(), "50");
}

TEST_F(FrmSettingsTest, FontBoxesOfferTheirListsAndTakeAnyText) {
    Open();
    QStringList sizes;
    for (int i = 0; i < form->Combo1->count(); ++i) sizes << form->Combo1->itemText(i);
    EXPECT_EQ(sizes, QStringList({"6", "8", "10", "12", "14", "16"}));
    EXPECT_EQ(form->Combo2->count(), 3);
    Type(form->Combo1->lineEdit(), "9");
    Type(form->Combo2->lineEdit(), "Missing Font");
    EXPECT_EQ(form->Fields().fontSize, "9");
    EXPECT_EQ(form->Fields().fontName, "Missing Font");
}

TEST_F(FrmSettingsTest, ThePasswordIsHiddenBehindStars) {
    Open();
    ClickTab(4);
    Type(form->Text7, "geheim");
    EXPECT_EQ(form->Text7->displayText(), "******");
    EXPECT_EQ(form->Fields().ftpPassword, "geheim");
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
         {Case{2, form->lstDocuments, form->txtDocuments, form->cmdAddDocument, form->lstDocsRemove},
          Case{2, form->List1, form->Text2, form->Command9, form->Command10},
          Case{3, form->List2, form->Text4, form->Command11, form->Command12}}) {
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
    Click(form->lstDocsRemove);
    EXPECT_EQ(form->lstDocuments->count(), 2);
}

TEST_F(FrmSettingsTest, KeysAddAndRemoveToo) {
    Open();
    ClickTab(2);
    Type(form->txtDocuments, ".new");
    QTest::keyClick(form->txtDocuments, Qt::Key_Return);
    EXPECT_EQ(Entries(form->lstDocuments), QStringList({".htm", ".txt", ".new"}));
    EXPECT_TRUE(form->isVisible());
    form->lstDocuments->setFocus();
    QTest::keyClick(form->lstDocuments, Qt::Key_End);
    QTest::keyClick(form->lstDocuments, Qt::Key_Delete);
    EXPECT_EQ(Entries(form->lstDocuments), QStringList({".htm", ".txt"}));
    QTest::keyClick(form->txtDocuments, Qt::Key_Return);  // nothing to add: it is OK
    EXPECT_FALSE(form->isVisible());
}

TEST_F(FrmSettingsTest, CellsAreEditedThroughTheLine) {
    Open();
    ClickTab(3);
    EXPECT_EQ(form->Text3->text(), "Custom1");
    ClickCell(2, 0);
    EXPECT_EQ(form->Text3->text(), "Custom3");
    Type(form->Text3, "Note");
    EXPECT_EQ(form->Grid1->item(2, 0)->text(), "Note");
    ClickCell(2, 1);
    EXPECT_EQ(form->Text3->text(), "");
    Type(form->Text3, "<p class=\"note\">");
    QTest::keyClick(form->Grid1, Qt::Key_Up);
    EXPECT_EQ(form->Grid1->currentRow(), 1);
    EXPECT_EQ(form->Text3->text(), "");
    QTest::keyClick(form->Grid1, Qt::Key_Left);
    EXPECT_EQ(form->Text3->text(), "Custom2");
    EXPECT_EQ(form->Fields().customCaptions[2], "Note");
    EXPECT_EQ(form->Fields().customTexts[2], "<p class=\"note\">");
    EXPECT_EQ(form->Fields().customTexts[1], "");
}

TEST_F(FrmSettingsTest, ALineEndInACellSurvivesTheVisit) {
    WriteCustomText(bench.store, 0, "<ul>\r\n</ul>");
    Open();
    ClickTab(3);
    ClickCell(0, 1);
    ClickCell(1, 1);
    EXPECT_EQ(form->Fields().customTexts[0], "<ul>\r\n</ul>");
}

TEST_F(FrmSettingsTest, SwatchesTakeTheChosenColor) {
    Open();
    bench.prompts.colors = {0x0000FF, 0x00FF00, 0xFF0000};
    Click(form->lblForeColor);
    EXPECT_EQ(form->lblForeColor->Color(), 0x0000FFU);
    ClickTab(1);
    Click(form->picColor[3]);
    EXPECT_EQ(form->picColor[3]->Color(), 0x00FF00U);
    form->cmdColor[5]->setFocus();
    QTest::keyClick(form->cmdColor[5], Qt::Key_Space);
    EXPECT_EQ(form->picColor[5]->Color(), 0xFF0000U);
    Click(form->cmdColor[0]);  // cancelled: no colour is left
    EXPECT_EQ(form->picColor[0]->Color(), 8388736U);
}

TEST_F(FrmSettingsTest, ABrowserIsChosenFromTheFiles) {
    Open();
    ClickTab(7);
    bench.prompts.openNames = {"/usr/bin/firefox"};
    Click(form->cmbBrowser[1]);
    EXPECT_EQ(form->txtBrowser[1]->text(), "/usr/bin/firefox");
    ASSERT_EQ(bench.prompts.requests.size(), 1U);
    EXPECT_EQ(bench.prompts.requests[0].filter, "Executable Files (*.EXE)|*.EXE");
    Click(form->cmbBrowser[1]);  // cancelled
    EXPECT_EQ(form->txtBrowser[1]->text(), "/usr/bin/firefox");
}

TEST_F(FrmSettingsTest, OkWritesAndCloses) {
    Open();
    Click(form->chkWrap);
    ClickTab(1);
    Click(form->chkOnOff);
    ClickTab(6);
    Click(form->optXHTML[2]);
    Click(form->chkMath);
    ClickTab(7);
    Type(form->txtRate, "1.5");
    Click(form->optHorizontal);
    Type(form->txtPercent, "100");
    Click(form->cmdOK);
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
    EXPECT_FALSE(form->chkMath->isChecked());
    EXPECT_TRUE(form->chkWrap->isChecked());
    EXPECT_EQ(form->txtRate->text(), "1");
}

TEST_F(FrmSettingsTest, ABadRateKeepsTheDialogAsTyped) {
    Open();
    Click(form->chkWrap);
    Type(form->Combo1->lineEdit(), "14");
    ClickTab(7);
    Type(form->txtRate, "31");
    Type(form->txtPercent, "60");
    ClickTab(0);
    Click(form->cmdOK);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench.prompts.messages, QStringList({"Refresh Rate Needs to be between 1 and 30 seconds."}));
    EXPECT_EQ(bench.events, QStringList());
    EXPECT_EQ(bench.Stored(keys::wordWrap), "(none)");
    EXPECT_EQ(form->txtRate->text(), "31");
    EXPECT_EQ(form->txtPercent->text(), "60");
    EXPECT_EQ(form->Combo1->currentText(), "14");
    EXPECT_TRUE(form->chkWrap->isChecked());
    EXPECT_TRUE(form->txtRate->hasFocus());
    Type(form->txtRate, "30");
    QTest::keyClick(form->txtRate, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(bench.Stored(keys::refreshRate), "30");
    EXPECT_EQ(bench.Stored(keys::fontSize), "14");
}

TEST_F(FrmSettingsTest, ABadPercentKeepsTheDialogAsTyped) {
    Open();
    ClickTab(7);
    Type(form->txtPercent, "101");
    Click(form->cmdOK);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(bench.prompts.messages, QStringList({"Percent of editing space must be between 0 and 100."}));
    EXPECT_TRUE(form->txtPercent->hasFocus());
    EXPECT_EQ(bench.Stored(keys::editPercent), "(none)");
}

TEST_F(FrmSettingsTest, EscapeAndCancelWriteNothing) {
    for (const bool escape : {true, false}) {
        Open();
        Click(form->chkWrap);
        Click(form->chkPurge);
        ClickTab(2);
        Type(form->txtDocuments, ".new");
        Click(form->cmdAddDocument);
        if (escape) {
            QTest::keyClick(form.get(), Qt::Key_Escape);
        } else {
            Click(form->cmdCancel);
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
    Click(form->chkPop);
    ClickTab(7);
    Type(form->txtRate, "abc");  // is not looked at
    Click(form->chkPurge);
    Click(form->cmdOK);
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
