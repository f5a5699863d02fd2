// Earlier versions of a formatted text, each kept as what differs from a later one: a version costs what was edited
// since, not what the text holds.
//
// Positions count from 0, a line end as one character.
#pragma once

#include "surface/format_store.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace vellum {

// Takes `length` characters from `position` out of a text, puts `text` there and gives back what stood there.
using ReplaceText = std::function<QString(int position, int length, const QString& text)>;

// Replacements that lead from a text back to an earlier one.
class TextChanges {
public:
    // The later text gets `added` characters at `position` in the place of `removed`.
    void Add(int position, const QString& removed, int added);
    // Makes the earlier text out of the later one. Gives the changes that lead from there to the later text.
    [[nodiscard]] TextChanges TakeBack(const ReplaceText& replace) const;
    void Squeeze();

private:
    struct Change {
        int position = 0;
        int length = 0;  // in the text as it was right after the change
        QString earlier;
    };
    std::vector<Change> changes_;  // in the order in which they were made
};

// All versions of one text that somebody holds a snapshot of. Each knows the way to the present text, which is the root
// of a tree; going to another version turns the way around. Versions that nobody can come back to vanish by themselves.
class SurfaceHistory {
    struct Version;

public:
    // One version, in a handle that is cheap to copy. Two are equal when they are the same version.
    class Snapshot {
    public:
        Snapshot() = default;
        bool operator==(const Snapshot&) const = default;

    private:
        friend class SurfaceHistory;
        explicit Snapshot(std::shared_ptr<Version> version) : version_(std::move(version)) {}

        std::shared_ptr<Version> version_;
    };

    SurfaceHistory();

    // Whether a change of the text has to be told: somebody holds a snapshot.
    [[nodiscard]] bool Records() const { return root_.use_count() > 1; }
    // The text has, or will have, `added` characters at `position` in the place of `removed`. Changes of formats
    // needn't be told.
    void Record(int position, const QString& removed, int added);
    // The whole text changed: what both have in common at either end isn't kept.
    void RecordAll(const QString& before, const QString& after);
    // The text changed in a way that nobody can tell: no version of before can come back.
    void Forget();

    // The present version, whose formats these are.
    [[nodiscard]] Snapshot Take(const FormatStore& formats);
    // Makes `snapshot` the present version, by replacing parts of the text; `formats`, those of the present text,
    // become those of the snapshot. Nothing happens, and it gives false, when the snapshot is empty, of another history
    // or forgotten.
    bool Restore(const Snapshot& snapshot, FormatStore& formats, const ReplaceText& replace);

private:
    void Seal();
    static void StepBack(const std::shared_ptr<Version>& from, const std::shared_ptr<Version>& to, FormatStore& formats,
                         const ReplaceText& replace);

    std::shared_ptr<Version> root_;  // the present text
    std::weak_ptr<Version> last_;    // the version that the text was changed from, until the next is taken
};

}  // namespace vellum
