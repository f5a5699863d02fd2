#include "surface/format_store.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <unordered_set>
#include <utility>

namespace vellum {
namespace {

// Chunks are filled to the first and split beyond the second, so that typing at one place splits rarely.
constexpr std::size_t chunkLines = 256;
constexpr std::size_t chunkLimit = 512;

using StretchList = std::vector<Stretch>;

void Append(StretchList& list, int start, int length, const CharFormat& format, const CharFormat& base) {
    if (length <= 0 || format == base) return;
    if (!list.empty() && list.back().start + list.back().length == start && list.back().format == format) {
        list.back().length += length;
    } else {
        list.push_back({start, length, format});
    }
}

// Calls `visit(start, length, format)` for every run between two columns, gaps in the base format among them, until it
// answers false. Answers whether all were visited.
template <typename Visitor>
bool VisitLine(std::span<const Stretch> list, int from, int to, const CharFormat& base, const Visitor& visit) {
    auto stretch =
        std::ranges::upper_bound(list, from, {}, [](const Stretch& item) { return item.start + item.length; });
    int column = from;
    while (column < to) {
        const int start = stretch == list.end() ? to : std::min(stretch->start, to);
        if (column < start) {
            if (!visit(column, start - column, base)) return false;
            column = start;
            continue;
        }
        const int end = std::min(stretch->start + stretch->length, to);
        if (!visit(column, end - column, stretch->format)) return false;
        column = end;
        ++stretch;
    }
    return true;
}

// Appends the runs between two columns of `list`, moved right by `shift`.
void AppendRuns(StretchList& to, std::span<const Stretch> list, int from, int end, int shift, const CharFormat& base) {
    VisitLine(list, from, end, base, [&](int start, int length, const CharFormat& format) {
        Append(to, start + shift, length, format, base);
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
    Reset({});
}

void FormatStore::Reset(std::span<const int> lengths) {
    static constexpr std::array emptyLine{0};
    if (lengths.empty()) lengths = emptyLine;
    slots_.clear();
    base_ = {};
    lineCount_ = static_cast<int>(lengths.size());
    for (std::size_t first = 0; first < lengths.size(); first += chunkLines) {
        const auto part = lengths.subspan(first, std::min(chunkLines, lengths.size() - first));
        auto chunk = std::make_shared<Chunk>();
        chunk->lengths.assign(part.begin(), part.end());
        slots_.push_back({static_cast<int>(first), std::move(chunk)});
    }
}

std::size_t FormatStore::SlotOf(int line) const {
    assert(line >= 0 && line < lineCount_);
    const auto behind = std::ranges::upper_bound(slots_, line, {}, &Slot::firstLine);
    return static_cast<std::size_t>(behind - slots_.begin()) - 1;
}

int FormatStore::LineLength(int line) const {
    const Slot& slot = slots_[SlotOf(line)];
    return slot.chunk->lengths[static_cast<std::size_t>(line - slot.firstLine)];
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

void FormatStore::SetStretches(int line, std::span<const Stretch> stretches) {
    const std::size_t slot = SlotOf(line);
    Chunk& chunk = Owned(slot);
    if (chunk.stretches.empty()) chunk.stretches.Resize(chunk.lengths.size());
    chunk.stretches.Set(static_cast<std::size_t>(line - slots_[slot].firstLine), stretches);
}

std::span<const Stretch> FormatStore::Stretches(int line) const {
    const Slot& slot = slots_[SlotOf(line)];
    if (slot.chunk->stretches.empty()) return {};
    return slot.chunk->stretches[static_cast<std::size_t>(line - slot.firstLine)];
}

void FormatStore::Replace(TextPlace from, TextPlace to, std::span<const int> inserted, const CharFormat& format) {
    assert(from <= to && !inserted.empty());
    const int tail = LineLength(to.line) - to.column;
    const int lines = static_cast<int>(inserted.size());
    std::vector<int> lengths(inserted.begin(), inserted.end());
    StretchRows rows;

    StretchList row;
    AppendRuns(row, Stretches(from.line), 0, from.column, 0, base_);
    for (int index = 0; index < lines; ++index) {
        const bool last = index + 1 == lines;
        const int column = index == 0 ? from.column : 0;
        Append(row, column, inserted[static_cast<std::size_t>(index)] + (last ? 0 : 1), format, base_);
        if (last) break;
        rows.Append(row);
        row.clear();
    }
    lengths.front() += from.column;
    AppendRuns(row, Stretches(to.line), to.column, to.column + tail + 1, lengths.back() - to.column, base_);
    lengths.back() += tail;

    if (from.line == to.line && lines == 1) {
        SetLine(from.line, lengths.front(), row);
        return;
    }
    rows.Append(row);
    Splice(from.line, to.line - from.line + 1, lengths, rows);
}

void FormatStore::SetLine(int line, int length, std::span<const Stretch> stretches) {
    const std::size_t slot = SlotOf(line);
    Owned(slot).lengths[static_cast<std::size_t>(line - slots_[slot].firstLine)] = length;
    if (!stretches.empty() || !Stretches(line).empty()) SetStretches(line, stretches);
}

void FormatStore::Splice(int firstLine, int removed, std::span<const int> lengths, const StretchRows& stretches) {
    const int difference = static_cast<int>(lengths.size()) - removed;
    const std::size_t first = SlotOf(firstLine);
    const std::size_t last = SlotOf(firstLine + removed - 1);
    const int slotFirstLine = slots_[first].firstLine;

    // The lines around the change join the new ones, and all are cut into chunks again.
    std::vector<int> allLengths;
    StretchRows allStretches;
    const auto take = [&](const Chunk& chunk, int begin, std::size_t end) {
        const auto from = static_cast<std::size_t>(begin);
        allLengths.insert(allLengths.end(), chunk.lengths.begin() + begin,
                          chunk.lengths.begin() + static_cast<std::ptrdiff_t>(end));
        if (chunk.stretches.empty()) {
            allStretches.Resize(allLengths.size());
        } else {
            allStretches.Append(chunk.stretches, from, end);
        }
    };
    take(*slots_[first].chunk, 0, static_cast<std::size_t>(firstLine - slotFirstLine));
    allLengths.insert(allLengths.end(), lengths.begin(), lengths.end());
    allStretches.Append(stretches, 0, lengths.size());
    const Slot& lastSlot = slots_[last];
    take(*lastSlot.chunk, firstLine + removed - lastSlot.firstLine, lastSlot.chunk->lengths.size());

    std::vector<Slot> renewed;
    const std::size_t step = allLengths.size() <= chunkLimit ? chunkLimit : chunkLines;
    for (std::size_t begin = 0; begin < allLengths.size(); begin += step) {
        const std::size_t end = std::min(begin + step, allLengths.size());
        auto chunk = std::make_shared<Chunk>();
        chunk->lengths.assign(allLengths.begin() + static_cast<std::ptrdiff_t>(begin),
                              allLengths.begin() + static_cast<std::ptrdiff_t>(end));
        chunk->stretches.Append(allStretches, begin, end);
        if (!chunk->stretches.HasStretches()) chunk->stretches = {};
        renewed.push_back({slotFirstLine + static_cast<int>(begin), std::move(chunk)});
    }
    const auto begin = slots_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto behind = slots_.erase(begin, slots_.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    const auto rest =
        slots_.insert(behind, std::make_move_iterator(renewed.begin()), std::make_move_iterator(renewed.end())) +
        static_cast<std::ptrdiff_t>(renewed.size());
    std::for_each(rest, slots_.end(), [&](Slot& slot) { slot.firstLine += difference; });
    lineCount_ += difference;
}

void FormatStore::SetFormat(TextPlace from, TextPlace to, const FormatChange& change) {
    if (from >= to) return;
    for (int line = from.line; line <= to.line; ++line) {
        const int behind = LineLength(line) + 1;
        const int begin = line == from.line ? from.column : 0;
        const int end = line == to.line ? to.column : behind;
        if (begin >= end) continue;
        const std::span<const Stretch> old = Stretches(line);
        if (old.empty() && change.AppliedTo(base_) == base_) continue;
        StretchList list;
        AppendRuns(list, old, 0, begin, 0, base_);
        VisitLine(old, begin, end, base_, [&](int start, int length, const CharFormat& format) {
            Append(list, start, length, change.AppliedTo(format), base_);
            return true;
        });
        AppendRuns(list, old, end, behind, 0, base_);
        SetStretches(line, list);
    }
}

void FormatStore::SetAll(const CharFormat& rest) {
    base_ = rest;
    for (Slot& slot : slots_) {
        if (slot.chunk->stretches.empty()) continue;
        if (slot.chunk.use_count() == 1) {
            slot.chunk->stretches = {};
        } else {
            slot.chunk = std::make_shared<Chunk>(Chunk{slot.chunk->lengths, {}});
        }
    }
}

void FormatStore::SetAll(const CharFormat& rest, std::span<const FormatSpan> spans, int lineEndLength) {
    SetAll(rest);
    AppendSpans(spans, lineEndLength);
}

void FormatStore::AppendSpans(std::span<const FormatSpan> spans, int lineEndLength) {
    auto next = spans.begin();
    int lineStart = 0;
    StretchRows rows;
    StretchList row;
    for (std::size_t slot = 0; slot < slots_.size() && next != spans.end(); ++slot) {
        rows.Resize(0);
        for (const int length : slots_[slot].chunk->lengths) {
            const int lineStop = lineStart + length + lineEndLength;
            row.clear();
            while (next != spans.end() && next->offset < lineStop) {
                const int stop = next->offset + next->length;
                const int begin = std::clamp(next->offset - lineStart, 0, length);
                const int end = stop >= lineStop ? length + 1 : std::min(stop - lineStart, length);
                Append(row, begin, end - begin, next->format, base_);
                if (stop > lineStop) break;
                ++next;
            }
            rows.Append(row);
            lineStart = lineStop;
        }
        if (rows.HasStretches()) Owned(slot).stretches = rows;  // a copy is no longer than it has to be
    }
}

template <typename Visitor>
bool FormatStore::VisitRuns(TextPlace from, TextPlace to, const Visitor& visit) const {
    if (from >= to) return true;
    int line = from.line;
    for (std::size_t index = SlotOf(line); index < slots_.size() && line <= to.line; ++index) {
        const Slot& slot = slots_[index];
        const int behind = slot.firstLine + static_cast<int>(slot.chunk->lengths.size());
        for (; line < behind && line <= to.line; ++line) {
            const auto row = static_cast<std::size_t>(line - slot.firstLine);
            const int begin = line == from.line ? from.column : 0;
            const int end = line == to.line ? to.column : slot.chunk->lengths[row] + 1;
            const std::span<const Stretch> list =
                slot.chunk->stretches.empty() ? std::span<const Stretch>() : slot.chunk->stretches[row];
            const bool wentOn =
                VisitLine(list, begin, end, base_,
                          [&](int /*start*/, int /*length*/, const CharFormat& format) { return visit(format); });
            if (!wentOn) return false;
        }
    }
    return true;
}

CharFormat FormatStore::FormatAt(TextPlace place) const {
    if (place >= End()) return base_;
    CharFormat found = base_;
    VisitRuns(place, {place.line, place.column + 1}, [&](const CharFormat& format) {
        found = format;
        return false;
    });
    return found;
}

std::size_t FormatStore::HeldBytesBeside(const FormatStore& other) const {
    std::unordered_set<const Chunk*> shared;
    for (const Slot& slot : other.slots_) shared.insert(slot.chunk.get());
    std::size_t bytes = slots_.capacity() * sizeof(Slot);
    for (const Slot& slot : slots_) {
        if (shared.contains(slot.chunk.get())) continue;
        bytes += sizeof(Chunk) + slot.chunk->lengths.capacity() * sizeof(int) + slot.chunk->stretches.HeldBytes();
    }
    return bytes;
}

std::optional<ColorNumber> FormatStore::CommonColor(TextPlace from, TextPlace to, ColorNumber own) const {
    std::optional<ColorNumber> common;
    const bool one = VisitRuns(from, to, [&](const CharFormat& format) {
        const ColorNumber color = format.color.value_or(own);
        if (!common) common = color;
        return *common == color;
    });
    return one ? common : std::nullopt;
}

std::optional<bool> FormatStore::CommonBold(TextPlace from, TextPlace to) const {
    std::optional<bool> common;
    const bool one = VisitRuns(from, to, [&](const CharFormat& format) {
        if (!common) common = format.bold;
        return *common == format.bold;
    });
    return one ? common : std::nullopt;
}

}  // namespace vellum
