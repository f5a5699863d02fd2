// The encoding that a document says it has, in an XML declaration, a style sheet's @charset or a meta element.
#pragma once

#include "values/text_range.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace vellum {

struct EncodingDeclaration {
    QString label;    // as it is written
    TextRange place;  // where it stands
    bool byXml = false;
};

// All of a text, that which counts first. Comments, scripts and style sheets of a page don't count.
[[nodiscard]] std::vector<EncodingDeclaration> FindDeclarations(const QString& text);

// Those in the first 1024 bytes of a file, where browsers look.
[[nodiscard]] std::vector<EncodingDeclaration> DeclarationsInHead(QByteArrayView bytes);

}  // namespace vellum
