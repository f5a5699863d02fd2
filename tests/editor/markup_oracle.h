// The colour coding pass once more, step by step on an edit surface of arrays: slow, and plain enough to be seen right.
#pragma once

#include "editor/markup_scan.h"

#include <QString>

#include <optional>
#include <vector>

namespace vellum::test {

// Offsets count from 0; every character of the text counts.
struct ArraySurface {
    explicit ArraySurface(const QString& content, ColorNumber color = 0)
        : text(content),
          colors(static_cast<std::size_t>(content.size()), color),
          bold(static_cast<std::size_t>(content.size()), false) {}

    [[nodiscard]] std::optional<ColorNumber> SelColor() const;  // of a selection
    void SetSelColor(ColorNumber color);
    void SetSelBold(bool on);
    void CompareAndSet(ColorNumber color);
    int Find(const QString& what, int start);
    void Apply(const FormatStep& step);

    QString text;
    std::vector<ColorNumber> colors;
    std::vector<bool> bold;
    int selStart = 0;
    int selLength = 0;
};

class MarkupOracle {
public:
    MarkupOracle(ArraySurface& surface, const MarkupColors& colors) : surface_(surface), colors_(colors) {}

    // The reset of a full pass and both scans, or the scans of a range pass.
    void FullPass(ColorNumber foreColor);
    void RangePass(int start, int length);

    [[nodiscard]] int TagCount() const { return tagCount_; }

private:
    [[nodiscard]] bool Beyond(int pos) const { return inRange_ && pos > limit_; }
    [[nodiscard]] int EndOfTag(int pos) const;  // the position of its last character, from 1; 0 when there is none
    void ScanTags();
    void ScanBlocks();
    int PaintTag(const QString& tagText, int endPos);
    int PaintRegion(const QString& closing);

    ArraySurface& surface_;
    MarkupColors colors_;
    bool inRange_ = false;
    int firstPos_ = 1;
    int limit_ = 0;
    int tagCount_ = 0;
};

}  // namespace vellum::test
