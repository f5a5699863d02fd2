// What becomes of a tag when its ">" is typed.
#pragma once

#include <QString>

namespace vellum {

class ReferenceTree;

struct CompletionRules {
    bool lowerCase = false;   // names in lower case, when the first document type of the tree is the active one
    bool closeEmpty = false;  // elements that the active document type declares empty end in " />"
};

// `tagText` is the whole construct, from its "<" to the ">" that was typed.
[[nodiscard]] QString CompletedTag(QString tagText, const CompletionRules& rules, const ReferenceTree& references);

}  // namespace vellum
