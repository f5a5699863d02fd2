#include "system/system_facts.h"

#include "system/programs.h"

#include <QThread>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(SystemFacts, ProcessorTypeIsTheFamily) {
    EXPECT_EQ(ProcessorTypeIn("processor\t: 0\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: 85\n\n"
                              "processor\t: 1\ncpu family\t: 7\n"),
              6);
    EXPECT_EQ(ProcessorTypeIn("processor\t: 0\nFeatures\t: fp\nCPU implementer\t: 0x41\nCPU architecture: 8\n"), 8);
}

TEST(SystemFacts, AnUnknownProcessorIsOfTypeZero) {
    EXPECT_EQ(ProcessorTypeIn(""), 0);
    EXPECT_EQ(ProcessorTypeIn("processor : 0\nisa : rv64\ncpu family : unknown\n"), 0);
}

TEST(SystemFacts, MemoryIsInBytes) {
    SystemFacts facts;
    ReadMemoryFacts(
        "MemTotal:       16314560 kB\nMemFree:          100000 kB\nMemAvailable:    8000000 kB\n"
        "SwapCached:            7 kB\nSwapTotal:       2000000 kB\nSwapFree:        1500000 kB\n",
        facts);
    EXPECT_EQ(facts.totalPhysicalMemory, 16706109440U);
    EXPECT_EQ(facts.freePhysicalMemory, 8192000000U);
    EXPECT_EQ(facts.totalVirtualMemory, 18754109440U);
    EXPECT_EQ(facts.freeVirtualMemory, 9728000000U);
}

TEST(SystemFacts, MissingMemoryFiguresAreZero) {
    SystemFacts facts;
    ReadMemoryFacts("MemTotal: 4 kB\nnonsense\nMemAvailable:\n", facts);
    EXPECT_EQ(facts.totalPhysicalMemory, 4096U);
    EXPECT_EQ(facts.freePhysicalMemory, 0U);
    EXPECT_EQ(facts.totalVirtualMemory, 4096U);
    EXPECT_EQ(facts.freeVirtualMemory, 0U);
}

TEST(SystemFacts, ThisMachineMakesSense) {
    const SystemFacts facts = ReadSystemFacts();
    EXPECT_GE(facts.processorCount, 1);
    EXPECT_GE(facts.processorCount, QThread::idealThreadCount());  // which counts those that we may run on
    EXPECT_EQ(facts.windowsDirectory, WindowsDirectoryPath());
    EXPECT_EQ(facts.systemDirectory, "/usr/bin");
    EXPECT_GT(facts.totalPhysicalMemory, 64U << 20U);
    EXPECT_LE(facts.freePhysicalMemory, facts.totalPhysicalMemory);
    EXPECT_GE(facts.totalVirtualMemory, facts.totalPhysicalMemory);
    const std::uint64_t before = facts.millisecondsSinceBoot;
    EXPECT_GT(before, 0U);
    EXPECT_GE(ReadSystemFacts().millisecondsSinceBoot, before);
}

}  // namespace
}  // namespace vellum
