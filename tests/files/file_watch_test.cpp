#include "files/file_watch.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr int patience = 5000;  // milliseconds

class FileWatches : public testing::Test {
protected:
    [[nodiscard]] QString At(const QString& name) const { return folder_.filePath(name); }

    void Write(const QString& name) const {
        QFile file(At(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Append));
        ASSERT_EQ(file.write("x"), 1);
    }

    // Again and again, until it is told.
    template <typename Change>
    [[nodiscard]] bool Tells(const Change& change) {
        QSignalSpy stirred(&watch_, &FileWatch::Stirred);
        for (int attempt = 0; attempt < 50 && stirred.isEmpty(); ++attempt) {
            change();
            stirred.wait(patience / 50);
        }
        return !stirred.isEmpty();
    }

    const QTemporaryDir folder_;
    FileWatch watch_;
};

TEST_F(FileWatches, TellWhatIsWrittenIntoAFile) {
    Write("page.htm");
    watch_.SetFiles({At("page.htm")});
    EXPECT_TRUE(Tells([this] { Write("page.htm"); }));
}

TEST_F(FileWatches, TellOfAFileThatIsReplacedAndOfItsSuccessor) {
    Write("page.htm");
    watch_.SetFiles({At("page.htm")});
    EXPECT_TRUE(Tells([this] {
        Write("new");
        QFile::remove(At("page.htm"));
        QFile::rename(At("new"), At("page.htm"));
    }));
    EXPECT_TRUE(Tells([this] { Write("page.htm"); }));
}

TEST_F(FileWatches, TellOfAFileThatComesBack) {
    watch_.SetFiles({At("page.htm")});
    EXPECT_TRUE(Tells([this] {
        QFile::remove(At("page.htm"));
        Write("page.htm");
    }));
}

}  // namespace
}  // namespace vellum
