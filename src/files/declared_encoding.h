// The encoding that a document says it has, in an XML declaration, a style sheet's @charset or a meta element.
#pragma once

#include <QByteArray>

namespace vellum {

// The label as it is written, looked for in the first 1024 bytes; empty when there is none. Comments don't count.
[[nodiscard]] QByteArray DeclaredEncoding(QByteArrayView bytes);

}  // namespace vellum
