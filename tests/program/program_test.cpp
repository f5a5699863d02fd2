// The program as a person meets it: started on a page, typed in, previewed, saved, closed and started again.
#include "files/file_names.h"
#include "files/safe_write.h"
#include "files/save_record.h"
#include "files/text_file.h"
#include "settings/settings_keys.h"
#include "tests/program/program_under_test.h"
#include "tests/support/remove_all.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellum::test {
namespace {

constexpr auto page =
    "<html>\r\n<head><title>First title</title></head>\r\n<body><p>First words</p></body>\r\n</html>\r\n";

class ProgramTest : public testing::Test {
protected:
    void SetUp() override {
        QDir(home.path()).mkpath("site");
        path = home.filePath("site/page.htm");
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(page);
    }

    void TearDown() override { RemoveAll(home.path()); }

    [[nodiscard]] QByteArray Saved() const {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QString Setting(const SettingKey& key) const {
        return ReadSetting(SettingsStore(home.filePath(".config/vellumcraft/settings.json")), key);
    }

    void Store(const SettingKey& key, const QString& value) const {
        SettingsStore settings(home.filePath(".config/vellumcraft/settings.json"));
        WriteSetting(settings, key, value);
    }

    // A text that was not saved has been copied.
    [[nodiscard]] bool HasCopy() const {
        const QDir root(home.filePath(".local/state/vellumcraft/recovery"));
        for (const QString& session : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (!QDir(root.filePath(session)).entryList({"*.copy"}, QDir::Files).isEmpty()) return true;
        }
        return false;
    }

    // Through the last tab of the Settings dialog.
    static void SetRefreshRate(ProgramUnderTest& program, const QString& rate) {
        const auto isVisible = [&program](const QString& widget) {
            return program.Ask("get", widget).value("visible").toBool();
        };
        program.Trigger("mnuSettingsItem");
        ASSERT_TRUE(program.WaitFor([&] { return isVisible("frmSettings"); }));
        for (int tab = 1; tab < 8; ++tab) program.Ask("key", "frmSettings", "Ctrl+Tab");
        ASSERT_TRUE(program.WaitFor([&] { return isVisible("txtRate"); }));
        program.Ask("key", "txtRate", "Ctrl+A");
        program.Type("txtRate", rate);
        ASSERT_TRUE(program.WaitFor([&] { return program.Get("txtRate", "text") == rate; }));
        program.Click("cmdOK");
        ASSERT_TRUE(program.WaitFor([&] { return !isVisible("frmSettings"); }));
    }

    static void CloseTips(ProgramUnderTest& program) {
        const auto show = [&program] { return program.Ask("get", "Didyouknow").value("visible").toBool(); };
        ASSERT_TRUE(program.WaitFor(show));
        program.Ask("key", "Didyouknow", "Esc");
        ASSERT_TRUE(program.WaitFor([&] { return !show(); }));
    }

    [[nodiscard]] bool Contains(ProgramUnderTest& program, const QString& words) const {
        return program.Ask("pageText", "WebBrowser1").value("value").toString().contains(words);
    }

    QTemporaryDir home;
    QString path;
};

TEST_F(ProgramTest, APageIsEditedBesideItsPreviewSavedAndFoundAgain) {
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        ASSERT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
        ASSERT_TRUE(program.WaitFor([&] { return Contains(program, "Vellumcraft"); }))
            << "the first view is the manual";
        SetRefreshRate(program, "2");

        program.Type("Text1", "<title>Second title</title><p>Second words</p>");
        EXPECT_TRUE(program.WaitFor([&] { return program.Get("WebBrowser1", "title") == "Second title"; }));
        EXPECT_TRUE(program.WaitFor([&] { return Contains(program, "Second words"); }));
        EXPECT_TRUE(QFile::exists(home.filePath("site/caching.htm")));
        EXPECT_EQ(Saved(), page) << "the preview leaves the document's file alone";

        program.Trigger("mnuSaveregItem");
        EXPECT_TRUE(program.WaitFor([&] { return Saved().startsWith("<title>Second title"); }));
        program.Trigger("mnuViewItem(2)");
        program.Trigger("mnuExitItem");
        ASSERT_TRUE(program.WaitForEnd());
    }
    EXPECT_EQ(Setting(keys::useIE), "Yes");
    EXPECT_EQ(Setting(keys::refreshRate), "2");
    EXPECT_NE(Setting(keys::windowWidth), keys::windowWidth.fallback.toString()) << "the state has been written";
    EXPECT_EQ(Setting(keys::picture15), "False");
    EXPECT_TRUE(QDir(home.filePath(".local/state/vellumcraft/recovery")).isEmpty(QDir::Dirs | QDir::NoDotAndDotDot));
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({}));
        CloseTips(program);
        EXPECT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == "New 1"; }));
        EXPECT_FALSE(program.Ask("get", "Picture15").value("visible").toBool());
        program.Trigger("mnuRecents(0)");
        EXPECT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
        EXPECT_TRUE(program.Get("Text1", "plainText").startsWith("<title>Second title"));
        program.Trigger("mnuExitItem");
        EXPECT_TRUE(program.WaitForEnd());
    }
}

TEST_F(ProgramTest, AFirstPageIsWrittenWithTools) {
    Store(keys::refreshRate, "1");
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({}));
    CloseTips(program);
    const auto show = [&program](const QString& form) { return program.Ask("get", form).value("visible").toBool(); };
    const auto text = [&program] { return program.Get("Text1", "plainText"); };
    program.Trigger("mnuNewItem");
    ASSERT_TRUE(program.WaitFor([&] { return show("NewWizards"); }));
    program.Click("Image1(5)");
    ASSERT_TRUE(program.WaitFor([&] { return text().contains("<head>"); }));
    ASSERT_TRUE(program.WaitFor([&] { return Contains(program, "Vellumcraft"); })) << "the manual is the first view";
    program.Trigger("mnuHItem(0)");
    ASSERT_TRUE(program.WaitFor([&] { return text().contains("<h1></h1>"); }));
    program.Trigger("mnuAnchorItem");
    ASSERT_TRUE(program.WaitFor([&] { return show("frmAnchors"); }));
    program.Type("txtURL", "mill.htm");
    program.Type("txtLinkCaption", "The mill");
    program.Ask("key", "txtLinkCaption", "Return");
    ASSERT_TRUE(program.WaitFor([&] { return text().contains("<a href=\"mill.htm\">The mill</a>"); }));
    EXPECT_FALSE(show("frmAnchors"));
    EXPECT_TRUE(program.WaitFor([&] { return Contains(program, "The mill"); })) << "the preview follows";
}

TEST_F(ProgramTest, ASaveThatTheSystemAllowsNoRoomForLeavesTheOldFileAndTheProgram) {
    Store(keys::useIE, "No");
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({path}));
    ASSERT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
    const rlimit tooSmall = {64, 64};
    ASSERT_EQ(::prlimit(static_cast<pid_t>(program.ProcessId()), RLIMIT_FSIZE, &tooSmall, nullptr), 0);
    program.Type("Text1", "more ");
    program.Trigger("mnuSaveregItem");
    EXPECT_TRUE(program.WaitFor(
        [&] { return program.Ask("dialog").value("value").toString().startsWith("Cannot save file."); }));
    EXPECT_EQ(Saved(), page);
}

TEST_F(ProgramTest, AFileWhoseNameIsNoTextIsSavedRecoveredAndFoundAgain) {
    const QByteArray name = QFile::encodeName(home.filePath("site")) + "/caf\xE9.htm";
    path = DecodeFileName(name);
    ASSERT_TRUE(WriteFileSafely(path, page));
    const auto saved = [this] {
        const std::optional<LoadedText> text = ReadTextFile(path);
        return text ? text->bytes : QByteArray("(cannot be read)");
    };
    const auto shows = [this](ProgramUnderTest& program) {
        return program.WaitFor([&] { return program.Get("document", "windowTitle") == ReadableName(path); });
    };
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        ASSERT_TRUE(shows(program));
        EXPECT_TRUE(program.Get("Text1", "plainText").startsWith("<html>"));
        program.Type("Text1", "saved ");
        program.Trigger("mnuSaveregItem");
        ASSERT_TRUE(program.WaitFor([&] { return saved().startsWith("saved <html>"); }));
        program.Trigger("mnuExitItem");
        ASSERT_TRUE(program.WaitForEnd());
    }
    QStringList others = QDir(home.filePath("site")).entryList(QDir::Files);
    others.removeAll("caching.htm");
    EXPECT_EQ(others, QStringList("page.htm")) << "nothing was saved under another name";
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({}));
        CloseTips(program);
        program.Trigger("mnuRecents(0)");
        ASSERT_TRUE(shows(program));
        program.Type("Text1", "typed ");
        ASSERT_TRUE(program.WaitFor([this] { return HasCopy(); }));
        program.Kill();
    }
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({}));
    ASSERT_TRUE(
        program.WaitFor([&] { return program.Ask("dialog").value("value").toString().contains(ReadableName(path)); }));
    program.Click("Recover");
    ASSERT_TRUE(shows(program));
    program.Trigger("mnuSaveregItem");
    EXPECT_TRUE(program.WaitFor([&] { return saved().startsWith("typed saved <html>"); }));
}

TEST_F(ProgramTest, TheStartRemovesWhatAKilledSaveLeftHidden) {
    const QByteArray hidden = QFile::encodeName(home.filePath("site/.vellumcraft-abc"));
    ASSERT_TRUE(QFile(QFile::decodeName(hidden)).open(QFile::WriteOnly));
    const pid_t child = ::fork();
    if (child == 0) {
        qputenv("XDG_STATE_HOME", QFile::encodeName(home.filePath(".local/state")));
        const SaveRecord record(QFile::encodeName(path), {hidden});
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({}));
    EXPECT_FALSE(QFile::exists(QFile::decodeName(hidden)));
    EXPECT_EQ(Saved(), page);
}

TEST_F(ProgramTest, ExitEndsTheProgramWhateverThePageDoes) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(home.filePath("site/pipe")).constData(), 0600), 0);
    Store(keys::refreshRate, "1");
    const QByteArray holds =
        "<iframe src='pipe'></iframe><img src='pipe'><script src='pipe'></script><video src='pipe'></video>"
        "<object data='pipe'></object><link rel='stylesheet' href='pipe'>";
    const QByteArray many =
        "<script>for(var i=0;i<2000;i++)document.body.appendChild(document.createElement('iframe')).src='page.htm';"
        "</script>";
    const QByteArray asks = "<script>window.onbeforeunload=function(){return 'stay'};</script>";
    const QByteArray works =
        "<script>for(var i=0;i<2;i++)new Worker(URL.createObjectURL(new Blob(['while(true);'])));</script>";
    for (const QByteArray& trick :
         {holds + asks, many, works + "<script>window.onpagehide=function(){while(true);};</script>",
          QByteArray("<script>setTimeout(function(){while(true);},100);</script>"),
          QByteArray("<script>while(true);</script>")}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("<title>waiting</title><body><script>document.title='ready'</script>" + trick);
        file.close();
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        ASSERT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
        ASSERT_TRUE(program.WaitFor([&] { return Contains(program, "Vellumcraft"); })) << "the manual";
        program.Type("Text1", " ");
        ASSERT_TRUE(program.WaitFor([&] { return program.Get("WebBrowser1", "title") == "ready"; }))
            << trick.toStdString();
        program.Trigger("mnuExitItem");
        ASSERT_TRUE(program.WaitFor([&] { return program.Ask("dialog").value("open").toBool(); }))
            << trick.toStdString();
        program.Click("&No");
        EXPECT_TRUE(program.WaitForEnd(5000)) << trick.toStdString();
    }
}

TEST_F(ProgramTest, ATextThatWasNotSavedSurvivesAKill) {
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        program.Type("Text1", "precious words ");
        ASSERT_TRUE(program.WaitFor([this] { return HasCopy(); }));
        program.Kill();
    }
    EXPECT_EQ(Saved(), page);
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({}));
    ASSERT_TRUE(program.WaitFor([&] { return program.Ask("dialog").value("value").toString().contains(path); }));
    program.Click("Recover");
    EXPECT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
    program.Trigger("mnuSaveregItem");
    EXPECT_TRUE(program.WaitFor([&] { return Saved().startsWith("precious words "); }));
}

// The ways of a program's end at which nobody asks the author, and what the next start says of them.
class EndedProgramTest : public ProgramTest {
protected:
    // Types a moment before the end, which no pause comes between.
    static void TypeWords(ProgramUnderTest& program) {
        program.Type("Text1", "precious words ");
        ASSERT_TRUE(program.WaitFor([&] { return program.Get("Text1", "plainText").startsWith("precious words "); }));
    }

    void ExpectRecovery(const QString& reason) const {
        EXPECT_EQ(Saved(), page);
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({}));
        const auto question = [&] { return program.Ask("dialog").value("value").toString(); };
        ASSERT_TRUE(program.WaitFor([&] { return question().contains(path); }));
        EXPECT_TRUE(question().startsWith(reason)) << question().toStdString();
        program.Click("Recover");
        EXPECT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == path; }));
        EXPECT_TRUE(program.Get("Text1", "plainText").startsWith("precious words "));
    }
};

TEST_F(EndedProgramTest, ASignalLeavesTheTextForTheNextStart) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        TypeWords(program);
        EXPECT_TRUE(program.EndsBy(signal));
        ExpectRecovery("Vellumcraft was told to end before these documents were saved:");
        QDir(home.filePath(".local/state/vellumcraft/recovery")).removeRecursively();
    }
}

TEST_F(EndedProgramTest, ASignalDoesSoWhileAQuestionIsOpen) {
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        TypeWords(program);
        program.Trigger("mnuExitItem");
        ASSERT_TRUE(program.WaitFor([&] { return program.Ask("dialog").value("open").toBool(); }));
        EXPECT_TRUE(program.EndsBy(SIGTERM));
    }
    ExpectRecovery("Vellumcraft was told to end");
}

TEST_F(EndedProgramTest, ASignalDoesSoWhileTheWindowIsBusy) {
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        TypeWords(program);
        program.Ask("busy");
        EXPECT_TRUE(program.EndsBy(SIGTERM));
    }
    ExpectRecovery("Vellumcraft was told to end");
}

TEST_F(EndedProgramTest, TheEndOfTheDesktopsSessionAsksNothing) {
    for (const bool isQuestionOpen : {false, true}) {
        {
            ProgramUnderTest program(home.path());
            ASSERT_TRUE(program.StartToMainWindow({path}));
            TypeWords(program);
            if (isQuestionOpen) {
                program.Trigger("mnuExitItem");
                ASSERT_TRUE(program.WaitFor([&] { return program.Ask("dialog").value("open").toBool(); }));
            }
            program.Ask("endSession");
            EXPECT_TRUE(program.WaitForEnd());
        }
        ExpectRecovery("The desktop's session ended before these documents were saved:");
        QDir(home.filePath(".local/state/vellumcraft/recovery")).removeRecursively();
    }
}

TEST_F(EndedProgramTest, WhatWasDiscardedIsNotOfferedAgain) {
    {
        ProgramUnderTest program(home.path());
        ASSERT_TRUE(program.StartToMainWindow({path}));
        TypeWords(program);
        program.Trigger("mnuClose");
        ASSERT_TRUE(program.WaitFor([&] { return program.Ask("dialog").value("open").toBool(); }));
        program.Click("&No");
        ASSERT_TRUE(program.WaitFor([&] { return !program.Ask("dialog").value("open").toBool(); }));
        program.Kill();
    }
    ProgramUnderTest program(home.path());
    ASSERT_TRUE(program.StartToMainWindow({}));
    CloseTips(program);
    EXPECT_TRUE(program.WaitFor([&] { return program.Get("document", "windowTitle") == "New 1"; }));
}

}  // namespace
}  // namespace vellum::test
