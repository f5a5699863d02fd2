#include "settings/settings_store.h"

#include "files/file_descriptor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace vellum {
namespace {

constexpr int childStartMilliseconds = 30000;

struct stat StatusOf(const QString& path) {
    struct stat status {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return status;
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList caughtWarnings;

void CatchWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg) caughtWarnings << message;
}

// Catches warnings, and fails for one that the test doesn't expect as for one that doesn't come.
class SettingsStoreTest : public testing::Test {
protected:
    void SetUp() override {
        caughtWarnings.clear();
        before_ = qInstallMessageHandler(CatchWarning);
    }

    void TearDown() override {
        qInstallMessageHandler(before_);
        ASSERT_EQ(caughtWarnings.size(), expectedWarnings.size()) << caughtWarnings.join('\n').toStdString();
        for (qsizetype i = 0; i < caughtWarnings.size(); ++i) {
            EXPECT_TRUE(caughtWarnings[i].contains(expectedWarnings[i])) << caughtWarnings[i].toStdString();
        }
    }

    QStringList expectedWarnings;
    QTemporaryDir folder;
    QString path = folder.filePath("vellumcraft/settings.json");

    QString OnDisk(const QString& application, const QString& section, const QString& key) const {
        return QJsonDocument::fromJson(ReadBytes(path))[application][section][key].toString("(none)");
    }

private:
    QtMessageHandler before_ = nullptr;
};

TEST_F(SettingsStoreTest, ReadGivesTheFallbackAndWritesNothing) {
    const SettingsStore store(path);
    EXPECT_EQ(store.Read(u"A", u"S", u"k", "fallback"), "fallback");
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), QString());
    EXPECT_FALSE(store.Contains(u"A", u"S", u"k"));
    EXPECT_FALSE(QFile::exists(QFileInfo(path).path()));
}

TEST_F(SettingsStoreTest, AWrittenValueIsReadByThisAndTheNextProgram) {
    {
        SettingsStore store(path);
        EXPECT_TRUE(store.Write(u"A", u"S", u"k", "v"));
        EXPECT_EQ(store.Read(u"A", u"S", u"k", "fallback"), "v");
        EXPECT_TRUE(store.Contains(u"A", u"S", u"k"));
    }
    EXPECT_EQ(OnDisk("A", "S", "k"), "v");
    EXPECT_EQ(SettingsStore(path).Read(u"A", u"S", u"k", "fallback"), "v");
}

TEST_F(SettingsStoreTest, AnEmptyValueIsAValue) {
    SettingsStore store(path);
    EXPECT_TRUE(store.Write(u"A", u"S", u"k", ""));
    EXPECT_TRUE(store.Contains(u"A", u"S", u"k"));
    EXPECT_EQ(SettingsStore(path).Read(u"A", u"S", u"k", "fallback"), "");
}

TEST_F(SettingsStoreTest, OnlyTheOwnerCanReadTheFileAndItsDirectory) {
    const mode_t before = ::umask(0);
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    ::umask(before);
    EXPECT_EQ(StatusOf(path).st_mode & 0777U, 0600U);
    EXPECT_EQ(StatusOf(path + ".lock").st_mode & 0777U, 0600U);
    EXPECT_EQ(StatusOf(QFileInfo(path).path()).st_mode & 0777U, 0700U);
}

TEST_F(SettingsStoreTest, AFileThatOthersCouldReadIsClosedToThemByTheNextWrite) {
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path, "{}");
    ::chmod(QFile::encodeName(path).constData(), 0644);
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    EXPECT_EQ(StatusOf(path).st_mode & 0777U, 0600U);
}

TEST_F(SettingsStoreTest, WhatAKilledWriteLeftOpenToOthersIsClosedToThem) {
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path + ".new", "half a file, and a long one");
    ::chmod(QFile::encodeName(path + ".new").constData(), 0644);
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    EXPECT_EQ(StatusOf(path).st_mode & 0777U, 0600U);
    EXPECT_EQ(OnDisk("A", "S", "k"), "v");
}

TEST_F(SettingsStoreTest, NoFileIsLeftBesideItButTheLock) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    store.Write(u"A", u"S", u"k", "w");
    EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files, QDir::Name),
              QStringList({"settings.json", "settings.json.lock"}));
}

TEST_F(SettingsStoreTest, AddressesCompareWithoutCase) {
    SettingsStore store(path);
    store.Write(u"Organizer", u"Data", u"Number", "3");
    EXPECT_EQ(store.Read(u"organizer", u"DATA", u"number"), "3");
    store.Write(u"ORGANIZER", u"data", u"number", "4");
    EXPECT_EQ(store.Read(u"Organizer", u"Data", u"Number"), "4");
    EXPECT_EQ(OnDisk("Organizer", "Data", "Number"), "4");
    EXPECT_EQ(QJsonDocument::fromJson(ReadBytes(path)).object().size(), 1);
    EXPECT_EQ(SettingsStore(path).Read(u"oRGANIZER", u"dATA", u"nUMBER"), "4");
    store.Write(u"ORGANIZER", u"DATA", u"Other", "5");
    EXPECT_EQ(OnDisk("Organizer", "Data", "Other"), "5");
}

TEST_F(SettingsStoreTest, CaseFoldsBeyondAscii) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"\u00C9t\u00E9", "accent");
    store.Write(u"A", u"S", u"\u03A3", "sigma");
    store.Write(u"A", u"S", u"\U00010400", "deseret");  // outside the basic plane
    EXPECT_EQ(store.Read(u"a", u"s", u"\u00E9T\u00C9"), "accent");
    EXPECT_EQ(store.Read(u"a", u"s", u"\u03C3"), "sigma");
    EXPECT_EQ(store.Read(u"a", u"s", u"\u03C2"), "sigma");  // the final form folds to the same letter
    EXPECT_EQ(store.Read(u"a", u"s", u"\U00010428"), "deseret");
    EXPECT_FALSE(store.Contains(u"a", u"s", u"ete"));
}

TEST_F(SettingsStoreTest, PartsOfAnAddressDoNotRunTogether) {
    SettingsStore store(path);
    store.Write(u"ab", u"c", u"d", "1");
    store.Write(u"a", u"bc", u"d", "2");
    store.Write(u"a", u"b", u"cd", "3");
    EXPECT_EQ(store.Read(u"ab", u"c", u"d"), "1");
    EXPECT_EQ(store.Read(u"a", u"bc", u"d"), "2");
    EXPECT_EQ(store.Read(u"a", u"b", u"cd"), "3");
    EXPECT_FALSE(store.Contains(u"abc", u"", u"d"));
}

TEST_F(SettingsStoreTest, AnyTextIsKept) {
    const QString texts[] = {QString("line one\r\nline two\r\n"),
                             QString::fromLatin1("before\0after", 12),
                             QString("\"quoted\" \\ 'and' {braces} [1,2]"),
                             QString::fromUtf16(u"\u00E9\u4E2D\u05D0\u202E\uFEFF\uFFFF"),
                             QString::fromUtf16(u"\U0001F600\U0010FFFF"),
                             QString("\x01\x1F\t\x7F"),
                             QString(1000000, u'x'),
                             QString(" ")};
    {
        SettingsStore store(path);
        for (int i = 0; i < 8; ++i) store.Write(u"A", u"S", QString::number(i), texts[i]);
        store.Write(QStringView(u"A\0B", 3), texts[2], texts[0], "odd names");
    }
    const SettingsStore store(path);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(store.Read(u"A", u"S", QString::number(i), "(none)"), texts[i]) << i;
    EXPECT_EQ(store.Read(QStringView(u"A\0B", 3), texts[2], texts[0]), "odd names");
}

TEST_F(SettingsStoreTest, AnyNameIsKeptInAnyPart) {
    QStringList names =
        QStringLiteral("| | a |/|a/b|/a|a/|\\|a\\b|.|..|%|%2F|0|00|01|[a]|a=b|@Invalid()|\"|a\r\nb|\t").split('|');
    names << "\u65E5\u672C"
          << "\U0001F600"
          << "\u00DF"
          << "ss" << QString(300, 'x');
    {
        SettingsStore store(path);
        const SettingsStore::Batch batch(store);
        for (const QString& name : names) {
            store.Write(name, u"S", u"k", "application " + name);
            store.Write(u"A", name, u"k", "section " + name);
            store.Write(u"A", u"S", name, "key " + name);
        }
    }
    const SettingsStore store(path);
    for (const QString& name : names) {
        EXPECT_EQ(store.Read(name, u"S", u"k"), "application " + name);
        EXPECT_EQ(store.Read(u"A", name, u"k"), "section " + name);
        EXPECT_EQ(store.Read(u"A", u"S", name), "key " + name);
    }
}

TEST_F(SettingsStoreTest, HalfAPairIsKept) {
    for (const int half : {0xD83D, 0xDC80, 0xDCE9, 0xDCFF}) {
        const QString text = "a" + QString(QChar(half)) + "b" + QChar(half);
        SettingsStore(path).Write(u"A", u"S", u"k", text);
        EXPECT_EQ(SettingsStore(path).Read(u"A", u"S", u"k"), text);
    }
}

TEST_F(SettingsStoreTest, DeletingAnApplicationLeavesTheOthers) {
    SettingsStore store(path);
    store.Write(u"Gone", u"S", u"k", "1");
    store.Write(u"Gone", u"T", u"k", "2");
    store.Write(u"Stays", u"S", u"k", "3");
    EXPECT_TRUE(store.DeleteApplication(u"gone"));
    EXPECT_FALSE(store.Contains(u"Gone", u"S", u"k"));
    EXPECT_FALSE(store.Contains(u"Gone", u"T", u"k"));
    const SettingsStore next(path);
    EXPECT_FALSE(next.Contains(u"Gone", u"S", u"k"));
    EXPECT_EQ(next.Read(u"Stays", u"S", u"k"), "3");
}

TEST_F(SettingsStoreTest, DeletingASectionLeavesTheOthers) {
    SettingsStore store(path);
    store.Write(u"A", u"Gone", u"k", "1");
    store.Write(u"A", u"Stays", u"k", "2");
    EXPECT_TRUE(store.DeleteSection(u"a", u"gone"));
    EXPECT_FALSE(store.Contains(u"A", u"Gone", u"k"));
    const SettingsStore next(path);
    EXPECT_FALSE(next.Contains(u"A", u"Gone", u"k"));
    EXPECT_EQ(next.Read(u"A", u"Stays", u"k"), "2");
}

TEST_F(SettingsStoreTest, DeletingWhatIsNotThereIsFalse) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "1");
    EXPECT_FALSE(store.DeleteApplication(u"B"));
    EXPECT_FALSE(store.DeleteSection(u"A", u"T"));
    EXPECT_FALSE(store.DeleteSection(u"B", u"S"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "1");
}

TEST_F(SettingsStoreTest, AfterADeletionTheSpellingIsThatOfTheNextWrite) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"Key", "1");
    store.DeleteApplication(u"A");
    store.Write(u"a", u"s", u"KEY", "2");
    EXPECT_EQ(OnDisk("a", "s", "KEY"), "2");
}

TEST_F(SettingsStoreTest, AnUnchangedValueCostsNoWrite) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    const struct stat before = StatusOf(path);
    EXPECT_TRUE(store.Write(u"a", u"s", u"K", "v"));
    EXPECT_EQ(StatusOf(path).st_ino, before.st_ino);
    EXPECT_EQ(StatusOf(path).st_ctim.tv_nsec, before.st_ctim.tv_nsec);
    EXPECT_TRUE(store.Write(u"a", u"s", u"K", "w"));
    EXPECT_NE(StatusOf(path).st_ino, before.st_ino);
}

TEST_F(SettingsStoreTest, ABatchWritesOnceWhenTheLastOneGoes) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    const ino_t before = StatusOf(path).st_ino;
    {
        const SettingsStore::Batch outer(store);
        {
            const SettingsStore::Batch inner(store);
            for (int i = 0; i < 50; ++i) EXPECT_TRUE(store.Write(u"A", u"S", QString::number(i), "x"));
            EXPECT_TRUE(store.DeleteSection(u"A", u"S"));
            EXPECT_TRUE(store.Write(u"A", u"S", u"after", "y"));
        }
        EXPECT_EQ(StatusOf(path).st_ino, before);
        EXPECT_EQ(store.Read(u"A", u"S", u"after"), "y");
        EXPECT_FALSE(store.Contains(u"A", u"S", u"k"));
        EXPECT_EQ(OnDisk("A", "S", "k"), "v");
    }
    EXPECT_NE(StatusOf(path).st_ino, before);
    EXPECT_EQ(OnDisk("A", "S", "after"), "y");
    EXPECT_EQ(OnDisk("A", "S", "k"), "(none)");
    EXPECT_EQ(OnDisk("A", "S", "49"), "(none)");
}

TEST_F(SettingsStoreTest, AnEmptyBatchWritesNothing) {
    SettingsStore store(path);
    { const SettingsStore::Batch batch(store); }
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(SettingsStoreTest, TwoInstancesKeepEachOthersKeys) {
    SettingsStore first(path);
    SettingsStore second(path);
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(first.Write(u"A", u"First", QString::number(i), "1"));
        EXPECT_TRUE(second.Write(u"A", u"Second", QString::number(i), "2"));
    }
    const SettingsStore next(path);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(next.Read(u"A", u"First", QString::number(i)), "1");
        EXPECT_EQ(next.Read(u"A", u"Second", QString::number(i)), "2");
    }
}

TEST_F(SettingsStoreTest, AWriteDoesNotBringBackWhatAnotherInstanceDeleted) {
    SettingsStore first(path);
    first.Write(u"A", u"Gone", u"k", "1");
    first.Write(u"B", u"Gone", u"k", "1");
    SettingsStore second(path);
    EXPECT_TRUE(first.DeleteSection(u"A", u"Gone"));
    EXPECT_TRUE(first.DeleteApplication(u"B"));
    EXPECT_TRUE(second.Write(u"A", u"S", u"k", "2"));
    EXPECT_FALSE(second.Contains(u"A", u"Gone", u"k"));
    EXPECT_FALSE(second.Contains(u"B", u"Gone", u"k"));
    const SettingsStore next(path);
    EXPECT_FALSE(next.Contains(u"A", u"Gone", u"k"));
    EXPECT_FALSE(next.Contains(u"B", u"Gone", u"k"));
    EXPECT_EQ(next.Read(u"A", u"S", u"k"), "2");
}

TEST_F(SettingsStoreTest, ADeletionTakesWhatAnotherInstanceAddedAndNoMore) {
    SettingsStore first(path);
    SettingsStore second(path);
    first.Write(u"A", u"S", u"one", "1");
    second.Write(u"A", u"S", u"two", "2");
    second.Write(u"B", u"S", u"three", "3");
    EXPECT_TRUE(first.DeleteApplication(u"A"));
    const SettingsStore next(path);
    EXPECT_FALSE(next.Contains(u"A", u"S", u"two"));
    EXPECT_EQ(next.Read(u"B", u"S", u"three"), "3");
}

TEST_F(SettingsStoreTest, TheLastWriterOfAKeyWinsEvenWithItsOwnOldValue) {
    SettingsStore first(path);
    SettingsStore second(path);
    first.Write(u"A", u"S", u"k", "1");
    second.Write(u"A", u"S", u"k", "2");
    EXPECT_TRUE(first.Write(u"A", u"S", u"k", "1"));
    EXPECT_EQ(SettingsStore(path).Read(u"A", u"S", u"k"), "1");
}

TEST_F(SettingsStoreTest, ABatchTakesOverWhatOthersWroteMeanwhile) {
    SettingsStore first(path);
    SettingsStore second(path);
    {
        const SettingsStore::Batch batch(first);
        first.Write(u"A", u"S", u"mine", "1");
        second.Write(u"A", u"S", u"theirs", "2");
    }
    const SettingsStore next(path);
    EXPECT_EQ(next.Read(u"A", u"S", u"mine"), "1");
    EXPECT_EQ(next.Read(u"A", u"S", u"theirs"), "2");
}

TEST_F(SettingsStoreTest, ReadsSeeWhatAnotherInstanceWrote) {
    SettingsStore first(path);
    first.Write(u"A", u"S", u"k", "1");
    const SettingsStore second(path);
    for (const char* value : {"2", "3", "4"}) {  // the watch survives the replacement of the file
        first.Write(u"A", u"S", u"k", value);
        EXPECT_TRUE(QTest::qWaitFor([&] { return second.Read(u"A", u"S", u"k") == value; })) << value;
    }
}

TEST_F(SettingsStoreTest, WhatAnotherInstanceChangedIsToldAndItsOwnWritesAreNot) {
    SettingsStore first(path);
    SettingsStore second(path);
    QStringList told;
    QObject::connect(&second, &SettingsStore::Changed, &second, [&] { told << second.Read(u"A", u"S", u"k"); });
    second.Write(u"A", u"S", u"k", "own");
    second.DeleteSection(u"A", u"S");
    second.Write(u"A", u"S", u"k", "own again");
    for (const char* value : {"2", "3"}) {
        first.Write(u"A", u"S", u"k", value);
        EXPECT_TRUE(QTest::qWaitFor([&] { return told.contains(value); })) << value;
    }
    first.DeleteSection(u"A", u"S");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.contains(""); }));
    EXPECT_EQ(told, QStringList({"2", "3", ""}));
}

TEST_F(SettingsStoreTest, AFileWrittenAnewWithTheSameValuesIsNoChange) {
    SettingsStore first(path);
    first.Write(u"A", u"S", u"k", "1");
    SettingsStore second(path);
    const QSignalSpy told(&second, &SettingsStore::Changed);
    WriteBytes(path, R"({"A": {"S": {"k": "1"}}})");
    second.Write(u"A", u"S", u"l", "2");
    EXPECT_EQ(told.count(), 0);
    WriteBytes(path, R"({"A": {"S": {"k": "3"}}})");
    second.Write(u"A", u"S", u"l", "4");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(SettingsStoreTest, AWriteThatFindsAnothersChangeTellsItOnceItIsDone) {
    SettingsStore first(path);
    SettingsStore second(path);
    QStringList told;
    QObject::connect(&second, &SettingsStore::Changed, &second, [&] {
        told << second.Read(u"A", u"S", u"theirs") + OnDisk("A", "S", "mine");
        EXPECT_TRUE(second.Write(u"A", u"S", u"answer", "3"));  // the lock is free again
    });
    first.Write(u"A", u"S", u"theirs", "1");
    second.Write(u"A", u"S", u"mine", "2");
    EXPECT_EQ(told, QStringList{"12"});
    EXPECT_EQ(OnDisk("A", "S", "answer"), "3");
}

TEST_F(SettingsStoreTest, ABatchTellsOthersChangesAtItsEnd) {
    SettingsStore first(path);
    SettingsStore second(path);
    const QSignalSpy told(&second, &SettingsStore::Changed);
    {
        const SettingsStore::Batch batch(second);
        first.Write(u"A", u"S", u"theirs", "1");
        second.Write(u"A", u"S", u"mine", "2");
        ASSERT_TRUE(QTest::qWaitFor([&] { return second.Read(u"A", u"S", u"theirs") == "1"; }));
        EXPECT_EQ(told.count(), 0);
    }
    EXPECT_EQ(told.count(), 1);
}

TEST_F(SettingsStoreTest, ADamagedFileIsKeptAsideAndTheStoreStartsEmpty) {
    QDir().mkpath(QFileInfo(path).path());
    for (const QByteArray bytes : {"{\"A\": {\"S\": {\"k\": \"v\"}", "[]", "", "{\"A\": 1}", "{\"A\": {\"S\": 1}}",
                                   "{\"A\": {\"S\": {\"k\": [1]}}}"}) {
        WriteBytes(path, bytes);
        expectedWarnings << "could not be understood";
        SettingsStore store(path);
        EXPECT_FALSE(store.Contains(u"A", u"S", u"k"));
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_EQ(ReadBytes(path + ".damaged"), bytes);
        EXPECT_TRUE(store.Write(u"A", u"S", u"k", "new"));
        EXPECT_EQ(OnDisk("A", "S", "k"), "new");
        EXPECT_TRUE(QFile::remove(path + ".damaged"));
    }
}

TEST_F(SettingsStoreTest, ASecondDamagedFileDoesNotReplaceTheFirst) {
    QDir().mkpath(QFileInfo(path).path());
    for (const char* bytes : {"first", "second"}) {
        WriteBytes(path, bytes);
        expectedWarnings << "could not be understood";
        const SettingsStore store(path);
    }
    EXPECT_EQ(ReadBytes(path + ".damaged"), "first");
    EXPECT_EQ(ReadBytes(path + ".damaged.2"), "second");
}

TEST_F(SettingsStoreTest, DamageWhileTheProgramRunsLosesNothing) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    WriteBytes(path, "{ half");
    expectedWarnings << "could not be understood";
    EXPECT_TRUE(store.Write(u"A", u"S", u"l", "w"));
    EXPECT_EQ(OnDisk("A", "S", "k"), "v");
    EXPECT_EQ(OnDisk("A", "S", "l"), "w");
    EXPECT_EQ(ReadBytes(path + ".damaged"), "{ half");
}

TEST_F(SettingsStoreTest, NumbersAndTruthValuesWithoutQuotesAreTexts) {
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path, R"({"A": {"S": {"size": 8.5, "wrap": true}}})");
    const SettingsStore store(path);
    EXPECT_EQ(store.Read(u"A", u"S", u"size"), "8.5");
    EXPECT_EQ(store.Read(u"A", u"S", u"wrap"), "true");
}

TEST_F(SettingsStoreTest, WhereNothingCanBeWrittenValuesLiveInMemory) {
    const QString file = folder.filePath("file");
    WriteBytes(file, "in the way");
    expectedWarnings << "could not be written";
    SettingsStore store(file + "/vellumcraft/settings.json");
    EXPECT_FALSE(store.Write(u"A", u"S", u"k", "v"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "v");
    EXPECT_FALSE(store.Write(u"A", u"S", u"k", "w"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "w");
    EXPECT_FALSE(store.DeleteApplication(u"A"));
    EXPECT_FALSE(store.Contains(u"A", u"S", u"k"));
}

TEST_F(SettingsStoreTest, WhatCouldNotBeWrittenIsWrittenWithTheNextValue) {
    const QString directory = QFileInfo(path).path();
    WriteBytes(directory, "in the way");
    expectedWarnings << "could not be written";
    SettingsStore store(path);
    EXPECT_FALSE(store.Write(u"A", u"S", u"early", "1"));
    ASSERT_TRUE(QFile::remove(directory));
    EXPECT_TRUE(store.Write(u"A", u"S", u"late", "2"));
    EXPECT_EQ(OnDisk("A", "S", "early"), "1");
    EXPECT_EQ(OnDisk("A", "S", "late"), "2");
}

TEST_F(SettingsStoreTest, AFullDiskLosesNothing) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    const QString large(100000, 'x');
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const struct rlimit small { 50000, before.rlim_max };
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);  // a write beyond the limit fails as on a full disk
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    expectedWarnings << "could not be written";
    EXPECT_FALSE(store.Write(u"A", u"S", u"large", large));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_FALSE(QFile::exists(path + ".new"));
    EXPECT_EQ(OnDisk("A", "S", "k"), "v");
    EXPECT_EQ(store.Read(u"A", u"S", u"large"), large);
    EXPECT_TRUE(store.Write(u"A", u"S", u"l", "w"));
    EXPECT_EQ(OnDisk("A", "S", "large"), large);
}

TEST_F(SettingsStoreTest, AnUnreadableFileIsLeftAlone) {
    constexpr off_t tooLarge = (off_t{1} << 30) + 1;
    QDir().mkpath(QFileInfo(path).path());
    WriteBytes(path, "{}");
    ASSERT_EQ(::truncate(QFile::encodeName(path).constData(), tooLarge), 0);
    expectedWarnings << "can't be read";
    expectedWarnings << "could not be written";
    SettingsStore store(path);
    EXPECT_EQ(store.Refusal(), QString());
    EXPECT_FALSE(store.Write(u"A", u"S", u"k", "v"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "v");
    EXPECT_EQ(StatusOf(path).st_size, tooLarge);
}

TEST_F(SettingsStoreTest, WhatIsNoFileIsRefusedAndLeftAlone) {
    const QString directory = QFileInfo(path).path();
    QDir().mkpath(directory);
    const QByteArray name = QFile::encodeName(path);
    const std::function<bool()> makers[] = {
        [&] { return ::mkdir(name.constData(), 0700) == 0; },
        [&] { return ::mkfifo(name.constData(), 0600) == 0; },
        [&] { return ::symlink("/dev/full", name.constData()) == 0; },
        [&] { return QDir(directory).mkdir("other") && ::symlink("other", name.constData()) == 0; },
        [&] {
            return ::mkfifo(QFile::encodeName(directory + "/pipe").constData(), 0600) == 0 &&
                   ::symlink("pipe", name.constData()) == 0;
        },
        [&] {
            sockaddr_un address = {};
            address.sun_family = AF_UNIX;
            if (name.size() >= qsizetype{sizeof(address.sun_path)}) return false;
            std::copy(name.begin(), name.end(), static_cast<char*>(address.sun_path));
            const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
            return ::bind(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
        },
    };
    for (const auto& make : makers) {
        ASSERT_TRUE(make());
        const struct stat before = StatusOf(path);
        {
            SettingsStore store(path);
            EXPECT_TRUE(store.Refusal().contains("\" is not a file")) << store.Refusal().toStdString();
            EXPECT_EQ(store.Read(u"A", u"S", u"k", "fallback"), "fallback");
            EXPECT_FALSE(store.Write(u"A", u"S", u"k", "v"));
            EXPECT_EQ(store.Read(u"A", u"S", u"k"), "v");
        }
        EXPECT_EQ(StatusOf(path).st_ino, before.st_ino);
        EXPECT_EQ(StatusOf(path).st_mode, before.st_mode);
        EXPECT_EQ(QDir(directory).entryList({"settings.json*"}, QDir::AllEntries | QDir::System),
                  QStringList("settings.json"));
        ASSERT_EQ(::remove(name.constData()), 0);
    }
}

TEST_F(SettingsStoreTest, ValuesAreKeptOnceAFileCanStandThere) {
    ASSERT_TRUE(QDir().mkpath(path));
    SettingsStore store(path);
    EXPECT_FALSE(store.Write(u"A", u"S", u"early", "1"));
    ASSERT_TRUE(QDir().rmdir(path));
    EXPECT_TRUE(store.Write(u"A", u"S", u"late", "2"));
    EXPECT_EQ(OnDisk("A", "S", "early"), "1");
}

TEST_F(SettingsStoreTest, AFolderThatTakesTheFilesPlaceIsLeftAlone) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    expectedWarnings << "could not be written";
    EXPECT_FALSE(store.Write(u"A", u"S", u"k", "w"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "w");
    EXPECT_TRUE(QFileInfo(path).isDir());
}

TEST_F(SettingsStoreTest, AWriteGivesUpOnALockThatIsNeverFreed) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    const int holder = ::open(QFile::encodeName(path + ".lock").constData(), O_RDWR);
    ASSERT_GE(holder, 0);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    expectedWarnings << "could not be written";
    EXPECT_FALSE(store.Write(u"A", u"S", u"k", "w"));
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "w");
    EXPECT_EQ(OnDisk("A", "S", "k"), "v");
    ::close(holder);
    EXPECT_TRUE(store.Write(u"A", u"S", u"l", "x"));
    EXPECT_EQ(OnDisk("A", "S", "k"), "w");
}

TEST_F(SettingsStoreTest, ALinkStaysALink) {
    const QString target = folder.filePath("elsewhere.json");
    WriteBytes(target, R"({"A": {"S": {"k": "v"}}})");
    QDir().mkpath(QFileInfo(path).path());
    ASSERT_TRUE(QFile::link(target, path));
    SettingsStore store(path);
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "v");
    EXPECT_TRUE(store.Write(u"A", u"S", u"k", "w"));
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(QJsonDocument::fromJson(ReadBytes(target))["A"]["S"]["k"].toString(), "w");
}

TEST_F(SettingsStoreTest, TheUsualPlaceIsInTheConfigurationFolder) {
    EXPECT_EQ(SettingsStore::DefaultPath(), qEnvironmentVariable("XDG_CONFIG_HOME") + "/vellumcraft/settings.json");
}

TEST_F(SettingsStoreTest, AReadTakesFromMemory) {
    SettingsStore store(path);
    store.Write(u"A", u"S", u"k", "v");
    WriteBytes(path, R"({"A": {"S": {"k": "changed"}}})");
    EXPECT_EQ(store.Read(u"A", u"S", u"k"), "v");
}

// The following run in processes of their own, told by the environment what to do.
std::unique_ptr<QProcess> StartChild(const QString& test, const QString& path, const QString& name) {
    auto child = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("VELLUM_TEST_STORE", path);
    environment.insert("VELLUM_TEST_NAME", name);
    child->setProcessEnvironment(environment);
    child->start(QCoreApplication::applicationFilePath(),
                 {"--gtest_also_run_disabled_tests", "--gtest_filter=SettingsStoreChild.DISABLED_" + test});
    return child;
}

TEST(SettingsStoreChild, DISABLED_WritesPairsForEver) {
    const QString path = qEnvironmentVariable("VELLUM_TEST_STORE");
    if (path.isEmpty()) GTEST_SKIP();
    SettingsStore store(path);
    for (int i = 1; ::getppid() != 1; ++i) {
        const SettingsStore::Batch batch(store);
        store.Write(u"A", u"S", u"left", QString::number(i) + QString(i % 3000, u'x'));
        store.Write(u"A", u"T", u"right", QString::number(i) + QString(i % 3000, u'x'));
    }
}

TEST(SettingsStoreChild, DISABLED_WritesAndDeletes) {
    const QString path = qEnvironmentVariable("VELLUM_TEST_STORE");
    if (path.isEmpty()) GTEST_SKIP();
    const QString name = qEnvironmentVariable("VELLUM_TEST_NAME");
    SettingsStore store(path);
    for (int i = 0; i < 60; ++i) {
        ASSERT_TRUE(store.Write(u"A", name, QString::number(i), name));
        ASSERT_TRUE(store.Write(u"A", name + "Gone", u"k", QString::number(i)));
        ASSERT_TRUE(store.DeleteSection(u"A", name + "Gone"));
    }
}

TEST_F(SettingsStoreTest, AKilledProcessLeavesAConsistentFile) {
    for (int round = 0; round < 12; ++round) {
        const auto child = StartChild("WritesPairsForEver", path, {});
        ASSERT_TRUE(child->waitForStarted(childStartMilliseconds));
        const QByteArray before = ReadBytes(path);
        ASSERT_TRUE(QTest::qWaitFor([&] { return ReadBytes(path) != before; }, childStartMilliseconds));
        const quint32 looks = QRandomGenerator::global()->bounded(200U);
        for (quint32 look = 0; look < looks; ++look) ReadBytes(path);  // some random time later
        child->kill();
        ASSERT_TRUE(child->waitForFinished(childStartMilliseconds));
        const SettingsStore store(path);
        EXPECT_TRUE(store.Contains(u"A", u"S", u"left"));
        EXPECT_EQ(store.Read(u"A", u"S", u"left"), store.Read(u"A", u"T", u"right"));
        EXPECT_FALSE(QFile::exists(path + ".damaged"));
    }
    SettingsStore store(path);
    EXPECT_TRUE(store.Write(u"A", u"S", u"left", "after"));
    EXPECT_FALSE(QFile::exists(path + ".new"));
}

TEST_F(SettingsStoreTest, ProcessesThatWriteAtOnceLoseNothing) {
    std::vector<std::unique_ptr<QProcess>> children;
    for (const char* name : {"First", "Second", "Third"})
        children.push_back(StartChild("WritesAndDeletes", path, name));
    for (const auto& child : children) {
        ASSERT_TRUE(child->waitForFinished(childStartMilliseconds));
        EXPECT_EQ(child->exitCode(), 0) << child->readAll().toStdString();
    }
    const SettingsStore store(path);
    for (const QString name : {"First", "Second", "Third"}) {
        for (int i = 0; i < 60; ++i) EXPECT_EQ(store.Read(u"A", name, QString::number(i)), name);
        EXPECT_FALSE(store.Contains(u"A", name + "Gone", u"k"));
    }
}

}  // namespace
}  // namespace vellum
