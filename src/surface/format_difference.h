// The lines in which two stores of formats differ.
#pragma once

#include "surface/format_store.h"

#include <cstddef>
#include <vector>

namespace vellum {

// Holds the differing lines of one store in a compact form, without sharing anything with it.
class FormatDifference {
public:
    // What turns `from` into `to`, for stores with the same base format. Chunks that both share are passed by, so it
    // takes as long as there was something edited.
    [[nodiscard]] static FormatDifference Between(const FormatStore& from, const FormatStore& to);

    // `store` holds what `from` held.
    void ApplyTo(FormatStore& store) const;

    [[nodiscard]] bool IsEmpty() const { return hunks_.empty(); }
    [[nodiscard]] int LineCount() const { return static_cast<int>(lines_.size()); }  // lines of `to` that it holds

private:
    // Lines of `from`, and how many lines of `to` take their place; ascending.
    struct Hunk {
        int line = 0;
        int removed = 0;
        int added = 0;
    };
    struct LineRange {
        int begin = 0;
        int end = 0;
    };
    class Lines;

    void Compare(Lines& from, LineRange old, Lines& to, LineRange fresh);
    void AddHunk(LineRange old, Lines& to, LineRange fresh);
    void ApplyHunk(FormatStore& store, const Hunk& hunk, std::size_t firstLine, std::size_t firstRun) const;

    std::vector<Hunk> hunks_;
    std::vector<LineEntry> lines_;  // those that come in, hunk by hunk
    std::vector<int> runsOfLine_;   // how many of `runs_` belong to each
    std::vector<FormatRun> runs_;
};

}  // namespace vellum
