#include "surface/surface_history.h"

#include "surface/format_difference.h"
#include "values/text_difference.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace vellum {

void TextChanges::Add(int position, const QString& removed, int added) {
    const int gone = static_cast<int>(removed.size());
    if (!changes_.empty()) {
        Change& last = changes_.back();
        const int end = last.position + last.length;
        if (position <= end && position + gone >= last.position) {
            // They touch, as those of typing do: one change says it all.
            const int before = std::max(0, last.position - position);
            const int after = std::max(0, position + gone - end);
            if (before > 0) last.earlier.prepend(removed.left(before));
            if (after > 0) last.earlier.append(removed.right(after));
            last.position -= before;
            last.length += before + after - gone + added;
            return;
        }
    }
    changes_.push_back({position, added, removed});
}

TextChanges TextChanges::TakeBack(const ReplaceText& replace) const {
    TextChanges forward;
    std::for_each(changes_.rbegin(), changes_.rend(), [&](const Change& change) {
        const QString later = replace(change.position, change.length, change.earlier);
        forward.Add(change.position, later, static_cast<int>(change.earlier.size()));
    });
    forward.Squeeze();
    return forward;
}

void TextChanges::Squeeze() {
    changes_.shrink_to_fit();
    for (Change& change : changes_) change.earlier.squeeze();
}

struct SurfaceHistory::Version {
    Version() = default;
    Version(const Version&) = delete;
    Version& operator=(const Version&) = delete;
    ~Version() {
        // One after the other: a long chain of versions that nobody else holds would end deep within one another.
        while (next && next.use_count() == 1) next = std::exchange(next->next, nullptr);
    }

    [[nodiscard]] bool Taken() const { return std::holds_alternative<FormatStore>(formats); }

    // Keeps only what differs from the formats of the next version, unless that is most of them.
    void KeepDifference(const FormatStore& later) {
        const auto* const own = std::get_if<FormatStore>(&formats);
        if (own == nullptr || own->Base() != later.Base()) return;
        FormatDifference difference = FormatDifference::Between(later, *own);
        if (difference.LineCount() <= std::max(fewLines, own->LineCount() / 2)) formats = std::move(difference);
    }

    static constexpr int fewLines = 256;

    std::shared_ptr<Version> next;                                        // towards the root, which has none
    TextChanges text;                                                     // from the next version back to this one
    std::variant<std::monostate, FormatStore, FormatDifference> formats;  // none while it is being edited
};

SurfaceHistory::SurfaceHistory() {
    Forget();
}

void SurfaceHistory::Forget() {
    root_ = std::make_shared<Version>();
    last_.reset();
}

void SurfaceHistory::Seal() {
    root_->next = std::make_shared<Version>();
    last_ = std::exchange(root_, root_->next);
}

void SurfaceHistory::Record(int position, const QString& removed, int added) {
    if (removed.isEmpty() && added == 0) return;
    if (root_->Taken()) {
        if (Records()) {
            Seal();
        } else {
            root_->formats = std::monostate();
        }
    }
    if (const auto version = last_.lock()) version->text.Add(position, removed, added);
}

void SurfaceHistory::RecordAll(const QString& before, const QString& after) {
    const TextDifference difference = DifferenceBetween(before, after);
    Record(difference.earlier.offset, before.mid(difference.earlier.offset, difference.earlier.length),
           difference.later.length);
}

SurfaceHistory::Snapshot SurfaceHistory::Take(const FormatStore& formats) {
    if (Records()) {
        const auto* const known = std::get_if<FormatStore>(&root_->formats);
        if (known != nullptr &&
            (known->Base() != formats.Base() || !FormatDifference::Between(formats, *known).IsEmpty())) {
            Seal();
        }
    }
    if (const auto version = last_.lock()) {
        version->KeepDifference(formats);
        version->text.Squeeze();
    }
    last_.reset();
    root_->formats = formats;
    return Snapshot(root_);
}

bool SurfaceHistory::Restore(const Snapshot& snapshot, FormatStore& formats, const ReplaceText& replace) {
    const Snapshot present = Take(formats);
    std::vector<std::shared_ptr<Version>> way;
    for (auto version = snapshot.version_; version; version = version->next) way.push_back(version);
    if (way.empty() || way.back() != root_) return false;
    for (std::size_t index = way.size() - 1; index > 0; --index) StepBack(way[index], way[index - 1], formats, replace);
    root_ = way.front();
    return true;
}

void SurfaceHistory::StepBack(const std::shared_ptr<Version>& from, const std::shared_ptr<Version>& to,
                              FormatStore& formats, const ReplaceText& replace) {
    if (const auto* const own = std::get_if<FormatStore>(&to->formats)) {
        formats = *own;
    } else if (const auto* const difference = std::get_if<FormatDifference>(&to->formats)) {
        difference->ApplyTo(formats);
    }
    to->formats = formats;
    from->text = to->text.TakeBack(replace);
    from->KeepDifference(formats);
    from->next = to;
    to->text = {};
    to->next.reset();
}

}  // namespace vellum
