#include "system/media_player.h"

#include "tests/system/script_folder.h"

#include <csignal>

namespace vellum {
namespace {

class Player : public test::ScriptFolder {
protected:
    static constexpr auto goOn = "while :; do /bin/sleep 0.05; done";

    static bool Runs(const QString& process) { return ::kill(process.toInt(), 0) == 0; }
    static bool Ends(const QString& process) {
        return QTest::qWaitFor([&] { return !Runs(process); }, patience);
    }
};

TEST_F(Player, GetsTheFullPathAsItsOneArgument) {
    AddScript("mpv", goOn);
    MediaPlayer player;
    for (const QString path : {"/tmp/-two words.wav", "/tmp/it's \"a\" #1 100%.mid", "/tmp/\u043f\u0440.avi"}) {
        ASSERT_TRUE(player.Play(path));
        EXPECT_EQ(TakeNote().mid(1), QStringList({"1", path}));
    }
}

TEST_F(Player, StopEndsIt) {
    AddScript("mpv", goOn);
    MediaPlayer player;
    ASSERT_TRUE(player.Play("/tmp/a.wav"));
    const QString process = TakeNote().value(0);
    EXPECT_TRUE(Runs(process));
    player.Stop();
    EXPECT_TRUE(Ends(process));
}

TEST_F(Player, ADeafOneIsEndedAllTheSame) {
    AddScript("mpv", "trap '' TERM\n: > \"$0.deaf\"\nwhile :; do /bin/sleep 0.05; done");
    MediaPlayer player;
    ASSERT_TRUE(player.Play("/tmp/a.wav"));
    const QString process = TakeNote().value(0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(folder.filePath("bin/mpv.deaf")); }, patience));
    player.Stop();
    EXPECT_TRUE(Ends(process));
}

TEST_F(Player, PlayingAnotherEndsTheFirst) {
    AddScript("mpv", goOn);
    MediaPlayer player;
    ASSERT_TRUE(player.Play("/tmp/a.wav"));
    const QString first = TakeNote().value(0);
    ASSERT_TRUE(player.Play("/tmp/b.wav"));
    const QString second = TakeNote().value(0);
    EXPECT_TRUE(Ends(first));
    EXPECT_TRUE(Runs(second));
}

TEST_F(Player, ItsOwnEndIsNoticed) {
    AddScript("mpv");
    MediaPlayer player;
    ASSERT_TRUE(player.Play("/tmp/a.wav"));
    EXPECT_TRUE(Ends(TakeNote().value(0))) << "its parent has taken notice of its end";
    player.Stop();
}

TEST_F(Player, IsFalseWithoutAPlayer) {
    MediaPlayer player;
    EXPECT_FALSE(player.Play("/tmp/a.wav"));
    AddScript("mpv");
    QFile broken(folder.filePath("bin/mpv"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly | QIODevice::Truncate));
    broken.write("#!/no/such/interpreter\n");
    broken.close();
    EXPECT_FALSE(player.Play("/tmp/a.wav"));
}

}  // namespace
}  // namespace vellum
