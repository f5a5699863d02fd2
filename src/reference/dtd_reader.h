// Reads a DTD into a branch of the reference tree: a node for each element, under it one for each of its attributes.
// It is no XML parser but a pass of text searches, and what those searches find is the branch.
#pragma once

#include "editor/reference_tree.h"
#include "reference/reading_failed.h"

#include <QString>

#include <functional>

namespace vellum {

// Gets the text that a reading writes into the main window's caption as a trace.
using CaptionHook = std::function<void(const QString& caption)>;

// Adds the root `title`, and the branch of the DTD below the node `parentIndex`, which the caller promises to be that
// root. `nodeIndex` is the index that the next element will get and that its attributes are added to; afterwards it is
// the same for whatever comes next, and so is the result. `dtdText` may have line ends of any kind.
//
// Throws ReadingFailed when a declaration of an element doesn't end, names a parameter entity that isn't declared, has
// no name or can't be found again, and when parameter entities expand without end; throws std::out_of_range when a node
// index given or counted is none of the tree. `nodeIndex` then stays as it was.
int AddDtDText(ReferenceTree& tree, int& nodeIndex, const QString& dtdText, int parentIndex, const QString& title,
               const CaptionHook& caption = {});

// The same for a file. The root is added first, so that it stands there also when the file can't be read, which throws
// ReadingFailed.
int AddDtD(ReferenceTree& tree, int& nodeIndex, const QString& dtdPath, int parentIndex, const QString& title,
           const CaptionHook& caption = {});

}  // namespace vellum
