#include "tools/scripts/object_tag.h"

#include "settings/settings_keys.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

const Control button{.name = "Blue Button", .classId = "{0aB-1}", .programId = "Blue.Button.1"};
const Control plain{.name = "Plain", .classId = "{0aB-2}", .programId = ""};

TEST(ObjectTag, TheDefaults) {
    EXPECT_EQ(BuildObjTag(button, {}),
              "<OBJECT\r\n"
              "\tID=\"Blue Button\"\r\n"
              "\tCLASSID=\"CLSID:0aB-1\"\r\n"
              "\tWIDTH=80\r\n"
              "\tHEIGHT=30 >\r\n"
              "</OBJECT>");
}

TEST(ObjectTag, OnOneLine) {
    EXPECT_EQ(BuildObjTag(button, {.severalLines = false, .withCodeBase = true, .codeBase = "http://a/b.cab"}),
              "<OBJECT ID=\"Blue Button\" CLASSID=\"CLSID:0aB-1\" WIDTH=80 HEIGHT=30 "
              "CODEBASE=\"http://a/b.cab\" ></OBJECT>");
}

TEST(ObjectTag, EveryOptionOtherwise) {
    EXPECT_EQ(BuildObjTag(button, {.byClassId = false,
                                   .object = false,
                                   .tagCase = TagCase::Lower,
                                   .width = 0,
                                   .height = 32767,
                                   .withCodeBase = true}),
              "<insert\r\n"
              "\tid=\"Blue Button\"\r\n"
              "\tclassid=\"progid:Blue.Button.1\"\r\n"
              "\twidth=0\r\n"
              "\theight=32767\r\n"
              "\tcodebase=\"http://\" >\r\n"
              "</insert>");
}

TEST(ObjectTag, TheFirstLetterLarge) {
    EXPECT_EQ(BuildObjTag(button, {.tagCase = TagCase::FirstUpper, .severalLines = false, .withCodeBase = true}),
              "<Object Id=\"Blue Button\" Classid=\"clsid:0aB-1\" Width=80 Height=30 Codebase=\"http://\" ></Object>");
    EXPECT_EQ(BuildObjTag(button, {.byClassId = false, .tagCase = TagCase::FirstUpper, .severalLines = false}),
              "<Object Id=\"Blue Button\" Classid=\"progid:Blue.Button.1\" Width=80 Height=30 ></Object>");
}

TEST(ObjectTag, AControlWithoutProgramIdentifierHasItsClass) {
    EXPECT_EQ(BuildObjTag(plain, {.byClassId = false, .severalLines = false}),
              "<OBJECT ID=\"Plain\" CLASSID=\"CLSID:0aB-2\" WIDTH=80 HEIGHT=30 ></OBJECT>");
}

TEST(ObjectTag, SeveralStandBetweenComments) {
    const ObjectOptions options{.severalLines = false};
    EXPECT_EQ(ObjectMarkup({plain, button}, options), "<!-- Begin Object Tag -->\r\n" + BuildObjTag(plain, options) +
                                                          "\r\n" + BuildObjTag(button, options) +
                                                          "\r\n<!--End Object Tag -->");
    EXPECT_EQ(ObjectMarkup({}, options), "<!-- Begin Object Tag -->\r\n<!--End Object Tag -->");
}

TEST(ObjectTag, RemovesBraces) {
    EXPECT_EQ(RemoveBraces("{1-2}"), "1-2");
    EXPECT_EQ(RemoveBraces("1-2"), "1-2");
    EXPECT_EQ(RemoveBraces("{1-2"), "1-2");
    EXPECT_EQ(RemoveBraces("1-2}"), "1-2");
    EXPECT_EQ(RemoveBraces("{{1}}"), "{1}");
    EXPECT_EQ(RemoveBraces("{}"), "");
    EXPECT_EQ(RemoveBraces(""), "");
}

class ObjectTagOptions : public testing::Test {
protected:
    [[nodiscard]] QString Stored(const QString& key) const { return store_.Read(u"Vellumcraft", u"Options", key); }

    QTemporaryDir folder_;
    SettingsStore store_{folder_.filePath("settings.json")};
};

TEST_F(ObjectTagOptions, HaveDefaults) {
    const ObjectOptions options = ReadObjectOptions(store_);
    EXPECT_EQ(BuildObjTag(button, options), BuildObjTag(button, {}));
    EXPECT_TRUE(options.byClassId);
    EXPECT_FALSE(options.withCodeBase);
    EXPECT_EQ(options.codeBase, "http://");
}

TEST_F(ObjectTagOptions, AreKeptUnderTheirKeys) {
    WriteObjectOptions(store_, {.byClassId = false,
                                .object = false,
                                .tagCase = TagCase::FirstUpper,
                                .severalLines = false,
                                .width = 1,
                                .height = 2,
                                .withCodeBase = true,
                                .codeBase = "c"});
    const std::pair<const char*, const char*> stored[] = {{"TagClassID", "False"}, {"Obj", "False"}, {"TagCase", "2"},
                                                          {"Lines", "False"},      {"Width", "1"},   {"Height", "2"},
                                                          {"InclCode", "1"},       {"Code", "c"}};
    for (const auto& [key, value] : stored) EXPECT_EQ(Stored(key), value) << key;
    EXPECT_EQ(BuildObjTag(button, ReadObjectOptions(store_)),
              "<Insert Id=\"Blue Button\" Classid=\"progid:Blue.Button.1\" Width=1 Height=2 Codebase=\"c\" ></Insert>");
    WriteObjectOptions(store_, {.tagCase = TagCase::Lower});
    EXPECT_EQ(ReadObjectOptions(store_).tagCase, TagCase::Lower);
    EXPECT_EQ(Stored("TagClassID"), "True");
}

TEST_F(ObjectTagOptions, OutOfRangeAreTheDefaults) {
    WriteSetting(store_, keys::optionsWidth, "99999");
    WriteSetting(store_, keys::optionsHeight, "-99999");
    WriteSetting(store_, keys::optionsTagCase, "9");
    const ObjectOptions options = ReadObjectOptions(store_);
    EXPECT_EQ(options.width, 80);
    EXPECT_EQ(options.height, 30);
    EXPECT_EQ(options.tagCase, TagCase::Upper);
}

}  // namespace
}  // namespace vellum::test
