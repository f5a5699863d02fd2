// The signals that ask a program to end: SIGTERM, SIGHUP and SIGINT.
#pragma once

#include <functional>
#include <thread>

namespace vellum {

// As long as it lives, `before` runs first when such a signal comes, on a thread of its own: whatever the others are
// busy with, and however long they are. The program then ends by that signal, as if nobody had looked at it. A signal
// that whoever started the program has it ignore stays ignored. One at a time.
class Termination {
public:
    explicit Termination(std::function<void()> before);
    ~Termination();
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;

private:
    void Watch() const;

    std::function<void()> before_;
    int pipe_[2] = {-1, -1};
    std::thread watcher_;
};

}  // namespace vellum
