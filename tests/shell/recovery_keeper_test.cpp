#include "tests/shell/main_window_fixture.h"
#include "tests/support/wait_for.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTimer>

#include <functional>
#include <random>
#include <vector>

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
            for (const QString& file : QDir(root.filePath(session)).entryList({"*.copy"}, QDir::Files)) {
                files << session + "/" + file;
            }
        }
        return files;
    }

    // What the next start would find if the program was killed now.
    [[nodiscard]] std::vector<RecoveredText> AfterAKill() {
        recovery.Flush();
        const QTemporaryDir state;
        const QDir root(home.filePath("recovery"));
        for (const QString& session : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QDir(state.path()).mkdir(session);
            for (const QString& file : QDir(root.filePath(session)).entryList(QDir::Files)) {
                QFile::copy(root.filePath(session + '/' + file), state.filePath(session + '/' + file));
            }
        }
        return RecoveryStore(state.path()).FindLost();
    }

    // What a program that died would have left.
    void LeaveLost(const QString& caption, const QString& text, qint64 fileTime = 0) const {
        RecoveryStore dying(home.filePath("recovery"));
        dying.Keep(1, {caption, text, {}, 1000, fileTime});
        dying.LeaveBehind(1);
    }
};

TEST_F(RecoveryKeeperTest, CopiesAChangedDocumentAndDropsTheCopyAtTheSave) {
    Open();
    EXPECT_EQ(Copies(), 0);
    QTest::keyClicks(Active().Text1, "precious");
    ASSERT_EQ(Copies(), 1);
    prompts.saveNames.push_back(SitePath("x.htm"));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, KeepsNothingInTheSiteAndNothingOfAClosedDocument) {
    Open();
    QTest::keyClicks(Active().Text1, "precious");
    ASSERT_EQ(Copies(), 1);
    EXPECT_TRUE(QDir(site.path()).isEmpty(QDir::Files));
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, OffersLostTextsInOneQuestionAndOpensThem) {
    LeaveLost("/site/page.htm", "lost one");
    LeaveLost("New 3", "lost\ntwo");
    prompts.choices = {"Recover"};
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
    RecoveredText lost{.caption = SitePath("page.htm"), .text = u"lost\n\u00E9\n"_qs, .format = {}, .writtenAt = 1000};
    lost.otherLineEnds = {{1, LineEnd::CrLf}};
    lost.format.encoding = "windows-1252";
    lost.format.lineEnd = LineEnd::Lf;
    {
        RecoveryStore dying(home.filePath("recovery"));
        dying.Keep(1, lost);
        dying.LeaveBehind(1);
    }
    prompts.choices = {"Recover"};
    Open();
    EXPECT_EQ(Active().findChild<QLabel*>("lblFormat")->text(), "Windows-1252, mixed line ends");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(SitePath("page.htm")), "lost\n\xE9\r\n");
}

TEST_F(RecoveryKeeperTest, ACopyTellsHowEveryLineEnds) {
    const QString path = MakeFile("page.htm", "one\ntwo\r\nthree\n");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x\r");
    const std::vector<RecoveredText> found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "x\none\ntwo\nthree\n");
    EXPECT_EQ(found[0].format.Description(), "UTF-8, mixed line ends");
    EXPECT_EQ(found[0].format.lineEnd, LineEnd::Lf);
    EXPECT_EQ(found[0].otherLineEnds, (std::vector<OtherLineEnd>{{2, LineEnd::CrLf}}));
}

TEST_F(RecoveryKeeperTest, TheTipsKeepAwayFromATextThatWasRecovered) {
    LeaveLost("/site/page.htm", "lost");
    prompts.choices = {"Recover"};
    EXPECT_EQ(Open().tips, 0);
}

TEST_F(RecoveryKeeperTest, WhatWasRecoveredIsKeptAgainBeforeTheOldCopiesGo) {
    LeaveLost("/site/page.htm", "lost");
    prompts.choices = {"Recover"};
    Open();
    ASSERT_EQ(CopyFiles().size(), 1) << "this session's own copy has taken the old one's place";
    EXPECT_EQ(Active().Caption(), "/site/page.htm");
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, AFileWhoseNameBeginsWithNewKeepsIt) {
    LeaveLost("/site/Newsletter.htm", "lost");
    prompts.choices = {"Recover"};
    Open();
    EXPECT_EQ(Active().Caption(), "/site/Newsletter.htm");
}

TEST_F(RecoveryKeeperTest, NothingOfAClosedDocumentIsCopiedLater) {
    Open();
    window->NewForm();
    QTest::keyClicks(Active().Text1, "dropped");
    const QPointer<DocumentWindow> closed(&Active());
    QObject::connect(closed, &DocumentWindow::Closing, closed, [closed] { closed->Text1->SetText("late"); });
    prompts.answers = {Answer::No};
    Trigger("mnuClose");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(RecoveryKeeperTest, DiscardDropsTheTextsAndLaterLeavesThemForTheNextStart) {
    Open();
    LeaveLost("/site/page.htm", "lost");
    for (const auto& [choice, left] : {std::pair{"Later", 1}, {"Discard", 0}}) {
        RecoveryStore store(home.filePath("recovery"));
        prompts.questions.clear();
        prompts.choices = {choice};
        RecoveryKeeper(store, *window).OfferLost(window->documents);
        EXPECT_EQ(prompts.questions.size(), 1);
        EXPECT_EQ(prompts.captions, (QStringList{"Recover", "Discard", "Later"}));
        EXPECT_EQ(window->OpenDocCount(), 1);
        EXPECT_EQ(CopyFiles().size(), left);
    }
    prompts.questions.clear();
    RecoveryStore store(home.filePath("recovery"));
    RecoveryKeeper(store, *window).OfferLost(window->documents);
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(RecoveryKeeperTest, EscapeIsLaterAndNothingIsLostThenWhateverHappens) {
    LeaveLost("/site/page.htm", "lost");
    Open();  // nobody chooses
    EXPECT_EQ(prompts.questions.size(), 1);
    QTest::keyClicks(Active().Text1, "typed since");
    QStringList texts;
    for (const RecoveredText& found : AfterAKill()) texts << found.text;
    EXPECT_EQ(texts, (QStringList{"lost", "typed since"}));
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

TEST_F(RecoveryKeeperTest, APageIsKeptAsItIsEdited) {
    const QString path = MakeFile("page.htm", "one\r\ntwo");
    Open(false, path);
    EXPECT_EQ(Copies(), 0) << "it is in its file";
    Active().Text1->SetSelStart(3);
    QTest::keyClicks(Active().Text1, "!");
    QTest::keyClick(Active().Text1, Qt::Key_Delete);
    std::vector<RecoveredText> found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].caption, path);
    EXPECT_EQ(found[0].text, "one!two");
    EXPECT_EQ(found[0].end, SessionEnd::Unknown);
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(AfterAKill().empty());
    Active().Text1->SetSelStart(0);
    QTest::keyClicks(Active().Text1, "zero ");
    found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "zero one!two");
}

// Whatever an author and the commands do to a text, and all of it back and forth.
TEST_F(RecoveryKeeperTest, WhatIsKeptIsTheTextAfterAnyChange) {
    const QByteArray lines = QByteArray("one\r\ntwo\nthree\rfour\r\n").repeated(5);
    const QString path = MakeFile("page.htm", "<p>one</p>\r\n<p>two</p>\r\n" + lines + QByteArray(3000, 'x'));
    Open(false, path);
    Document& document = Active();
    EditSurface& surface = *document.Text1;
    std::mt19937 random(4);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const std::vector<std::function<void()>> changes{
        [&] { QTest::keyClicks(&surface, "word <b>"); },
        [&] { QTest::keyClick(&surface, Qt::Key_Return); },
        [&] { QTest::keyClick(&surface, Qt::Key_Tab, below(2) == 0 ? Qt::NoModifier : Qt::ShiftModifier); },
        [&] { QTest::keyClick(&surface, Qt::Key_Backspace); },
        [&] { surface.SetSelText(below(2) == 0 ? u"\u2029\uFDD0\r\nb"_qs : QString()); },
        [&] { QTest::keyClick(&surface, Qt::Key_Z, Qt::ControlModifier); },
        [&] { QTest::keyClick(&surface, Qt::Key_R, Qt::ControlModifier); },
        [&] { QTest::keyClick(&surface, Qt::Key_X, Qt::ControlModifier); },
        [&] { QTest::keyClick(&surface, Qt::Key_V, Qt::ControlModifier); },
        [&] {
            QString markup = "<p>\r\nmarkup</p>";
            window->PortableColor(markup);
        },
        [&] { surface.textCursor().insertText("dropped\n"); },
        [&] {
            if (below(8) == 0) Trigger("mnuSaveregItem");
        },
        [&] {
            if (below(8) == 0) surface.SetText("all\r\nnew");
        },
        [&] {
            QString text = lines;
            const LineEnd usual = document.File().Format().lineEnd;
            const std::vector<OtherLineEnd> others = UnifyLineEnds(text, usual);
            if (below(4) == 0) surface.LoadText(text, usual, others);
        },
        [&] {
            if (below(8) == 0) surface.setPlainText("by the toolkit");
        },
        [&] {
            const QSignalBlocker unseen(surface);
            if (below(8) == 0) surface.SetSelText("unseen and longer than any selection");
        },
    };
    for (int round = 0; round < 800; ++round) {
        surface.SetSelStart(below(surface.Length() + 1));
        if (below(3) == 0) surface.SetSelLength(below(20));
        changes[static_cast<size_t>(below(static_cast<int>(changes.size())))]();
        if (below(10) != 0) continue;
        surface.SetSelText("+");  // so that nothing was unseen last
        const std::vector<RecoveredText> found = AfterAKill();
        ASSERT_EQ(found.size(), 1U) << round;
        ASSERT_TRUE(found[0].text == surface.RawText()) << round;
        ASSERT_EQ(found[0].otherLineEnds, surface.OtherLineEnds(found[0].format.lineEnd)) << round;
        ASSERT_EQ(found[0].format.lineEnd, Active().File().Format().lineEnd) << round;
        ASSERT_FALSE(found[0].incomplete);
    }
}

// Nothing waits for the worker, as a kill may come at once.
TEST_F(RecoveryKeeperTest, WhatWasDiscardedIsGoneAtOnce) {
    const auto type = [this](const char* text) {
        window->NewForm();
        QTest::keyClicks(Active().Text1, text);
    };
    Open();
    type("first");
    recovery.Flush();
    type("second");
    type("third");
    EXPECT_EQ(Copies(), 3);
    QTest::keyClicks(Active().Text1, " and a word that waits");
    prompts.answers = {Answer::No, Answer::No, Answer::Cancel};
    EXPECT_FALSE(window->close());
    EXPECT_EQ(prompts.questions.size(), 3);
    ASSERT_EQ(CopyFiles().size(), 1);
    const std::vector<RecoveredText> found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "first") << "the one that stays";
    prompts.answers = {Answer::No};
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(CopyFiles().isEmpty());
}

TEST_F(RecoveryKeeperTest, ATextThatIsTooMuchEditedIsCopiedAnew) {
    const QString path = MakeFile("page.htm", "text");
    Open(false, path);
    for (int round = 0; round < 8; ++round) {
        Active().Text1->SetSelText(QString(100'000, u'x'));
        recovery.Flush();
        QCoreApplication::processEvents();
    }
    const std::vector<RecoveredText> found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].text == Active().Text1->RawText());
    const QDir root(home.filePath("recovery"));
    const QDir session(root.filePath(root.entryList(QDir::Dirs | QDir::NoDotAndDotDot).constFirst()));
    for (const QFileInfo& file : session.entryInfoList({"*.edits"})) EXPECT_LT(file.size(), 800'000);
}

TEST_F(RecoveryKeeperTest, TellsOnceThatNothingCanBeKeptAndTriesAgain) {
    Open();
    ASSERT_TRUE(QDir(home.path()).mkdir("state"));
    const QString inTheWay = home.filePath("state/recovery");
    ASSERT_TRUE(QFile(inTheWay).open(QFile::WriteOnly));
    RecoveryStore store(inTheWay);
    RecoveryKeeper keeper(store, *window);
    keeper.Watch(Active());
    QTest::keyClicks(Active().Text1, "precious");
    EXPECT_FALSE(store.Flush());
    ASSERT_TRUE(WaitFor([&] { return prompts.messages.size() == 1; }));
    EXPECT_TRUE(prompts.messages[0].contains(inTheWay));
    auto* const retry = keeper.findChild<QTimer*>();
    ASSERT_TRUE(retry->isActive());
    const auto waitForRetry = [retry] {
        const int interval = retry->interval();
        retry->setInterval(0);
        const bool came = WaitFor([&] { return !retry->isActive(); });
        retry->setInterval(interval);
        return came;
    };
    ASSERT_TRUE(waitForRetry());
    EXPECT_FALSE(store.Flush());
    ASSERT_TRUE(WaitFor([&] { return retry->isActive(); }));
    EXPECT_EQ(prompts.messages.size(), 1);

    ASSERT_TRUE(QFile::remove(inTheWay));
    QTest::keyClicks(Active().Text1, " words");
    ASSERT_TRUE(waitForRetry());
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(QDir(inTheWay).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(RecoveryKeeperTest, TellsOfDamagedCopies) {
    LeaveLost("/site/page.htm", "lost");
    ASSERT_TRUE(QFile::resize(home.filePath("recovery/" + CopyFiles().constFirst()), 30));
    Open();
    ASSERT_EQ(prompts.messages.size(), 1);
    EXPECT_TRUE(prompts.messages[0].contains(home.filePath("damaged/")));
    EXPECT_TRUE(prompts.questions.isEmpty());
}

TEST_F(RecoveryKeeperTest, SaysWhichFilesAreNewer) {
    const QString sentence = "The file has been changed since.";
    const QString path = MakeFile("page.htm", "text");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x");
    EXPECT_FALSE(RecoveryQuestion(AfterAKill()).contains(sentence));
    const auto setFileTime = [&path](int seconds) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFile::FileModificationTime));
    };
    setFileTime(-60);
    EXPECT_TRUE(RecoveryQuestion(AfterAKill()).contains(sentence)) << "however old, it is another one";
    Trigger("mnuSaveregItem");
    QTest::keyClicks(Active().Text1, "y");
    EXPECT_FALSE(RecoveryQuestion(AfterAKill()).contains(sentence)) << "now it is the text's own";
    Trigger("mnuSaveregItem");
    setFileTime(-30);
    Trigger("mnuSaveregItem");  // without an edit
    QTest::keyClicks(Active().Text1, "z");
    EXPECT_FALSE(RecoveryQuestion(AfterAKill()).contains(sentence)) << "it is so again";
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_FALSE(RecoveryQuestion(AfterAKill()).contains(sentence));
    const auto old = [&](qint64 writtenAt) { return RecoveryQuestion({{path, "x", {}, writtenAt}}); };
    ASSERT_EQ(MakeFile("page.htm", "text"), path);
    EXPECT_TRUE(old(1000).contains(sentence)) << "without the file's time, its copy's has to do";
    EXPECT_FALSE(old(QDateTime::currentSecsSinceEpoch() + 60).contains(sentence));
}

TEST_F(RecoveryKeeperTest, AnUnsavedTextWithoutAnEditIsKeptToo) {
    const QString path = MakeFile("page.htm", "text");
    Open(false, path);
    ASSERT_TRUE(QFile::remove(path));
    Active().SetSaver(false);
    const std::vector<RecoveredText> found = AfterAKill();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "text");
}

TEST_F(RecoveryKeeperTest, ATextThatIsLostTwiceStillKnowsThatItsFileIsNewer) {
    LeaveLost(MakeFile("page.htm", "by another program"), "lost", 1000);
    prompts.choices = {"Recover"};
    Open();
    QTest::keyClicks(Active().Text1, "x");
    EXPECT_TRUE(RecoveryQuestion(AfterAKill()).contains("The file has been changed since."));
}

TEST_F(RecoveryKeeperTest, ASaveOverAFileThatChangedWhileTheTextWasEditedAsksFirst) {
    const QString path = MakeFile("page.htm", "by another program");
    {
        RecoveryStore dying(home.filePath("recovery"));
        dying.Keep(1, {path, "lost", {}, QDateTime::currentSecsSinceEpoch() + 60, 1000});
        dying.LeaveBehind(1);
    }
    prompts.choices = {"Recover", "Later"};
    Open();
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.questions.size(), 2);
    EXPECT_EQ(Bytes(path), "by another program");
}

TEST(RecoveryQuestionText, NamesFilesTimesAndWhatIsMissing) {
    const qint64 time = QDateTime(QDate(2031, 5, 17), QTime(14, 23)).toSecsSinceEpoch();
    RecoveredText lost{"/no/such/page.htm", "x", {}, time};
    lost.incomplete = true;
    const QString text = RecoveryQuestion({lost, {"New 3", "y", {}, time}});
    EXPECT_TRUE(text.contains("/no/such/page.htm   (" +
                              QLocale().toString(QDateTime::fromSecsSinceEpoch(time), QLocale::ShortFormat) +
                              ")\n    The last edits are lost.\nNew 3   ("))
        << text.toStdString();
}

TEST(RecoveryQuestionText, SaysHowTheSessionEndedAsFarAsAnyoneKnows) {
    const auto question = [](std::initializer_list<SessionEnd> ends) {
        std::vector<RecoveredText> lost;
        for (const SessionEnd end : ends) lost.push_back({.caption = "New 1", .end = end});
        return RecoveryQuestion(lost).section('\n', 0, 0);
    };
    EXPECT_EQ(question({SessionEnd::Unknown}), "Vellumcraft did not end normally. These documents were not saved:");
    EXPECT_EQ(question({SessionEnd::Closed, SessionEnd::Closed}),
              "These documents could not be saved when they were closed:");
    EXPECT_EQ(question({SessionEnd::Terminated}), "Vellumcraft was told to end before these documents were saved:");
    EXPECT_EQ(question({SessionEnd::Desktop}), "The desktop's session ended before these documents were saved:");
    EXPECT_EQ(question({SessionEnd::Unknown, SessionEnd::Closed}), "These documents were not saved:");
}

TEST(RecoveryQuestionText, ListsAsManyAsFitAScreen) {
    const QString text = RecoveryQuestion(std::vector<RecoveredText>(20, {.caption = "New 1"}));
    EXPECT_EQ(text.count("New 1"), 12);
    EXPECT_TRUE(text.contains("and 8 more"));
}

}  // namespace
}  // namespace vellum::test
