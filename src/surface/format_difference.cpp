#include "surface/format_difference.h"

#include <algorithm>
#include <cassert>
#include <unordered_map>

namespace vellum {

// Reads the lines of a store one after the other without searching for each.
class FormatDifference::Lines {
public:
    explicit Lines(const FormatStore& store) : store_(store) {}

    [[nodiscard]] LineEntry EntryOf(int line) {
        MoveTo(line);
        return chunk_->lines[static_cast<std::size_t>(line - firstLine_)];
    }
    [[nodiscard]] std::span<const FormatRun> RunsOf(int line) {
        MoveTo(line);
        if (chunk_->runs.empty()) return {};
        return chunk_->runs[static_cast<std::size_t>(line - firstLine_)];
    }

    [[nodiscard]] static bool Equal(Lines& left, int leftLine, Lines& right, int rightLine) {
        return left.EntryOf(leftLine) == right.EntryOf(rightLine) &&
               std::ranges::equal(left.RunsOf(leftLine), right.RunsOf(rightLine));
    }

private:
    void MoveTo(int line) {
        if (chunk_ != nullptr && line >= firstLine_ && line < firstLine_ + static_cast<int>(chunk_->lines.size())) {
            return;
        }
        const FormatStore::Slot& slot = store_.slots_[store_.SlotOf(line)];
        chunk_ = slot.chunk.get();
        firstLine_ = slot.firstLine;
    }

    const FormatStore& store_;
    const FormatStore::Chunk* chunk_ = nullptr;
    int firstLine_ = 0;
};

FormatDifference FormatDifference::Between(const FormatStore& from, const FormatStore& to) {
    assert(from.Base() == to.Base());
    std::unordered_map<const FormatStore::Chunk*, std::size_t> slotsOfTo;
    slotsOfTo.reserve(to.slots_.size());
    for (std::size_t slot = 0; slot < to.slots_.size(); ++slot) slotsOfTo.emplace(to.slots_[slot].chunk.get(), slot);

    FormatDifference difference;
    Lines oldLines(from);
    Lines newLines(to);
    int oldLine = 0;
    int newLine = 0;
    for (const FormatStore::Slot& slot : from.slots_) {
        const auto found = slotsOfTo.find(slot.chunk.get());
        if (found == slotsOfTo.end()) continue;
        const int sharedLine = to.slots_[found->second].firstLine;
        if (sharedLine < newLine) continue;
        difference.Compare(oldLines, {oldLine, slot.firstLine}, newLines, {newLine, sharedLine});
        const int lines = static_cast<int>(slot.chunk->lines.size());
        oldLine = slot.firstLine + lines;
        newLine = sharedLine + lines;
    }
    difference.Compare(oldLines, {oldLine, from.LineCount()}, newLines, {newLine, to.LineCount()});

    difference.hunks_.shrink_to_fit();
    difference.lines_.shrink_to_fit();
    difference.runsOfLine_.shrink_to_fit();
    difference.runs_.shrink_to_fit();
    return difference;
}

void FormatDifference::Compare(Lines& from, LineRange old, Lines& to, LineRange fresh) {
    while (old.begin < old.end && fresh.begin < fresh.end && Lines::Equal(from, old.begin, to, fresh.begin)) {
        ++old.begin;
        ++fresh.begin;
    }
    while (old.begin < old.end && fresh.begin < fresh.end && Lines::Equal(from, old.end - 1, to, fresh.end - 1)) {
        --old.end;
        --fresh.end;
    }
    if (old.end - old.begin != fresh.end - fresh.begin) {
        AddHunk(old, to, fresh);
        return;
    }
    // No line came or went, so equal lines stand side by side.
    while (old.begin < old.end) {
        int count = 0;
        while (old.begin + count < old.end && !Lines::Equal(from, old.begin + count, to, fresh.begin + count)) ++count;
        if (count > 0) AddHunk({old.begin, old.begin + count}, to, {fresh.begin, fresh.begin + count});
        old.begin += count + 1;
        fresh.begin += count + 1;
    }
}

void FormatDifference::AddHunk(LineRange old, Lines& to, LineRange fresh) {
    hunks_.push_back({old.begin, old.end - old.begin, fresh.end - fresh.begin});
    for (int line = fresh.begin; line < fresh.end; ++line) {
        const std::span<const FormatRun> list = to.RunsOf(line);
        lines_.push_back(to.EntryOf(line));
        runsOfLine_.push_back(static_cast<int>(list.size()));
        runs_.insert(runs_.end(), list.begin(), list.end());
    }
}

void FormatDifference::ApplyTo(FormatStore& store) const {
    // From the last hunk to the first, so that the lines of those before keep their numbers.
    std::size_t line = lines_.size();
    std::size_t run = runs_.size();
    std::for_each(hunks_.rbegin(), hunks_.rend(), [&](const Hunk& hunk) {
        for (int left = hunk.added; left > 0; --left) run -= static_cast<std::size_t>(runsOfLine_[--line]);
        ApplyHunk(store, hunk, line, run);
    });
}

void FormatDifference::ApplyHunk(FormatStore& store, const Hunk& hunk, std::size_t firstLine,
                                 std::size_t firstRun) const {
    std::vector<LineEntry> lines;
    FormatRows rows;
    const std::span<const FormatRun> all(runs_);
    const auto append = [&](LineEntry entry, std::span<const FormatRun> row) {
        lines.push_back(entry);
        rows.Append(row);
    };
    // A store replaces lines only: where lines come in alone, a neighbour goes out and comes in again.
    const bool alone = hunk.removed == 0;
    const int neighbour = std::min(hunk.line, store.LineCount() - 1);
    if (alone && neighbour < hunk.line) append(store.EntryOf(neighbour), store.Runs(neighbour));
    for (std::size_t line = firstLine; line < firstLine + static_cast<std::size_t>(hunk.added); ++line) {
        const auto count = static_cast<std::size_t>(runsOfLine_[line]);
        append(lines_[line], all.subspan(firstRun, count));
        firstRun += count;
    }
    if (alone && neighbour == hunk.line) append(store.EntryOf(neighbour), store.Runs(neighbour));

    if (hunk.added == hunk.removed) {
        for (std::size_t index = 0; index < lines.size(); ++index) {
            store.SetLine(hunk.line + static_cast<int>(index), lines[index], rows[index]);
        }
    } else {
        store.Splice(alone ? neighbour : hunk.line, alone ? 1 : hunk.removed, lines, rows);
    }
}

}  // namespace vellum
