#include "files/recovery_store.h"

#include "tests/files/child_process.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
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

TEST_F(Recovery, LeavesOutDamagedCopies) {
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
    store.DiscardFound();
    EXPECT_TRUE(Sessions().isEmpty());
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
    EXPECT_EQ(Files(Sessions().constFirst()), QStringList({"2.copy", "lock"}));
    RecoveryStore next(Root());
    const std::vector<RecoveredText> found = next.FindLost();
    ASSERT_EQ(found.size(), 1U);
    ExpectSame(found[0], Text("not saved", "New 2"));
    next.DiscardFound();
    EXPECT_TRUE(Sessions().isEmpty());
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
