// The shipped document types and character sets against the published ones, as an XML parser reads both, and the
// reference tree that is built from the shipped ones against the same. The published ones come with Debian's
// w3c-sgml-lib.
#include "vocabulary.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace vellum {
namespace {

QString Shipped(const QString& name) {
    return QStringLiteral(VELLUM_SOURCE_DIR "/data/Dtd/") + name;
}

QString Published(const QString& name) {
    return "/usr/share/xml/w3c-sgml-lib/schema/dtd/" + name;
}

// Where the published character sets lie; the published document types of XHTML name them without their folder.
QString PublishedEntityFolder() {
    return Published("REC-xhtml-modularization-20100729");
}

// One document type: the shipped file, the published one, the text that opens a document of it.
struct DocumentTypeRow {
    const char* shipped;
    const char* published;
    const char* declaration;
};

void PrintTo(const DocumentTypeRow& row, std::ostream* out) {
    *out << row.shipped;
}

const DocumentTypeRow documentTypes[] = {
    {"xhtml1-transitional.dtd", "REC-xhtml1-20020801/xhtml1-transitional.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\""},
    {"xhtml1-strict.dtd", "REC-xhtml1-20020801/xhtml1-strict.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\""},
    {"xhtml1-frameset.dtd", "REC-xhtml1-20020801/xhtml1-frameset.dtd",
     "!DOCTYPE html\r\n    PUBLIC \"-//W3C//DTD XHTML 1.0 Frameset//EN\"\r\n"
     "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-frameset.dtd\""},
    {"smil.dtd", "REC-smil-19980615/smil10.dtd",
     "!DOCTYPE smil\r\n    PUBLIC \"-//W3C//DTD SMIL\r\n            1.0//EN\"\r\n"
     "    \"http://www.w3.org/TR/REC-smil/SMIL10.dtd\""},
};

class PublishedDtd : public testing::TestWithParam<DocumentTypeRow> {
protected:
    void SetUp() override {
        published_ = ReadVocabulary(Published(GetParam().published), PublishedEntityFolder());
        ASSERT_EQ(published_.complaints, QStringList()) << "Is the package w3c-sgml-lib installed?";
        ASSERT_FALSE(published_.elements.isEmpty());
    }

    Vocabulary published_;
};

INSTANTIATE_TEST_SUITE_P(Reference, PublishedDtd, testing::ValuesIn(documentTypes), [](const auto& row) {
    return QString(row.param.shipped).section('.', 0, 0).remove(QRegularExpression("[^a-z0-9]")).toStdString();
});

TEST_P(PublishedDtd, SaysTheSameToAnXmlParserAsTheShippedOne) {
    const Vocabulary shipped = ReadVocabulary(Shipped(GetParam().shipped));
    EXPECT_EQ(shipped.complaints, QStringList());
    EXPECT_EQ(shipped.elements.keys(), published_.elements.keys());
    EXPECT_EQ(shipped.entities, published_.entities);
    for (auto element = published_.elements.cbegin(); element != published_.elements.cend(); ++element) {
        const VocabularyElement ours = shipped.elements.value(element.key());
        EXPECT_EQ(ours.content, element->content) << element.key().toStdString();
        EXPECT_EQ(ours.attributes, element->attributes) << element.key().toStdString();
    }
}

class PublishedCharacterSet : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Reference, PublishedCharacterSet, testing::Values("lat1", "symbol", "special"));

TEST_P(PublishedCharacterSet, SaysTheSameToAnXmlParserAsTheShippedOne) {
    const QString name = QString("xhtml-%1.ent").arg(GetParam());
    const Vocabulary published = ReadVocabulary(PublishedEntityFolder() + '/' + name);
    ASSERT_EQ(published.complaints, QStringList()) << "Is the package w3c-sgml-lib installed?";
    ASSERT_FALSE(published.entities.isEmpty());
    const Vocabulary shipped = ReadVocabulary(Shipped(name));
    EXPECT_EQ(shipped.complaints, QStringList());
    EXPECT_EQ(shipped.entities, published.entities);
}

}  // namespace
}  // namespace vellum
