#include "tests/house/floors.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace vellum::house {
namespace {

std::vector<SourceFile> SourcesOf(const QString& root) {
    std::vector<SourceFile> files;
    QDirIterator sources(root, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        const QString path = sources.next();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        files.push_back({QDir(root).relativeFilePath(path), IncludesOf(QString::fromUtf8(file.readAll()))});
    }
    return files;
}

TEST(Floors, NoArrowRunsUpOrAcross) {
    const std::vector<SourceFile> files = SourcesOf(VELLUM_SOURCE_DIR "/src");
    EXPECT_GT(files.size(), 15U) << "the sources were not found";
    const QStringList wrong = WrongArrows(files);
    EXPECT_TRUE(wrong.isEmpty()) << wrong.join('\n').toStdString();
}

TEST(Floors, ArrowsThatRunDownAreFine) {
    EXPECT_EQ(
        WrongArrows(
            {{"main.cpp", {"shell/session.h", "widgets/icons.h"}},
             {"shell/session.cpp", {"website/website_panel.h", "tools/text/hrule.h", "editor/document.h", "QWidget"}},
             {"tools/framework/form.cpp", {"tools/framework/form.h", "editor/workbench.h", "QtGui/QIcon"}},
             {"tools/pages/new_wizards.cpp", {"tools/frames/form_wizard.h", "tools/framework/access_keys.h"}},
             {"settings/settings_store.cpp", {"files/in_place_write.h", "values/number_rules.h"}},
             {"widgets/icons.cpp", {"widgets/icons.h", "icons.moc", "unicode/ucnv.h"}}}),
        QStringList());
}

TEST(Floors, ArrowsThatRunUpAreFound) {
    EXPECT_EQ(WrongArrows({{"widgets/icons.cpp", {"widgets/icons.h", "editor/document.h"}},
                           {"editor/undo.cpp", {"shell/session.h"}},
                           {"tools/framework/form.cpp", {"tools/text/hrule.h"}},
                           {"preview/refresh.cpp", {"tools/text/hrule.h"}}}),
              QStringList({"widgets/icons.cpp includes editor/document.h, which runs up",
                           "editor/undo.cpp includes shell/session.h, which runs up",
                           "tools/framework/form.cpp includes tools/text/hrule.h, which runs up",
                           "preview/refresh.cpp includes tools/text/hrule.h, which runs up"}));
}

TEST(Floors, ArrowsToSiblingsAreFound) {
    EXPECT_EQ(WrongArrows({{"website/panel.cpp", {"search/find.h"}},
                           {"import/rtf.h", {"preview/refresh.h"}},
                           {"tools/text/hrule.cpp", {"tools/media/frm_sound.h"}}}),
              QStringList({"website/panel.cpp includes search/find.h, which runs to a sibling",
                           "import/rtf.h includes preview/refresh.h, which runs to a sibling",
                           "tools/text/hrule.cpp includes tools/media/frm_sound.h, which runs to a sibling"}));
}

TEST(Floors, ArrowsOutOfTheHouseAreFound) {
    EXPECT_EQ(WrongArrows({{"tools/text/hrule.cpp",
                            {"tests/support/scripted_prompts.h", "../values/units.h", "src/values/units.h"}}}),
              QStringList({"tools/text/hrule.cpp includes tests/support/scripted_prompts.h, which leaves the floors",
                           "tools/text/hrule.cpp includes ../values/units.h, which leaves the floors",
                           "tools/text/hrule.cpp includes src/values/units.h, which leaves the floors"}));
}

TEST(Floors, FilesOnNoFloorAreFound) {
    EXPECT_EQ(WrongArrows({{"helpers/strings.h", {}}, {"tools/hrule.cpp", {}}, {"stray.cpp", {}}}),
              QStringList({"helpers/strings.h stands on no floor", "tools/hrule.cpp stands on no floor",
                           "stray.cpp stands on no floor"}));
}

TEST(Floors, IncludeLinesAreReadInEveryShape) {
    EXPECT_EQ(
        IncludesOf("#pragma once\n#include \"editor/document.h\"\n  #  include <QString>\nint x; // #include \"no.h\"\n"
                   "#include\"shell/session.h\" // why\n"),
        QStringList({"editor/document.h", "QString", "shell/session.h"}));
}

}  // namespace
}  // namespace vellum::house
