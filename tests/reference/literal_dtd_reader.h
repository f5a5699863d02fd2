// The reading of a DTD as plain searches over the whole text, without an index: what the reader's results are held
// against.
#pragma once

#include "reference/dtd_reader.h"

namespace vellum::test {

// As AddDtDText, but for the kinds of the nodes: these have their captions for names.
int LiteralAddDtD(ReferenceTree& tree, int& nodeIndex, const QString& dtdText, int parentIndex, const QString& title,
                  const CaptionHook& caption = {});

}  // namespace vellum::test
