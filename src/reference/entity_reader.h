// Reads the named characters of an entity file into the reference tree, by text searches as the DTD reader does.
#pragma once

#include "editor/reference_tree.h"
#include "reference/reading_failed.h"

#include <QString>

namespace vellum {

// The text of a character's node: "&", the name, ";", as many blanks as the name is shorter than ten characters, and
// what the declaration says of it: `value`, or the character when that is a number below 256.
// Throws ReadingFailed when `value` begins as a number and is none of a character.
[[nodiscard]] QString EntityNodeText(const QString& name, const QString& value);

// Adds the child `title` to the node `parentIndex`, and a node for each entity that `entText` declares. `nodeIndex` is
// the count before; it goes up by one, is then the node that the entities are added to, and goes up by their number.
// The result is one less than that, with which the next file is read: the entities of the second file hang below the
// last one of the first, and those of the third below the first of the second, as authors know the tree.
//
// Throws ReadingFailed when an entity doesn't end, has no name or no quotes, or when there are too many; throws
// std::out_of_range when a node index is none of the tree. `nodeIndex` then stays as it was.
int AddEntText(ReferenceTree& tree, int& nodeIndex, const QString& entText, int parentIndex, const QString& title);

// The same for a file. The title is added first; a file that can't be read throws ReadingFailed.
int AddEnt(ReferenceTree& tree, int& nodeIndex, const QString& entPath, int parentIndex, const QString& title);

}  // namespace vellum
