#include "files/save_record.h"

#include "tests/files/file_fixture.h"

#include <sys/wait.h>

namespace vellum::test {
namespace {

class SaveRecordTest : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_STATE_HOME", QFile::encodeName(folder_.path())); }
    void TearDown() override { qputenv("XDG_STATE_HOME", before_); }

    [[nodiscard]] QString Notes() const { return folder_.filePath("vellumcraft/saves"); }

    // Leaves a note behind, as a killed process does.
    static void Abandon(const QByteArray& target, const QByteArrayList& hidden) {
        const pid_t child = ::fork();
        if (child == 0) {
            const SaveRecord record(target, hidden);
            ::_exit(0);
        }
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    }

    // What is handed over, "target < hidden, hidden".
    static QByteArrayList Visit(bool done) {
        QByteArrayList visited;
        VisitAbandonedSaves([&](const QByteArray& target, const QByteArrayList& hidden) {
            visited << target + " < " + hidden.join(", ");
            return done;
        });
        return visited;
    }

    QTemporaryDir folder_;

private:
    QByteArray before_ = qgetenv("XDG_STATE_HOME");
};

TEST_F(SaveRecordTest, StandsAsLongAsTheSaveLasts) {
    EXPECT_EQ(Visit(true), QByteArrayList()) << "without any folder";
    {
        const SaveRecord record("/site/page.htm", {"/site/.vellumcraft-1"});
        record.Sync();
        EXPECT_EQ(NamesIn(Notes()).size(), 1);
        EXPECT_EQ(StatusOf(Notes()).st_mode & 0777U, 0700U);
        EXPECT_EQ(Visit(true), QByteArrayList()) << "this process lives";
        const SaveRecord second("/site/page.htm", {});
        EXPECT_EQ(NamesIn(Notes()).size(), 2);
    }
    EXPECT_EQ(NamesIn(Notes()), QStringList());
}

TEST_F(SaveRecordTest, OfAProcessThatIsGoneIsHandedOverUntilAllIsDone) {
    Abandon("/site/odd\nname\xE9.htm", {"/site/.vellumcraft-1", "/other/.vellumcraft-2"});
    const QByteArray said = "/site/odd\nname\xE9.htm < /site/.vellumcraft-1, /other/.vellumcraft-2";
    EXPECT_EQ(Visit(false), QByteArrayList{said});
    EXPECT_EQ(Visit(true), QByteArrayList{said});
    EXPECT_EQ(Visit(true), QByteArrayList());
    EXPECT_EQ(NamesIn(Notes()), QStringList());
}

TEST_F(SaveRecordTest, TellsWholePaths) {
    Abandon("page.htm", {"./.vellumcraft-1"});
    const QByteArray here = QFile::encodeName(QDir::currentPath());
    EXPECT_EQ(Visit(true), QByteArrayList{here + "/page.htm < " + here + "/./.vellumcraft-1"});
}

TEST_F(SaveRecordTest, ThatIsNotWholeGoes) {
    ASSERT_TRUE(QDir().mkpath(Notes()));
    Put(Notes() + "/1-empty", "");
    Put(Notes() + "/1-half", "/site/pa");
    EXPECT_EQ(Visit(false), QByteArrayList());
    EXPECT_EQ(NamesIn(Notes()), QStringList());
}

TEST_F(SaveRecordTest, IsNoHindranceWhereNoneCanBeMade) {
    Put(folder_.filePath("vellumcraft"), "in the way");
    const SaveRecord record("/site/page.htm", {});
    record.Sync();
    EXPECT_EQ(Visit(true), QByteArrayList());
    EXPECT_EQ(Content(folder_.filePath("vellumcraft")), "in the way");
}

}  // namespace
}  // namespace vellum::test
