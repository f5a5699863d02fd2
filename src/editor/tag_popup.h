// The popup beside the caret: when it shows, what it offers, and what a choice puts into the text.
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>
#include <QStringView>

class QListWidget;

namespace vellum {

class ReferenceTree;

enum class PopupStep { Leave, Hide, Tags, Attributes };

struct PopupDecision {
    PopupStep step = PopupStep::Leave;
    QString name;  // the element whose attributes are wanted, as written
};

// `tag` is the text from the tag's "<" on, `caret` the number of its characters before the caret, of which the "<" is
// one. Needs the text up to the end of the tag's name, or of the document, and one character behind the caret.
[[nodiscard]] PopupDecision DecidePopup(QStringView tag, int caret);

// The part of a tag before the caret that a word chosen from the popup takes the place of: what stands behind the last
// blank, bracket, quote or line end.
[[nodiscard]] QString PartialWord(QStringView beforeCaret);

// The elements of a document type and their closing forms, in the order in which the popup offers them.
[[nodiscard]] QStringList TagEntries(const ReferenceTree& references, int root);

// The element of a document type with that name, in any case; 0 when there is none.
[[nodiscard]] int FindElement(const ReferenceTree& references, int root, const QString& name);

// Where a popup of `size` stands: below the caret, above it where there is more room, and always inside `area`, made
// lower when it has to be. All in pixels of one widget.
[[nodiscard]] QRect PopupPlace(const QRect& caret, const QRect& area, QSize size);

}  // namespace vellum
