#include "tests/reliability/rounds.h"

#include "files/recovery_store.h"
#include "tests/program/program_under_test.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <optional>
#include <vector>

namespace vellum::reliability {
namespace {

using test::ProgramUnderTest;

constexpr auto line = "Words that stand in a page and are neither short nor long, line after line.\r\n";

QByteArray Page(int bytes) {
    return QByteArray(line).repeated(bytes / static_cast<int>(qstrlen(line)) + 1);
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("No page can be written.");
}

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// Some of a folder's tests; returns what they print.
QString RunTests(QProcess& test, const char* program, const QString& filter) {
    constexpr int patience = 300'000;  // milliseconds
    test.start(program, {"--gtest_color=no", "--gtest_filter=" + filter});
    if (!test.waitForFinished(patience)) test.kill();
    return QString::fromUtf8(test.readAllStandardOutput());
}

bool StartOn(ProgramUnderTest& program, const QString& path) {
    if (!program.StartToMainWindow({path})) return false;
    // A page that has text keeps the tips away.
    return program.WaitFor([&] { return program.Get("document", "windowTitle") == path; });
}

// How many of the typed letters, which stand at the start of the page, the recovery has. Empty when it is torn.
std::optional<qsizetype> Recovered(const QString& home, const QString& page, const QString& typed) {
    RecoveryStore store(home + "/.local/state/vellumcraft/recovery");
    qsizetype most = 0;
    for (const RecoveredText& copy : store.FindLost()) {
        const qsizetype letters = copy.text.size() - page.size();
        if (letters < 0 || letters > typed.size() || copy.text != typed.first(letters) + page) return std::nullopt;
        most = std::max(most, letters);
    }
    return store.PutAside().isEmpty() ? std::optional(most) : std::nullopt;
}

}  // namespace

TypingRounds KillWhileTyping(int count, int pageBytes) {
    constexpr int letterEvery = 25;  // milliseconds
    TypingRounds result;
    double losses = 0;
    for (int round = 0; round < count; ++round) {
        const QTemporaryDir home;
        const QString path = home.filePath("page.txt");
        Write(path, Page(pageBytes));
        ProgramUnderTest program(home.path());
        if (!StartOn(program, path)) continue;
        QElapsedTimer time;
        time.start();
        const qint64 end = 500 + QRandomGenerator::global()->bounded(6000);
        QString typed;
        std::vector<qint64> pressed;  // when, for each letter
        while (time.elapsed() < end) {
            typed += QChar('a' + QRandomGenerator::global()->bounded(26));
            program.Type("Text1", typed.right(1));
            pressed.push_back(time.elapsed());
            QThread::msleep(letterEvery);
        }
        program.Kill();
        const qint64 killed = time.elapsed();
        ++result.rounds;
        const auto recovered = Recovered(home.path(), QString::fromLatin1(Page(pageBytes)).remove('\r'), typed);
        if (!recovered) ++result.torn;
        if (recovered == 0) ++result.withoutText;
        if (!recovered || recovered == typed.size()) continue;
        const double loss = static_cast<double>(killed - pressed[static_cast<std::size_t>(*recovered)]) / 1000;
        result.worstLoss = std::max(result.worstLoss, loss);
        losses += loss;
    }
    if (result.rounds > 0) result.averageLoss = losses / result.rounds;
    return result;
}

SavingRounds KillWhileSaving(int count, int pageBytes) {
    constexpr int window = 60;  // milliseconds from the command on
    SavingRounds result;
    for (int round = 0; round < count; ++round) {
        const QTemporaryDir home;
        QDir(home.path()).mkdir("site");
        const QString path = home.filePath("site/page.txt");
        const QByteArray before = Page(pageBytes);
        Write(path, before);
        {
            ProgramUnderTest program(home.path());
            if (!StartOn(program, path)) continue;
            program.Type("Text1", "x");
            program.Trigger("mnuSaveregItem");
            QThread::usleep(static_cast<unsigned long>(QRandomGenerator::global()->bounded(window * 1000)));
        }
        ++result.rounds;
        const QByteArray after = Read(path);
        if (after != before && after != "x" + before) ++result.torn;
        {
            ProgramUnderTest program(home.path());
            if (!StartOn(program, path)) continue;
        }
        result.leftovers += static_cast<int>(
            QDir(home.filePath("site")).entryList({".*"}, QDir::Files | QDir::Hidden | QDir::System).size());
    }
    return result;
}

CageRound TryTheCage() {
    QProcess test;
    const QString output = RunTests(test, VELLUM_BROWSER_TESTS, "CageTest.NothingGetsOutAndNothingIsRead");
    CageRound result;
    result.whole = test.exitStatus() == QProcess::NormalExit && test.exitCode() == 0;
    static const QRegularExpression line("^ways: (\\d+), packets: (\\d+), characters: (\\d+)$",
                                         QRegularExpression::MultilineOption);
    const QRegularExpressionMatch found = line.match(output);
    result.ways = found.captured(1).toInt();
    result.packets = found.captured(2).toInt();
    result.characters = found.captured(3).toInt();
    return result;
}

MatrixRound SaveTheMatrix() {
    QProcess test;
    const QString output = RunTests(test, VELLUM_EDITOR_TESTS, "*EncodingMatrix*");
    static const QRegularExpression started(R"(^\[=+\] Running (\d+) tests)", QRegularExpression::MultilineOption);
    static const QRegularExpression passed(R"(^\[  PASSED  \] (\d+) tests)", QRegularExpression::MultilineOption);
    return {.pages = started.match(output).captured(1).toInt(), .asMeant = passed.match(output).captured(1).toInt()};
}

}  // namespace vellum::reliability
