#include "files/separate_process.h"

#include "files/file_descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellum {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends = {};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        out = FileDescriptor(ends[0]);
        in = FileDescriptor(ends[1]);
    }
    // The next byte; 0 when all others have closed their ends.
    [[nodiscard]] char Read() const {
        char byte = 0;
        return ::read(out.Get(), &byte, 1) == 1 ? byte : '\0';
    }
    void Write(char byte) const { EXPECT_EQ(::write(in.Get(), &byte, 1), 1); }

    FileDescriptor out;
    FileDescriptor in;
};

TEST(SeparateProcess, ReturnsWhatTheStepReturned) {
    EXPECT_EQ(RunSeparately([] { return 0; }), 0);
    EXPECT_EQ(RunSeparately([] { return ENOSPC; }), ENOSPC);
}

TEST(SeparateProcess, IsNotThisOneNorOfItsSession) {
    const pid_t own = ::getpid();
    EXPECT_EQ(RunSeparately([own] { return ::getpid() != own ? 0 : 1; }), 0);
    EXPECT_EQ(RunSeparately([] { return ::getsid(0) == ::getpid() ? 0 : 1; }), 0);
}

TEST(SeparateProcess, LeavesNoDeadProcess) {
    EXPECT_EQ(RunSeparately([] { return 0; }), 0);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(SeparateProcess, LeavesTheSignalsOfThisOneAsTheyWere) {
    sigset_t before;
    sigset_t after;
    ::pthread_sigmask(SIG_SETMASK, nullptr, &before);
    EXPECT_EQ(RunSeparately([] { return ::raise(SIGTERM); }), 0) << "none reaches the other one";
    ::pthread_sigmask(SIG_SETMASK, nullptr, &after);
    for (int signal = 1; signal < SIGRTMIN; ++signal) {
        EXPECT_EQ(::sigismember(&before, signal), ::sigismember(&after, signal)) << signal;
    }
}

TEST(SeparateProcess, EndsTheStepWhenThisOneIsKilled) {
    Pipe begun;
    Pipe go;
    Pipe ended;
    const pid_t child = ::fork();
    if (child == 0) {
        (void)RunSeparately([&] {
            begun.Write('b');
            ended.Write(go.Read());
            return 0;
        });
        ::_exit(0);
    }
    ASSERT_EQ(begun.Read(), 'b');
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    ASSERT_TRUE(ended.in.Close());
    go.Write('g');
    EXPECT_EQ(ended.Read(), 'g');
}

TEST(SeparateProcess, StepsInForOneThatIsKilled) {
    const pid_t own = ::getpid();
    EXPECT_EQ(RunSeparately([own] {
                  if (::getpid() != own) ::raise(SIGKILL);
                  return 7;
              }),
              7);
}

}  // namespace
}  // namespace vellum
