// What a full XML parser reads from a document type or an entity file, for holding the reference tree against it.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace vellum {

struct VocabularyElement {
    bool empty = false;
    QString content;                    // the content model, choices sorted, such as "(dd|dt)+"; "EMPTY"; "ANY"
    QMap<QString, QString> attributes;  // by name: type, values (sorted) and default, such as "(ltr|rtl) #IMPLIED"
};

struct Vocabulary {
    QMap<QString, VocabularyElement> elements;
    QMap<QString, QString> entities;  // by name: the character
    QStringList complaints;           // what the parser found wrong, and elements that are named but not declared
};

// Reads a DTD or entity file with everything that it takes in. A file that it names and that doesn't lie beside it is
// looked for by its name in entityFolder; nothing is fetched. A file that can't be read is a complaint.
[[nodiscard]] Vocabulary ReadVocabulary(const QString& path, const QString& entityFolder = {});

}  // namespace vellum
