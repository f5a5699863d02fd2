#include "system/termination.h"

#include "tests/files/child_process.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

namespace vellum {
namespace {

QString NotePath(const QString& folder) {
    return folder + "/note";
}

void LeaveNote() {
    QFile note(NotePath(ChildFolder()));
    (void)note.open(QFile::WriteOnly | QFile::Append);
    note.write("before the end\n");
}

// With a main thread that never looks at anything.
TEST(TerminationChild, DISABLED_IsBusy) {
    const Termination termination(LeaveNote);
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (volatile bool busy = true; busy;) continue;
}

TEST(TerminationChild, DISABLED_IgnoresHangups) {
    ::signal(SIGHUP, SIG_IGN);
    const Termination termination(LeaveNote);
    ::raise(SIGHUP);
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (;;) ::pause();
}

TEST(TerminationChild, DISABLED_GoesOnWithoutIt) {
    { const Termination termination(LeaveNote); }
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (;;) ::pause();
}

class TerminationTest : public testing::TestWithParam<int> {
protected:
    // Starts the child and ends it by a signal. What it left, or a word on what went wrong.
    [[nodiscard]] QByteArray NoteOf(const QString& child, int number) const {
        ChildProcess process("TerminationChild.DISABLED_" + child, folder_.path());
        if (!process.WaitFor("ready")) return "it didn't start";
        ::kill(static_cast<pid_t>(process.processId()), number);
        if (!process.waitForFinished(20'000)) return "it didn't end";
        if (process.exitStatus() != QProcess::CrashExit || process.exitCode() != number) return "not by the signal";
        QFile note(NotePath(folder_.path()));
        return note.open(QFile::ReadOnly) ? note.readAll() : QByteArray();
    }

    QTemporaryDir folder_;
};

TEST_P(TerminationTest, TheProgramEndsByTheSignalAfterItsLastAct) {
    EXPECT_EQ(NoteOf("IsBusy", GetParam()), "before the end\n");
}

TEST_F(TerminationTest, AnIgnoredSignalStaysIgnored) {
    EXPECT_EQ(NoteOf("IgnoresHangups", SIGTERM), "before the end\n");
}

TEST_F(TerminationTest, AfterItsEndSignalsAreWhatTheyWere) {
    EXPECT_EQ(NoteOf("GoesOnWithoutIt", SIGTERM), "");
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminationTest, testing::Values(SIGTERM, SIGHUP, SIGINT));

}  // namespace
}  // namespace vellum
