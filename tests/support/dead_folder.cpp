#include "tests/support/dead_folder.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>

#include <condition_variable>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): realpath is declared there only
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::mutex mutex;
std::condition_variable revived;
QByteArray folder;  // empty while there is none
bool dead = false;
int waiting = 0;
int callsOfTheMainThread = 0;

void LookAt(const char* path) {
    std::unique_lock lock(mutex);
    if (folder.isEmpty() || path == nullptr || !QByteArrayView(path).startsWith(folder)) return;
    if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
        ++callsOfTheMainThread;
        return;
    }
    ++waiting;
    revived.wait(lock, [] { return !dead; });
    --waiting;
}

template <typename Function>
Function* SystemCall(Function* /*own*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// A function of the program goes before the one of the same name in the C library, also for the libraries.
extern "C" {

char* realpath(const char* path, char* resolved) noexcept {
    LookAt(path);
    return SystemCall(&realpath, "realpath")(path, resolved);
}

int access(const char* path, int mode) noexcept {
    LookAt(path);
    return SystemCall(&access, "access")(path, mode);
}

int statx(int directory, const char* path, int flags, unsigned mask, struct statx* buffer) noexcept {
    LookAt(path);
    return SystemCall(&statx, "statx")(directory, path, flags, mask, buffer);
}
}

namespace vellum::test {

DeadFolder::DeadFolder(const QString& path) {
    const std::scoped_lock lock(mutex);
    folder = QFile::encodeName(path);
    dead = true;
    callsOfTheMainThread = 0;
}

DeadFolder::~DeadFolder() {
    Revive();
    const std::scoped_lock lock(mutex);
    folder.clear();
}

int DeadFolder::Waiting() const {
    const std::scoped_lock lock(mutex);
    return waiting;
}

int DeadFolder::CallsOfTheMainThread() const {
    const std::scoped_lock lock(mutex);
    return callsOfTheMainThread;
}

void DeadFolder::Revive() {
    const std::scoped_lock lock(mutex);
    dead = false;
    revived.notify_all();
}

}  // namespace vellum::test
