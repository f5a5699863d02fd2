#include "editor/editor_options.h"

#include "settings/settings_keys.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class EditorOptionsTest : public testing::Test {
protected:
    EditorOptions With(const SettingKey& key, const QString& value) {
        WriteSetting(settings, key, value);
        return ReadEditorOptions(settings);
    }

    QTemporaryDir folder;
    SettingsStore settings{folder.filePath("settings.json")};
};

TEST_F(EditorOptionsTest, AnEmptyStoreGivesTheDefaults) {
    const EditorOptions options = ReadEditorOptions(settings);
    EXPECT_EQ(options.TablesColor, 8388736U);
    EXPECT_EQ(options.FramesColor, 192U);
    EXPECT_EQ(options.LinksColor, 8388608U);
    EXPECT_EQ(options.CommentsColor, 8421504U);
    EXPECT_EQ(options.OtherColor, 32768U);
    EXPECT_EQ(options.AspColor, 6776628U);
    EXPECT_EQ(options.foreColor, 0U);
    EXPECT_EQ(options.backColor, 16777215U);
    EXPECT_FALSE(options.colorCodingOff);
    EXPECT_TRUE(options.aspBold);
    EXPECT_EQ(options.EditorFontName, "Courier New");
    EXPECT_EQ(options.EditorFontSize, "8.5");
    EXPECT_FALSE(options.wordWrap);
    EXPECT_TRUE(options.autoTab);
    EXPECT_TRUE(options.popupTag);
    EXPECT_FALSE(options.AutoQuote);
    EXPECT_TRUE(options.AutoEmptySlash);
    EXPECT_TRUE(options.AutoCase);
    EXPECT_EQ(options.RefreshRate, 7);
}

TEST_F(EditorOptionsTest, OnlyOneSwitchesAnAidOn) {
    EXPECT_TRUE(With(keys::wordWrap, "1").wordWrap);
    EXPECT_TRUE(With(keys::wordWrap, " 1.0").wordWrap);
    EXPECT_FALSE(With(keys::wordWrap, "2").wordWrap);
    EXPECT_FALSE(With(keys::autoTab, "False").autoTab);
    EXPECT_FALSE(With(keys::autoCase, "yes").AutoCase);
}

TEST_F(EditorOptionsTest, ColoringIsSwitchedOffByATruthValue) {
    EXPECT_TRUE(With(keys::colorOnOff, "1").colorCodingOff);
    EXPECT_TRUE(With(keys::colorOnOff, "True").colorCodingOff);
    EXPECT_FALSE(With(keys::colorOnOff, "0").colorCodingOff);
}

TEST_F(EditorOptionsTest, AColorThatIsNoneFallsBack) {
    EXPECT_EQ(With(keys::tablesColor, "255").TablesColor, 255U);
    EXPECT_EQ(With(keys::tablesColor, "16777215").TablesColor, 16777215U);
    EXPECT_EQ(With(keys::tablesColor, "16777216").TablesColor, 8388736U);
    EXPECT_EQ(With(keys::tablesColor, "-1").TablesColor, 8388736U);
}

TEST_F(EditorOptionsTest, TheRateIsRoundedToAWholeNumber) {
    EXPECT_EQ(With(keys::refreshRate, "12").RefreshRate, 12);
    EXPECT_EQ(With(keys::refreshRate, "1.5").RefreshRate, 2);
    EXPECT_EQ(With(keys::refreshRate, "40000").RefreshRate, 0) << "no whole number of 16 bits";
}

TEST_F(EditorOptionsTest, ListenersHearOfEveryChange) {
    SharedOptions options;
    int heard = 0;
    QObject::connect(&options, &SharedOptions::Changed, [&] {
        ++heard;
        EXPECT_EQ(options->RefreshRate, 12);
    });
    options.Set(With(keys::refreshRate, "12"));
    options.Set(options.Now());
    EXPECT_EQ(heard, 2);
}

}  // namespace
}  // namespace vellum
