#include "shell/settings_fields.h"

#include "tests/shell/settings_bench.h"
#include "tests/support/setting_rows.h"

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

TEST_F(SettingsFieldsTest, EachFieldGoesToItsKeyAndComesBackButForMath) {
    SettingsFields fields;
    fields.fontSize = "12";
    fields.fontName = "Arial";
    fields.foreColor = 7;
    fields.backColor = 8;
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
    const std::pair<const SettingKey*, const char*> stored[] = {
        {&keys::fontSize, "12"},
        {&keys::fontName, "Arial"},
        {&keys::foreColor, "7"},
        {&keys::backColor, "8"},
        {&keys::wordWrap, "1"},
        {&keys::autoTab, "0"},
        {&keys::popupTag, "0"},
        {&keys::colorOnOff, "1"},
        {&keys::tablesColor, "1"},
        {&keys::framesColor, "2"},
        {&keys::linksColor, "3"},
        {&keys::commentsColor, "4"},
        {&keys::aspColor, "5"},
        {&keys::otherColor, "6"},
        {&keys::aspBold, "0"},
        {&keys::docTypesCount, "3"},
        {&keys::graphicsCount, "1"},
        {&keys::customTagsCount, "2"},
        {&keys::ftpUrl, "ftp.example.org"},
        {&keys::ftpUserName, "me"},
        {&keys::ftpPassword, " secret "},
        {&keys::autoCase, "0"},
        {&keys::autoQuote, "1"},
        {&keys::autoEmptySlash, "0"},
        {&keys::dtdXhtml, "2"},
        {&keys::dtdMath, "1"},
        {&keys::dtdSmil, "0"},
        {&keys::dtdSvg, "1"},
        {&keys::dtdOpen, "0"},
        {&keys::dtdWml, "1"},
        {&keys::dtdX3d, "1"},
        {&keys::browser1, "firefox"},
        {&keys::browser2, ""},
        {&keys::browser3, "/opt/a browser/run"},
        {&keys::refreshRate, "30"},
        {&keys::verticalMain, "False"},
        {&keys::editPercent, "0"},
    };
    for (const auto& [key, text] : stored) EXPECT_EQ(bench.Stored(*key), text) << key->key.toString().toStdString();
    EXPECT_EQ(bench.StoredEntry(keys::docTypesEntry, 2), "two");
    EXPECT_EQ(bench.StoredEntry(keys::graphicsEntry, 0), ".png");
    EXPECT_EQ(bench.StoredEntry(keys::customTagsEntry, 1), "<y>");

    // What is loaded now leaves the same in another store.
    const SettingsFields again = Load();
    test::SettingsBench other;
    ApplySettings(again, other, other);
    for (const auto& [key, text] : stored) {
        EXPECT_EQ(other.Stored(*key), key == &keys::dtdMath ? "0" : text) << key->key.toString().toStdString();
    }
    EXPECT_EQ(again.documentTypes, fields.documentTypes);
    EXPECT_EQ(again.imageTypes, fields.imageTypes);
    EXPECT_EQ(again.customCaptions, fields.customCaptions);
    EXPECT_EQ(again.customTexts, fields.customTexts);
    EXPECT_EQ(again.customTags, fields.customTags);
}

TEST_F(SettingsFieldsTest, ChecksAndChoicesAreStoredByTheirWords) {
    Apply(Load());
    EXPECT_EQ(bench.Stored(keys::colorOnOff), "0");
    EXPECT_EQ(bench.Stored(keys::aspBold), "1");
    EXPECT_EQ(bench.Stored(keys::verticalMain), "True");
}

TEST_F(SettingsFieldsTest, TheOptionsFollowWithAWholeRate) {
    SettingsFields fields = Load();
    fields.tagColors[tablesTag] = 1;
    fields.refreshRate = "1.5";
    Apply(fields);
    EXPECT_EQ(bench.Options()->TablesColor, 1U);
    EXPECT_EQ(bench.Options()->RefreshRate, 1);
    EXPECT_EQ(bench.Stored(keys::refreshRate), "1.5");
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
    for (const test::SettingRow& row : test::singleSettings) {
        if (row.application != preferencesApplication || bench.Stored(row.constant) != "(none)") continue;
        unwritten << row.section.toString() + '/' + row.key.toString();
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
    for (const test::SettingRow& row : test::singleSettings) WriteSetting(bench.store, row.constant, "kept");
    EditorOptions options = bench.Options().Now();
    options.EditorFontName = "Times";
    bench.Options().Set(options);
    bench.events.clear();
    PurgeSettings(bench, bench);
    for (const test::SettingRow& row : test::singleSettings) {
        const bool kept = row.application != preferencesApplication;
        EXPECT_EQ(bench.Stored(row.constant), kept ? "kept" : "(none)") << row.key.toString().toStdString();
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
