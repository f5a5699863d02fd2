#include "surface/format_store.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

namespace vellum {
namespace {

// Chunks are filled to the first and split beyond the second, so that typing at one place splits rarely.
constexpr std::size_t chunkLines = 256;
constexpr std::size_t chunkLimit = 512;

using RunList = std::vector<FormatRun>;

void Append(RunList& row, const FormatRun& run, const CharFormat& base) {
    if (run.range.length <= 0 || run.format == base) return;
    if (!row.empty() && row.back().range.End() == run.range.offset && row.back().format == run.format) {
        row.back().range.length += run.range.length;
    } else {
        row.push_back(run);
    }
}

// Appends the runs between two columns of `row`, moved right by `shift`.
void AppendRuns(RunList& to, std::span<const FormatRun> row, int from, int end, int shift, const CharFormat& base) {
    VisitRow(row, from, end, base, [&](FormatRun run) {
        run.range.offset += shift;
        Append(to, run, base);
        return true;
    });
}

}  // namespace

CharFormat FormatChange::AppliedTo(CharFormat format) const {
    if (color) format.color = *color;
    if (bold) format.bold = *bold;
    return format;
}

FormatStore::FormatStore() {
    Reset({}, LineEnd::CrLf, {});
}

void FormatStore::Reset(std::span<const int> lengths, LineEnd usual, std::span<const OtherLineEnd> others) {
    static constexpr std::array emptyLine{0};
    if (lengths.empty()) lengths = emptyLine;
    slots_.clear();
    base_ = {};
    lineCount_ = static_cast<int>(lengths.size());
    auto other = others.begin();
    for (std::size_t first = 0; first < lengths.size(); first += chunkLines) {
        const std::size_t end = std::min(first + chunkLines, lengths.size());
        auto chunk = std::make_shared<Chunk>();
        chunk->lines.reserve(end - first);
        for (std::size_t line = first; line < end; ++line) {
            const bool differs = other != others.end() && other->line == static_cast<int>(line);
            const LineEnd lineEnd = differs ? (other++)->end : usual;
            const bool isLast = line + 1 == lengths.size();
            chunk->lines.emplace_back(lengths[line], isLast ? std::nullopt : std::optional(lineEnd));
        }
        slots_.push_back({static_cast<int>(first), std::move(chunk)});
    }
}

std::size_t FormatStore::SlotOf(int line) const {
    assert(line >= 0 && line < lineCount_);
    const auto next = std::ranges::upper_bound(slots_, line, {}, &Slot::firstLine);
    return static_cast<std::size_t>(next - slots_.begin()) - 1;
}

LineEntry FormatStore::EntryOf(int line) const {
    const Slot& slot = slots_[SlotOf(line)];
    return slot.chunk->lines[static_cast<std::size_t>(line - slot.firstLine)];
}

int FormatStore::LineLength(int line) const {
    return EntryOf(line).Length();
}

void FormatStore::SetLineEnd(int line, LineEnd end) {
    const LineEntry entry(LineLength(line), end);
    if (entry == EntryOf(line)) return;
    const std::size_t slot = SlotOf(line);
    Owned(slot).lines[static_cast<std::size_t>(line - slots_[slot].firstLine)] = entry;
}

std::vector<OtherLineEnd> FormatStore::OtherLineEnds(LineEnd usual) const {
    std::vector<OtherLineEnd> others;
    int line = 0;
    for (const Slot& slot : slots_) {
        for (const LineEntry entry : slot.chunk->lines) {
            const std::optional<LineEnd> end = entry.End();
            if (end && *end != usual) others.push_back({line, *end});
            ++line;
        }
    }
    return others;
}

TextPlace FormatStore::End() const {
    return {lineCount_ - 1, LineLength(lineCount_ - 1)};
}

TextPlace FormatStore::Advance(TextPlace from, int characters) const {
    for (int left = characters; true; ++from.line, from.column = 0) {
        const int length = LineLength(from.line);
        const int rest = length - from.column;
        if (left <= rest) return {from.line, from.column + left};
        if (from.line + 1 == lineCount_) return {from.line, length};
        left -= rest + 1;
    }
}

FormatStore::Chunk& FormatStore::Owned(std::size_t slot) {
    auto& chunk = slots_[slot].chunk;
    if (chunk.use_count() > 1) chunk = std::make_shared<Chunk>(*chunk);
    return *chunk;
}

void FormatStore::SetRuns(int line, std::span<const FormatRun> runs) {
    const std::size_t slot = SlotOf(line);
    Chunk& chunk = Owned(slot);
    if (chunk.runs.empty()) chunk.runs.Resize(chunk.lines.size());
    chunk.runs.Set(static_cast<std::size_t>(line - slots_[slot].firstLine), runs);
}

std::span<const FormatRun> FormatStore::Runs(int line) const {
    const Slot& slot = slots_[SlotOf(line)];
    if (slot.chunk->runs.empty()) return {};
    return slot.chunk->runs[static_cast<std::size_t>(line - slot.firstLine)];
}

void FormatStore::Replace(TextPlace from, TextPlace to, std::span<const int> inserted, const CharFormat& format,
                          LineEnd end) {
    assert(from <= to && !inserted.empty());
    const LineEntry lastEntry = EntryOf(to.line);
    const int tail = lastEntry.Length() - to.column;
    const std::size_t last = inserted.size() - 1;
    std::vector<LineEntry> lines;
    lines.reserve(inserted.size());
    FormatRows rows;

    RunList row;
    AppendRuns(row, Runs(from.line), 0, from.column, 0, base_);
    for (std::size_t index = 0; index < last; ++index) {
        const int column = index == 0 ? from.column : 0;
        lines.emplace_back(column + inserted[index], end);
        Append(row, {{column, inserted[index] + 1}, format}, base_);
        rows.Append(row);
        row.clear();
    }
    const int column = last == 0 ? from.column : 0;
    const int insertedEnd = column + inserted[last];
    lines.emplace_back(insertedEnd + tail, lastEntry.End());
    Append(row, {{column, inserted[last]}, format}, base_);
    AppendRuns(row, Runs(to.line), to.column, to.column + tail + 1, insertedEnd - to.column, base_);

    if (from.line == to.line && last == 0) {
        SetLine(from.line, lines.front(), row);
        return;
    }
    rows.Append(row);
    Splice(from.line, to.line - from.line + 1, lines, rows);
}

void FormatStore::SetLine(int line, LineEntry entry, std::span<const FormatRun> runs) {
    const std::size_t slot = SlotOf(line);
    Owned(slot).lines[static_cast<std::size_t>(line - slots_[slot].firstLine)] = entry;
    if (!runs.empty() || !Runs(line).empty()) SetRuns(line, runs);
}

void FormatStore::Splice(int firstLine, int removed, std::span<const LineEntry> lines, const FormatRows& runs) {
    const int difference = static_cast<int>(lines.size()) - removed;
    const std::size_t first = SlotOf(firstLine);
    const std::size_t last = SlotOf(firstLine + removed - 1);
    const int slotFirstLine = slots_[first].firstLine;

    // The lines around the change join the new ones, and all are cut into chunks again.
    std::vector<LineEntry> allLines;
    FormatRows allRuns;
    const auto take = [&](const Chunk& chunk, int begin, std::size_t end) {
        const auto from = static_cast<std::size_t>(begin);
        allLines.insert(allLines.end(), chunk.lines.begin() + begin,
                        chunk.lines.begin() + static_cast<std::ptrdiff_t>(end));
        if (chunk.runs.empty()) {
            allRuns.Resize(allLines.size());
        } else {
            allRuns.Append(chunk.runs, from, end);
        }
    };
    take(*slots_[first].chunk, 0, static_cast<std::size_t>(firstLine - slotFirstLine));
    allLines.insert(allLines.end(), lines.begin(), lines.end());
    allRuns.Append(runs, 0, lines.size());
    const Slot& lastSlot = slots_[last];
    take(*lastSlot.chunk, firstLine + removed - lastSlot.firstLine, lastSlot.chunk->lines.size());

    std::vector<Slot> renewed;
    const std::size_t step = allLines.size() <= chunkLimit ? chunkLimit : chunkLines;
    for (std::size_t begin = 0; begin < allLines.size(); begin += step) {
        const std::size_t end = std::min(begin + step, allLines.size());
        auto chunk = std::make_shared<Chunk>();
        chunk->lines.assign(allLines.begin() + static_cast<std::ptrdiff_t>(begin),
                            allLines.begin() + static_cast<std::ptrdiff_t>(end));
        chunk->runs.Append(allRuns, begin, end);
        if (!chunk->runs.HasRuns()) chunk->runs = {};
        renewed.push_back({slotFirstLine + static_cast<int>(begin), std::move(chunk)});
    }
    const auto begin = slots_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto after = slots_.erase(begin, slots_.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    const auto rest =
        slots_.insert(after, std::make_move_iterator(renewed.begin()), std::make_move_iterator(renewed.end())) +
        static_cast<std::ptrdiff_t>(renewed.size());
    std::for_each(rest, slots_.end(), [&](Slot& slot) { slot.firstLine += difference; });
    lineCount_ += difference;
}

void FormatStore::SetFormat(TextPlace from, TextPlace to, const FormatChange& change) {
    if (from >= to) return;
    for (int line = from.line; line <= to.line; ++line) {
        const int lineEnd = LineLength(line) + 1;
        const int begin = line == from.line ? from.column : 0;
        const int end = line == to.line ? to.column : lineEnd;
        if (begin >= end) continue;
        const std::span<const FormatRun> old = Runs(line);
        if (old.empty() && change.AppliedTo(base_) == base_) continue;
        RunList row;
        AppendRuns(row, old, 0, begin, 0, base_);
        VisitRow(old, begin, end, base_, [&](const FormatRun& run) {
            Append(row, {run.range, change.AppliedTo(run.format)}, base_);
            return true;
        });
        AppendRuns(row, old, end, lineEnd, 0, base_);
        SetRuns(line, row);
    }
}

void FormatStore::SetAll(const CharFormat& rest, std::span<const FormatRun> runs) {
    base_ = rest;
    for (Slot& slot : slots_) {
        if (slot.chunk->runs.empty()) continue;
        if (slot.chunk.use_count() == 1) {
            slot.chunk->runs = {};
        } else {
            slot.chunk = std::make_shared<Chunk>(Chunk{slot.chunk->lines, {}});
        }
    }
    auto next = runs.begin();
    int lineStart = 0;
    FormatRows rows;
    RunList row;
    for (std::size_t slot = 0; slot < slots_.size() && next != runs.end(); ++slot) {
        rows.Resize(0);
        for (const LineEntry line : slots_[slot].chunk->lines) {
            const int nextLine = lineStart + line.Length() + 1;
            row.clear();
            while (next != runs.end() && next->range.offset < nextLine) {
                const int begin = std::max(next->range.offset, lineStart);
                const int end = std::min(next->range.End(), nextLine);
                Append(row, {{begin - lineStart, end - begin}, next->format}, base_);
                if (next->range.End() > nextLine) break;
                ++next;
            }
            rows.Append(row);
            lineStart = nextLine;
        }
        if (rows.HasRuns()) Owned(slot).runs = rows;  // a copy is no longer than it has to be
    }
}

template <typename Visitor>
bool FormatStore::VisitRuns(TextPlace from, TextPlace to, const Visitor& visit) const {
    if (from >= to) return true;
    int line = from.line;
    for (std::size_t index = SlotOf(line); index < slots_.size() && line <= to.line; ++index) {
        const Slot& slot = slots_[index];
        const int end = slot.firstLine + static_cast<int>(slot.chunk->lines.size());
        for (; line < end && line <= to.line; ++line) {
            const auto row = static_cast<std::size_t>(line - slot.firstLine);
            const int begin = line == from.line ? from.column : 0;
            const int stop = line == to.line ? to.column : slot.chunk->lines[row].Length() + 1;
            const auto runs = slot.chunk->runs.empty() ? std::span<const FormatRun>() : slot.chunk->runs[row];
            if (!VisitRow(runs, begin, stop, base_, visit)) return false;
        }
    }
    return true;
}

CharFormat FormatStore::FormatAt(TextPlace place) const {
    if (place >= End()) return base_;
    CharFormat found = base_;
    VisitRuns(place, {place.line, place.column + 1}, [&](const FormatRun& run) {
        found = run.format;
        return false;
    });
    return found;
}

std::optional<ColorNumber> FormatStore::CommonColor(TextPlace from, TextPlace to, ColorNumber own) const {
    std::optional<ColorNumber> common;
    const bool one = VisitRuns(from, to, [&](const FormatRun& run) {
        const ColorNumber color = run.format.color.value_or(own);
        if (!common) common = color;
        return *common == color;
    });
    return one ? common : std::nullopt;
}

std::optional<bool> FormatStore::CommonBold(TextPlace from, TextPlace to) const {
    std::optional<bool> common;
    const bool one = VisitRuns(from, to, [&](const FormatRun& run) {
        if (!common) common = run.format.bold;
        return *common == run.format.bold;
    });
    return one ? common : std::nullopt;
}

}  // namespace vellum
