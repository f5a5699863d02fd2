#include "widgets/icons.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace vellum {
namespace {

double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one) + 0.05;
    const double b = Luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

QStringList IconNames() {
    const bool loaded = !OwnIcon("new").isNull();
    QStringList names;
    for (const QString& file : QDir(":/icons").entryList({"*.svg"}, QDir::Files)) names << file.chopped(4);
    return loaded ? names : QStringList();
}

// The pixels of an icon that are fully inked.
std::vector<QColor> InkOf(const QString& name) {
    const QImage image = OwnIcon(name).pixmap(48, 48).toImage().convertToFormat(QImage::Format_ARGB32);
    std::vector<QColor> ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (const QColor color = image.pixelColor(x, y); color.alpha() == 255) ink.push_back(color);
        }
    }
    return ink;
}

TEST(Icons, EveryButtonHasADrawing) {
    const QStringList names = IconNames();
    for (const char* name :
         {"new",         "open",           "save",          "save-as",    "print",    "browser-1",  "browser-2",
          "browser-3",   "close",          "organizer",     "color-code", "transfer", "thumbnails", "ftp",
          "fonts",       "preview",        "multi-preview", "visual",     "split",    "settings",   "folder",
          "vellumcraft", "blank-document", "quickstart",    "resume",     "frames",   "slide-show", "structural",
          "contents",    "application",    "style-sheet"}) {
        EXPECT_TRUE(names.contains(name)) << name;
    }
}

TEST(Icons, EveryDrawingShowsInk) {
    ASSERT_FALSE(IconNames().isEmpty());
    for (const QString& name : IconNames()) EXPECT_GT(InkOf(name).size(), 40U) << name.toStdString();
}

TEST(Icons, LinesReadOnLightAndOnDark) {
    for (const QString& name : IconNames()) {
        if (name == "vellumcraft") continue;  // it brings its own paper
        for (const QColor& ink : InkOf(name)) {
            ASSERT_GE(Contrast(ink, QColor(0xf4, 0xf4, 0xf4)), 3.0) << name.toStdString();
            ASSERT_GE(Contrast(ink, QColor(0x2a, 0x2e, 0x32)), 2.9) << name.toStdString();
        }
    }
}

TEST(Icons, UnknownNameGivesNoIcon) {
    EXPECT_TRUE(OwnIcon("no-such-icon").isNull());
    EXPECT_TRUE(ThemeIcon("no-such-icon").isNull());
}

TEST(Icons, ThemeComesFirstWhereItHasTheMeaning) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath("reds/24"));
    QFile index(folder.filePath("reds/index.theme"));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=reds\nDirectories=24\n[24]\nSize=24\nType=Fixed\n");
    index.close();
    QImage red(24, 24, QImage::Format_ARGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(folder.filePath("reds/24/document-open.png")));

    const QStringList paths = QIcon::themeSearchPaths();
    const QString theme = QIcon::themeName();
    QIcon::setThemeSearchPaths({folder.path()});
    QIcon::setThemeName("reds");
    const QColor open = ThemeIcon("open").pixmap(24, 24).toImage().pixelColor(1, 1);
    const QColor own = OwnIcon("open").pixmap(24, 24).toImage().pixelColor(1, 1);
    const bool closeIsOwn = !ThemeIcon("close").isNull();
    const bool saveIsOwn = !ThemeIcon("save").isNull();
    QIcon::setThemeName(theme);
    QIcon::setThemeSearchPaths(paths);

    EXPECT_EQ(open, QColor(Qt::red));
    EXPECT_NE(own, QColor(Qt::red));
    EXPECT_TRUE(closeIsOwn);
    EXPECT_TRUE(saveIsOwn);
}

}  // namespace
}  // namespace vellum
