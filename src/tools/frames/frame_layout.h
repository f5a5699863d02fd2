// Up to four lines of up to four frames each, and the frameset that they make.
#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace vellum {

// What a line is: a column whose frames are stacked, or a row whose frames stand side by side.
enum class FrameDirection { ColumnsFirst, RowsFirst };

// A frame by its place within its line, and its line; both from 0 to 3.
struct FrameCell {
    int frame = 0;
    int line = 0;
};

inline constexpr int mostFrames = 4;  // lines in all, and frames in a line

template <typename Value>
class FrameTable {
public:
    Value& operator[](FrameCell cell) { return lines_.at(Index(cell.line)).at(Index(cell.frame)); }
    const Value& operator[](FrameCell cell) const { return lines_.at(Index(cell.line)).at(Index(cell.frame)); }

private:
    static std::size_t Index(int number) { return static_cast<std::size_t>(number); }

    std::array<std::array<Value, mostFrames>, mostFrames> lines_{};
};

class FrameLayout {
public:
    explicit FrameLayout(FrameDirection direction);

    FrameTable<QString> FrameNames;
    FrameTable<QString> FrameSources;
    // Empty up to SetLineCount. What the author types goes in by SetFrameWidth and SetFrameHeight.
    FrameTable<QString> FrameWidths;
    FrameTable<QString> FrameHeights;
    // Check values: 0 or 1.
    FrameTable<std::int16_t> FrameScroll;
    FrameTable<std::int16_t> FrameBorder;
    FrameTable<std::int16_t> FrameResize;

    // Lines less one, 0 to 3.
    [[nodiscard]] std::int16_t LineCount() const { return lineCount_; }
    // Takes the number of lines from a field, and shares the room out among them. False, and no change, when the number
    // that the text begins with lies outside 1 to 4. Fractions are rounded, halves to the number that makes LineCount
    // even.
    bool SetLineCount(const QString& text);

    [[nodiscard]] int FrameCount(int line) const { return counts_.at(static_cast<std::size_t>(line)); }
    // One frame more or fewer at the end of a line, whose frames share its room evenly then. False, and no change, at
    // four frames and at one. A dropped frame keeps its entries, and comes back with them.
    bool AddFrame(int line);
    bool DropFrame(int line);

    // A size that the line shares (the width of a column, the height of a row) goes to all frames that it has now.
    void SetFrameWidth(FrameCell cell, const QString& text);
    void SetFrameHeight(FrameCell cell, const QString& text);

    // Lines end in CR LF.
    [[nodiscard]] QString Markup() const;

private:
    using Sizes = FrameTable<QString>;

    // The sizes that a line shares, and those of its single frames.
    [[nodiscard]] Sizes& OuterSizes() { return columnsFirst_ ? FrameWidths : FrameHeights; }
    [[nodiscard]] Sizes& InnerSizes() { return columnsFirst_ ? FrameHeights : FrameWidths; }
    [[nodiscard]] const Sizes& OuterSizes() const { return columnsFirst_ ? FrameWidths : FrameHeights; }
    [[nodiscard]] const Sizes& InnerSizes() const { return columnsFirst_ ? FrameHeights : FrameWidths; }

    void SetSize(Sizes& sizes, FrameCell cell, const QString& text);
    bool ChangeFrameCount(int line, int count);
    [[nodiscard]] QString FrameTag(FrameCell cell) const;
    [[nodiscard]] QString LineMarkup(int line) const;

    bool columnsFirst_;
    std::int16_t lineCount_ = 0;
    std::array<int, mostFrames> counts_{1, 1, 1, 1};
};

}  // namespace vellum
