// What the label of an encoding means, as browsers read it.
#pragma once

#include <QByteArray>

#include <vector>

namespace vellum {

// The encodings that a declared label stands for, by the names that DecodeBytes takes: the first that fits a file is
// the file's. The later ones are wider. Empty when the label says nothing that a file of ASCII markup can be.
//
// `byXml`: an XML declaration has the label, which XML parsers take at its word.
[[nodiscard]] std::vector<QByteArray> EncodingsOfLabel(const QByteArray& label, bool byXml);

}  // namespace vellum
