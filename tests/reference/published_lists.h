// The published lists of the document types that come in no package to be held against: elements, their attributes, and
// which elements are empty.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace vellum {

struct ListedElement {
    bool empty = false;
    QStringList attributes;  // in the order of the list
};

// One document type: the shipped file, the text that opens a document of it, its list.
struct PublishedList {
    const char* shipped;
    const char* declaration;
    const char* list;
};

extern const PublishedList openEbookDocument;
extern const PublishedList openEbookPackage;
extern const PublishedList wirelessMarkup;
extern const PublishedList extensible3d;

// Reads a list of lines such as "h1 h2: align @text", which gives elements with the same attributes; a name that ends
// in "/" is an empty element. "@text = id class" names attributes that a later line can take in. An indented line goes
// on with the one before. A line that is none of these is an element named "?".
[[nodiscard]] QMap<QString, ListedElement> ElementsOf(const PublishedList& list);

}  // namespace vellum
