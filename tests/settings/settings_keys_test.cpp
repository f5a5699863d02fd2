#include "settings/settings_keys.h"

#include "tests/support/setting_rows.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace vellum {
namespace {

std::vector<test::SettingRow> AllRows() {
    std::vector<test::SettingRow> rows(std::begin(test::singleSettings), std::end(test::singleSettings));
    for (const test::SettingRow& row : test::familySettings) rows.push_back(row);
    return rows;
}

TEST(SettingsKeys, EveryConstantStandsForItsRow) {
    for (const auto& [constant, application, section, key, fallback] : AllRows()) {
        const QString name = section.toString() + u'/' + key.toString();
        EXPECT_EQ(constant.application, application) << name.toStdString();
        EXPECT_EQ(constant.section, section) << name.toStdString();
        EXPECT_EQ(constant.key, key) << name.toStdString();
        EXPECT_EQ(constant.fallback, fallback) << name.toStdString();
    }
}

TEST(SettingsKeys, EveryKeyHasARow) {
    QFile header(VELLUM_SOURCE_DIR "/src/settings/settings_keys.h");
    ASSERT_TRUE(header.open(QIODevice::ReadOnly));
    EXPECT_EQ(header.readAll().count("inline constexpr SettingKey "), AllRows().size());
}

TEST(SettingsKeys, NoAddressStandsTwice) {
    std::set<QString> seen;
    for (const test::SettingRow& row : AllRows()) {
        const QString address =
            QStringList{row.application.toString(), row.section.toString(), row.key.toString()}.join('/');
        EXPECT_TRUE(seen.insert(address.toLower()).second) << address.toStdString();
    }
}

class SettingsKeysStore : public testing::Test {
protected:
    QTemporaryDir folder;
    SettingsStore store{folder.filePath("settings.json")};
};

TEST_F(SettingsKeysStore, AnEmptyStoreGivesEveryDefaultAndIsNotWritten) {
    for (const test::SettingRow& row : test::singleSettings) {
        EXPECT_EQ(ReadSetting(store, row.constant), row.fallback) << row.key.toString().toStdString();
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
    EXPECT_EQ(ReadSetting(store, keys::customCaption, 0), "Custom1");
    EXPECT_EQ(ReadSetting(store, keys::customCaption, 5), "Custom6");
    EXPECT_EQ(ReadSetting(store, keys::customText, 0), "");
    EXPECT_TRUE(WriteSetting(store, keys::customCaption, 2, "Note"));
    EXPECT_TRUE(WriteSetting(store, keys::customText, 5, "<p>"));
    EXPECT_EQ(store.Read(u"Vellumcraft", u"Custom", u"02"), "Note");
    EXPECT_EQ(store.Read(u"Vellumcraft", u"Custom", u"15"), "<p>");
    EXPECT_EQ(ReadSetting(store, keys::customCaption, 2), "Note");
    EXPECT_EQ(ReadSetting(store, keys::customText, 5), "<p>");
}

}  // namespace
}  // namespace vellum
