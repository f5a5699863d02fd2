#include "widgets/prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr int guardMilliseconds = 10000;

TEST(NameFilters, PatternsMoveIntoTheParentheses) {
    EXPECT_EQ(NameFilters("HTML Documents (*.htm;*.html)|*.htm;*.html|Text Files (*.txt)|*.txt"),
              QStringList({"HTML Documents (*.htm *.html)", "Text Files (*.txt)"}));
    EXPECT_EQ(NameFilters("HTML Files|*.htm"), QStringList({"HTML Files (*.htm)"}));
}

TEST(NameFilters, EveryFileIsEveryFile) {
    EXPECT_EQ(NameFilters("All Files (*.*)|*.*"), QStringList({"All Files (*)"}));
    EXPECT_EQ(NameFilters("All Files|*.*"), QStringList({"All Files (*)"}));
    EXPECT_EQ(NameFilters("All Files"), QStringList({"All Files (*)"}));
}

TEST(NameFilters, ProgramsHaveNoSuffix) {
    EXPECT_EQ(NameFilters("Executable Files (*.EXE)|*.EXE"), QStringList({"Executable Files (*)"}));
    EXPECT_EQ(NameFilters("Programs|*.exe;*.com"), QStringList({"Programs (* *.com)"}));
    EXPECT_EQ(NameFilters("Texts|*.exec"), QStringList({"Texts (*.exec)"}));
}

TEST(NameFilters, ParenthesesWithoutPatternsStay) {
    EXPECT_EQ(NameFilters("Pictures (small)|*.gif"), QStringList({"Pictures (small) (*.gif)"}));
}

TEST(NameFilters, NothingGivesNothing) {
    EXPECT_EQ(NameFilters(""), QStringList());
    EXPECT_EQ(NameFilters("A|*.a|"), QStringList({"A (*.a)"}));
}

TEST(ChosenFiles, OneIsItsOwnPath) {
    EXPECT_EQ(JoinChosenFiles({"/home/me/a.htm"}), "/home/me/a.htm");
    EXPECT_EQ(SplitChosenFiles("/home/me/a.htm"), QStringList({"/home/me/a.htm"}));
}

TEST(ChosenFiles, SeveralAreTheDirectoryAndTheNames) {
    const QStringList paths{"/home/me/c.htm", "/home/me/a.htm", "/home/me/b c.htm"};
    const QString chosen = JoinChosenFiles(paths);
    EXPECT_EQ(chosen.split(QChar(u'\0')), QStringList({"/home/me", "c.htm", "a.htm", "b c.htm"}));
    EXPECT_EQ(SplitChosenFiles(chosen), paths);
}

TEST(ChosenFiles, TheRootGetsNoSecondSeparator) {
    const QString chosen = JoinChosenFiles({"/a.htm", "/b.htm"});
    EXPECT_EQ(chosen.split(QChar(u'\0')), QStringList({"/", "a.htm", "b.htm"}));
    EXPECT_EQ(SplitChosenFiles(chosen), QStringList({"/a.htm", "/b.htm"}));
}

TEST(ChosenFiles, DifferentDirectoriesAreTakenFromTheOneThatHoldsBoth) {
    const QStringList paths{"/home/me/site/a.htm", "/home/me/sites/b.htm", "/home/me/c.htm"};
    const QString chosen = JoinChosenFiles(paths);
    EXPECT_EQ(chosen.split(QChar(u'\0')), QStringList({"/home/me", "site/a.htm", "sites/b.htm", "c.htm"}));
    EXPECT_EQ(SplitChosenFiles(chosen), paths);
    const QStringList apart{"/home/a.htm", "/var/b.htm"};
    EXPECT_EQ(SplitChosenFiles(JoinChosenFiles(apart)), apart);
}

TEST(ChosenFiles, NoneIsEmpty) {
    EXPECT_EQ(JoinChosenFiles({}), "");
    EXPECT_EQ(SplitChosenFiles(""), QStringList());
}

// Waits for the dialog to come up, and works on it; closes what is still open after a while.
class DialogPromptsTest : public testing::Test {
protected:
    template <typename Dialog>
    void When(const QString& name, std::function<void(Dialog&)> work) {
        auto* poll = new QTimer(&owner);
        poll->setInterval(5);
        QObject::connect(poll, &QTimer::timeout, poll, [this, poll, name, work] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || dialog->objectName() != name || !dialog->isVisible()) return;
            poll->stop();
            seen = true;
            work(*dialog);
        });
        poll->start();
        QTimer::singleShot(guardMilliseconds, poll, [] {
            if (QWidget* stuck = QApplication::activeModalWidget()) stuck->close();
        });
    }

    void TearDown() override { EXPECT_TRUE(seen); }

    QObject owner;
    QTemporaryDir folder;
    DialogPrompts prompts;
    bool seen = false;
};

void Click(QMessageBox& box, QMessageBox::StandardButton button) {
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

void MakeFile(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

TEST_F(DialogPromptsTest, AMessageShowsItsTextAsItIs) {
    When<QMessageBox>("MessageBox", [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Save & <b>go</b>.  It may be locked.");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Vellumcraft");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    static_cast<Prompts&>(prompts).Message(nullptr, "Save & <b>go</b>.  It may be locked.");
}

TEST_F(DialogPromptsTest, AQuestionTakesYesByReturnAndNoByEscape) {
    When<QMessageBox>("QuestionBox", [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Is it so?");
        EXPECT_EQ(box.windowTitle(), "Important");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.AskYesNo(nullptr, "Is it so?", "Important", Answer::Yes), Answer::Yes);
    When<QMessageBox>("QuestionBox", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompts.AskYesNo(nullptr, "Is it so?", "Important", Answer::Yes), Answer::No);
}

TEST_F(DialogPromptsTest, ADangerousQuestionTakesNoByReturn) {
    When<QMessageBox>("QuestionBox", [](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.AskYesNo(nullptr, "Away with it?", "Important", Answer::No), Answer::No);
    When<QMessageBox>("QuestionBox", [](QMessageBox& box) { Click(box, QMessageBox::Yes); });
    EXPECT_EQ(prompts.AskYesNo(nullptr, "Away with it?", "Important", Answer::No), Answer::Yes);
}

TEST_F(DialogPromptsTest, ASaveQuestionHasThreeAnswers) {
    const std::pair<QMessageBox::StandardButton, Answer> cases[] = {
        {QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}, {QMessageBox::Cancel, Answer::Cancel}};
    for (const auto& [button, answer] : cases) {
        When<QMessageBox>("QuestionBox", [button = button](QMessageBox& box) { Click(box, button); });
        EXPECT_EQ(prompts.AskYesNoCancel(nullptr, "Do you want to save?", "Not saved"), answer);
    }
    When<QMessageBox>("QuestionBox", [](QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(prompts.AskYesNoCancel(nullptr, "Do you want to save?", "Not saved"), Answer::Cancel);
}

TEST_F(DialogPromptsTest, AChoiceHasButtonsOfItsOwnInTheirOrder) {
    const QStringList captions{"Keep R&D", "Replace", "Later"};
    const auto button = [](QMessageBox& box, const QString& caption) {
        for (QAbstractButton* each : box.buttons()) {
            if (each->text() == caption) return each;
        }
        ADD_FAILURE() << caption.toStdString();
        return box.buttons().constFirst();
    };
    const std::pair<const char*, int> cases[] = {{"Keep R&&D", 0}, {"Replace", 1}, {"Later", 2}};
    for (const auto& [caption, index] : cases) {
        When<QMessageBox>("ChoiceBox", [&, caption = caption](QMessageBox& box) {
            EXPECT_EQ(box.text(), "Which <b>one</b>?");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), "Choice");
            EXPECT_LT(button(box, "Keep R&&D")->x(), button(box, "Replace")->x());
            EXPECT_LT(button(box, "Replace")->x(), button(box, "Later")->x());
            QTest::mouseClick(button(box, caption), Qt::LeftButton);
        });
        EXPECT_EQ(prompts.Choose(nullptr, "Which <b>one</b>?", "Choice", captions, 0, 2), index);
    }
}

TEST_F(DialogPromptsTest, AChoiceTakesItsStandardByReturnAndAnotherByEscape) {
    const QStringList captions{"Keep", "Replace", "Later"};
    When<QMessageBox>("ChoiceBox", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(prompts.Choose(nullptr, "Which?", "Choice", captions, 1, 2), 1);
    When<QMessageBox>("ChoiceBox", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(prompts.Choose(nullptr, "Which?", "Choice", captions, 1, 2), 2);
    When<QMessageBox>("ChoiceBox", [](QMessageBox& box) { box.close(); });
    EXPECT_EQ(prompts.Choose(nullptr, "Which?", "Choice", captions, 1, 2), 2);
}

TEST_F(DialogPromptsTest, AnInputBoxReturnsWhatWasTyped) {
    When<QInputDialog>("InputBox", [](QInputDialog& dialog) {
        auto* line = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(line->text(), "before");
        EXPECT_EQ(dialog.windowTitle(), "Title");
        EXPECT_EQ(dialog.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        QTest::keyClicks(line, "after");
        QTest::keyClick(line, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.Input(nullptr, "A <tag> & more", "Title", "before"), QString("after"));
    When<QInputDialog>("InputBox", [](QInputDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(prompts.Input(nullptr, "Name", "Title", "before"), std::nullopt);
}

TEST_F(DialogPromptsTest, AnEmptyInputIsAnAnswer) {
    When<QInputDialog>("InputBox",
                       [](QInputDialog& dialog) { QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return); });
    EXPECT_EQ(prompts.Input(nullptr, "Name", "Title", ""), QString(""));
}

TEST_F(DialogPromptsTest, OpenReturnsAPath) {
    MakeFile(folder.filePath("a.htm"));
    When<QFileDialog>("OpenFileDialog", [this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), folder.path());
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.nameFilters(), QStringList({"HTML (*.htm)", "All Files (*)"}));
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(name, "a.htm");
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.OpenFile(nullptr, {"HTML (*.htm)|*.htm|All Files (*.*)|*.*", folder.path(), false}),
              folder.filePath("a.htm"));
}

TEST_F(DialogPromptsTest, OpenReturnsSeveralFilesInTheSplitForm) {
    MakeFile(folder.filePath("a.htm"));
    MakeFile(folder.filePath("b.htm"));
    When<QFileDialog>("OpenFileDialog", [](QFileDialog& dialog) {
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        auto* list = dialog.findChild<QListView*>("listView");
        ASSERT_TRUE(QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()) == 2; }));
        for (const int row : {0, 1}) {
            const QPoint point = list->visualRect(list->model()->index(row, 0, list->rootIndex())).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, row == 0 ? Qt::NoModifier : Qt::ControlModifier, point);
        }
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open), Qt::LeftButton);
    });
    const QString chosen = prompts.OpenFile(nullptr, {"HTML (*.htm)|*.htm", folder.path(), true});
    EXPECT_EQ(chosen.split(QChar(u'\0')), QStringList({folder.path(), "a.htm", "b.htm"}));
}

TEST_F(DialogPromptsTest, OpenShowsFilesOfEitherCaseAlsoByPatternsWithoutADot) {
    for (const char* name : {"a.au", "b.MID", "c.mid", "d.rmi", "e.wav", "f.txt"}) MakeFile(folder.filePath(name));
    When<QFileDialog>("OpenFileDialog", [](QFileDialog& dialog) {
        auto* list = dialog.findChild<QListView*>("listView");
        const auto names = [list] {
            QStringList shown;
            for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
                shown << list->model()->index(row, 0, list->rootIndex()).data().toString();
            }
            return shown;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return names().join(' ') == "a.au b.MID c.mid d.rmi e.wav"; }))
            << names().join(' ').toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    const QString filter = "Sound Files (*.AU;*.MID;*.RMI;*.WAV)|*.AU;*MID;*RMI;*.WAV";
    EXPECT_EQ(prompts.OpenFile(nullptr, {filter, folder.path(), false}), "");
}

TEST_F(DialogPromptsTest, ACancelledOpenIsEmpty) {
    When<QFileDialog>("OpenFileDialog", [](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(prompts.OpenFile(nullptr, {"All Files|*.*", "/no/such/folder", false}), "");
}

// Types a name into the save dialog, after a choice of the filter, and returns what comes of it.
class SaveDialogTest : public DialogPromptsTest {
protected:
    QString SaveAs(const QString& typed, int filter = 0) {
        When<QFileDialog>("SaveFileDialog", [typed, filter](QFileDialog& dialog) {
            auto* box = dialog.findChild<QComboBox*>("fileTypeCombo");
            for (int i = 0; i < filter; ++i) QTest::keyClick(box, Qt::Key_Down);
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            QTest::keyClicks(name, typed);
            QTest::keyClick(name, Qt::Key_Return);
        });
        return prompts.SaveFile(
            nullptr, {"HTML (*.htm;*.html)|*.htm;*.html|Text (*.txt)|*.txt|All Files (*.*)|*.*", folder.path()});
    }
};

TEST_F(SaveDialogTest, ANameWithoutASuffixGetsThatOfTheFilter) {
    EXPECT_EQ(SaveAs("page"), folder.filePath("page.htm"));
    EXPECT_EQ(SaveAs("page", 1), folder.filePath("page.txt"));
    EXPECT_EQ(SaveAs("page", 2), folder.filePath("page"));
}

TEST_F(SaveDialogTest, ATypedSuffixStays) {
    EXPECT_EQ(SaveAs("page.css"), folder.filePath("page.css"));
}

TEST_F(SaveDialogTest, AnExistingFileIsAskedFor) {
    MakeFile(folder.filePath("page.htm"));
    bool asked = false;
    When<QFileDialog>("SaveFileDialog", [&](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        QTest::keyClicks(name, "page");
        QTimer::singleShot(0, &dialog, [&] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(question, nullptr);
            asked = true;
            Click(*question, QMessageBox::No);
            QTimer::singleShot(0, &dialog, [&dialog] { QTest::keyClick(&dialog, Qt::Key_Escape); });
        });
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.SaveFile(nullptr, {"HTML|*.htm", folder.path()}), "");
    EXPECT_TRUE(asked);
}

TEST_F(DialogPromptsTest, AFolderIsPicked) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("site"));
    When<QFileDialog>("FolderDialog", [](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->clear();
        QTest::keyClicks(name, "site");
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.PickFolder(nullptr, folder.path()), folder.filePath("site"));
}

TEST_F(DialogPromptsTest, AColourHasRedInTheLowByte) {
    When<QColorDialog>("ColorDialog", [](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), QColor(0x80, 0, 0x40));
        dialog.setCurrentColor(QColor(1, 2, 3));
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_EQ(prompts.PickColor(nullptr, 0x400080), std::optional<ColorNumber>(0x030201));
    When<QColorDialog>("ColorDialog", [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(prompts.PickColor(nullptr, 0x400080), std::nullopt);
}

}  // namespace
}  // namespace vellum
