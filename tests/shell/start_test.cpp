#include "shell/start.h"

#include "settings/settings_keys.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/wait_for.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

TEST(SplashStroke, GrowsFromTick5To20) {
    EXPECT_EQ(SplashStrokeAt(4, 6900, 3900), std::nullopt);
    EXPECT_EQ(SplashStrokeAt(5, 6900, 3900), (SplashStroke{3450, 1950, 800, 17}));
    EXPECT_EQ(SplashStrokeAt(20, 6900, 3900), (SplashStroke{3450, 1950, 12800, 257}));
    EXPECT_EQ(SplashStrokeAt(21, 6900, 3900), std::nullopt);
}

class StartTest : public testing::Test {
protected:
    // Milliseconds. What a test isn't about goes fast, and what it waits for by itself doesn't come before.
    static constexpr int atOnce = 0;
    static constexpr int never = 3'600'000;

    static void SetPeriods(const Start& start, int animation, int preparation = atOnce) {
        start.timAnimation->setInterval(animation);
        start.Timer1->setInterval(preparation);
        start.Timer2->setInterval(atOnce);
    }

    QTemporaryDir home;
    SettingsStore settings{home.filePath("settings.json")};
    ScriptedPrompts prompts;
};

TEST_F(StartTest, TakesStoredFontNamesWhileTheCountIsTheSame) {
    WriteSetting(settings, keys::fontsNumber, "2");
    WriteSetting(settings, keys::fontsEntry, 0, "Stored A");
    EXPECT_EQ(PreparedFontNames(settings, {"System A", "System B"}), (QStringList{"Stored A", ""}));
    EXPECT_EQ(PreparedFontNames(settings, {"System A"}), QStringList{"System A"});
}

TEST_F(StartTest, TimersHaveTheirPeriods) {
    const Start start(settings, prompts);
    EXPECT_EQ(start.timAnimation->interval(), 50);
    EXPECT_EQ(start.Timer1->interval(), 500);
    EXPECT_EQ(start.Timer2->interval(), 100);
}

TEST_F(StartTest, AsksAboutTheBrowserOnceAfterTheSplashHasGone) {
    prompts.answers = {Answer::No};
    Start start(settings, prompts);
    SetPeriods(start, atOnce);
    const QSignalSpy ready(&start, &Start::Ready);
    start.Load();
    EXPECT_TRUE(start.isVisible());
    EXPECT_TRUE(start.timAnimation->isActive());
    EXPECT_FALSE(start.Timer2->isActive());
    ASSERT_TRUE(WaitFor([&] { return ready.count() == 1; }));
    EXPECT_FALSE(start.isVisible());
    EXPECT_EQ(prompts.questions, QStringList{"Important|Is Internet Explorer 5.0 or higher installed on your system?"});
    EXPECT_EQ(ReadSetting(settings, keys::useIE), "No");
    EXPECT_FALSE(ready.at(0).at(0).toBool());
    EXPECT_FALSE(start.FontNames().isEmpty());

    Start second(settings, prompts);
    SetPeriods(second, atOnce);
    const QSignalSpy readyAgain(&second, &Start::Ready);
    second.Load();
    ASSERT_TRUE(WaitFor([&] { return readyAgain.count() == 1; }));
    EXPECT_EQ(prompts.questions.size(), 1);
}

// Notes what is to be seen of the splash and of the session at the moment of the question.
class WatchingPrompts : public ScriptedPrompts {
public:
    Answer AskYesNo(QWidget* parent, const QString& text, const QString& title, Answer standard) override {
        splashWasVisible << start->isVisible();
        readyCounts << static_cast<int>(ready->count());
        return ScriptedPrompts::AskYesNo(parent, text, title, standard);
    }

    const Start* start = nullptr;
    const QSignalSpy* ready = nullptr;
    QList<bool> splashWasVisible;
    QList<int> readyCounts;
};

TEST_F(StartTest, TheQuestionStandsBetweenTheSplashAndTheMainWindow) {
    WatchingPrompts watching;
    watching.answers = {Answer::Yes};
    Start start(settings, watching);
    SetPeriods(start, atOnce);
    const QSignalSpy ready(&start, &Start::Ready);
    watching.start = &start;
    watching.ready = &ready;
    start.Load();
    ASSERT_TRUE(WaitFor([&] { return ready.count() == 1; }));
    EXPECT_EQ(watching.splashWasVisible, QList<bool>{false});
    EXPECT_EQ(watching.readyCounts, QList<int>{0});
    EXPECT_EQ(ReadSetting(settings, keys::useIE), "Yes");
    EXPECT_TRUE(ready.at(0).at(0).toBool());
}

TEST_F(StartTest, ASettingsFileThatIsNoneIsToldOnceBeforeTheQuestion) {
    ASSERT_TRUE(QDir(home.path()).mkdir("folder.json"));
    SettingsStore refused(home.filePath("folder.json"));
    prompts.answers = {Answer::Yes};
    Start start(refused, prompts);
    SetPeriods(start, atOnce);
    const QSignalSpy ready(&start, &Start::Ready);
    start.Load();
    ASSERT_TRUE(WaitFor([&] { return ready.count() == 1; }));
    EXPECT_EQ(prompts.messages, QStringList{refused.Refusal()});
    EXPECT_FALSE(prompts.messages.first().isEmpty());
    EXPECT_EQ(prompts.questions.size(), 1);
    EXPECT_TRUE(ready.at(0).at(0).toBool()) << "the answer holds for this session";
}

TEST_F(StartTest, AClickBeforeThePreparationOnlyPausesTheAnimation) {
    WriteSetting(settings, keys::useIE, "Yes");
    Start start(settings, prompts);
    const QSignalSpy ready(&start, &Start::Ready);
    const QSignalSpy ticks(start.timAnimation, &QTimer::timeout);
    SetPeriods(start, 1, never);
    start.Load();
    ASSERT_TRUE(WaitFor([&] { return ticks.count() >= 3; }));
    QTest::mouseClick(&start, Qt::LeftButton);
    EXPECT_FALSE(start.timAnimation->isActive());
    EXPECT_FALSE(start.Timer2->isActive());
    const auto ticksBefore = ticks.count();
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks.count(), ticksBefore) << "the animation stands still";
    start.Timer1->setInterval(atOnce);
    ASSERT_TRUE(WaitFor([&] { return ready.count() == 1; }));
    EXPECT_TRUE(ready.at(0).at(0).toBool());
    EXPECT_EQ(ticks.count(), 36) << "ticks 0 to 35, none lost in the pause";
}

TEST_F(StartTest, AClickOnTheTitleAfterThePreparationEndsTheSplashAtTheNextLook) {
    WriteSetting(settings, keys::useIE, "Yes");
    Start start(settings, prompts);
    const QSignalSpy ready(&start, &Start::Ready);
    SetPeriods(start, never);
    start.Load();
    ASSERT_TRUE(WaitFor([&] { return start.Timer2->isActive(); }));
    QTest::mouseClick(&start, Qt::LeftButton, {}, start.lblmessage->geometry().center());
    EXPECT_FALSE(start.timAnimation->isActive());
    const QSignalSpy looks(start.Timer2, &QTimer::timeout);
    ASSERT_TRUE(WaitFor([&] { return ready.count() == 1; }));
    EXPECT_LE(looks.count(), 1);
}

TEST_F(StartTest, DrawsTheBlackCrossOverTheTitle) {
    WriteSetting(settings, keys::useIE, "Yes");
    Start start(settings, prompts);
    SetPeriods(start, 1, never);
    start.Load();
    EXPECT_FALSE(start.lblX->isVisible());
    ASSERT_TRUE(WaitFor([&] { return start.lblX->isVisible(); }));
    EXPECT_FALSE(start.lblmessage->isVisible());
    EXPECT_FALSE(start.Label1->isVisible());
    EXPECT_TRUE(start.Label2->isVisible());
    start.lblX->hide();
    start.lblX2->hide();
    EXPECT_EQ(start.grab().toImage().pixelColor(start.rect().center()), QColor(Qt::black));
}

// Starts with the desktop's data in a folder of the test's own.
class EditVerbTest : public StartTest {
protected:
    ~EditVerbTest() override { qputenv("XDG_DATA_HOME", before_); }

    void Prepare(const QString& dataFolder) {
        qputenv("XDG_DATA_HOME", QFile::encodeName(dataFolder));
        WriteSetting(settings, keys::useIE, "Yes");
        Start start(settings, prompts);
        SetPeriods(start, never);
        start.Load();
        ASSERT_TRUE(WaitFor([&] { return start.Timer2->isActive(); }));
    }

    [[nodiscard]] QStringList Entries() const {
        return QDir(data.filePath("applications")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir data;

private:
    const QByteArray before_ = qgetenv("XDG_DATA_HOME");
};

TEST_F(EditVerbTest, IsAddedByTheFirstStart) {
    EXPECT_EQ(ReadSetting(settings, keys::regAdded), "False");
    Prepare(data.path());
    EXPECT_EQ(ReadSetting(settings, keys::regAdded), "True");
    EXPECT_EQ(Entries().filter(".desktop").size(), 1);
}

TEST_F(EditVerbTest, IsNotAddedAgain) {
    WriteSetting(settings, keys::regAdded, "True");
    Prepare(data.path());
    EXPECT_TRUE(Entries().isEmpty());
    EXPECT_EQ(ReadSetting(settings, keys::regAdded), "True");
}

TEST_F(EditVerbTest, IsTriedAgainByTheNextStartWhenItCantBeWritten) {
    QFile file(home.filePath("file"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    Prepare(file.fileName() + "/data");
    EXPECT_EQ(ReadSetting(settings, keys::regAdded), "False");
    EXPECT_TRUE(prompts.messages.isEmpty());
    Prepare(data.path());
    EXPECT_EQ(ReadSetting(settings, keys::regAdded), "True");
    EXPECT_EQ(Entries().filter(".desktop").size(), 1);
}

TEST_F(StartTest, AnyOtherStoredAnswerLoadsNothing) {
    WriteSetting(settings, keys::useIE, "Maybe");
    Start start(settings, prompts);
    SetPeriods(start, atOnce);
    const QSignalSpy ready(&start, &Start::Ready);
    start.Load();
    ASSERT_TRUE(WaitFor([&] { return !start.isVisible(); }));
    EXPECT_EQ(ready.count(), 0);
    EXPECT_TRUE(prompts.questions.isEmpty());
}

}  // namespace
}  // namespace vellum::test
