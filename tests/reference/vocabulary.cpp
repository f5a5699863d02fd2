#include "vocabulary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <libxml/hash.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/valid.h>
#include <libxml/xmlerror.h>
#include <memory>

namespace vellum {
namespace {

// The parser's hook for opening files is one for the whole process and takes no context.
QString& EntityFolder() {
    static QString folder;
    return folder;
}

QString Text(const xmlChar* text) {
    return QString::fromUtf8(reinterpret_cast<const char*>(text));
}

QString Name(const xmlChar* prefix, const xmlChar* name) {
    return prefix ? Text(prefix) + ':' + Text(name) : Text(name);
}

xmlParserInputPtr OpenLocally(const char* address, const char* /*publicId*/, xmlParserCtxtPtr context) {
    QString path = QString::fromUtf8(address);
    if (!QFile::exists(path)) path = QDir(EntityFolder()).filePath(QFileInfo(path).fileName());
    return xmlNewInputFromFile(context, QFile::encodeName(path).constData());
}

QString Content(xmlElementContentPtr node);

// The members of a sequence or choice, those of a bare group within it among them: "a, (b, c)" says "a, b, c".
void AddMembers(xmlElementContentPtr node, xmlElementContentType type, QStringList& members) {
    if (!node) return;
    if (node->type == type && node->ocur == XML_ELEMENT_CONTENT_ONCE) {
        AddMembers(node->c1, type, members);
        AddMembers(node->c2, type, members);
    } else {
        members << Content(node);
    }
}

QString Occurrence(xmlElementContentOccur occurrence) {
    switch (occurrence) {
        case XML_ELEMENT_CONTENT_OPT:
            return "?";
        case XML_ELEMENT_CONTENT_MULT:
            return "*";
        case XML_ELEMENT_CONTENT_PLUS:
            return "+";
        default:
            return {};
    }
}

QString Content(xmlElementContentPtr node) {
    if (node->type == XML_ELEMENT_CONTENT_PCDATA) return "#PCDATA";
    if (node->type == XML_ELEMENT_CONTENT_ELEMENT) return Name(node->prefix, node->name) + Occurrence(node->ocur);
    QStringList members;
    AddMembers(node->c1, node->type, members);
    AddMembers(node->c2, node->type, members);
    const bool choice = node->type == XML_ELEMENT_CONTENT_OR;
    if (choice) members.sort();
    return '(' + members.join(choice ? "|" : ",") + ')' + Occurrence(node->ocur);
}

QString AttributeType(const xmlAttribute* attribute) {
    switch (attribute->atype) {
        case XML_ATTRIBUTE_CDATA:
            return "CDATA";
        case XML_ATTRIBUTE_ID:
            return "ID";
        case XML_ATTRIBUTE_IDREF:
            return "IDREF";
        case XML_ATTRIBUTE_IDREFS:
            return "IDREFS";
        case XML_ATTRIBUTE_ENTITY:
            return "ENTITY";
        case XML_ATTRIBUTE_ENTITIES:
            return "ENTITIES";
        case XML_ATTRIBUTE_NMTOKEN:
            return "NMTOKEN";
        case XML_ATTRIBUTE_NMTOKENS:
            return "NMTOKENS";
        default:
            break;
    }
    QStringList values;
    for (const xmlEnumeration* value = attribute->tree; value; value = value->next) values << Text(value->name);
    values.sort();
    return '(' + values.join('|') + ')';
}

QString AttributeDefault(const xmlAttribute* attribute) {
    if (attribute->def == XML_ATTRIBUTE_REQUIRED) return "#REQUIRED";
    if (attribute->def == XML_ATTRIBUTE_IMPLIED) return "#IMPLIED";
    const QString value = '"' + Text(attribute->defaultValue) + '"';
    return attribute->def == XML_ATTRIBUTE_FIXED ? "#FIXED " + value : value;
}

void AddElement(void* payload, void* vocabulary, const xmlChar* /*name*/) {
    const auto* declared = static_cast<const xmlElement*>(payload);
    VocabularyElement element;
    element.empty = declared->etype == XML_ELEMENT_TYPE_EMPTY;
    element.content = element.empty ? "EMPTY" : declared->content ? Content(declared->content) : "ANY";
    for (const xmlAttribute* attribute = declared->attributes; attribute; attribute = attribute->nexth)
        element.attributes[Name(attribute->prefix, attribute->name)] =
            AttributeType(attribute) + ' ' + AttributeDefault(attribute);
    static_cast<Vocabulary*>(vocabulary)->elements[Name(declared->prefix, declared->name)] = element;
}

// A value that was escaped twice is still a reference to its character.
QString Character(const QString& value) {
    static const QRegularExpression reference("^&#([0-9]+);$");
    const QRegularExpressionMatch match = reference.match(value);
    return match.hasMatch() ? QString(QChar(match.captured(1).toUShort())) : value;
}

void AddEntity(void* payload, void* vocabulary, const xmlChar* /*name*/) {
    const auto* entity = static_cast<const xmlEntity*>(payload);
    static_cast<Vocabulary*>(vocabulary)->entities[Text(entity->name)] = Character(Text(entity->content));
}

void AddNames(xmlElementContentPtr node, QStringList& names) {
    if (!node) return;
    if (node->type == XML_ELEMENT_CONTENT_ELEMENT) names << Name(node->prefix, node->name);
    AddNames(node->c1, names);
    AddNames(node->c2, names);
}

// What can only be seen when all is declared: attributes and content models that contradict one another or themselves,
// content that can be read in two ways. The parser reports it.
void CheckTogether(xmlDtdPtr dtd) {
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(xmlNewDoc(nullptr), &xmlFreeDoc);
    const std::unique_ptr<xmlValidCtxt, decltype(&xmlFreeValidCtxt)> context(xmlNewValidCtxt(), &xmlFreeValidCtxt);
    document->extSubset = dtd;
    xmlValidateDtdFinal(context.get(), document.get());
    for (xmlNodePtr node = dtd->children; node; node = node->next) {
        if (node->type != XML_ELEMENT_DECL) continue;
        auto* element = reinterpret_cast<xmlElementPtr>(node);
        xmlValidateElementDecl(context.get(), document.get(), element);
        xmlValidBuildContentModel(context.get(), element);
        for (xmlAttributePtr attribute = element->attributes; attribute; attribute = attribute->nexth)
            xmlValidateAttributeDecl(context.get(), document.get(), attribute);
    }
    document->extSubset = nullptr;
}

// The parser doesn't mind an element that may hold one which isn't declared.
QStringList Undeclared(const xmlDtd* dtd, const Vocabulary& vocabulary) {
    QStringList complaints;
    for (xmlNodePtr node = dtd->children; node; node = node->next) {
        if (node->type != XML_ELEMENT_DECL) continue;
        const auto* element = reinterpret_cast<xmlElementPtr>(node);
        QStringList names;
        AddNames(element->content, names);
        for (const QString& name : names)
            if (!vocabulary.elements.contains(name))
                complaints << Name(element->prefix, element->name) + " may hold " + name + ", which isn't declared";
    }
    return complaints;
}

}  // namespace

Vocabulary ReadVocabulary(const QString& path, const QString& entityFolder) {
    Vocabulary vocabulary;
    EntityFolder() = entityFolder;
    const xmlExternalEntityLoader before = xmlGetExternalEntityLoader();
    xmlSetExternalEntityLoader(OpenLocally);
    // The parameter is a constant in later releases of the library.
    xmlSetStructuredErrorFunc(&vocabulary.complaints, [](void* complaints, auto* error) {
        *static_cast<QStringList*>(complaints)
            << QString("%1:%2: %3").arg(error->file).arg(error->line).arg(QString(error->message).trimmed());
    });
    const QByteArray name = QFile::encodeName(path);
    const std::unique_ptr<xmlDtd, decltype(&xmlFreeDtd)> dtd(
        xmlParseDTD(nullptr, reinterpret_cast<const xmlChar*>(name.constData())), &xmlFreeDtd);
    if (dtd) CheckTogether(dtd.get());
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    xmlSetExternalEntityLoader(before);
    if (!dtd) {
        vocabulary.complaints << path + " can't be read";
        return vocabulary;
    }
    if (dtd->elements) xmlHashScan(static_cast<xmlHashTablePtr>(dtd->elements), AddElement, &vocabulary);
    if (dtd->entities) xmlHashScan(static_cast<xmlHashTablePtr>(dtd->entities), AddEntity, &vocabulary);
    vocabulary.complaints << Undeclared(dtd.get(), vocabulary);
    return vocabulary;
}

}  // namespace vellum
