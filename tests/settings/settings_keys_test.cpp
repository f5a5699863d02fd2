#include "settings/settings_keys.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>

namespace vellum {
namespace {

struct Row {
    const SettingKey& constant;
    const char16_t* section;
    const char16_t* key;
    const char16_t* fallback;
};

void ExpectRows(QStringView application, std::initializer_list<Row> rows) {
    std::size_t constants = 0;
    for (const SettingKey* key : AllSettingKeys()) constants += key->application == application ? 1 : 0;
    EXPECT_EQ(constants, rows.size()) << application.toString().toStdString();
    for (const auto& [constant, section, key, fallback] : rows) {
        const QString name = QString::fromUtf16(section) + u'/' + QString::fromUtf16(key);
        EXPECT_EQ(constant.application, application) << name.toStdString();
        EXPECT_EQ(constant.section, QStringView(section)) << name.toStdString();
        EXPECT_EQ(constant.key, QStringView(key)) << name.toStdString();
        EXPECT_EQ(constant.fallback, QStringView(fallback)) << name.toStdString();
    }
}

TEST(SettingsKeys, PreferencesAreTheTable) {
    ExpectRows(u"Vellumcraft", {{keys::fontSize, u"Settings", u"Fontsize", u"8.5"},
                                {keys::fontName, u"Settings", u"Fontname", u"Courier New"},
                                {keys::refreshRate, u"Settings", u"RefreshRate", u"7"},
                                {keys::wordWrap, u"Settings", u"WordWrap", u"0"},
                                {keys::verticalMain, u"Settings", u"VerticalMain", u"True"},
                                {keys::editPercent, u"Settings", u"EditPercent", u"50"},
                                {keys::autoTab, u"Settings", u"AutoTab", u"1"},
                                {keys::popupTag, u"Settings", u"PopupTag", u"1"},
                                {keys::browser1, u"Settings", u"Browser1", u"None"},
                                {keys::browser2, u"Settings", u"Browser2", u"None"},
                                {keys::browser3, u"Settings", u"Browser3", u"None"},
                                {keys::lowerCase, u"Settings", u"LowerCase", u"False"},
                                {keys::tablesColor, u"Colors", u"Tables", u"8388736"},
                                {keys::framesColor, u"Colors", u"Frames", u"192"},
                                {keys::linksColor, u"Colors", u"Links", u"8388608"},
                                {keys::commentsColor, u"Colors", u"Comments", u"8421504"},
                                {keys::otherColor, u"Colors", u"Other", u"32768"},
                                {keys::aspColor, u"Colors", u"ASP", u"6776628"},
                                {keys::aspBold, u"Colors", u"ASP-Bold", u"1"},
                                {keys::colorOnOff, u"Colors", u"OnOff", u"False"},
                                {keys::foreColor, u"Colors", u"ForeColor", u"0"},
                                {keys::backColor, u"Colors", u"BackColor", u"16777215"},
                                {keys::autoQuote, u"XML", u"AutoQuote", u"0"},
                                {keys::autoEmptySlash, u"XML", u"AutoEmptySlash", u"1"},
                                {keys::autoCase, u"XML", u"AutoCase", u"1"},
                                {keys::graphicsCount, u"Graphics", u"Count", u"-1"},
                                {keys::graphicsEntry, u"Graphics", u"", u"-1"},
                                {keys::docTypesCount, u"DocTypes", u"Count", u"-1"},
                                {keys::docTypesEntry, u"DocTypes", u"", u"-1"},
                                {keys::customText, u"Custom", u"", u""},
                                {keys::customTagsCount, u"CustomTags", u"Count", u"-1"},
                                {keys::customTagsEntry, u"CustomTags", u"", u"-1"},
                                {keys::dtdXhtml, u"DTD", u"XHTML", u"0"},
                                {keys::dtdSmil, u"DTD", u"Smil", u"1"},
                                {keys::dtdSvg, u"DTD", u"Svg", u"0"},
                                {keys::dtdOpen, u"DTD", u"Open", u"1"},
                                {keys::dtdWml, u"DTD", u"WML", u"0"},
                                {keys::dtdX3d, u"DTD", u"X3D", u"0"},
                                {keys::dtdMath, u"DTD", u"Math", u""},
                                {keys::drive, u"Direct", u"Drive", u""},
                                {keys::director, u"Direct", u"Director", u""},
                                {keys::filePath, u"Direct", u"FilePath", u""},
                                {keys::ftpUrl, u"Direct", u"FTPURL", u""},
                                {keys::ftpUserName, u"Direct", u"FTPUserName", u""},
                                {keys::ftpPassword, u"Direct", u"FTPPassword", u""},
                                {keys::showStart, u"Startup", u"ShowStart", u"yes"},
                                {keys::optionsCode, u"Options", u"Code", u"http://"},
                                {keys::optionsHeight, u"Options", u"Height", u"30"},
                                {keys::optionsWidth, u"Options", u"Width", u"80"},
                                {keys::optionsInclCode, u"Options", u"InclCode", u"0"},
                                {keys::optionsTagCase, u"Options", u"TagCase", u"0"},
                                {keys::optionsLines, u"Options", u"Lines", u"True"},
                                {keys::optionsObj, u"Options", u"Obj", u"True"},
                                {keys::optionsTagClassID, u"Options", u"TagClassID", u"True"}});
}

TEST(SettingsKeys, StateIsTheTable) {
    ExpectRows(u"VellumState", {{keys::windowState, u"Previous", u"WindowState", u"2"},
                                {keys::windowTop, u"Previous", u"Top", u"50"},
                                {keys::windowLeft, u"Previous", u"Left", u"50"},
                                {keys::windowWidth, u"Previous", u"Width", u"600"},
                                {keys::windowHeight, u"Previous", u"Height", u"400"},
                                {keys::picture1, u"Previous", u"Picture1", u"True"},
                                {keys::picture11, u"Previous", u"Picture11", u"True"},
                                {keys::picture14, u"Previous", u"Picture14", u"True"},
                                {keys::picture15, u"Previous", u"Picture15", u"True"},
                                {keys::pic11Height, u"Previous", u"Pic11Height", u"2600"},
                                {keys::fontsNumber, u"Fonts", u"Number", u"-1"},
                                {keys::fontsEntry, u"Fonts", u"", u""},
                                {keys::recentFile, u"RecentFiles", u"", u""},
                                {keys::useIE, u"Extras", u"UseIE", u""},
                                {keys::regAdded, u"Extras", u"RegAdded", u"False"}});
}

TEST(SettingsKeys, OrganizerDataIsTheTable) {
    ExpectRows(u"Orrinade Organizer", {{keys::organizerNumber, u"Data", u"Number", u"1"},
                                       {keys::organizerEntry, u"Data", u"", u""},
                                       {keys::phoneNumber, u"Phone", u"Number", u"0"},
                                       {keys::phoneEntry, u"Phone", u"", u""},
                                       {keys::urlCount, u"URL", u"URLS", u"0"},
                                       {keys::urlEntry, u"URL", u"", u""}});
}

TEST(SettingsKeys, NoAddressStandsTwice) {
    std::set<QString> seen;
    for (const SettingKey* key : AllSettingKeys()) {
        const QString address =
            QStringList{key->application.toString(), key->section.toString(), key->key.toString()}.join('/');
        EXPECT_TRUE(seen.insert(address.toLower()).second) << address.toStdString();
    }
}

class SettingsKeysStore : public testing::Test {
protected:
    QTemporaryDir folder;
    SettingsStore store{folder.filePath("settings.json")};
};

TEST_F(SettingsKeysStore, AnEmptyStoreGivesEveryDefaultAndIsNotWritten) {
    for (const SettingKey* key : AllSettingKeys()) {
        EXPECT_EQ(ReadSetting(store, *key), key->fallback) << key->key.toString().toStdString();
    }
    EXPECT_FALSE(QFile::exists(folder.filePath("settings.json")));
}

TEST_F(SettingsKeysStore, AValueGoesToTheAddressOfItsKey) {
    EXPECT_TRUE(WriteSetting(store, keys::autoTab, "0"));
    EXPECT_EQ(store.Read(u"Vellumcraft", u"Settings", u"AutoTab"), "0");
    EXPECT_EQ(ReadSetting(store, keys::autoTab), "0");
}

TEST_F(SettingsKeysStore, EntriesOfAFamilyAreNumberedFromZero) {
    EXPECT_EQ(ReadSetting(store, keys::graphicsEntry, 0), "-1");
    EXPECT_EQ(ReadSetting(store, keys::recentFile, 3), "");
    EXPECT_TRUE(WriteSetting(store, keys::recentFile, 3, "/tmp/a.htm"));
    EXPECT_TRUE(WriteSetting(store, keys::docTypesEntry, 12, ".xml"));
    EXPECT_EQ(store.Read(u"VellumState", u"RecentFiles", u"3"), "/tmp/a.htm");
    EXPECT_EQ(store.Read(u"Vellumcraft", u"DocTypes", u"12"), ".xml");
    EXPECT_EQ(ReadSetting(store, keys::docTypesEntry, 12), ".xml");
}

TEST_F(SettingsKeysStore, NumbersAreReadByTheLeadingNumber) {
    EXPECT_EQ(ReadNumberSetting(store, keys::tablesColor), 8388736);
    EXPECT_EQ(ReadNumberSetting(store, keys::graphicsCount), -1);
    WriteSetting(store, keys::refreshRate, "12abc");
    EXPECT_EQ(ReadNumberSetting(store, keys::refreshRate), 12);
}

TEST_F(SettingsKeysStore, CustomButtonsHaveCaptionsAndTexts) {
    EXPECT_EQ(ReadCustomCaption(store, 0), "Custom1");
    EXPECT_EQ(ReadCustomCaption(store, 5), "Custom6");
    EXPECT_EQ(ReadCustomText(store, 0), "");
    EXPECT_TRUE(WriteCustomCaption(store, 2, "Note"));
    EXPECT_TRUE(WriteCustomText(store, 5, "<p>"));
    EXPECT_EQ(store.Read(u"Vellumcraft", u"Custom", u"02"), "Note");
    EXPECT_EQ(store.Read(u"Vellumcraft", u"Custom", u"15"), "<p>");
    EXPECT_EQ(ReadCustomCaption(store, 2), "Note");
    EXPECT_EQ(ReadCustomText(store, 5), "<p>");
}

}  // namespace
}  // namespace vellum
