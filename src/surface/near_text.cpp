#include "surface/near_text.h"

#include "surface/document_text.h"

#include <QTextDocument>

#include <algorithm>

namespace vellum {
namespace {

// Ranges of other lengths are read as they come: short ones cost little, and long ones aren't about the caret.
constexpr int shortest = 2000;
constexpr int longest = 20000;
constexpr int margin = 4000;  // read on either side, so that a caret that moves a little finds its text here
constexpr int mostKept = longest + 4 * margin;

}  // namespace

NearText::NearText(QTextDocument& document)
    : document_(document),
      change_(QObject::connect(&document, &QTextDocument::contentsChange, &document,
                               [this](int position, int removed, int added) { Follow(position, removed, added); })),
      end_(QObject::connect(&document, &QTextDocument::contentsChanged, &document,
                            [this] { revision_ = document_.revision(); })),
      revision_(document.revision()) {}

NearText::~NearText() {
    QObject::disconnect(change_);
    QObject::disconnect(end_);
}

QString NearText::Characters(int position, int length) {
    if (document_.revision() != revision_) return ReadDocument(document_, {position, length});  // it is being changed
    const auto known = [&] { return position >= from_ && position + length <= from_ + text_.size(); };
    if (text_.isNull() || !known()) {
        if (length < shortest || length > longest) return ReadDocument(document_, {position, length});
        const int last = document_.characterCount() - 1;
        from_ = std::max(0, position - margin);
        text_ = ReadDocument(document_, {from_, std::min(position + length + margin, last) - from_});
        if (!known()) return ReadDocument(document_, {position, length});
    }
    return text_.mid(position - from_, length);
}

void NearText::Follow(int position, int removed, int added) {
    revision_ = document_.revision();
    if (text_.isNull()) return;
    const auto end = static_cast<int>(from_ + text_.size());
    if (position >= end) return;
    if (position + removed <= from_) {
        from_ += added - removed;
        return;
    }
    const bool inside = position >= from_ && position + removed <= end;
    if (!inside || text_.size() + added > mostKept || position + added > document_.characterCount() - 1) {
        text_ = QString();
        return;
    }
    text_.replace(position - from_, removed, ReadDocument(document_, {position, added}));
}

}  // namespace vellum
