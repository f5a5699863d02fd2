// What the popup beside the caret goes by: when it shows, what it offers, and where it stands.
#pragma once

#include "editor/reference_tree.h"

#include <QRect>
#include <QString>
#include <QStringView>

#include <vector>

namespace vellum {

enum class PopupStep { Leave, Hide, Tags, Attributes };

struct PopupDecision {
    PopupStep step = PopupStep::Leave;
    QString name;  // the element whose attributes are wanted, as written
};

struct PopupEntry {
    NodeKind kind = NodeKind::Element;
    QString shown;
    QString written;  // into the text; what is typed selects by it

    bool operator==(const PopupEntry&) const = default;
};

// `tag` is the text from the tag's "<" on, `caret` the number of its characters before the caret, of which the "<" is
// one. Needs the text up to the end of the tag's name, or of the document, and one character after the caret.
[[nodiscard]] PopupDecision DecidePopup(QStringView tag, int caret);

// The part of a tag before the caret that a word chosen from the popup takes the place of: what comes after the last
// blank, bracket, quote or line end.
[[nodiscard]] QString PartialWord(QStringView beforeCaret);

// The elements of a document type and their closing forms; the attributes of an element, with quotes; all characters.
// Each in the order in which the popup offers them.
[[nodiscard]] std::vector<PopupEntry> TagEntries(const ReferenceTree& references, int root);
[[nodiscard]] std::vector<PopupEntry> AttributeEntries(const ReferenceTree& references, int element);
[[nodiscard]] std::vector<PopupEntry> CharacterEntries(const ReferenceTree& references);

// The element of a document type with that name, in any case; 0 when there is none.
[[nodiscard]] int FindElement(const ReferenceTree& references, int root, const QString& name);

// Where a popup of `size` stands: below the caret, above it where there is more room, and always inside `area`, made
// lower when it has to be. All in pixels of one widget.
[[nodiscard]] QRect PopupPlace(const QRect& caret, const QRect& area, QSize size);

}  // namespace vellum
