#include "shell/outside_changes.h"

#include "tests/shell/main_window_fixture.h"

#include <QDateTime>
#include <QDir>
#include <QScrollBar>
#include <QThreadPool>

#include <cstdio>

namespace vellum::test {
namespace {

constexpr auto keep = "Keep Mine";
constexpr auto take = "Take the File's";
constexpr auto later = "Later";

class OutsideChangesTest : public WindowFixture<MDIform1> {
protected:
    // Opens a page whose line ends are LF.
    DocumentWindow& OpenPage(const QByteArray& bytes = "one\ntwo\n") {
        path_ = MakeFile("page.htm", bytes);
        Open(false, path_);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return Active();
    }

    void Overwrite(const QByteArray& bytes) const { EXPECT_EQ(MakeFile("page.htm", bytes), path_); }

    // As most programs save.
    void Replace(const QByteArray& bytes) const {
        const QString fresh = MakeFile("fresh", bytes);
        ASSERT_EQ(std::rename(QFile::encodeName(fresh).constData(), QFile::encodeName(path_).constData()), 0);
    }

    void Arrive() {
        QEvent event(QEvent::WindowActivate);
        QCoreApplication::sendEvent(window.get(), &event);
    }

    [[nodiscard]] bool Becomes(const DocumentWindow& document, const QString& text) const {
        return QTest::qWaitFor([&] { return document.Text1->RawText() == text; });
    }

    [[nodiscard]] bool IsAsked(int times = 1) {
        return QTest::qWaitFor([&] { return prompts.questions.size() == times; });
    }

    [[nodiscard]] static QString Facts(const DocumentWindow& document) {
        return document.findChild<QLabel*>("lblFormat")->text();
    }

    QString path_;
};

TEST_F(OutsideChangesTest, ATextWithoutEditsFollowsItsFile) {
    DocumentWindow& document = OpenPage();
    Overwrite("one\n2\n");
    EXPECT_TRUE(Becomes(document, "one\n2\n")) << "written in place";
    Replace("one\n2\nthree\n");
    EXPECT_TRUE(Becomes(document, "one\n2\nthree\n")) << "replaced by another file";
    EXPECT_TRUE(document.Saver());
    EXPECT_TRUE(prompts.questions.isEmpty());
    document.HandleUndo();
    EXPECT_EQ(document.Text1->RawText(), "one\n2\n") << "what the window held comes back by undo";
    EXPECT_FALSE(document.Saver());
}

TEST_F(OutsideChangesTest, CaretAndScrollOffsetStay) {
    QByteArray lines;
    for (int line = 0; line < 500; ++line) lines += "line " + QByteArray::number(line) + '\n';
    DocumentWindow& document = OpenPage(lines);
    document.Text1->SetSelStart(document.Text1->LineStart(300) + 2);
    document.Text1->verticalScrollBar()->setValue(290);
    Replace("a new first line\n<b>and</b> a second\n" + lines);
    ASSERT_TRUE(QTest::qWaitFor([&] { return document.Text1->RawText().startsWith("a new"); }));
    EXPECT_EQ(document.Text1->SelStart(), document.Text1->LineStart(302) + 2);
    EXPECT_EQ(document.Text1->verticalScrollBar()->value(), 292);
    document.Text1->SetSelStart(document.Text1->LineStart(1) + 1);
    EXPECT_EQ(document.Text1->SelColor(), 32768U) << "and the markup has its colours";
}

TEST_F(OutsideChangesTest, AnInactiveWindowFollowsAndLeavesTheKeyboardAlone) {
    DocumentWindow& document = OpenPage();
    window->NewForm();
    DocumentWindow& active = Active();
    active.Text1->setFocus();
    Replace("<p>new</p>\n");
    EXPECT_TRUE(Becomes(document, "<p>new</p>\n"));
    EXPECT_EQ(window->ActiveDocument(), &active);
    EXPECT_TRUE(active.Text1->hasFocus());
}

TEST_F(OutsideChangesTest, AnEditedTextIsAskedAboutWhenTheAuthorComesBack) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    prompts.choices = {keep};
    Replace("theirs\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Facts(document).endsWith(", changed by something else"); }));
    EXPECT_TRUE(prompts.questions.isEmpty()) << "nobody is disturbed while typing";
    Arrive();
    ASSERT_TRUE(IsAsked());
    EXPECT_TRUE(prompts.questions[0].contains(path_));
    EXPECT_EQ(document.Text1->RawText(), "my one\ntwo\n");
    EXPECT_EQ(Bytes(SitePath("page.other.htm")), "theirs\n");
    EXPECT_FALSE(document.Saver());
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "my one\ntwo\n");
    EXPECT_EQ(prompts.questions.size(), 1) << "one question is enough";
    EXPECT_FALSE(Facts(document).contains("changed"));
}

TEST_F(OutsideChangesTest, TheFilesTextIsTakenAndUndoBringsTheAuthorsBack) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    prompts.choices = {take};
    Replace("theirs\n");
    Arrive();
    ASSERT_TRUE(Becomes(document, "theirs\n"));
    EXPECT_TRUE(document.Saver());
    document.HandleUndo();
    EXPECT_EQ(document.Text1->RawText(), "my one\ntwo\n");
    EXPECT_FALSE(document.Saver());
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "my one\ntwo\n");
}

TEST_F(OutsideChangesTest, WhoAnswersLaterIsAskedAgainBeforeTheSaveOnly) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    prompts.choices = {later, later};
    Replace("theirs\n");
    Arrive();
    ASSERT_TRUE(IsAsked());
    Arrive();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(prompts.questions.size(), 1);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 2);
    EXPECT_EQ(Bytes(path_), "theirs\n");
    EXPECT_FALSE(document.Saver());
}

TEST_F(OutsideChangesTest, ASaveLooksByItself) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    prompts.choices = {keep};
    Overwrite("theirs\n");  // and nothing has told of it yet
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(Bytes(path_), "my one\ntwo\n");
    EXPECT_EQ(Bytes(SitePath("page.other.htm")), "theirs\n");
}

TEST_F(OutsideChangesTest, WithoutEditsASaveTakesWhatTheFileHolds) {
    const DocumentWindow& document = OpenPage();
    Overwrite("theirs\n");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(document.Text1->RawText(), "theirs\n");
    EXPECT_EQ(Bytes(path_), "theirs\n");
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(OutsideChangesTest, AFileThatWasTouchedButHoldsTheSameIsNoMatter) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    Replace("one\ntwo\n");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "my one\ntwo\n");
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(OutsideChangesTest, ACopyThatCantBeKeptStopsTheSave) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    prompts.choices = {keep};
    Overwrite("theirs\n");
    ASSERT_TRUE(QDir().mkdir(SitePath("page.other.htm")));
    for (int number = 2; number <= 1000; ++number) QDir().mkdir(SitePath(QString("page.other-%1.htm").arg(number)));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.messages.size(), 1);
    EXPECT_EQ(Bytes(path_), "theirs\n");
    EXPECT_EQ(document.Text1->RawText(), "my one\ntwo\n");
}

TEST_F(OutsideChangesTest, ADeletedFileSaysSoAtTheSave) {
    DocumentWindow& document = OpenPage();
    ASSERT_TRUE(QFile::remove(path_));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !document.Saver(); })) << "the text is nowhere but here";
    EXPECT_TRUE(Facts(document).endsWith(", deleted"));
    Arrive();
    prompts.choices = {"Cancel", "Save"};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_FALSE(QFile::exists(path_));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "one\ntwo\n");
    EXPECT_TRUE(document.Saver());
}

TEST_F(OutsideChangesTest, AFileThatComesBackAsItWasCountsAsSavedAgain) {
    DocumentWindow& document = OpenPage();
    ASSERT_TRUE(QFile::remove(path_));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !document.Saver(); }));
    Overwrite("one\ntwo\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return document.Saver(); }));
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(OutsideChangesTest, WhatOneWindowSavesIsAChangeForAnother) {
    DocumentWindow& first = OpenPage();
    window->OpenInNewWindow(path_, {});
    DocumentWindow& second = Active();
    QTest::keyClicks(second.Text1, "second ");
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(Becomes(first, "second one\ntwo\n")) << "one without edits follows";
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(OutsideChangesTest, EachOfTwoWindowsIsToldBeforeItOverwritesTheOther) {
    DocumentWindow& first = OpenPage();
    window->OpenInNewWindow(path_, {});
    DocumentWindow& second = Active();
    QTest::keyClicks(first.Text1, "first ");
    QTest::keyClicks(second.Text1, "second ");
    prompts.choices = {"Cancel", "Save", keep};
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_EQ(Bytes(path_), "one\ntwo\n") << "cancelled";
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "second one\ntwo\n");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Facts(first).contains("changed"); }));
    first.Activate();
    ASSERT_TRUE(IsAsked(3));
    EXPECT_EQ(Bytes(SitePath("page.other.htm")), "second one\ntwo\n");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path_), "first one\ntwo\n");
    EXPECT_TRUE(Becomes(second, "first one\ntwo\n"));
}

TEST_F(OutsideChangesTest, AWindowThatAsksStaysOpenWhenTheAuthorWantsNoSave) {
    DocumentWindow& document = OpenPage();
    QTest::keyClicks(document.Text1, "my ");
    Overwrite("theirs\n");
    prompts.answers = {Answer::Yes};
    prompts.choices = {later};
    Trigger("mnuClose");
    EXPECT_EQ(window->ActiveDocument(), &document);
    EXPECT_EQ(Bytes(path_), "theirs\n");
}

TEST_F(OutsideChangesTest, ARecoveredTextAsksWhenItsFileIsNewer) {
    OpenPage("newer\n");
    const auto recover = [this](qint64 writtenAt) {
        const RecoveredText lost{.caption = path_, .text = "lost\n", .format = {}, .writtenAt = writtenAt};
        window->documents.Open({.path = path_, .recovered = &lost});
        prompts.choices = {later};
        prompts.questions.clear();
        Trigger("mnuSaveregItem");
        return prompts.questions.size();
    };
    EXPECT_EQ(recover(1), 1);
    EXPECT_EQ(Bytes(path_), "newer\n");
    EXPECT_EQ(recover(QDateTime::currentSecsSinceEpoch()), 0);
    EXPECT_EQ(Bytes(path_), "lost\r\n");
}

}  // namespace
}  // namespace vellum::test
