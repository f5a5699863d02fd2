#include "tools/scripts/control_registry.h"

#include "tests/tools/scripts/registry_sample.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

class ControlRegistry : public testing::Test {
protected:
    std::vector<Control> Read(const QByteArray& bytes) const {
        QFile file(folder_.filePath("system.reg"));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.close();
        return ReadControls(file.fileName());
    }

    QTemporaryDir folder_;
};

TEST_F(ControlRegistry, TellsTheControlsByTheirNames) {
    const std::vector<Control> controls = Read(registrySample);
    ASSERT_EQ(controls.size(), 2U);
    EXPECT_EQ(controls[0].name, QString::fromUtf8("abl\u00E9 Button"));
    EXPECT_EQ(controls[0].classId, "{0000aaaa-0000-0000-0000-000000000004}");
    EXPECT_EQ(controls[0].programId, "") << "it has no such key";
    EXPECT_EQ(controls[1].name, "Zebra \"Striped\" Control");
    EXPECT_EQ(controls[1].classId, "{0000AAAA-0000-0000-0000-000000000001}");
    EXPECT_EQ(controls[1].programId, "Zebra.Striped.1") << "cut at the NUL, and without blanks";
}

TEST_F(ControlRegistry, TakesAnyLineEnds) {
    EXPECT_EQ(Read(QByteArray(registrySample).replace("\n", "\r\n")).size(), 2U);
    EXPECT_EQ(Read("[Software\\\\Classes\\\\CLSID\\\\{1}\\\\Control] 1").size(), 1U);
}

TEST_F(ControlRegistry, HasNoneWithoutARegistry) {
    EXPECT_TRUE(ReadControls(folder_.filePath("missing.reg")).empty());
    EXPECT_TRUE(ReadControls(folder_.path()).empty());
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read("@=\"x\"\n[\n[]\n[Software\\").empty());
}

TEST_F(ControlRegistry, StandsWhereWineKeepsIt) {
    qunsetenv("WINEPREFIX");
    EXPECT_EQ(RegistryFile(), QDir::homePath() + "/.wine/system.reg");
    qputenv("WINEPREFIX", "/else");
    EXPECT_EQ(RegistryFile(), "/else/system.reg");
    qunsetenv("WINEPREFIX");
}

}  // namespace
}  // namespace vellum::test
