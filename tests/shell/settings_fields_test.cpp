#include "shell/settings_fields.h"

#include "tests/shell/settings_bench.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vellum {
namespace {

const QString rateMessage = "Refresh Rate Needs to be between 1 and 30 seconds.";
const QString percentMessage = "Percent of editing space must be between 0 and 100.";

class SettingsFieldsTest : public testing::Test {
protected:
    test::SettingsBench bench;

    SettingsFields Load() { return LoadSettingsFields(bench); }
    void Apply(const SettingsFields& fields) { ApplySettings(fields, bench, bench); }
};

TEST_F(SettingsFieldsTest, AnEmptyStoreGivesTheDefaults) {
    const SettingsFields fields = Load();
    EXPECT_EQ(fields.fontSize, "8.5");
    EXPECT_EQ(fields.fontName, "Courier New");
    EXPECT_EQ(fields.foreColor, 0U);
    EXPECT_EQ(fields.backColor, 16777215U);
    EXPECT_FALSE(fields.wordWrap);
    EXPECT_TRUE(fields.autoTab);
    EXPECT_TRUE(fields.popupTag);
    EXPECT_FALSE(fields.lowerCase);
    EXPECT_FALSE(fields.colorCodingOff);
    EXPECT_EQ(fields.tagColors, (std::array<ColorNumber, 6>{8388736, 192, 8388608, 8421504, 6776628, 32768}));
    EXPECT_TRUE(fields.aspBold);
    EXPECT_EQ(fields.documentTypes, bench.documentTypes);
    EXPECT_EQ(fields.imageTypes, bench.imageTypes);
    EXPECT_EQ(fields.customCaptions,
              (std::array<QString, 6>{"Custom1", "Custom2", "Custom3", "Custom4", "Custom5", "Custom6"}));
    EXPECT_EQ(fields.customTexts, (std::array<QString, 6>{}));
    EXPECT_EQ(fields.customTags, QStringList());
    EXPECT_EQ(fields.ftpUrl, "");
    EXPECT_EQ(fields.ftpUserName, "");
    EXPECT_EQ(fields.ftpPassword, "");
    EXPECT_TRUE(fields.autoCase);
    EXPECT_FALSE(fields.autoQuote);
    EXPECT_TRUE(fields.autoEmptySlash);
    EXPECT_EQ(fields.xhtmlVariant, 0);
    EXPECT_FALSE(fields.dtdMath);
    EXPECT_TRUE(fields.dtdSmil);
    EXPECT_FALSE(fields.dtdSvg);
    EXPECT_TRUE(fields.dtdOpen);
    EXPECT_FALSE(fields.dtdWml);
    EXPECT_FALSE(fields.dtdX3d);
    EXPECT_EQ(fields.browsers, (std::array<QString, 3>{"None", "None", "None"}));
    EXPECT_EQ(fields.refreshRate, "7");
    EXPECT_TRUE(fields.splitVertical);
    EXPECT_EQ(fields.editPercent, "50");
}

TEST_F(SettingsFieldsTest, FontRateAndTypesAreThoseInForce) {
    EditorOptions options = bench.Options().Now();
    options.EditorFontSize = "11";
    options.EditorFontName = "Times";
    options.RefreshRate = 12;
    bench.Options().Set(options);
    bench.imageTypes = QStringList{".svg"};
    WriteSetting(bench.store, keys::fontSize, "99");
    WriteSetting(bench.store, keys::fontName, "Other");
    WriteSetting(bench.store, keys::refreshRate, "3");
    WriteSetting(bench.store, keys::graphicsCount, "0");
    const SettingsFields fields = Load();
    EXPECT_EQ(fields.fontSize, "11");
    EXPECT_EQ(fields.fontName, "Times");
    EXPECT_EQ(fields.refreshRate, "12");
    EXPECT_EQ(fields.imageTypes, QStringList{".svg"});
}

TEST_F(SettingsFieldsTest, WhatWasAppliedIsLoadedAgainButForMath) {
    SettingsFields fields;
    fields.fontSize = "12";
    fields.fontName = "Arial";
    fields.foreColor = 0x123456;
    fields.backColor = 0x654321;
    fields.wordWrap = true;
    fields.autoTab = false;
    fields.popupTag = false;
    fields.colorCodingOff = true;
    fields.tagColors = {1, 2, 3, 4, 5, 6};
    fields.aspBold = false;
    fields.documentTypes = QStringList{".one", "two", "two"};
    fields.imageTypes = QStringList{".png"};
    fields.customCaptions = {"a", "b", "c", "d", "e", ""};
    fields.customTexts = {"<a>", "\"b\"", "", "d\r\n", "e", "f"};
    fields.customTags = QStringList{"<x>", "<y>"};
    fields.ftpUrl = "ftp.example.org";
    fields.ftpUserName = "me";
    fields.ftpPassword = " secret ";
    fields.autoCase = false;
    fields.autoQuote = true;
    fields.autoEmptySlash = false;
    fields.xhtmlVariant = 2;
    fields.dtdMath = true;
    fields.dtdSmil = false;
    fields.dtdSvg = true;
    fields.dtdOpen = false;
    fields.dtdWml = true;
    fields.dtdX3d = true;
    fields.browsers = {"firefox", "", "/opt/a browser/run"};
    fields.refreshRate = "30";
    fields.splitVertical = false;
    fields.editPercent = "0";
    Apply(fields);
    const SettingsFields again = Load();
    EXPECT_EQ(again.fontSize, "12");
    EXPECT_EQ(again.fontName, "Arial");
    EXPECT_EQ(again.foreColor, 0x123456U);
    EXPECT_EQ(again.backColor, 0x654321U);
    EXPECT_TRUE(again.wordWrap);
    EXPECT_FALSE(again.autoTab);
    EXPECT_FALSE(again.popupTag);
    EXPECT_TRUE(again.colorCodingOff);
    EXPECT_EQ(again.tagColors, fields.tagColors);
    EXPECT_FALSE(again.aspBold);
    EXPECT_EQ(again.documentTypes, fields.documentTypes);
    EXPECT_EQ(again.imageTypes, fields.imageTypes);
    EXPECT_EQ(again.customCaptions, fields.customCaptions);
    EXPECT_EQ(again.customTexts, fields.customTexts);
    EXPECT_EQ(again.customTags, fields.customTags);
    EXPECT_EQ(again.ftpUrl, "ftp.example.org");
    EXPECT_EQ(again.ftpUserName, "me");
    EXPECT_EQ(again.ftpPassword, " secret ");
    EXPECT_FALSE(again.autoCase);
    EXPECT_TRUE(again.autoQuote);
    EXPECT_FALSE(again.autoEmptySlash);
    EXPECT_EQ(again.xhtmlVariant, 2);
    EXPECT_EQ(bench.Stored(keys::dtdMath), "1");
    EXPECT_FALSE(again.dtdMath);
    EXPECT_FALSE(again.dtdSmil);
    EXPECT_TRUE(again.dtdSvg);
    EXPECT_FALSE(again.dtdOpen);
    EXPECT_TRUE(again.dtdWml);
    EXPECT_TRUE(again.dtdX3d);
    EXPECT_EQ(again.browsers, fields.browsers);
    EXPECT_EQ(again.refreshRate, "30");
    EXPECT_FALSE(again.splitVertical);
    EXPECT_EQ(again.editPercent, "0");
}

TEST_F(SettingsFieldsTest, ValuesAreStoredAsTheKeysHaveThem) {
    SettingsFields fields = Load();
    fields.foreColor = 255;
    fields.tagColors[aspTag] = 65280;
    fields.tagColors[otherTag] = 16711680;
    fields.imageTypes = QStringList{".png", ".gif", ".svg"};
    fields.customTags = QStringList{"<hr />"};
    fields.xhtmlVariant = 1;
    Apply(fields);
    EXPECT_EQ(bench.Stored(keys::foreColor), "255");
    EXPECT_EQ(bench.Stored(keys::aspColor), "65280");
    EXPECT_EQ(bench.Stored(keys::otherColor), "16711680");
    EXPECT_EQ(bench.Stored(keys::colorOnOff), "0");
    EXPECT_EQ(bench.Stored(keys::aspBold), "1");
    EXPECT_EQ(bench.Stored(keys::wordWrap), "0");
    EXPECT_EQ(bench.Stored(keys::verticalMain), "True");
    EXPECT_EQ(bench.Stored(keys::dtdXhtml), "1");
    EXPECT_EQ(bench.Stored(keys::graphicsCount), "3");
    EXPECT_EQ(bench.StoredEntry(keys::graphicsEntry, 2), ".svg");
    EXPECT_EQ(bench.Stored(keys::docTypesCount), "2");
    EXPECT_EQ(bench.StoredEntry(keys::docTypesEntry, 0), ".htm");
    EXPECT_EQ(bench.Stored(keys::customTagsCount), "1");
    EXPECT_EQ(bench.StoredEntry(keys::customTagsEntry, 0), "<hr />");
    EXPECT_EQ(ReadCustomCaption(bench.store, 5), "Custom6");
    EXPECT_EQ(bench.Stored(keys::lowerCase), "(none)");
    fields.splitVertical = false;
    Apply(fields);
    EXPECT_EQ(bench.Stored(keys::verticalMain), "False");
}

TEST_F(SettingsFieldsTest, TheOptionsFollow) {
    SettingsFields fields = Load();
    fields.tagColors = {1, 2, 3, 4, 5, 6};
    fields.autoCase = false;
    fields.autoQuote = true;
    fields.autoEmptySlash = false;
    fields.fontSize = "14";
    fields.fontName = "Arial";
    fields.refreshRate = "1.5";
    Apply(fields);
    EXPECT_EQ(bench.Options()->TablesColor, 1U);
    EXPECT_EQ(bench.Options()->FramesColor, 2U);
    EXPECT_EQ(bench.Options()->LinksColor, 3U);
    EXPECT_EQ(bench.Options()->CommentsColor, 4U);
    EXPECT_EQ(bench.Options()->AspColor, 5U);
    EXPECT_EQ(bench.Options()->OtherColor, 6U);
    EXPECT_FALSE(bench.Options()->AutoCase);
    EXPECT_TRUE(bench.Options()->AutoQuote);
    EXPECT_FALSE(bench.Options()->AutoEmptySlash);
    EXPECT_EQ(bench.Options()->EditorFontSize, "14");
    EXPECT_EQ(bench.Options()->EditorFontName, "Arial");
    EXPECT_EQ(bench.Options()->RefreshRate, 1);
    EXPECT_EQ(bench.Stored(keys::refreshRate), "1.5");
    EXPECT_EQ(bench.imageTypes, fields.imageTypes);
}

TEST_F(SettingsFieldsTest, StepsComeInOrder) {
    SettingsFields fields = Load();
    fields.colorCodingOff = true;
    fields.foreColor = 77;
    Apply(fields);
    EXPECT_EQ(bench.events,
              QStringList({"PaintActiveDocument 77", "Options", "SetImageTypes .bmp .jpg", "SetDocumentTypes .htm .txt",
                           "SetCustomCaption 0 Custom1", "SetCustomCaption 1 Custom2", "SetCustomCaption 2 Custom3",
                           "SetCustomCaption 3 Custom4", "SetCustomCaption 4 Custom5", "SetCustomCaption 5 Custom6",
                           "AddTags", "Smartcolor"}));
}

// The tree is built anew from what the author has just chosen.
TEST_F(SettingsFieldsTest, TheTreeFindsItsSettingsWritten) {
    class Watching : public test::SettingsBench {
    public:
        void AddTags() override {
            for (const SettingKey* key : {&keys::dtdXhtml, &keys::dtdSmil, &keys::dtdSvg, &keys::dtdOpen, &keys::dtdWml,
                                          &keys::dtdX3d, &keys::customTagsCount}) {
                if (Stored(*key) == "(none)") missing << key->key.toString();
            }
        }
        QStringList missing;
    } watching;
    ApplySettings(LoadSettingsFields(watching), watching, watching);
    EXPECT_EQ(watching.missing, QStringList());
}

TEST_F(SettingsFieldsTest, EveryFieldIsWritten) {
    SettingsFields fields = Load();
    fields.customTags = QStringList{"<hr />"};
    Apply(fields);
    QStringList unwritten;
    for (const SettingKey* key : AllSettingKeys()) {
        if (key->application != preferencesApplication || key->key.isEmpty()) continue;
        if (bench.Stored(*key) == "(none)") unwritten << key->section.toString() + '/' + key->key.toString();
    }
    EXPECT_EQ(unwritten,
              QStringList({"Settings/LowerCase", "Direct/Drive", "Direct/Director", "Direct/FilePath",
                           "Startup/ShowStart", "Options/Code", "Options/Height", "Options/Width", "Options/InclCode",
                           "Options/TagCase", "Options/Lines", "Options/Obj", "Options/TagClassID"}));
}

TEST_F(SettingsFieldsTest, OnlyDisabledColoringPaintsTheDocument) {
    Apply(Load());
    EXPECT_EQ(bench.events.filter("PaintActiveDocument"), QStringList());
}

TEST_F(SettingsFieldsTest, AllOfItIsOneWriteOfTheFile) {
    class Watching : public test::SettingsBench {
    public:
        void AddTags() override { existed = QFileInfo::exists(folder.filePath("settings.json")); }
        bool existed = true;
    } watching;
    ApplySettings(LoadSettingsFields(watching), watching, watching);
    EXPECT_FALSE(watching.existed);
    EXPECT_TRUE(QFileInfo::exists(watching.folder.filePath("settings.json")));
}

TEST_F(SettingsFieldsTest, RateGoesFromOneToThirty) {
    for (const char* rate : {"1", "30", "1.5", " 7 ", "30.0", "1e1"}) {
        SettingsFields fields = Load();
        fields.refreshRate = rate;
        EXPECT_EQ(ValidateSettings(fields), std::nullopt) << rate;
    }
    for (const char* rate : {"0", "31", "abc", "", "0.9", "30.1", "-1", "5x", "1,5", "1e9"}) {
        SettingsFields fields = Load();
        fields.refreshRate = rate;
        EXPECT_EQ(ValidateSettings(fields), rateMessage) << rate;
    }
}

TEST_F(SettingsFieldsTest, PercentGoesFromNoughtToAHundred) {
    for (const char* percent : {"0", "100", "50", "33.3", "0.0"}) {
        SettingsFields fields = Load();
        fields.editPercent = percent;
        EXPECT_EQ(ValidateSettings(fields), std::nullopt) << percent;
    }
    for (const char* percent : {"-1", "101", "100.1", "", "half", "50%"}) {
        SettingsFields fields = Load();
        fields.editPercent = percent;
        EXPECT_EQ(ValidateSettings(fields), percentMessage) << percent;
    }
}

TEST_F(SettingsFieldsTest, TheRateIsNamedBeforeThePercent) {
    SettingsFields fields = Load();
    fields.refreshRate = "0";
    fields.editPercent = "101";
    EXPECT_EQ(ValidateSettings(fields), rateMessage);
}

TEST_F(SettingsFieldsTest, OddStoredValuesFallBack) {
    WriteSetting(bench.store, keys::tablesColor, "-5");
    WriteSetting(bench.store, keys::backColor, "99999999999");
    WriteSetting(bench.store, keys::dtdXhtml, "7");
    WriteSetting(bench.store, keys::customTagsCount, "1000000000");
    WriteSetting(bench.store, keys::verticalMain, "true");
    bench.ReadOptions();
    const SettingsFields fields = Load();
    EXPECT_EQ(fields.tagColors[tablesTag], 8388736U);
    EXPECT_EQ(fields.backColor, 16777215U);
    EXPECT_EQ(fields.xhtmlVariant, 0);
    EXPECT_EQ(fields.customTags, QStringList());
    EXPECT_FALSE(fields.splitVertical);
}

TEST_F(SettingsFieldsTest, ChecksAreReadAsTruth) {
    WriteSetting(bench.store, keys::colorOnOff, "True");
    WriteSetting(bench.store, keys::autoTab, "False");
    WriteSetting(bench.store, keys::lowerCase, "True");
    WriteSetting(bench.store, keys::wordWrap, "2");
    bench.ReadOptions();
    const SettingsFields fields = Load();
    EXPECT_TRUE(fields.colorCodingOff);
    EXPECT_FALSE(fields.autoTab);
    EXPECT_TRUE(fields.lowerCase);
    EXPECT_FALSE(fields.wordWrap);
}

TEST_F(SettingsFieldsTest, PurgeTakesThePreferencesAndNothingElse) {
    for (const SettingKey* key : AllSettingKeys()) WriteSetting(bench.store, *key, "kept");
    EditorOptions options = bench.Options().Now();
    options.EditorFontName = "Times";
    bench.Options().Set(options);
    bench.events.clear();
    PurgeSettings(bench, bench);
    for (const SettingKey* key : AllSettingKeys()) {
        const bool kept = key->application != preferencesApplication;
        EXPECT_EQ(bench.Stored(*key), kept ? "kept" : "(none)") << key->key.toString().toStdString();
    }
    EXPECT_EQ(bench.events, QStringList({"ApplyEditorFont Times 8.5"}));
}

TEST_F(SettingsFieldsTest, PurgePutsTheCaretAtTheStart) {
    class PlainDocument : public Document {
    public:
        using Document::Document;
        void ResizeMe() override {}
    } document(bench);
    document.Text1->SetText("<p>one</p>");
    document.Text1->SetSelStart(5);
    bench.document = &document;
    PurgeSettings(bench, bench);
    EXPECT_EQ(document.Text1->SelStart(), 0);
    EXPECT_EQ(document.Text1->SelLength(), 0);
    EXPECT_EQ(document.Text1->Text(), "<p>one</p>");
}

TEST_F(SettingsFieldsTest, PurgeOfNothingIsNoError) {
    PurgeSettings(bench, bench);
    EXPECT_EQ(bench.events, QStringList({"ApplyEditorFont Courier New 8.5"}));
}

}  // namespace
}  // namespace vellum
