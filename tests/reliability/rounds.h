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

}  // namespace vellum::reliability
