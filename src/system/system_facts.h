// What the About page tells about the machine.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace vellum {

struct SystemFacts {
    int processorType = 0;  // the family of an x86 processor, the architecture's version of an ARM one, 0 when unknown
    int processorCount = 0;
    QString windowsDirectory;
    QString systemDirectory;
    // In bytes. The virtual memory is the physical one and what it can be swapped out to.
    std::uint64_t totalPhysicalMemory = 0;
    std::uint64_t freePhysicalMemory = 0;
    std::uint64_t totalVirtualMemory = 0;
    std::uint64_t freeVirtualMemory = 0;
    std::uint64_t millisecondsSinceBoot = 0;
};

// As they stand now. What the system doesn't tell stays 0 or empty.
[[nodiscard]] SystemFacts ReadSystemFacts();

// The processor type out of the text of /proc/cpuinfo.
[[nodiscard]] int ProcessorTypeIn(const QByteArray& processors);

// Fills in the memory figures out of the text of /proc/meminfo.
void ReadMemoryFacts(const QByteArray& memory, SystemFacts& facts);

}  // namespace vellum
