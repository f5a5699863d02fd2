#include "tests/house/floors.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace vellum::house {
namespace {

// Folders beside the floors, which may use everything.
const QStringList beside{"build", "tests", "bench", "fuzz", "packaging", "docs", "cmake", "data"};

std::vector<SourceFile> SourcesOf(const QString& root) {
    std::vector<SourceFile> files;
    QStringList tops = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& folder : beside) tops.removeAll(folder);
    QStringList paths;
    if (QFile::exists(root + "/main.cpp")) paths << root + "/main.cpp";
    for (const QString& top : tops) {
        QDirIterator sources(root + '/' + top, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (sources.hasNext()) paths << sources.next();
    }
    for (const QString& path : paths) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        files.push_back({QDir(root).relativeFilePath(path), IncludesOf(QString::fromUtf8(file.readAll()))});
    }
    return files;
}

TEST(Floors, NoArrowRunsUpOrAcross) {
    const std::vector<SourceFile> files = SourcesOf(VELLUM_SOURCE_DIR);
    EXPECT_GT(files.size(), 15U) << "the sources were not found";
    const QStringList wrong = WrongArrows(files);
    EXPECT_TRUE(wrong.isEmpty()) << wrong.join('\n').toStdString();
}

TEST(Floors, ArrowsThatRunDownAreFine) {
    EXPECT_EQ(WrongArrows(
                  {{"main.cpp", {"shell/session.h", "platform/icons.h"}},
                   {"shell/session.cpp", {"website/website_panel.h", "tools/hrule.h", "editor/document.h", "QWidget"}},
                   {"tools/framework/form.cpp", {"tools/framework/form.h", "editor/workbench.h", "QtGui/QIcon"}},
                   {"platform/icons.cpp", {"platform/icons.h", "icons.moc", "unicode/ucnv.h"}}}),
              QStringList());
}

TEST(Floors, ArrowsThatRunUpAreFound) {
    EXPECT_EQ(WrongArrows({{"platform/icons.cpp", {"platform/icons.h", "editor/document.h"}},
                           {"editor/undo.cpp", {"shell/session.h"}},
                           {"preview/refresh.cpp", {"tools/hrule.h"}}}),
              QStringList({"platform/icons.cpp includes editor/document.h, which runs up",
                           "editor/undo.cpp includes shell/session.h, which runs up",
                           "preview/refresh.cpp includes tools/hrule.h, which runs up"}));
}

TEST(Floors, ArrowsToSiblingsAreFound) {
    EXPECT_EQ(WrongArrows({{"website/panel.cpp", {"search/find.h"}}, {"import/rtf.h", {"preview/refresh.h"}}}),
              QStringList({"website/panel.cpp includes search/find.h, which runs to a sibling",
                           "import/rtf.h includes preview/refresh.h, which runs to a sibling"}));
}

TEST(Floors, ArrowsOutOfTheHouseAreFound) {
    EXPECT_EQ(WrongArrows({{"tools/hrule.cpp", {"tests/support/scripted_prompts.h", "../platform/units.h"}}}),
              QStringList({"tools/hrule.cpp includes tests/support/scripted_prompts.h, which leaves the floors",
                           "tools/hrule.cpp includes ../platform/units.h, which leaves the floors"}));
}

TEST(Floors, FilesOnNoFloorAreFound) {
    EXPECT_EQ(WrongArrows({{"helpers/strings.h", {}}, {"stray.cpp", {}}}),
              QStringList({"helpers/strings.h stands on no floor", "stray.cpp stands on no floor"}));
}

TEST(Floors, IncludeLinesAreReadInEveryShape) {
    EXPECT_EQ(
        IncludesOf("#pragma once\n#include \"editor/document.h\"\n  #  include <QString>\nint x; // #include \"no.h\"\n"
                   "#include\"shell/session.h\" // why\n"),
        QStringList({"editor/document.h", "QString", "shell/session.h"}));
}

}  // namespace
}  // namespace vellum::house
