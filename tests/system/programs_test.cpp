#include "system/programs.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// A search path of the test's own, with scripts that write down how they were called.
class Programs : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        QDir(folder_.path()).mkpath("bin");
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(Place("bin")));
    }
    void TearDown() override { qputenv("PATH", path_); }

    [[nodiscard]] QString Place(const QString& name) const { return folder_.filePath(name); }

    // A program that writes its directory and its arguments, one a line, and then renames the note into place.
    void AddScript(const QString& relative, const QByteArray& ending = "exit 0") {
        const QByteArray note = QFile::encodeName(Place("note"));
        WriteAll(Place(relative), "#!/bin/sh\n{ pwd; for a in \"$@\"; do printf '%s\\n' \"$a\"; done; } > '" + note +
                                      ".new'\n/bin/mv '" + note + ".new' '" + note + "'\n" + ending + "\n");
        ASSERT_TRUE(QFile::setPermissions(Place(relative), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    // The lines that a started script wrote: its directory, then its arguments.
    [[nodiscard]] QStringList Note() const {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(Place("note")); }, 20000));
        QStringList lines = QString::fromUtf8(ReadAll(Place("note"))).split('\n');
        lines.removeLast();
        return lines;
    }

    QTemporaryDir folder_;
    QByteArray path_;
};

TEST_F(Programs, RunSplitsAtBlanksOutsideQuotesAndAppendsTheArgument) {
    AddScript("bin/browse");
    QDir(folder_.path()).mkpath("site");
    ASSERT_TRUE(RunCommand("browse --new \"two words\"", "/a b/it's #1 100%.htm", Place("site")));
    EXPECT_EQ(Note(),
              QStringList({QDir(Place("site")).canonicalPath(), "--new", "two words", "/a b/it's #1 100%.htm"}));
}

TEST_F(Programs, RunWithoutArgumentAppendsNone) {
    AddScript("bin/browse");
    ASSERT_TRUE(RunCommand("browse one"));
    EXPECT_EQ(Note().mid(1), QStringList({"one"}));
}

TEST_F(Programs, RunTakesAPathWithBlanksWhole) {
    QDir(folder_.path()).mkpath("My Programs");
    AddScript("My Programs/my browser");
    ASSERT_TRUE(RunCommand(Place("My Programs/my browser"), "page.htm"));
    EXPECT_EQ(Note().mid(1), QStringList({"page.htm"}));
}

TEST_F(Programs, RunTakesAQuotedPathWithOptions) {
    QDir(folder_.path()).mkpath("My Programs");
    AddScript("My Programs/my browser");
    ASSERT_TRUE(RunCommand("\"" + Place("My Programs/my browser") + "\" -x", "page.htm"));
    EXPECT_EQ(Note().mid(1), QStringList({"-x", "page.htm"}));
}

TEST_F(Programs, RunIsFalseForWhatCannotBeStarted) {
    WriteAll(Place("bin/plain"), "no program");
    EXPECT_FALSE(RunCommand("no-such-program-here"));
    EXPECT_FALSE(RunCommand("plain"));
    EXPECT_FALSE(RunCommand(Place("bin/plain")));
    EXPECT_FALSE(RunCommand(Place("missing")));
    EXPECT_FALSE(RunCommand(Place("bin")));
    EXPECT_FALSE(RunCommand(""));
    EXPECT_FALSE(RunCommand("   "));
}

TEST_F(Programs, OpenHandsOddPathsOverUnchanged) {
    AddScript("bin/xdg-open");
    for (const QString name :
         {"two words.htm", "a#b.htm", "100%20 sure?.htm", "it's \"so\".htm", "\u00e9\u4e2d.htm", "-dash.htm"}) {
        QFile::remove(Place("note"));
        WriteAll(Place(name), "x");
        EXPECT_TRUE(OpenWithDefault(Place(name)));
        EXPECT_EQ(Note().mid(1), QStringList({Place(name)}));
        QFile::remove(Place("note"));
        EXPECT_TRUE(OpenWithDefault(name, folder_.path())) << name.toStdString();
        EXPECT_EQ(Note().mid(1), QStringList({Place(name)}));
    }
}

TEST_F(Programs, OpenHandsAddressesOver) {
    AddScript("bin/xdg-open");
    EXPECT_TRUE(OpenWithDefault("https://example.org/a%20b?q=1#top"));
    EXPECT_EQ(Note().mid(1), QStringList({"https://example.org/a%20b?q=1#top"}));
    QFile::remove(Place("note"));
    EXPECT_TRUE(OpenWithDefault("www.example.org"));
    EXPECT_EQ(Note().mid(1), QStringList({"http://www.example.org"}));
    QFile::remove(Place("note"));
    EXPECT_TRUE(OpenWithDefault("mailto:someone@example.org"));
    EXPECT_EQ(Note().mid(1), QStringList({"mailto:someone@example.org"}));
}

TEST_F(Programs, OpenIsFalseForAMissingFileAndAsksNobody) {
    AddScript("bin/xdg-open");
    EXPECT_FALSE(OpenWithDefault(Place("missing.htm")));
    EXPECT_FALSE(OpenWithDefault("missing.htm", folder_.path()));
    EXPECT_FALSE(OpenWithDefault("file:///no/such/file.htm"));
    EXPECT_FALSE(OpenWithDefault(""));
    EXPECT_FALSE(QFile::exists(Place("note")));
}

TEST_F(Programs, OpenIsFalseWhenTheDesktopHasNoProgram) {
    AddScript("bin/xdg-open", "exit 3");
    WriteAll(Place("page.htm"), "x");
    EXPECT_FALSE(OpenWithDefault(Place("page.htm")));
}

TEST_F(Programs, OpenIsTrueWhileTheProgramGoesOn) {
    AddScript("bin/xdg-open",
              "while [ -e '" + QFile::encodeName(Place("go on")) + "' ]; do /bin/sleep 0.05; done; exit 3");
    WriteAll(Place("go on"), "");
    WriteAll(Place("page.htm"), "x");
    EXPECT_TRUE(OpenWithDefault(Place("page.htm")));
}

TEST_F(Programs, FindTakesTheFirstCounterpartThatIsThere) {
    EXPECT_EQ(FindProgram("calc.exe"), QString());
    AddScript("bin/kcalc");
    EXPECT_EQ(FindProgram("calc.exe"), Place("bin/kcalc"));
    EXPECT_EQ(FindProgram("CALC.EXE"), Place("bin/kcalc"));
    AddScript("bin/gnome-calculator");
    EXPECT_EQ(FindProgram("calc.exe"), Place("bin/gnome-calculator"));
    AddScript("bin/kcharselect");
    EXPECT_EQ(FindProgram("charmap.exe"), Place("bin/kcharselect"));
    AddScript("bin/copyq");
    EXPECT_EQ(FindProgram("clipbrd.exe"), Place("bin/copyq"));
    AddScript("bin/vlc");
    EXPECT_EQ(FindProgram("mplayer.exe"), Place("bin/vlc"));
}

TEST_F(Programs, FindTakesAProgramByItsOwnName) {
    AddScript("bin/firefox");
    EXPECT_EQ(FindProgram("firefox"), Place("bin/firefox"));
    EXPECT_EQ(FindProgram(Place("bin/firefox")), Place("bin/firefox"));
    EXPECT_EQ(FindProgram("chromium"), QString());
    EXPECT_EQ(FindProgram(Place("bin")), QString());
    EXPECT_EQ(FindProgram(""), QString());
}

TEST(EditVerb, EntryNamesTheVerbTheKindsAndTheProgram) {
    const QStringList lines = EditVerbDesktopEntry("/usr/bin/vellumcraft").split('\n');
    EXPECT_EQ(lines.first(), "[Desktop Entry]");
    for (const char* line :
         {"Type=Application", "Name=Edit with Vellumcraft", "Exec=\"/usr/bin/vellumcraft\" %f",
          "MimeType=text/html;application/xhtml+xml;", "Terminal=false", "Icon=vellumcraft", "NoDisplay=true"}) {
        EXPECT_TRUE(lines.contains(line)) << line;
    }
}

TEST(EditVerb, ExecQuotesOddPaths) {
    EXPECT_TRUE(EditVerbDesktopEntry("/opt/My 100% \"$x\" `y`\\z")
                    .contains(R"(Exec="/opt/My 100%% \\"\\$x\\" \\`y\\`\\\\z" %f)"));
}

TEST(EditVerb, EntryIsValid) {
    const QString validator = QStandardPaths::findExecutable("desktop-file-validate");
    if (validator.isEmpty()) GTEST_SKIP() << "desktop-file-validate is not installed";
    const QTemporaryDir folder;
    const QString path = folder.filePath("entry.desktop");
    for (const QString program : {"/usr/bin/vellumcraft", "/opt/My 100% \"$x\" `y`\\z/vellumcraft"}) {
        WriteAll(path, EditVerbDesktopEntry(program).toUtf8());
        QProcess check;
        check.start(validator, {path});
        ASSERT_TRUE(check.waitForFinished());
        EXPECT_EQ(check.exitCode(), 0) << check.readAllStandardOutput().toStdString();
        EXPECT_EQ(check.readAllStandardOutput(), QByteArray());
    }
}

class EditVerbWriting : public Programs {
protected:
    void SetUp() override {
        Programs::SetUp();
        data_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(Place("data")));
    }
    void TearDown() override {
        qputenv("XDG_DATA_HOME", data_);
        Programs::TearDown();
    }
    QByteArray data_;
};

TEST_F(EditVerbWriting, WritesTheEntryAndLetsTheDesktopKnow) {
    AddScript("bin/update-desktop-database");
    ASSERT_TRUE(AddEditVerb("/usr/bin/vellumcraft"));
    EXPECT_EQ(ReadAll(Place("data/applications/vellumcraft-edit.desktop")),
              EditVerbDesktopEntry("/usr/bin/vellumcraft").toUtf8());
    EXPECT_EQ(Note().last(), Place("data/applications"));
}

TEST_F(EditVerbWriting, TakesOverNoDefault) {
    ASSERT_TRUE(AddEditVerb("/usr/bin/vellumcraft"));
    EXPECT_EQ(QDir(Place("data/applications")).entryList(QDir::Files), QStringList({"vellumcraft-edit.desktop"}));
    EXPECT_EQ(QDir(Place("data")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({"applications"}));
}

TEST_F(EditVerbWriting, TheProgramThatOpenedPagesSoFarIsWrittenDownFirst) {
    const QByteArray log = QFile::encodeName(Place("log"));
    const QByteArray entry = QFile::encodeName(Place("data/applications/vellumcraft-edit.desktop"));
    WriteAll(Place("bin/xdg-mime"), "#!/bin/sh\n[ -e '" + entry + "' ] && echo late >> '" + log + "'\n" +
                                        "echo \"$@\" >> '" + log + "'\n" +
                                        "[ \"$1 $3\" = 'query text/html' ] && echo browser.desktop\nexit 0\n");
    ASSERT_TRUE(QFile::setPermissions(Place("bin/xdg-mime"), QFile::ReadOwner | QFile::ExeOwner));
    ASSERT_TRUE(AddEditVerb("/usr/bin/vellumcraft"));
    EXPECT_EQ(ReadAll(Place("log")), QByteArray("query default text/html\n"
                                                "default browser.desktop text/html\n"
                                                "query default application/xhtml+xml\n"));
}

TEST_F(EditVerbWriting, IsFalseWhenTheFolderCannotBeMade) {
    WriteAll(Place("data"), "a file stands where the folder should");
    EXPECT_FALSE(AddEditVerb("/usr/bin/vellumcraft"));
}

TEST(SystemDirectory, HoldsTheSystemsPrograms) {
    EXPECT_EQ(WindowsDirectoryPath(), "/usr/bin");
}

}  // namespace
}  // namespace vellum
