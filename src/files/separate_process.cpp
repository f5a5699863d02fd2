#include "files/separate_process.h"

#include "files/file_descriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace vellum {
namespace {

// What the other end says; nothing when it was closed without a word.
std::optional<int> Hear(const FileDescriptor& end) {
    int number = 0;
    ssize_t got = -1;
    do {
        got = ::read(end.Get(), &number, sizeof(number));
    } while (got < 0 && errno == EINTR);
    return got == ssize_t{sizeof(number)} ? std::optional(number) : std::nullopt;
}

// Not in the session of the parent, so that what ends a whole terminal spares it. No signal handler of the parent runs
// here either: all signals are blocked.
[[noreturn]] void WorkAsChild(const std::function<int()>& step, int end) {
    ::setsid();
    const int number = step();
    (void)!::write(end, &number, sizeof(number));
    ::_exit(0);
}

std::optional<int> TrySeparately(const std::function<int()>& step) {
    std::array<int, 2> ends = {};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
    const FileDescriptor hearing(ends[0]);
    FileDescriptor telling(ends[1]);
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t child = ::fork();
    if (child == 0) WorkAsChild(step, telling.Get());
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (child < 0) return std::nullopt;
    (void)telling.Close();
    const std::optional<int> number = Hear(hearing);
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
    return number;
}

}  // namespace

int RunSeparately(const std::function<int()>& step) {
    const std::optional<int> number = TrySeparately(step);
    return number ? *number : step();
}

}  // namespace vellum
