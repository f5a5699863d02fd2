#include "website/website_commands.h"

#include "files/paths.h"
#include "tests/website/website_fixture.h"
#include "website/propform.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

namespace vellum {
namespace {

using test::InModal;
using test::InPopup;

// Names that a program which builds command lines or addresses carelessly would trip over.
const QStringList oddNames{
    " .txt",         "\"quoted\" it's.htm", "#1.htm",       "-rf.htm",
    ".hidden.htm",   "100%20.htm",          "a&b <i>c.htm", "\u043f\u0440\u0438\u0432\u0435\u0442 \u4e2d.htm",
    "two\nlines.htm"};

class Commands : public test::WebsiteFixture {};

TEST_F(Commands, ADocumentOpensByDoubleClickAndByEnter) {
    Fill({"index.htm"});
    DoubleClick("index.htm");
    EXPECT_EQ(bench.opened, QStringList({Place("index.htm")}));
    QTest::keyClick(panel.File2, Qt::Key_Return);
    QTest::keyClick(panel.File2, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(bench.opened.size(), 3);
    EXPECT_EQ(opened, QStringList());
}

TEST_F(Commands, ADocumentThatMatchesTwoTypesOpensOnce) {
    bench.documentTypes = QStringList{".htm", ".html"};
    Fill({"x.html.bak"});
    DoubleClick("x.html.bak");
    EXPECT_EQ(bench.opened, QStringList({Place("x.html.bak")}));
}

TEST_F(Commands, AFileOfNoKindOpensNothing) {
    Fill({"Makefile"});
    DoubleClick("Makefile");
    EXPECT_EQ(bench.opened + opened + bench.prompts.messages, QStringList());
}

TEST_F(Commands, AnImageGoesToItsToolOnceForEachTypeInItsName) {
    Fill({"a.gif", "b.jpg.gif"});
    DoubleClick("a.gif");
    EXPECT_EQ(opened, QStringList({"image " + Place("a.gif")}));
    DoubleClick("b.jpg.gif");
    EXPECT_EQ(opened.mid(1), QStringList({"image " + Place("b.jpg.gif"), "image " + Place("b.jpg.gif")}));
    EXPECT_EQ(bench.opened, QStringList());
}

TEST_F(Commands, ASoundGoesToItsTool) {
    Fill({"a.Wav"});
    DoubleClick("a.Wav");
    EXPECT_EQ(opened, QStringList({"sound " + Place("a.Wav")}));
}

TEST_F(Commands, AllKindsOfOneNameFireInTheirOrder) {
    QStringList order;
    auto* const own =
        new WebsiteCommands(bench, panel,
                            {[&](const QString&) { order << QString("image %1").arg(bench.opened.size()); },
                             [&](const QString&) { order << QString("sound %1").arg(bench.opened.size()); },
                             {}});
    own->OpenFile(Place("a.gif.mid.htm"));
    EXPECT_EQ(order, QStringList({"image 0", "sound 0"})) << "both before the document opens";
    EXPECT_EQ(bench.opened, QStringList({Place("a.gif.mid.htm")}));
}

TEST_F(Commands, WithNoDocumentOnlyDocumentsOpen) {
    bench.count = 0;
    Fill({"a.gif", "a.wav", "index.htm"});
    DoubleClick("a.gif");
    DoubleClick("a.wav");
    EXPECT_EQ(opened + bench.opened, QStringList());
    DoubleClick("index.htm");
    EXPECT_EQ(bench.opened, QStringList({Place("index.htm")}));
    bench.documentTypes << ".gif";
    DoubleClick("a.gif");
    EXPECT_EQ(bench.opened.mid(1), QStringList({Place("a.gif")}));
    EXPECT_EQ(opened, QStringList());
}

TEST_F(Commands, ACachingFileIsNotOpened) {
    Fill({"caching.htm"});
    DoubleClick("caching.htm");
    EXPECT_EQ(bench.prompts.messages, QStringList({"Cannot Load Caching File"}));
    EXPECT_EQ(bench.opened, QStringList());
}

TEST_F(Commands, ACachingPictureIsInsertedBeforeTheMessage) {
    Fill({"caching.gif"});
    DoubleClick("caching.gif");
    EXPECT_EQ(opened, QStringList({"image " + Place("caching.gif")}));
    EXPECT_EQ(bench.prompts.messages, QStringList({"Cannot Load Caching File"}));
}

TEST_F(Commands, ADocumentThatCannotBeReadIsTold) {
    commands->OpenFile(Place("gone.htm"));
    EXPECT_EQ(bench.prompts.messages, QStringList({"Unable to load file"}));
}

TEST_F(Commands, OddNamesOpen) {
    Fill(oddNames);
    for (const QString& name : oddNames) {
        DoubleClick(name);
        EXPECT_EQ(bench.opened.value(bench.opened.size() - 1), Place(name));
    }
    EXPECT_EQ(bench.opened.size(), oddNames.size());
}

// The menus stand open with whatever the main window has put into them.
TEST_F(Commands, TheRightButtonSelectsTheFileAndOpensTheMenuOfFiles) {
    commands->mnuWebsite->addAction("something");
    Fill({"a.htm", "b.htm"});
    Select("a.htm");
    InPopup([this] { RightClick(*panel.File2, At("b.htm")); },
            [this](QMenu& menu) {
                EXPECT_EQ(&menu, commands->mnuWebsite);
                EXPECT_EQ(menu.objectName(), "mnuWebsite");
                EXPECT_EQ(panel.File2->FileName(), "b.htm");
            });
}

TEST_F(Commands, TheRightButtonOpensTheMenuOfDirectories) {
    commands->popDirectory->addAction("something");
    Fill({});
    InPopup([this] { RightClick(*panel.Dir1, panel.Dir1->visualItemRect(panel.Dir1->currentItem()).center()); },
            [this](QMenu& menu) {
                EXPECT_EQ(&menu, commands->popDirectory);
                EXPECT_EQ(menu.objectName(), "popDirectory");
            });
}

TEST_F(Commands, TheMenuKeyOpensTheMenuAtTheSelectedRow) {
    commands->mnuWebsite->addAction("something");
    Fill({"a.htm", "b.htm", "c.htm"});
    Select("b.htm");
    const auto ask = [this] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {0, 0}, {0, 0});
        QCoreApplication::sendEvent(panel.File2, &event);
    };
    InPopup(ask, [this](QMenu& menu) {
        EXPECT_EQ(&menu, commands->mnuWebsite);
        const QRect row = panel.File2->visualRect(panel.File2->currentIndex());
        EXPECT_EQ(menu.pos().y(), panel.File2->viewport()->mapToGlobal(row.center()).y());
        EXPECT_EQ(panel.File2->FileName(), "b.htm");
    });
}

TEST_F(Commands, WithoutASelectionEveryFileCommandSaysSo) {
    Fill({"a.htm"});
    commands->LinkToFile();
    commands->RenameFile();
    commands->DeleteFile();
    commands->ShowProperties();
    EXPECT_EQ(bench.prompts.messages,
              QStringList({"No File Selected", "No File Selected", "No File Selected", "No File Selected"}));
    EXPECT_EQ(bench.prompts.questions + opened, QStringList());
}

TEST_F(Commands, ALinkTakesTheBareName) {
    Fill({"two words.htm"});
    Select("two words.htm");
    commands->LinkToFile();
    EXPECT_EQ(opened, QStringList({"link two words.htm"}));
}

TEST_F(Commands, RenameAsksRenamesAndSelectsTheNewName) {
    Fill({"a.htm", "old.htm"});
    Select("old.htm");
    bench.prompts.inputs = {"new.htm"};
    commands->RenameFile();
    EXPECT_EQ(bench.prompts.questions, QStringList({"Renaming The File|Enter the File's New Name"}));
    EXPECT_EQ(bench.prompts.initials, QStringList({"old.htm"}));
    ASSERT_TRUE(QTest::qWaitFor(
        [this] {
            return panel.File2->Names() == QStringList({"a.htm", "new.htm"});
        },
        patience));
    EXPECT_EQ(panel.File2->FileName(), "new.htm");
    EXPECT_FALSE(QFile::exists(Place("old.htm")));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(Commands, RenameWithAnEmptyOrNoAnswerChangesNothing) {
    Fill({"old.htm"});
    Select("old.htm");
    bench.prompts.inputs = {""};
    commands->RenameFile();
    commands->RenameFile();
    EXPECT_EQ(bench.prompts.questions.size(), 2);
    EXPECT_TRUE(QFile::exists(Place("old.htm")));
}

TEST_F(Commands, RenameNeverOverwritesAndKeepsSilent) {
    Fill({"a.htm", "b.htm"});
    Write(Place("b.htm"), "precious");
    Select("a.htm");
    bench.prompts.inputs = {"b.htm", "no/such/folder.htm", "a.htm", "images"};
    for (int i = 0; i < 4; ++i) commands->RenameFile();
    EXPECT_EQ(Read(Place("b.htm")), QByteArray("precious"));
    EXPECT_TRUE(QFile::exists(Place("a.htm")));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(Commands, OddNamesAreRenamedAndDeleted) {
    Fill(oddNames);
    for (const QString& name : oddNames) {
        Select(name);
        bench.prompts.inputs = {"plain.htm"};
        commands->RenameFile();
        ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->FileName() == "plain.htm"; }, patience))
            << qPrintable(name);
        bench.prompts.inputs = {name};
        commands->RenameFile();
        ASSERT_TRUE(QTest::qWaitFor([&] { return panel.File2->FileName() == name; }, patience)) << qPrintable(name);
        bench.prompts.answers = {Answer::Yes};
        commands->DeleteFile();
        EXPECT_FALSE(QFile::exists(Place(name))) << qPrintable(name);
    }
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(Commands, DeleteAsksAndDeletes) {
    Fill({"a.htm", "b.htm", "c.htm"});
    Select("b.htm");
    bench.prompts.answers = {Answer::No, Answer::Yes};
    commands->DeleteFile();
    EXPECT_EQ(bench.prompts.questions, QStringList({"Delete File|b.htm\n\n                 Proceed?"}));
    EXPECT_EQ(bench.prompts.standards, QList<Answer>({Answer::No}));
    EXPECT_TRUE(QFile::exists(Place("b.htm")));
    commands->DeleteFile();
    EXPECT_FALSE(QFile::exists(Place("b.htm")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->Names() == QStringList({"a.htm", "c.htm"}); }, patience));
    EXPECT_EQ(panel.File2->FileName(), "") << "the next Del must not mean another file";
    QTest::keyClick(panel.File2, Qt::Key_Down);
    EXPECT_EQ(panel.File2->FileName(), "c.htm") << "the keyboard goes on where it was";
}

TEST_F(Commands, DeleteTellsThatItFailed) {
    Fill({"a.htm"});
    Select("a.htm");
    ASSERT_TRUE(QFile::remove(Place("a.htm")));
    bench.prompts.answers = {Answer::Yes};
    commands->DeleteFile();
    EXPECT_EQ(bench.prompts.messages, QStringList({"Cannot Delete File"}));
}

// The folder that holds what was thrown away, by the desktop's rules.
QString Trash() {
    return qEnvironmentVariable("XDG_DATA_HOME") + "/Trash";
}

TEST_F(Commands, WhatIsDeletedIsInTheTrash) {
    Fill({"mill.htm"});
    Write(Place("mill.htm"), "precious");
    Select("mill.htm");
    bench.prompts.answers = {Answer::Yes};
    commands->DeleteFile();
    EXPECT_FALSE(QFile::exists(Place("mill.htm")));
    EXPECT_EQ(Read(Trash() + "/files/mill.htm"), QByteArray("precious"));
    EXPECT_TRUE(Read(Trash() + "/info/mill.htm.trashinfo").contains("/site/mill.htm"));
    EXPECT_EQ(bench.prompts.questions.size(), 1);
}

// Where the data of programs would lie is a file, so that there can be no trash.
class WithoutATrash : public test::WebsiteFixture {
protected:
    void SetUp() override {
        WebsiteFixture::SetUp();
        Write(folder.filePath("data"));
        data_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath("data")));
        Fill({"a.htm"});
        Select("a.htm");
    }
    void TearDown() override { qputenv("XDG_DATA_HOME", data_); }

    QByteArray data_;
};

TEST_F(WithoutATrash, AFileIsDeletedForGoodOnlyAfterAnotherQuestion) {
    bench.prompts.answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
    commands->DeleteFile();
    EXPECT_EQ(bench.prompts.questions.value(1),
              "Delete File|a.htm can't be moved to the trash.\n\nDelete it for good?");
    EXPECT_EQ(bench.prompts.standards, QList<Answer>({Answer::No, Answer::No}));
    EXPECT_TRUE(QFile::exists(Place("a.htm")));
    commands->DeleteFile();
    EXPECT_FALSE(QFile::exists(Place("a.htm")));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(Commands, TheDocumentOfADeletedFileCountsAsUnsaved) {
    Fill({"a.htm", "b.htm"});
    ASSERT_TRUE(QFile::link(folder.filePath("site"), folder.filePath("link")));
    test::PlainDocument document(bench);
    document.SetCaption(folder.filePath("link/a.htm"));
    bench.active = &document;
    bench.prompts.answers = {Answer::Yes, Answer::No, Answer::Yes};
    Select("b.htm");
    commands->DeleteFile();
    EXPECT_TRUE(document.Saver()) << "another file";
    ASSERT_TRUE(QTest::qWaitFor([this] { return panel.File2->Names() == QStringList("a.htm"); }, patience));
    Select("a.htm");
    commands->DeleteFile();
    EXPECT_TRUE(document.Saver()) << "the file is still there";
    commands->DeleteFile();
    EXPECT_FALSE(document.Saver());
}

TEST_F(Commands, TheDeleteBoxShowsItsBlanks) {
    Fill({"a.htm"});
    Select("a.htm");
    bench.asksForReal = true;
    InModal<QMessageBox>([this] { commands->DeleteFile(); },
                         [](QMessageBox& box) {
                             EXPECT_EQ(box.windowTitle(), "Delete File");
                             const auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
                             ASSERT_NE(label, nullptr);
                             EXPECT_EQ(label->text(), "a.htm\n\n" + QString(17, ' ') + "Proceed?");
                             EXPECT_EQ(label->textFormat(), Qt::PlainText);
                             EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
                             EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
                             QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
                         });
    EXPECT_FALSE(QFile::exists(Place("a.htm")));
}

TEST_F(Commands, TheRenameBoxTakesTypedNames) {
    Fill({"old.htm"});
    Select("old.htm");
    bench.asksForReal = true;
    InModal<QInputDialog>([this] { commands->RenameFile(); },
                          [](QInputDialog& box) {
                              EXPECT_EQ(box.windowTitle(), "Renaming The File");
                              EXPECT_EQ(box.labelText(), "Enter the File's New Name");
                              EXPECT_EQ(box.textValue(), "old.htm");
                              QTest::keyClicks(box.findChild<QLineEdit*>(), "it's \"new\".htm");
                              QTest::keyClick(box.findChild<QLineEdit*>(), Qt::Key_Return);
                          });
    EXPECT_TRUE(QFile::exists(Place("it's \"new\".htm")));
}

TEST_F(Commands, APathInTheRootHasOneSeparator) {
    QStringList files = NamesIn("/", FolderContent::Files);
    EXPECT_EQ(JoinPath("/", "a.htm"), "/a.htm");
    if (files.isEmpty()) GTEST_SKIP() << "no file stands in the root here";
    bench.documentTypes = QStringList{files.first()};
    ASSERT_TRUE(panel.SetDirectory("/"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel.File2->SelectFile(files.first()); }, patience));
    panel.File2->setFocus();
    QTest::keyClick(panel.File2, Qt::Key_Return);
    EXPECT_EQ(bench.opened, QStringList({"/" + files.first()}));
}

TEST_F(Commands, CreateDirectoryAsksAndCreatesInTheShownOne) {
    Fill({});
    bench.prompts.inputs = {"new place"};
    commands->MakeDirectory();
    EXPECT_EQ(bench.prompts.questions, QStringList({"Vellumcraft|Enter Name of New Directory"}));
    EXPECT_TRUE(QDir(Place("new place")).exists());
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return panel.Dir1->findItems("new place", Qt::MatchExactly).size() == 1; }, patience));
    EXPECT_EQ(panel.Directory(), folder.filePath("site"));
}

TEST_F(Commands, CreateDirectoryKeepsSilentWhenItCannot) {
    Fill({});
    bench.prompts.inputs = {"images", "a/b/c", ""};
    for (int i = 0; i < 4; ++i) commands->MakeDirectory();
    EXPECT_EQ(bench.prompts.messages, QStringList());
    EXPECT_EQ(QDir(Place("")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({"images"}));
}

TEST_F(Commands, PropertiesShowTheSelectedFile) {
    Fill({"two words.htm"});
    Select("two words.htm");
    InModal<propform>([this] { commands->ShowProperties(); },
                      [](propform& form) { EXPECT_EQ(form.txtName->text(), "two words.htm"); });
}

// The search for files, with a search path of the test's own.
class FindFile : public test::WebsiteFixture {
protected:
    void SetUp() override {
        WebsiteFixture::SetUp();
        ASSERT_TRUE(QDir(folder.path()).mkpath("bin"));
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder.filePath("bin")));
        ASSERT_TRUE(panel.SetDrive("/"));
    }
    void TearDown() override { qputenv("PATH", path_); }

    void AddScript(const QString& name) {
        const QByteArray note = QFile::encodeName(folder.filePath("note"));
        const QString path = folder.filePath("bin/" + name);
        Write(path,
              "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + note + ".new'\n/bin/mv '" + note + ".new' '" + note + "'\n");
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    QByteArray Note() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(folder.filePath("note")); }, patience));
        return Read(folder.filePath("note"));
    }

    QByteArray path_;
};

TEST_F(FindFile, StartsTheSearchOnTheDrive) {
    AddScript("catfish");
    commands->FindFiles();
    EXPECT_EQ(Note(), QByteArray("--path=/\n"));
    EXPECT_EQ(bench.prompts.messages, QStringList());
}

TEST_F(FindFile, OpensTheDriveWhereNoSearchIsInstalled) {
    AddScript("xdg-open");
    commands->FindFiles();
    EXPECT_EQ(Note(), QByteArray("/\n"));
}

TEST_F(FindFile, TellsWhenNothingCanBeStarted) {
    AddScript("xdg-open");
    Write(folder.filePath("bin/xdg-open"), "#!/bin/sh\nexit 3\n");
    commands->FindFiles();
    EXPECT_EQ(bench.prompts.messages, QStringList({"This Windows Application is not installed on your computer"}));
}

}  // namespace
}  // namespace vellum
