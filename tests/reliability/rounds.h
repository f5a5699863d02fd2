// Rounds in which the real program is killed at a random moment, and what was found afterwards.
#pragma once

#include <QString>

namespace vellum::reliability {

struct TypingRounds {
    int rounds = 0;        // that typed and were killed
    int withoutText = 0;   // of them, those that left no copy although something was typed
    int torn = 0;          // of them, those whose copy held anything but the page after the first letters typed
    double worstLoss = 0;  // seconds between the first lost key and the kill
    double averageLoss = 0;
};

// Types into a page of that size without a pause, `count` times, and reads what the recovery has.
[[nodiscard]] TypingRounds KillWhileTyping(int count, int pageBytes);

struct SavingRounds {
    int rounds = 0;
    int torn = 0;       // files that held neither the old text nor the new one
    int leftovers = 0;  // hidden files beside them after the next start
};

// Saves a page of that size, and kills around the save.
[[nodiscard]] SavingRounds KillWhileSaving(int count, int pageBytes);

struct CageRound {
    int ways = 0;        // that a page in the preview tried
    int packets = 0;     // that left, names that were asked for included
    int characters = 0;  // of other files that its scripts read
    bool whole = false;  // the page came to its end, and nothing else came of its ways
};

// Shows a page that tries every way out of the preview, and every way into other files.
[[nodiscard]] CageRound TryTheCage();

struct MatrixRound {
    int pages = 0;    // each in another encoding or with other line ends
    int asMeant = 0;  // those that held the right bytes after every edit
};

// Saves pages in all encodings, with all kinds of line ends, after all edits of the matrix.
[[nodiscard]] MatrixRound SaveTheMatrix();

}  // namespace vellum::reliability
