#include "system/system_facts.h"

#include "system/programs.h"

#include <QFile>

#include <ctime>
#include <unistd.h>

namespace vellum {
namespace {

QByteArray ProcText(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// What stands after the colon of the first line for `key`; empty when there is no such line.
QByteArray ValueOf(const QByteArray& text, const QByteArray& key) {
    for (const QByteArray& line : text.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon >= 0 && line.first(colon).trimmed() == key) return line.mid(colon + 1).trimmed();
    }
    return {};
}

// A figure such as "16314560 kB", in bytes.
std::uint64_t BytesOf(const QByteArray& text, const QByteArray& key) {
    const QByteArray figure = ValueOf(text, key).split(' ').constFirst();
    return std::uint64_t{1024} * figure.toULongLong();
}

std::uint64_t MillisecondsSinceBoot() {
    timespec since{};
    // The clock that goes on while the machine sleeps.
    if (::clock_gettime(CLOCK_BOOTTIME, &since) != 0) return 0;
    return static_cast<std::uint64_t>(since.tv_sec) * 1000 + static_cast<std::uint64_t>(since.tv_nsec) / 1000000;
}

}  // namespace

int ProcessorTypeIn(const QByteArray& processors) {
    for (const char* key : {"cpu family", "CPU architecture"}) {
        bool isNumber = false;
        const int type = ValueOf(processors, key).toInt(&isNumber);
        if (isNumber) return type;
    }
    return 0;
}

void ReadMemoryFacts(const QByteArray& memory, SystemFacts& facts) {
    facts.totalPhysicalMemory = BytesOf(memory, "MemTotal");
    facts.freePhysicalMemory = BytesOf(memory, "MemAvailable");
    facts.totalVirtualMemory = facts.totalPhysicalMemory + BytesOf(memory, "SwapTotal");
    facts.freeVirtualMemory = facts.freePhysicalMemory + BytesOf(memory, "SwapFree");
}

SystemFacts ReadSystemFacts() {
    SystemFacts facts;
    facts.processorType = ProcessorTypeIn(ProcText(QStringLiteral("/proc/cpuinfo")));
    facts.processorCount = static_cast<int>(qMax(0L, ::sysconf(_SC_NPROCESSORS_ONLN)));
    facts.windowsDirectory = WindowsDirectoryPath();
    facts.systemDirectory = facts.windowsDirectory;  // the system keeps its programs and itself in one place
    ReadMemoryFacts(ProcText(QStringLiteral("/proc/meminfo")), facts);
    facts.millisecondsSinceBoot = MillisecondsSinceBoot();
    return facts;
}

}  // namespace vellum
