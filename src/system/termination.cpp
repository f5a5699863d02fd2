#include "system/termination.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace vellum {
namespace {

constexpr std::array watchedSignals{SIGTERM, SIGHUP, SIGINT};

std::atomic<int> tellWatcher = -1;  // a handler may do hardly more than write

void OnSignal(int number) {
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    static_cast<void>(!::write(tellWatcher, &byte, 1));
    errno = before;
}

void Handle(int number, void (*handler)(int)) {
    struct sigaction action = {};
    if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

}  // namespace

Termination::Termination(std::function<void()> before) : before_(std::move(before)) {
    if (::pipe2(pipe_, O_CLOEXEC) != 0) return;
    tellWatcher = pipe_[1];
    watcher_ = std::thread([this] { Watch(); });
    for (const int number : watchedSignals) Handle(number, OnSignal);
}

Termination::~Termination() {
    for (const int number : watchedSignals) Handle(number, SIG_DFL);
    if (!watcher_.joinable()) return;
    OnSignal(0);
    watcher_.join();
    tellWatcher = -1;
    for (const int end : pipe_) ::close(end);
}

void Termination::Watch() const {
    unsigned char number = 0;
    ssize_t got = 0;
    do {
        got = ::read(pipe_[0], &number, 1);
    } while (got < 0 && errno == EINTR);
    if (got != 1 || number == 0) return;
    before_();
    Handle(number, SIG_DFL);
    ::kill(::getpid(), number);
}

}  // namespace vellum
