// Gives every field of a form a letter of its own, so that captions need none written into them.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace vellum {

// The captions with an "&" before the letter of each, where they have none yet: the first letter of a word before any
// other, and no letter twice, nor one of `taken` (in lower case). A caption for which no letter is left stays without.
[[nodiscard]] QStringList WithAccessKeys(const QStringList& captions, const QString& taken = {});

// Sets them on what stands in a form, in the order of the Tab key: labels that belong to a field, check boxes, options
// and buttons. The panes of a tab widget or of a stack show one at a time, so each has the alphabet for itself, without
// the letters of the tabs and of what stands outside.
void SetAccessKeys(QWidget& form);

}  // namespace vellum
