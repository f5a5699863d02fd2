#include "website/file_kind.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

const QStringList imageTypes{".bmp", ".jpg", ".gif", ".png", ".wrl"};
const QStringList documentTypes{".asa", ".asp", ".css",  ".hta", ".htm", ".html", ".inc",
                                ".js",  ".jsp", ".smil", ".txt", ".vbs", ".xml"};

TEST(FileKind, TypesMatchAnywhereInTheNameWithoutRegardToCase) {
    EXPECT_EQ(MatchingTypes("logo.gif", imageTypes), QStringList({".gif"}));
    EXPECT_EQ(MatchingTypes("LOGO.GIF", imageTypes), QStringList({".gif"}));
    EXPECT_EQ(MatchingTypes("logo.gif", {".GIF"}), QStringList({".GIF"}));
    EXPECT_EQ(MatchingTypes("x.html.bak", documentTypes), QStringList({".htm", ".html"}));
    EXPECT_EQ(MatchingTypes("gif", imageTypes), QStringList());
    EXPECT_EQ(MatchingTypes("readme", documentTypes), QStringList());
    EXPECT_EQ(MatchingTypes("", documentTypes), QStringList());
}

TEST(FileKind, EveryMatchingTypeIsTold) {
    EXPECT_EQ(MatchingTypes("a.jpg.gif", imageTypes), QStringList({".jpg", ".gif"}));
    EXPECT_EQ(MatchingTypes("a.jsp", documentTypes), QStringList({".js", ".jsp"}));
    EXPECT_EQ(MatchingTypes("a.gif", {".gif", ".GIF"}), QStringList({".gif", ".GIF"}));
}

TEST(FileKind, AnEmptyTypeStandsInNoName) {
    EXPECT_EQ(MatchingTypes("a.gif", {""}), QStringList());
}

TEST(FileKind, OddNamesHaveKindsToo) {
    for (const QString name : {"two words.gif", ".gif", "-a.gif", "a#b.gif", "100%.gif", "it's \"so\".gif",
                               "\u0440\u0438\u0441\u0443\u043d\u043e\u043a.gif", "two\nlines.gif"}) {
        EXPECT_EQ(MatchingTypes(name, imageTypes), QStringList({".gif"})) << qPrintable(name);
    }
}

TEST(FileKind, PageSounds) {
    for (const char* name : {"a.au", "a.AU", "a.wav", "a.Mid", "a.rmi", "a.wav.old", "a.midi"}) {
        EXPECT_TRUE(IsPageSound(name)) << name;
    }
    for (const char* name : {"a.mp3", "a.avi", "wav", "au"}) EXPECT_FALSE(IsPageSound(name)) << name;
}

TEST(FileKind, CachingNames) {
    for (const char* name : {"caching.htm", "caching.asp", "My caching.htm", "CACHING.HTM"}) {
        EXPECT_TRUE(IsCachingName(name)) << name;
    }
    for (const char* name : {"caching", "cachings.htm", "index.htm"}) EXPECT_FALSE(IsCachingName(name)) << name;
}

TEST(FileKind, WebImagesAreOfThreeTypes) {
    for (const char* name : {"a.jpg", "a.BMP", "a.gif.old"}) EXPECT_TRUE(IsWebImage(name)) << name;
    for (const char* name : {"a.png", "a.jpeg", "a.wrl", "jpg"}) EXPECT_FALSE(IsWebImage(name)) << name;
}

TEST(FileKind, PlayableAreNamesThatEndSo) {
    for (const char* name : {"a.mid", "a.WAV", "a.Avi", ".wav"}) EXPECT_TRUE(IsPlayable(name)) << name;
    for (const char* name : {"a.wav.old", "a.au", "a.rmi", "wav", ""}) EXPECT_FALSE(IsPlayable(name)) << name;
}

TEST(FileKind, AttributesAreListedInTheirOrder) {
    EXPECT_EQ(AttributeText(0), "Normal ");
    EXPECT_EQ(AttributeText(ArchiveAttribute), "Archive ");
    EXPECT_EQ(AttributeText(HiddenAttribute), "Hidden ");
    EXPECT_EQ(AttributeText(SystemAttribute), "System File ");
    EXPECT_EQ(AttributeText(SystemAttribute | HiddenAttribute | ArchiveAttribute), "Archive , Hidden , System File ");
    EXPECT_EQ(AttributeText(HiddenAttribute | ReadOnlyAttribute), "Hidden ");
    EXPECT_EQ(AttributeText(ReadOnlyAttribute), "");
}

TEST(FileKind, ALeadingDotHidesAFile) {
    EXPECT_EQ(AttributeBits("index.htm", true), 0);
    EXPECT_EQ(AttributeBits(".htaccess", true), HiddenAttribute);
    EXPECT_EQ(AttributeBits("index.htm", false), ReadOnlyAttribute);
    EXPECT_EQ(AttributeBits(".htaccess", false), HiddenAttribute | ReadOnlyAttribute);
}

TEST(FileKind, SizeIsCountedInBytes) {
    EXPECT_EQ(SizeText(0), "0 Bytes");
    EXPECT_EQ(SizeText(1), "1 Bytes");
    EXPECT_EQ(SizeText(5000000000), "5000000000 Bytes");
}

}  // namespace
}  // namespace vellum
