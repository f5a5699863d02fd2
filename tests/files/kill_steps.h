// Kills a piece of work at a chosen step, a step being the begin or the end of a call of the system.
#pragma once

#include <cerrno>
#include <csignal>
#include <functional>
#include <set>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vellum::test {

enum class Killed {
    TheProcess,   // the one that works; a process that it has made lives on
    AllAtOnce,    // that one too, as when the power fails
    Nothing,      // the work was done before
    CannotTrace,  // the system lets nobody look on
};

// What is killed at one step after the other. `victim`: TheProcess or AllAtOnce.
class KillSteps {
public:
    KillSteps(std::function<void()> work, Killed victim) : work_(std::move(work)), victim_(victim) {}

    // Begins the work anew and kills it at a step, counted from 1. Returns what was killed.
    Killed KillAt(int step) {
        constexpr int cannotTrace = 77;
        running_.clear();
        first_ = ::fork();
        if (first_ == 0) {
            if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(cannotTrace);
            ::raise(SIGSTOP);
            work_();
            ::_exit(0);
        }
        int status = 0;
        if (::waitpid(first_, &status, 0) != first_ || !WIFSTOPPED(status)) return Killed::CannotTrace;
        running_.insert(first_);
        long options = PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD;
        if (victim_ == Killed::AllAtOnce) options |= PTRACE_O_TRACEFORK;
        ::ptrace(PTRACE_SETOPTIONS, first_, nullptr, options);
        pid_t stopped = first_;
        for (int steps = 0; steps < step;) {
            ::ptrace(PTRACE_SYSCALL, stopped, nullptr, nullptr);
            stopped = NextStop();
            if (stopped == 0) return Killed::Nothing;
            ++steps;
        }
        for (const pid_t process : running_) ::kill(process, SIGKILL);
        // One that was just being made stops only now.
        for (pid_t process = 0; (process = ::waitpid(-1, &status, __WALL)) > 0;) {
            if (WIFSTOPPED(status)) ::kill(process, SIGKILL);
        }
        return victim_;
    }

private:
    // Waits until one of the processes stops; 0 when the first one has ended.
    pid_t NextStop() {
        for (;;) {
            int status = 0;
            const pid_t process = ::waitpid(-1, &status, __WALL);
            if (process < 0) return 0;
            if (WIFSTOPPED(status)) {
                running_.insert(process);
                return process;
            }
            running_.erase(process);
            if (process == first_) return 0;
        }
    }

    std::function<void()> work_;
    Killed victim_;
    pid_t first_ = 0;
    std::set<pid_t> running_;  // those that are traced
};

}  // namespace vellum::test
