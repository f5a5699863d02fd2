#include "tests/shell/main_window_fixture.h"
#include "tests/support/wait_for.h"

#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace vellum::test {
namespace {

class RecoveryKeeperTest : public MainWindowFixture {
protected:
    // How many copies this session holds on disk.
    [[nodiscard]] int Copies() {
        recovery.Flush();
        return static_cast<int>(CopyFiles().size());
    }

    [[nodiscard]] QStringList CopyFiles() const {
        QStringList files;
        const QDir root(home.filePath("recovery"));
        for (const QString& session : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            for (const QString& file : QDir(root.filePath(session)).entryList(QDir::Files)) {
                if (file != "lock") files << session + "/" + file;
            }
        }
        return files;
    }

    // The timers that wait for a pause of the typing in the active document.
    [[nodiscard]] QList<QPointer<QTimer>> Waiting() const {
        QList<QPointer<QTimer>> waiting;
        for (QTimer* timer : Active().findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (timer->isActive()) waiting << timer;
        }
        return waiting;
    }

    // Lets that pause come now.
    void Pause() const {
        for (QTimer* timer : Waiting()) timer->setInterval(0);
    }

    // What a program that died would have left.
    void LeaveLost(const QString& caption, const QString& text) const {
        RecoveryStore dying(home.filePath("recovery"));
        dying.Keep(1, {caption, text, {}, 1000});
        dying.LeaveBehind(1);
    }
};

TEST_F(RecoveryKeeperTest, CopiesAChangedDocumentAndDropsTheCopyAtTheSave) {
    Open();
    EXPECT_EQ(Copies(), 0);
    QTest::keyClicks(Active().Text1, "precious");
    Pause();
    ASSERT_TRUE(WaitFor([&] { return Copies() == 1; }));
    prompts.saveNames.push_back(SitePath("x.htm"));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, KeepsNothingInTheSiteAndNothingOfAClosedDocument) {
    Open();
    QTest::keyClicks(Active().Text1, "precious");
    Pause();
    ASSERT_TRUE(WaitFor([&] { return Copies() == 1; }));
    EXPECT_TRUE(QDir(site.path()).isEmpty(QDir::Files));
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, OffersLostTextsInOneQuestionAndOpensThem) {
    LeaveLost("/site/page.htm", "lost one");
    LeaveLost("New 3", "lost\ntwo");
    prompts.answers = {Answer::Yes};
    Open();
    ASSERT_EQ(prompts.questions.size(), 1);
    EXPECT_TRUE(prompts.questions[0].contains("/site/page.htm"));
    EXPECT_TRUE(prompts.questions[0].contains("New 3"));
    EXPECT_EQ(window->OpenDocCount(), 3);
    QStringList texts;
    for (const QMdiSubWindow* child : window->area->subWindowList()) {
        const auto* document = qobject_cast<Document*>(child->widget());
        texts << document->Caption() + "=" + document->Text1->Text();
        EXPECT_EQ(document->Saver(), document->Caption() == "New 1");
    }
    texts.sort();
    EXPECT_EQ(texts, (QStringList{"/site/page.htm=lost one", "New 1=", "New 2=lost\r\ntwo"}));
}

TEST_F(RecoveryKeeperTest, ALostTextKeepsTheFormatOfItsFile) {
    RecoveredText lost{SitePath("page.htm"), u"lost\n\u00E9"_qs, {}, 1000};
    lost.format.encoding = "windows-1252";
    lost.format.lineEnd = LineEnd::Lf;
    {
        RecoveryStore dying(home.filePath("recovery"));
        dying.Keep(1, lost);
        dying.LeaveBehind(1);
    }
    prompts.answers = {Answer::Yes};
    Open();
    EXPECT_EQ(Active().findChild<QLabel*>("lblFormat")->text(), "Windows-1252, LF");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(SitePath("page.htm")), "lost\n\xE9");
}

TEST_F(RecoveryKeeperTest, TheTipsKeepAwayFromATextThatWasRecovered) {
    LeaveLost("/site/page.htm", "lost");
    prompts.answers = {Answer::Yes};
    EXPECT_EQ(Open().tips, 0);
}

TEST_F(RecoveryKeeperTest, WhatWasRecoveredIsKeptAgainBeforeTheOldCopiesGo) {
    LeaveLost("/site/page.htm", "lost");
    prompts.answers = {Answer::Yes};
    Open();
    ASSERT_EQ(CopyFiles().size(), 1) << "this session's own copy has taken the old one's place";
    EXPECT_EQ(Active().Caption(), "/site/page.htm");
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, AFileWhoseNameBeginsWithNewKeepsIt) {
    LeaveLost("/site/Newsletter.htm", "lost");
    prompts.answers = {Answer::Yes};
    Open();
    EXPECT_EQ(Active().Caption(), "/site/Newsletter.htm");
}

TEST_F(RecoveryKeeperTest, NothingOfAClosedDocumentIsCopiedLater) {
    Open();
    window->NewForm();
    QTest::keyClicks(Active().Text1, "dropped");
    const QList<QPointer<QTimer>> waiting = Waiting();
    ASSERT_FALSE(waiting.isEmpty());
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    for (const QPointer<QTimer>& timer : waiting) EXPECT_FALSE(timer && timer->isActive());
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, TheCopyIsDueWithinTwoSecondsOfTheLastKey) {
    Open();
    QTest::keyClicks(Active().Text1, "precious");
    const QList<QPointer<QTimer>> waiting = Waiting();
    EXPECT_TRUE(std::ranges::any_of(waiting, [](const QTimer* timer) { return timer->interval() <= 2000; }));
}

TEST_F(RecoveryKeeperTest, NoDiscardsAndCancelLeavesTheTextsForTheNextStart) {
    Open();
    LeaveLost("/site/page.htm", "lost");
    for (const auto& [answer, left] : {std::pair{Answer::Cancel, 1}, {Answer::No, 0}}) {
        RecoveryStore store(home.filePath("recovery"));
        prompts.questions.clear();
        prompts.answers = {answer};
        RecoveryKeeper(store).OfferLost(*window, window->documents);
        EXPECT_EQ(prompts.questions.size(), 1);
        EXPECT_EQ(window->OpenDocCount(), 1);
        EXPECT_EQ(CopyFiles().size(), left);
    }
    prompts.questions.clear();
    RecoveryStore store(home.filePath("recovery"));
    RecoveryKeeper(store).OfferLost(*window, window->documents);
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(RecoveryKeeperTest, ATextThatCouldNotBeSavedOnCloseIsOfferedLater) {
    Open();
    QTest::keyClicks(Active().Text1, "precious");
    prompts.answers = {Answer::Yes};
    prompts.saveNames.push_back(SitePath("no/such/folder/x.htm"));
    Trigger("mnuClose");
    EXPECT_EQ(prompts.messages.size(), 1);
    EXPECT_EQ(Copies(), 1);
}

}  // namespace
}  // namespace vellum::test
