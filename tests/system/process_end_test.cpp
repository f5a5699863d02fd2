#include "system/process_end.h"

#include "tests/files/child_process.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace vellum {
namespace {

TEST(ProcessEndChild, DISABLED_Hangs) {
    EndProcessWithin(std::chrono::milliseconds(50), 7);
    while (true) ::pause();
}

TEST(ProcessEnd, ComesThoughTheProcessHangs) {
    const QTemporaryDir folder;
    ChildProcess child("ProcessEndChild.DISABLED_Hangs", folder.path());
    ASSERT_TRUE(child.waitForFinished());
    EXPECT_EQ(child.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(child.exitCode(), 7);
}

}  // namespace
}  // namespace vellum
