#include "files/recovery_store.h"

#include "tests/files/child_process.h"
#include "tests/support/wait_for.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace vellum {
namespace {

constexpr auto kEverything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

RecoveredText Text(const QString& text, const QString& caption = "New 1", qint64 writtenAt = 1) {
    RecoveredText copy;
    copy.caption = caption;
    copy.text = text;
    copy.writtenAt = writtenAt;
    return copy;
}

// A text with all that could be lost on the way through a file.
RecoveredText OddText() {
    RecoveredText copy;
    copy.caption = u"/home/anna/Gr\u00FC\u00DFe \"1\" caf"_qs + QChar(0xDCE9) + u".html"_qs;
    copy.text = u"a\0b\n"_qs + QChar(0xDC00) + QChar(0xD800) + u"\uFEFF\u20AC\U0001F600\r\n"_qs;
    copy.format.encoding = "UTF-16BE";
    copy.format.byteOrderMark = true;
    copy.format.lineEnd = LineEnd::Cr;
    copy.format.mixedLineEnds = true;
    copy.format.oddByte = QByteArray(1, '\0');
    copy.format.passedOver = "Big5";
    copy.otherLineEnds = {{0, LineEnd::Lf}, {1, LineEnd::CrLf}};
    copy.writtenAt = 4'000'000'000;
    return copy;
}

void ExpectSame(const RecoveredText& found, const RecoveredText& kept) {
    EXPECT_EQ(found.caption, kept.caption);
    EXPECT_TRUE(found.text == kept.text);
    EXPECT_EQ(found.writtenAt, kept.writtenAt);
    EXPECT_EQ(found.format.encoding, kept.format.encoding);
    EXPECT_EQ(found.format.byteOrderMark, kept.format.byteOrderMark);
    EXPECT_EQ(found.format.lineEnd, kept.format.lineEnd);
    EXPECT_EQ(found.format.mixedLineEnds, kept.format.mixedLineEnds);
    EXPECT_EQ(found.format.holdsBytes, kept.format.holdsBytes);
    EXPECT_EQ(found.format.oddByte, kept.format.oddByte);
    EXPECT_EQ(found.format.passedOver, kept.format.passedOver);
    EXPECT_EQ(found.otherLineEnds, kept.otherLineEnds);
}

mode_t ModeOf(const QString& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0) << qPrintable(path);
    return status.st_mode & 07777;
}

class Recovery : public testing::Test {
protected:
    [[nodiscard]] QString Root() const { return folder_.filePath("state/recovery"); }
    [[nodiscard]] QStringList Sessions() const { return QDir(Root()).entryList(kEverything); }
    [[nodiscard]] QStringList Files(const QString& session) const {
        return QDir(Root() + '/' + session).entryList(kEverything);
    }

    // What the living sessions hold, as if their program had died: copied into a folder whose lock nobody holds.
    void Die(const QString& session, const QString& name) const {
        ASSERT_TRUE(QDir(Root()).mkdir(name));
        for (const QString& file : Files(session)) {
            ASSERT_TRUE(QFile::copy(Root() + '/' + session + '/' + file, Root() + '/' + name + '/' + file));
        }
    }

    // A session that died with these texts of the documents 1, 2, ...
    void LeaveBehind(const QString& name, const std::vector<RecoveredText>& texts) const {
        const QStringList before = Sessions();
        RecoveryStore store(Root());
        for (size_t i = 0; i < texts.size(); ++i) store.Keep(static_cast<int>(i) + 1, texts[i]);
        store.Flush();
        for (const QString& session : Sessions()) {
            if (!before.contains(session)) Die(session, name);
        }
    }

    [[nodiscard]] std::vector<RecoveredText> LeftBy(RecoveryStore& store) const {
        store.Flush();
        Die(Sessions().constFirst(), "dead");
        RecoveryStore finder(Root());
        std::vector<RecoveredText> found = finder.FindLost();
        finder.DiscardFound();
        return found;
    }

    QTemporaryDir folder_;
};

TEST_F(Recovery, IsKeptInTheStateFolder) {
    EXPECT_EQ(RecoveryStore::DefaultRoot(), qEnvironmentVariable("XDG_STATE_HOME") + "/vellumcraft/recovery");
}

TEST_F(Recovery, LeavesNothingAtANormalEnd) {
    {
        RecoveryStore store(Root());
        EXPECT_FALSE(QDir(Root()).exists()) << "nothing is made before it is needed";
        store.Keep(1, Text("unsaved"));
        store.Flush();
        EXPECT_EQ(Sessions().size(), 1);
    }
    EXPECT_TRUE(QDir(Root()).exists());
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, LeavesNothingWhenItEndsWithCopiesWaiting) {
    {
        RecoveryStore store(Root());
        for (int document = 0; document < 50; ++document) store.Keep(document, Text(QString(100'000, u'x')));
    }
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, IsReadableByItsOwnerAlone) {
    const mode_t mask = ::umask(0);
    RecoveryStore store(Root());
    store.Keep(1, Text("secret"));
    store.Flush();
    ::umask(mask);
    ASSERT_EQ(Sessions().size(), 1);
    const QString session = Sessions().constFirst();
    EXPECT_TRUE(session.startsWith(QString::number(::getpid()) + '-'));
    EXPECT_EQ(ModeOf(Root()), 0700U);
    EXPECT_EQ(ModeOf(Root() + '/' + session), 0700U);
    EXPECT_EQ(Files(session).size(), 2) << "a lock and a copy";
    for (const QString& file : Files(session)) EXPECT_EQ(ModeOf(Root() + '/' + session + '/' + file), 0600U);
}

TEST(RecoveryChild, DISABLED_KeepsTextsUntilKilled) {
    RecoveryStore store(ChildFolder() + "/state/recovery");
    store.Keep(7, OddText());
    store.Keep(2, Text("the older one\n", "New 2", 1'000'000'000));
    store.Keep(3, Text("saved"));
    store.Forget(3);
    store.Flush();
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (;;) ::pause();
}

TEST_F(Recovery, FindsTheTextsOfAKilledProgram) {
    {
        ChildProcess child("RecoveryChild.DISABLED_KeepsTextsUntilKilled", folder_.path());
        ASSERT_TRUE(child.WaitFor("ready"));
        RecoveryStore early(Root());
        EXPECT_TRUE(early.FindLost().empty()) << "it still lives";
        ASSERT_TRUE(child.KilledNow());
    }
    RecoveryStore store(Root());
    const std::vector<RecoveredText> found = store.FindLost();
    ASSERT_EQ(found.size(), 2U);
    ExpectSame(found[0], Text("the older one\n", "New 2", 1'000'000'000));
    ExpectSame(found[1], OddText());
}

TEST_F(Recovery, NeverTakesALivingSession) {
    RecoveryStore living(Root());
    living.Keep(1, Text("mine"));
    living.Flush();
    RecoveryStore other(Root());
    EXPECT_TRUE(other.FindLost().empty());
    other.DiscardFound();
    EXPECT_TRUE(living.FindLost().empty()) << "nor its own";
    EXPECT_EQ(Sessions().size(), 1);
    const std::vector<RecoveredText> left = LeftBy(living);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].text, "mine");
}

TEST_F(Recovery, OffersATextToOneFinderOnly) {
    LeaveBehind("dead", {Text("lost")});
    {
        RecoveryStore first(Root());
        RecoveryStore second(Root());
        EXPECT_EQ(first.FindLost().size(), 1U);
        EXPECT_TRUE(second.FindLost().empty());
        second.DiscardFound();
    }
    RecoveryStore later(Root());
    EXPECT_EQ(later.FindLost().size(), 1U) << "the first one ended without a decision";
    later.DiscardFound();
    EXPECT_TRUE(Sessions().isEmpty());
    EXPECT_TRUE(later.FindLost().empty());
}

TEST_F(Recovery, FindsTheTextsOfSeveralSessionsOldestFirst) {
    LeaveBehind("a", {Text("third", "New 1", 30), Text("first", "New 2", 10)});
    LeaveBehind("b", {Text("second", "New 1", 20)});
    RecoveryStore store(Root());
    const std::vector<RecoveredText> found = store.FindLost();
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].text, "first");
    EXPECT_EQ(found[1].text, "second");
    EXPECT_EQ(found[2].text, "third");
}

TEST_F(Recovery, KeepsTheNewestCopyOfEachDocument) {
    RecoveryStore store(Root());
    for (int version = 0; version <= 300; ++version) {
        store.Keep(1, Text(QString(50'000, u'x') + QString::number(version), "one", 1));
        store.Keep(2, Text(QString::number(version), "two", 2));
    }
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 2U);
    EXPECT_TRUE(left[0].text.endsWith("x300"));
    EXPECT_EQ(left[1].text, "300");
}

TEST_F(Recovery, ForgetsASavedDocument) {
    RecoveryStore store(Root());
    store.Forget(9);  // one that was never kept
    store.Keep(1, Text("on disk"));
    store.Flush();
    store.Forget(1);
    store.Keep(2, Text("waiting"));
    store.Forget(2);
    store.Keep(3, Text("forgotten"));
    store.Forget(3);
    store.Keep(3, Text("changed again"));
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].text, "changed again");
}

TEST_F(Recovery, DatesACopyWithoutADate) {
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    RecoveryStore store(Root());
    store.Keep(1, Text("undated", "New 1", 0));
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_GE(left[0].writtenAt, before);
    EXPECT_LE(left[0].writtenAt, QDateTime::currentSecsSinceEpoch());
}

TEST_F(Recovery, KeepsLargeAndEmptyTexts) {
    const QString large = QString(u"<p>gr\u00FC\u00DF dich</p>\n"_qs).repeated(500'000);
    RecoveryStore store(Root());
    store.Keep(1, Text(large));
    store.Keep(2, Text("", "empty", 2));
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 2U);
    EXPECT_TRUE(left[0].text == large);
    EXPECT_TRUE(left[1].text.isEmpty());
    EXPECT_EQ(left[1].caption, "empty");
}

TEST_F(Recovery, PutsDamagedCopiesAside) {
    LeaveBehind("dead", {Text("damaged"), Text("cut off"), Text("whole")});
    QFile damaged(Root() + "/dead/1.copy");
    ASSERT_TRUE(damaged.open(QFile::ReadWrite));
    ASSERT_TRUE(damaged.seek(damaged.size() - 2));
    ASSERT_EQ(damaged.write("!"), 1);
    damaged.close();
    QFile cut(Root() + "/dead/2.copy");
    ASSERT_TRUE(cut.resize(cut.size() - 2));
    for (const char* name : {"/dead/4.copy", "/dead/5.copy.part"}) {
        QFile file(Root() + name);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
    }
    RecoveryStore store(Root());
    const std::vector<RecoveredText> found = store.FindLost();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "whole");
    const QString aside = folder_.filePath("state/damaged/dead-%1.copy");
    EXPECT_EQ(store.PutAside(), QStringList({aside.arg(1), aside.arg(2), aside.arg(4)}));
    store.DiscardFound();
    EXPECT_TRUE(Sessions().isEmpty());
    QFile kept(aside.arg(1));
    ASSERT_TRUE(kept.open(QFile::ReadOnly));
    EXPECT_TRUE(kept.readAll().contains(QByteArray("d\0a\0m\0a\0g", 9)));
    EXPECT_EQ(ModeOf(folder_.filePath("state/damaged")), 0700U);
    RecoveryStore next(Root());
    EXPECT_TRUE(next.FindLost().empty());
    EXPECT_TRUE(next.PutAside().isEmpty()) << "told once";
}

TEST_F(Recovery, PutsTheOnlyCopyOfASessionAside) {
    LeaveBehind("dead", {Text("damaged")});
    ASSERT_TRUE(QFile::resize(Root() + "/dead/1.copy", 20));
    RecoveryStore store(Root());
    EXPECT_TRUE(store.FindLost().empty());
    EXPECT_EQ(store.PutAside().size(), 1);
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, ReadsCopiesWithoutAJournal) {
    LeaveBehind("dead", {Text("newer", "New 2", 20)});
    QFile file(Root() + "/dead/7.copy");
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(R"({"byteOrderMark":true,"caption":"/site/a.htm","checksum":"5b4085401e259f3918fb1701d3d9399c2c8cce73",)"
               R"("encoding":"UTF-8","lineEnd":"2","version":1,"writtenAt":10})"
               "\n");
    file.write(QByteArray("a\0b\0", 4));
    file.close();
    RecoveryStore store(Root());
    const std::vector<RecoveredText> found = store.FindLost();
    ASSERT_EQ(found.size(), 2U);
    RecoveredText old = Text("ab", "/site/a.htm", 10);
    old.format.byteOrderMark = true;
    old.format.lineEnd = LineEnd::Lf;
    ExpectSame(found[0], old);
}

TEST_F(Recovery, SweepsEmptyFoldersOfDeadSessionsAway) {
    ASSERT_TRUE(QDir().mkpath(Root() + "/nothing-in-it"));
    ASSERT_TRUE(QDir().mkpath(Root() + "/lock-only"));
    QFile lock(Root() + "/lock-only/lock");
    ASSERT_TRUE(lock.open(QFile::WriteOnly));
    lock.close();
    RecoveryStore store(Root());
    EXPECT_TRUE(store.FindLost().empty());
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, DoesNothingWhereNothingCanBeWritten) {
    QFile file(folder_.filePath("file"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    for (const QString& root :
         {file.fileName(), file.fileName() + "/recovery", QString("/proc/vellumcraft"), QString()}) {
        RecoveryStore store(root);
        EXPECT_TRUE(store.FindLost().empty());
        store.Keep(1, Text("nowhere to go"));
        EXPECT_FALSE(store.Flush()) << qPrintable(root);
        store.Forget(1);
        EXPECT_TRUE(store.Flush()) << "there is nothing left to keep";
        EXPECT_TRUE(store.FindLost().empty());
        store.DiscardFound();
    }
    EXPECT_EQ(QDir(folder_.path()).entryList(kEverything), QStringList("file"));
}

TEST_F(Recovery, TellsThatEveryCopyIsOnDisk) {
    RecoveryStore store(Root());
    EXPECT_TRUE(store.Flush()) << "nothing was handed over";
    store.Keep(1, Text("one"));
    store.Keep(2, Text("two"));
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(Files(Sessions().constFirst()), QStringList({"1.copy", "2.copy", "lock"}));
}

TEST_F(Recovery, TellsOnceThatACopyCouldNotBeWritten) {
    RecoveryStore store(Root());
    store.Keep(1, Text("one"));
    ASSERT_TRUE(store.Flush());
    const QString session = Root() + '/' + Sessions().constFirst();
    ASSERT_TRUE(QDir(session).mkpath("2.copy/in the way"));
    store.Keep(2, Text("two"));
    store.Keep(3, Text("three"));
    EXPECT_FALSE(store.Flush()) << "a later copy that was written doesn't hide it";
    EXPECT_TRUE(store.Flush()) << "nothing was handed over since";
    store.Keep(2, Text("again"));
    EXPECT_FALSE(store.Flush());
    ASSERT_TRUE(QDir(session + "/2.copy").removeRecursively());
    store.Keep(2, Text("now there is room"));
    EXPECT_TRUE(store.Flush());
}

TEST_F(Recovery, LeavesTheCopyOfADocumentBehindThatCouldNotBeSaved) {
    {
        RecoveryStore store(Root());
        store.Keep(1, Text("saved"));
        store.Keep(2, Text("older", "New 2"));
        store.Keep(3, Text("closed"));
        ASSERT_TRUE(store.Flush());
        store.Keep(2, Text("not saved", "New 2"));
        store.LeaveBehind(2);
    }
    ASSERT_EQ(Sessions().size(), 1);
    EXPECT_EQ(Files(Sessions().constFirst()), QStringList({"2.copy", "end", "lock"}));
    RecoveryStore next(Root());
    const std::vector<RecoveredText> found = next.FindLost();
    ASSERT_EQ(found.size(), 1U);
    ExpectSame(found[0], Text("not saved", "New 2"));
    EXPECT_EQ(found[0].end, SessionEnd::Closed);
    next.DiscardFound();
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, FollowsTheEditsOfACopy) {
    RecoveryStore store(Root());
    store.Keep(1, Text("one\ntwo"));
    store.Change(1, {7, 0, "!"});
    store.Change(1, {8, 0, "?"});
    store.Change(1, {3, 1, "", 4'000'000'000});
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 1U);
    ExpectSame(left[0], Text("onetwo!?", "New 1", 4'000'000'000));
    EXPECT_FALSE(left[0].incomplete);
}

TEST_F(Recovery, TellsThatTheLastEditsAreLost) {
    RecoveryStore store(Root());
    store.Keep(1, Text("one"));
    store.Change(1, {3, 0, " two"});
    store.Flush();
    store.Change(1, {7, 0, " three"});
    store.Flush();
    Die(Sessions().constFirst(), "dead");
    QFile journal(Root() + "/dead/1.1.edits");
    ASSERT_TRUE(journal.resize(journal.size() - 1));
    RecoveryStore finder(Root());
    const std::vector<RecoveredText> found = finder.FindLost();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "one two");
    EXPECT_TRUE(found[0].incomplete);
}

// As a program leaves it that is killed before the disk has confirmed the newest copy.
TEST_F(Recovery, TakesTheNewestCopyThatIsWhole) {
    RecoveryStore store(Root());
    store.Keep(1, Text("old"));
    store.Change(1, {3, 0, " text"});
    store.Flush();
    const QString session = Sessions().constFirst();
    for (const char* name : {"torn", "whole"}) Die(session, name);
    store.Keep(1, Text("new"));
    store.Change(1, {3, 0, " text"});
    store.Flush();
    EXPECT_EQ(Files(session), QStringList({"1.2.edits", "1.copy", "lock"})) << "the first ones have gone";
    for (const char* name : {"torn", "whole"}) {
        ASSERT_TRUE(QFile::copy(Root() + '/' + session + "/1.copy", Root() + '/' + name + "/1.2.part"));
        ASSERT_TRUE(QFile::copy(Root() + '/' + session + "/1.2.edits", Root() + '/' + name + "/1.2.edits"));
    }
    QFile torn(Root() + "/torn/1.2.part");
    ASSERT_TRUE(torn.resize(torn.size() - 2));
    RecoveryStore finder(Root());
    const std::vector<RecoveredText> found = finder.FindLost();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].text, "old text");
    EXPECT_EQ(found[1].text, "new text");
    EXPECT_TRUE(finder.PutAside().isEmpty()) << "nothing is damaged";
}

TEST_F(Recovery, ATextThatWasJustBeingWrittenIsNoCopy) {
    ASSERT_TRUE(QDir().mkpath(Root() + "/dead"));
    for (const char* name : {"lock", "1.1.part"}) {
        QFile file(Root() + "/dead/" + name);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
    }
    RecoveryStore store(Root());
    EXPECT_TRUE(store.FindLost().empty());
    EXPECT_TRUE(store.PutAside().isEmpty());
    EXPECT_TRUE(Sessions().isEmpty());
}

// What the store is told, in any order, is what comes back.
TEST_F(Recovery, FollowsRandomChangesOfSeveralDocuments) {
    std::mt19937 random(3);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    RecoveryStore store(Root());
    std::map<int, QString> texts;
    for (int round = 0; round < 400; ++round) {
        const int document = below(3);
        const auto text = texts.find(document);
        const int action = below(20);
        if (text == texts.end() || action == 0) {
            texts[document] = QString(below(50), QChar('a' + below(26)));
            store.Keep(document, Text(texts[document], QString::number(document), document));
        } else if (action == 1) {
            store.Forget(document);
            texts.erase(document);
        } else {
            const int position = below(static_cast<int>(text->second.size()) + 1);
            const int removed = below(std::min(static_cast<int>(text->second.size()) - position, 5) + 1);
            const QString added(below(6), QChar('A' + below(26)));
            text->second.replace(position, removed, added);
            store.Change(document, {position, removed, added, 1});
        }
        if (below(20) != 0) continue;
        ASSERT_TRUE(store.Flush());
        if (Sessions().isEmpty()) continue;
        Die(Sessions().constFirst(), "dead");
        RecoveryStore finder(Root());
        std::map<int, QString> found;
        for (const RecoveredText& each : finder.FindLost()) found[each.caption.toInt()] = each.text;
        ASSERT_EQ(found, texts) << round;
        finder.DiscardFound();
    }
}

// Nobody flushes, and there is never a pause.
TEST_F(Recovery, WritesWhileTheTypingGoesOn) {
    RecoveryStore store(Root());
    store.Keep(1, Text(QString()));
    int typed = 0;
    const auto journal = [&]() -> qint64 {
        if (Sessions().isEmpty()) return 0;
        return QFileInfo(Root() + '/' + Sessions().constFirst() + "/1.1.edits").size();
    };
    for (const char* time : {"first", "second"}) {
        const qint64 before = journal();
        EXPECT_TRUE(test::WaitFor([&] {
            store.Change(1, {typed++, 0, "x"});
            return journal() > before;
        })) << time;
    }
}

// So long that a kill often comes while it is being written.
const QString longBeginning(2'000'000, u'x');

TEST(RecoveryChild, DISABLED_TypesUntilKilled) {
    RecoveryStore store(ChildFolder() + "/state/recovery");
    QString text = longBeginning;
    store.Keep(1, Text(text));
    store.Flush();
    (void)!::write(STDOUT_FILENO, "ready", 5);
    for (int number = 0;; ++number) {
        const QString word = QString::number(number) + ' ';
        store.Change(1, {static_cast<int>(text.size()), 0, word});
        text += word;
        if (number % 2 == 0) store.Keep(1, Text(text));
        store.Flush();
    }
}

TEST_F(Recovery, IsWholeAtEveryMoment) {
    std::mt19937 random(11);
    for (int kill = 0; kill < 20; ++kill) {
        {
            ChildProcess child("RecoveryChild.DISABLED_TypesUntilKilled", folder_.path());
            ASSERT_TRUE(child.WaitFor("ready"));
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 60'000));  // any moment
            ASSERT_TRUE(child.KilledNow());
        }
        RecoveryStore finder(Root());
        const std::vector<RecoveredText> found = finder.FindLost();
        ASSERT_EQ(found.size(), 1U);
        EXPECT_TRUE(finder.PutAside().isEmpty());
        finder.DiscardFound();
        ASSERT_TRUE(found[0].text.startsWith(longBeginning));
        const QStringList words = found[0].text.mid(longBeginning.size()).split(' ', Qt::SkipEmptyParts);
        for (qsizetype index = 0; index < words.size(); ++index) ASSERT_EQ(words[index], QString::number(index));
    }
}

TEST_F(Recovery, ForgetsAtOnce) {
    RecoveryStore store(Root());
    const auto files = [this] { return Files(Sessions().constFirst()); };
    store.Keep(1, Text("secret"));
    store.Change(1, {0, 0, "x"});
    store.Flush();
    store.Keep(1, Text("waiting"));
    store.Change(1, {0, 0, "x"});
    store.Forget(1);
    EXPECT_EQ(files(), QStringList("lock")) << "nobody waited for the worker";
    for (int round = 0; round < 50; ++round) {
        store.Keep(1, Text(QString(300'000, u'x')));
        store.Keep(2, Text("other"));
        store.Change(1, {0, 0, "x"});
        if (round % 2 == 0) store.Flush();
        store.Forget(1);
        ASSERT_TRUE(files().filter(QRegularExpression("^1\\.")).isEmpty()) << round;
    }
    store.Flush();
    EXPECT_EQ(files(), QStringList({"2.copy", "lock"})) << "nothing comes back later";
}

TEST_F(Recovery, LeavesEverythingBehindWhenTheProgramIsEnded) {
    for (const SessionEnd end : {SessionEnd::Terminated, SessionEnd::Desktop}) {
        {
            RecoveryStore store(Root());
            store.Keep(1, Text("waiting"));
            store.Change(1, {7, 0, " for the disk"});
            std::thread([&] { store.EndSession(end); }).join();
            Die(Sessions().constFirst(), "dead");
            RecoveryStore finder(Root());
            const std::vector<RecoveredText> found = finder.FindLost();
            ASSERT_EQ(found.size(), 1U);
            EXPECT_EQ(found[0].text, "waiting for the disk");
            EXPECT_EQ(found[0].end, end);
            finder.DiscardFound();
            store.Change(1, {0, 0, "still "});
        }
        RecoveryStore finder(Root());
        const std::vector<RecoveredText> found = finder.FindLost();
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].text, "still waiting for the disk");
        EXPECT_EQ(found[0].end, SessionEnd::Unknown) << "it went on, and how it ended then nobody knows";
        finder.DiscardFound();
    }
    {
        RecoveryStore store(Root());
        store.EndSession(SessionEnd::Desktop);
        EXPECT_TRUE(Sessions().isEmpty()) << "there is nothing to leave";
        store.Keep(1, Text("discarded after all"));
        store.EndSession(SessionEnd::Desktop);
        store.Forget(1);
    }
    EXPECT_TRUE(Sessions().isEmpty());
}

TEST_F(Recovery, AsksForTheWholeTextWhenItsEditsHaveBecomeMany) {
    RecoveryStore store(Root());
    QSignalSpy wanted(&store, &RecoveryStore::WholeWanted);
    store.Keep(4, Text("x"));
    store.Change(4, {0, 0, QString(400'000, u'a')});
    store.Flush();
    store.Change(4, {0, 0, QString(400'000, u'b')});
    store.Flush();
    EXPECT_TRUE(wanted.isEmpty());
    store.Change(4, {0, 0, "c"});
    store.Flush();
    EXPECT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted.value(0).value(0).toInt(), 4);
}

TEST_F(Recovery, AsksForTheWholeTextWhenItsCopyHasGone) {
    RecoveryStore store(Root());
    QSignalSpy wanted(&store, &RecoveryStore::WholeWanted);
    store.Keep(1, Text("first"));
    store.Flush();
    ASSERT_TRUE(QDir(Root()).removeRecursively());
    store.Change(1, {5, 0, " second"});
    store.Flush();
    EXPECT_EQ(wanted.size(), 1);
    store.Keep(1, Text("first second"));
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].text, "first second");
}

TEST_F(Recovery, SaysWhyNothingIsKept) {
    QFile file(folder_.filePath("file"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    RecoveryStore store(file.fileName() + "/recovery");
    QSignalSpy notKept(&store, &RecoveryStore::NotKept);
    store.Keep(3, Text("nowhere to go"));
    EXPECT_FALSE(store.Flush());
    ASSERT_EQ(notKept.size(), 1);
    EXPECT_EQ(notKept[0][0].toInt(), 3);
    EXPECT_EQ(notKept[0][1].toString(), QString("Cannot write \"%1/recovery\": Not a directory.").arg(file.fileName()));
}

TEST(RecoveryChild, DISABLED_FillsTheDisk) {
    ::signal(SIGXFSZ, SIG_IGN);
    RecoveryStore store(ChildFolder() + "/state/recovery");
    QSignalSpy wanted(&store, &RecoveryStore::WholeWanted);
    store.Keep(1, Text("before"));
    store.Change(1, {6, 0, " it"});
    ASSERT_TRUE(store.Flush());
    const rlimit limit{100'000, 100'000};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    store.Change(1, {9, 0, QString(100'000, u'x')});
    EXPECT_FALSE(store.Flush());
    store.Change(1, {0, 0, "not "});
    EXPECT_TRUE(store.Flush()) << "which isn't even tried";
    EXPECT_EQ(wanted.size(), 1);
    store.Keep(1, Text(QString(100'000, u'x')));
    EXPECT_FALSE(store.Flush());
    store.EndSession(SessionEnd::Terminated);
}

TEST_F(Recovery, KeepsWhatItHasWhenTheDiskIsFull) {
    ASSERT_TRUE(ChildProcess("RecoveryChild.DISABLED_FillsTheDisk", folder_.path()).Succeeds());
    RecoveryStore store(Root());
    const std::vector<RecoveredText> found = store.FindLost();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].text, "before it");
    EXPECT_TRUE(found[0].incomplete);
}

TEST_F(Recovery, OutlivesTheLossOfItsFolder) {
    RecoveryStore store(Root());
    store.Keep(1, Text("first"));
    store.Flush();
    ASSERT_TRUE(QDir(Root()).removeRecursively());
    store.Keep(1, Text("second"));
    store.Flush();
    const std::vector<RecoveredText> left = LeftBy(store);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].text, "second");
}

}  // namespace
}  // namespace vellum
