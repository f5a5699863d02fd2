// reliability_rounds <count> [<document>]: kills the program that often in each of its rounds, tries the cage of the
// preview, saves pages in all encodings, and prints a table of what was lost and what got out. With a document, its
// lines between "<!-- figures -->" and "<!-- end of figures -->" become that table.
#include "tests/reliability/rounds.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

using namespace vellum::reliability;

constexpr double goal = 2;  // seconds of typing

QString Row(const QString& what, const QString& found, bool fine) {
    return "| " + what + " | " + found + " | " + (fine ? "held" : "MISSED") + " |\n";
}

// A few rounds on a busy machine say nothing about seconds, so these count only when they are written down.
QString TypingRow(const QString& page, const TypingRounds& found, bool timed, bool& fine) {
    const bool held = found.rounds > 0 && found.torn == 0 && (!timed || found.worstLoss <= goal);
    fine = fine && held;
    return Row(QString("Killed %1 times while typing into a page of %2").arg(found.rounds).arg(page),
               QString("at worst %1 s of typing lost, %2 s on average; %3 torn texts")
                   .arg(found.worstLoss, 0, 'f', 2)
                   .arg(found.averageLoss, 0, 'f', 2)
                   .arg(found.torn),
               held);
}

QString SavingRow(const SavingRounds& found, bool& fine) {
    const bool held = found.rounds > 0 && found.torn == 0 && found.leftovers == 0;
    fine = fine && held;
    return Row(QString("Killed %1 times around a save of 1 MB").arg(found.rounds),
               QString("%1 torn files, %2 leftovers after the next start").arg(found.torn).arg(found.leftovers), held);
}

QString CageRow(const CageRound& found, bool& fine) {
    const bool held = found.whole && found.ways > 0 && found.packets == 0 && found.characters == 0;
    fine = fine && held;
    return Row(QString("A page tried %1 ways out of the preview and into other files").arg(found.ways),
               QString("%1 packets left, %2 characters were read").arg(found.packets).arg(found.characters), held);
}

QString MatrixRow(const MatrixRound& found, bool& fine) {
    const bool held = found.pages > 0 && found.asMeant == found.pages;
    fine = fine && held;
    return Row(QString("Pages in %1 pairs of encoding and line ends, each saved after every edit").arg(found.pages),
               QString("%1 hold other bytes than they should").arg(found.pages - found.asMeant), held);
}

bool PutInto(const QString& path, const QString& table) {
    const QString from = "<!-- figures -->\n";
    const QString to = "<!-- end of figures -->\n";
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return false;
    QString text = QString::fromUtf8(file.readAll());
    file.close();
    const auto begin = text.indexOf(from);
    const auto end = text.indexOf(to);
    if (begin < 0 || end < begin) return false;
    text.replace(begin + from.size(), end - begin - from.size(), table);
    return file.open(QFile::WriteOnly) && file.write(text.toUtf8()) > 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int count = arguments.value(1).toInt();
    if (count < 1) qFatal("usage: reliability_rounds <count> [<document>]");
    const bool written = arguments.size() > 2;
    bool fine = true;
    QString table = "| What was done | What was found | |\n|---|---|---|\n";
    table += TypingRow("10 KB", KillWhileTyping(count, 10'000), written, fine);
    table += TypingRow("10 MB", KillWhileTyping(count, 10'000'000), written, fine);
    table += SavingRow(KillWhileSaving(count, 1'000'000), fine);
    table += CageRow(TryTheCage(), fine);
    table += MatrixRow(SaveTheMatrix(), fine);
    QTextStream(stdout) << table;
    if (written && !PutInto(arguments[2], table)) qFatal("The document has no place for the figures.");
    return fine ? 0 : 1;
}
