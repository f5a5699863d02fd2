// Reads the named characters of an entity file into the reference tree, by text searches as the DTD reader does.
#pragma once

#include "editor/reference_tree.h"
#include "reference/reading_failed.h"

#include <QString>

namespace vellum {

// Adds the child `title` to the node `parentIndex`, and a node for each entity that `entText` declares, shown as its
// value, or as the character when that is a number below 256. `nodeIndex` is the count before; it goes up by one, is
// then the node that the entities are added to, and goes up by their number. The result is one less than that, with
// which the next file is read: the entities of the second file hang below the last one of the first, and those of the
// third below the first of the second, as authors know the tree.
//
// Throws ReadingFailed when an entity doesn't end, has no name, no quotes or the number of no character, or when there
// are too many; throws std::out_of_range when a node index is none of the tree. `nodeIndex` then stays as it was.
int AddEntText(ReferenceTree& tree, int& nodeIndex, const QString& entText, int parentIndex, const QString& title);

// The same for a file. The title is added first; a file that can't be read throws ReadingFailed.
int AddEnt(ReferenceTree& tree, int& nodeIndex, const QString& entPath, int parentIndex, const QString& title);

}  // namespace vellum
