// What a double click on a node of the reference tree does.
#pragma once

#include "editor/reference_tree.h"

#include <QString>

namespace vellum {

class Workbench;

enum class InsertionKind { Nothing, Text, Call, Attribute, Element };

struct Insertion {
    InsertionKind kind = InsertionKind::Nothing;
    QString text;

    bool operator==(const Insertion&) const = default;
};

// What goes into the document for the node `index`, with the document's selection between the tags of an element.
[[nodiscard]] Insertion PlanInsertion(const ReferenceTree& tree, int index, const QString& selection);

// Puts it there. Nothing happens when no document is open.
void RunInsertion(Workbench& bench, const Insertion& insertion);

}  // namespace vellum
