// The steps of undo and redo of one document: two stacks of snapshots, each with the caret's place.
#pragma once

#include "surface/edit_surface.h"

#include <QString>

#include <array>
#include <variant>

namespace vellum {

// What an entry of a stack holds: a snapshot, or a plain text, which is empty in an entry never written and the marker
// where redo ends.
using SnapshotText = std::variant<QString, EditSurface::Snapshot>;

inline constexpr QLatin1String noUndoInformation("No Undo Information!@#$%:");

// Stacks without a count, newest entry at index 0. Only the entries up to `deepestEntry` are used; what is pushed
// beyond it is lost.
struct UndoHistory {
    static constexpr std::size_t entries = 41;
    static constexpr std::size_t deepestEntry = 30;
    using Texts = std::array<SnapshotText, entries>;
    using Carets = std::array<int, entries>;  // offsets from 0

    Texts UndoText;
    Carets UndoPos{};
    Texts RedoText;
    Carets RedoPos{};

    [[nodiscard]] bool CanUndo() const;  // false while nothing was ever pushed, or all of it came back
    [[nodiscard]] bool CanRedo() const;  // false while the marker is on top

    // Everything moves one down, and the new entry goes on top.
    static void Push(Texts& texts, Carets& carets, const EditSurface::Snapshot& snapshot, int caret);
    // Everything moves one up over the newest entry. The deepest one stays, too: a stack that was full never runs
    // empty.
    static void Drop(Texts& texts, Carets& carets);

    // Redo ends here from now on. What lies below the marker stays, and so does the caret of the entry.
    void ResetRedo();
};

}  // namespace vellum
