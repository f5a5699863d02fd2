// Saves that are killed: at each of their steps, and at any moment.
#include "files/save_record.h"
#include "tests/files/child_process.h"
#include "tests/files/file_fixture.h"
#include "tests/files/kill_steps.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <random>
#include <sched.h>

namespace vellum::test {
namespace {

class InterruptedSave : public FileWriting {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir(folder_.path()).mkdir("site"));
        qputenv("XDG_STATE_HOME", Name("state"));
    }
    void TearDown() override { qputenv("XDG_STATE_HOME", before_); }

    // Puts a file with another name beside it, which makes it one that is written in place.
    void PutLinked(const QByteArray& content) const {
        Put(Path("site/page.html"), content);
        ::link(Name("site/page.html").constData(), Name("site/other.html").constData());
    }

    // Waits until nobody writes the file any more.
    void WaitForWriters() const {
        const int file = ::open(Name("site/page.html").constData(), O_RDONLY | O_CLOEXEC);
        while (::flock(file, LOCK_EX) != 0 && errno == EINTR) continue;
        ::close(file);
    }

    // Saves a file again and again, each time killed at a later step, until a save gets to its end.
    template <typename Prepare, typename AfterKill>
    void KillAtEachStep(const QByteArray& content, Killed victim, Prepare prepare, AfterKill afterKill) {
        const QString path = Path("site/page.html");
        KillSteps save([&] { (void)WriteFileSafely(path, content); }, victim);
        for (int step = 1; !HasFailure(); ++step) {
            prepare();
            const Killed killed = save.KillAt(step);
            if (killed == Killed::CannotTrace) GTEST_SKIP() << "no process may be looked at here";
            if (killed == Killed::Nothing) {
                EXPECT_GT(step, 20);
                break;
            }
            WaitForWriters();
            afterKill(step);
        }
    }

private:
    QByteArray before_ = qgetenv("XDG_STATE_HOME");
};

const QByteArray longContent = QByteArray("a longer content\r\n").repeated(3000);
const QByteArray shortContent = QByteArray("a shorter one\r\n").repeated(2000);

TEST_F(InterruptedSave, LeavesAWholeFileAtEveryStepAndTheStartRemovesTheRest) {
    int leftovers = 0;
    KillAtEachStep(
        longContent, Killed::TheProcess, [&] { Put(Path("site/page.html"), shortContent); },
        [&](int step) {
            const QByteArray content = Content(Path("site/page.html"));
            EXPECT_TRUE(content == shortContent || content == longContent) << "step " << step;
            leftovers += NamesIn(Path("site")).size() > 1 ? 1 : 0;
            RepairInterruptedSaves();
            EXPECT_EQ(NamesIn(Path("site")), QStringList("page.html")) << "step " << step;
            EXPECT_TRUE(NamesIn(Path("state/vellumcraft/saves")).isEmpty()) << "step " << step;
        });
    EXPECT_GT(leftovers, 0) << "else the test kills at no step that matters";
}

TEST_F(InterruptedSave, InPlaceIsWholeForOtherProgramsAtEveryStep) {
    for (const auto& [before, after] : {std::pair{shortContent, longContent}, std::pair{longContent, shortContent}}) {
        KillAtEachStep(
            after, Killed::TheProcess, [&] { PutLinked(before); },
            [&](int step) {
                const QByteArray content = Content(Path("site/other.html"));
                EXPECT_TRUE(content == before || content == after) << "step " << step;
                RepairInterruptedSaves();
                EXPECT_EQ(Content(Path("site/other.html")), content) << "step " << step;
                EXPECT_EQ(NamesIn(Path("site")), QStringList({"other.html", "page.html"})) << "step " << step;
            });
    }
}

TEST_F(InterruptedSave, InPlaceIsRepairedByTheStartWhenEverythingIsKilledAtOnce) {
    for (const auto& [before, after] : {std::pair{shortContent, longContent}, std::pair{longContent, shortContent}}) {
        int damaged = 0;
        KillAtEachStep(
            after, Killed::AllAtOnce, [&] { PutLinked(before); },
            [&](int step) {
                const QByteArray left = Content(Path("site/other.html"));
                damaged += left != before && left != after ? 1 : 0;
                RepairInterruptedSaves();
                const QByteArray content = Content(Path("site/other.html"));
                EXPECT_TRUE(content == before || content == after) << "step " << step;
                EXPECT_EQ(NamesIn(Path("site")), QStringList({"other.html", "page.html"})) << "step " << step;
                EXPECT_TRUE(NamesIn(Path("state/vellumcraft/saves")).isEmpty()) << "step " << step;
            });
        EXPECT_EQ(damaged > 0, after.size() < before.size()) << "whose end goes by a second call";
        // The end of the first call and the begin of the second one; a signal may make a stop come twice, and
        // sanitizers make calls of their own.
        EXPECT_LE(damaged, 6);
    }
}

TEST_F(InterruptedSave, OfALivingProcessIsLeftAlone) {
    Put(Path("site/.vellumcraft-abc"), "half");
    const SaveRecord record(Name("site/page.html"), {Name("site/.vellumcraft-abc")});
    RepairInterruptedSaves();
    EXPECT_EQ(Content(Path("site/.vellumcraft-abc")), "half");
}

TEST_F(InterruptedSave, RemovesNoFileButItsOwn) {
    Put(Path("site/precious.html"), "precious");
    ASSERT_EQ(::symlink("precious.html", Name("site/.vellumcraft-link").constData()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const SaveRecord record(Name("site/page.html"), {Name("site/precious.html"), Name("site/.vellumcraft-link")});
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    RepairInterruptedSaves();
    EXPECT_EQ(NamesIn(Path("site")), QStringList({".vellumcraft-link", "precious.html"}));
}

TEST_F(InterruptedSave, WaitsForAFolderThatIsNotThere) {
    Put(Path("site/.vellumcraft-abc"), "half");
    const pid_t child = ::fork();
    if (child == 0) {
        const SaveRecord record(Name("site/page.html"), {Name("site/.vellumcraft-abc")});
        ::_exit(0);
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    ASSERT_TRUE(QDir(folder_.path()).rename("site", "unplugged"));
    RepairInterruptedSaves();
    ASSERT_TRUE(QDir(folder_.path()).rename("unplugged", "site"));
    RepairInterruptedSaves();
    EXPECT_TRUE(NamesIn(Path("site")).isEmpty());
}

QByteArray FirstContent() {
    return QByteArray("first content\r\n").repeated(200'000);
}

QByteArray SecondContent() {
    return QByteArray("the second one\n").repeated(150'000);
}

TEST(InterruptedSaveChild, DISABLED_SavesUntilKilled) {
    qputenv("XDG_STATE_HOME", QFile::encodeName(ChildFolder() + "/state"));
    const QString path = ChildFolder() + "/site/page.html";
    const QByteArray contents[] = {FirstContent(), SecondContent()};
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (int round = 0;; ++round) ASSERT_TRUE(WriteFileSafely(path, contents[round % 2]));
}

bool IsWhole(const QByteArray& content) {
    return content == FirstContent() || content == SecondContent();
}

// Kills a process that saves again and again, at times that differ from round to round.
template <typename AfterKill>
void KillAgainAndAgain(const QString& folder, AfterKill afterKill) {
    std::mt19937 random(4711);
    QElapsedTimer all;
    all.start();
    for (int round = 0; round < 30 && all.elapsed() < 12'000; ++round) {
        ChildProcess child("InterruptedSaveChild.DISABLED_SavesUntilKilled", folder);
        ASSERT_TRUE(child.WaitFor("ready"));
        const qint64 after = static_cast<qint64>(random() % 40'000'000);
        QElapsedTimer timer;
        timer.start();
        while (timer.nsecsElapsed() < after) ::sched_yield();
        ASSERT_TRUE(child.KilledNow());
        afterKill(round);
        if (testing::Test::HasFailure()) return;
    }
}

TEST_F(InterruptedSave, LeavesAWholeFileAtAnyMoment) {
    Put(Path("site/page.html"), FirstContent());
    KillAgainAndAgain(folder_.path(), [&](int round) {
        EXPECT_TRUE(IsWhole(Content(Path("site/page.html")))) << "round " << round;
        RepairInterruptedSaves();
        EXPECT_EQ(NamesIn(Path("site")), QStringList("page.html")) << "round " << round;
    });
}

TEST_F(InterruptedSave, InPlaceLeavesAWholeFileAtAnyMoment) {
    PutLinked(FirstContent());
    KillAgainAndAgain(folder_.path(), [&](int round) {
        WaitForWriters();
        const QByteArray content = Content(Path("site/other.html"));
        EXPECT_TRUE(IsWhole(content)) << "round " << round;
        RepairInterruptedSaves();
        EXPECT_EQ(Content(Path("site/page.html")), content) << "round " << round;
        EXPECT_EQ(NamesIn(Path("site")), QStringList({"other.html", "page.html"})) << "round " << round;
    });
}

}  // namespace
}  // namespace vellum::test
