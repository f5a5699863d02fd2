#include "files/text_file.h"
#include "reference/dtd_reader.h"
#include "tests/reference/literal_dtd_reader.h"
#include "tests/reference/tree_text.h"

#include <QDir>

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vellum::test {
namespace {

template <typename Reader>
std::string Outcome(Reader reader, const QString& text) {
    ReferenceTree tree;
    int next = 2;
    QString caption;
    std::string end;
    try {
        const int result = reader(tree, next, text, 1, "Title", [&caption](const QString& c) { caption = c; });
        end = "result " + std::to_string(result);
    } catch (const ReadingFailed&) {
        end = "failed";
    } catch (const std::out_of_range&) {
        end = "out of range";
    }
    return TreeText(tree) + "\n" + end + " " + std::to_string(next) + " " + caption.toStdString();
}

void ExpectSame(const QString& text) {
    ASSERT_EQ(Outcome(AddDtDText, text), Outcome(LiteralAddDtD, text)) << text.toStdString();
}

const QStringList& CraftedTexts() {
    static const QStringList texts{
        "<!ELEMENT a (x)>\n<!ATTLIST a id ID #IMPLIED\n  class CDATA #IMPLIED>\n<!ATTLIST a\n  x y>\n",
        // Heads within declarations and values of others, which are ended while the reading goes on.
        "<!ELEMENT a (x)><!ELEMENT b (x)><!ATTLIST b x y\n  <!ATTLIST a z \n  q r>",
        "<!ELEMENT a (x)><!ELEMENT b (x)><!ATTLIST a x y><!ENTITY % e \"  u <!ATTLIST a  v w \"><!ATTLIST b\n  %e; >",
        "<!ELEMENT a (x)><!ATTLIST a\n  %e;>\n<!ELEMENT b (x)><!ATTLIST b\n  %e;><!ENTITY % e \" <!ATTLIST b  k l \">",
        "<!ELEMENT a\"b (x)><!ELEMENT z (x)><!ATTLIST z\n  %e; ><!ENTITY % e \"x\" <!ATTLIST a\"b  c d \" >",
        // Names with signs that searches of others stumble over.
        "<!ELEMENT <!ATTLIST (x)><!ELEMENT b (x)><!ATTLIST <!ATTLIST b  c d >",
        "<!ELEMENT <!ENTITY (x)><!ELEMENT b (x)><!ATTLIST <!ENTITY % c \"  x y \"><!ATTLIST b\n  %c; >",
        "<!ELEMENT <!ELEMENT (x)><!ATTLIST <!ELEMENT b (x)><!ELEMENT b (y)>",
        "<!ENTITY % n m \"p\"><!ELEMENT %n m; (x)><!ATTLIST %n m; id ID #IMPLIED\n  a b>",
        "<!ENTITY % n\n  m \"p\"><!ELEMENT %n\n  m; (x)><!ATTLIST %n\n  m; id ID #IMPLIED\n  a b>",
        "<!ELEMENT a (x)><!ATTLIST a\n  %e <!ATTLIST a ; c d><!ENTITY % e <!ATTLIST a  \"x\">",
        // Names in the list of those that were seen.
        "<!ELEMENT a$$b$$c (x)><!ELEMENT b (x)><!ELEMENT $$ (x)><!ELEMENT $ (x)>",
        "<!ELEMENT a (x)><!ELEMENT b (x)><!ELEMENT  (x)><!ELEMENT \n (x)>",
        // Quotes that are missing or stand elsewhere.
        "\"<!ELEMENT a %e;><!ENTITY % e >",
        "x\"<!ENTITY % e ><!ELEMENT a (x)><!ATTLIST a\n  %e; >",
        "<!ENTITY % e \"\"><!ELEMENT a (x)%e;><!ATTLIST a\n  %e; %; >",
        "<!ENTITY % \"z\"><!ELEMENT a%; %; (x) %e;>",
        // References within references.
        "<!ENTITY % b \"x\"><!ENTITY % a%b \"y z\"><!ELEMENT p %b; %a%b; (x)>",
        "<!ENTITY % b \"%\"><!ENTITY % c \"d;\"><!ENTITY % d \"q\"><!ELEMENT p %b;d; (x)><!ATTLIST p\n  %b;%c; x>",
        "<!ELEMENT guide (x)",
        "<!ENTITY % z \"de\"><!ELEMENT gui%z; (x)>",
        "<!ELEMENT",
        "<!ELEMENT ",
        "<!ATTLIST ",
        "<!ELEMENT a (x)><!ATTLIST a",
        "<!ELEMENT a (x)><!ATTLIST a ",
        "<!ELEMENT a (x)><!ATTLIST a >",
        "<!DOCTYPE x> PUBLIC \"a\"\n SYSTEM \"b\"\n<!ELEMENT a EMPTY><!ATTLIST a\n  (b | \n  c d) e\n  f g>",
    };
    return texts;
}

QStringList DataTexts() {
    QStringList texts;
    const QDir folder(VELLUM_SOURCE_DIR "/data/Dtd");
    for (const QString& name : folder.entryList({"*.dtd"}, QDir::Files, QDir::Name)) {
        texts << ReadTextFile(folder.filePath(name)).value_or(LoadedText{}).text;
    }
    return texts;
}

// A piece of text cut out, doubled, moved or broken up by signs that mean something to the reader.
QString Mutated(QString text, std::mt19937& random) {
    static const QStringList pieces{" ",
                                    "\n",
                                    "%",
                                    ";",
                                    "\"",
                                    ">",
                                    "<!ELEMENT ",
                                    "(",
                                    ")",
                                    "\t",
                                    "<!ATTLIST ",
                                    "<!ENTITY % ",
                                    "<!ATTLIST a ",
                                    "<!ELEMENT a ",
                                    "$$",
                                    "%e;",
                                    "EMPTY"};
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(std::max<qsizetype>(limit, 1)));
    };
    for (auto edits = 1 + below(3); edits > 0; --edits) {
        const qsizetype at = below(text.size() + 1);
        const QString range = text.mid(below(text.size()), below(40));
        switch (random() % 4) {
            case 0:
                text.insert(at, pieces[below(pieces.size())]);
                break;
            case 1:
                text.remove(at, 1 + below(6));
                break;
            case 2:
                text.insert(at, range);
                break;
            default:
                text.replace(at, 1 + below(3), pieces[below(pieces.size())]);
                break;
        }
    }
    return text;
}

TEST(DtdReaderOracle, CraftedTextsGiveWhatPlainSearchesGive) {
    for (const QString& text : CraftedTexts()) ExpectSame(text);
}

TEST(DtdReaderOracle, DataFilesGiveWhatPlainSearchesGive) {
    for (const QString& text : DataTexts()) ExpectSame(text);
}

TEST(DtdReaderOracle, MutatedTextsGiveWhatPlainSearchesGive) {
    std::mt19937 random(20010401);
    for (int round = 0; round < 400; ++round) {
        for (const QString& text : CraftedTexts()) {
            ExpectSame(Mutated(text, random));
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

TEST(DtdReaderOracle, MutatedDataFilesGiveWhatPlainSearchesGive) {
    std::mt19937 random(20010402);
    for (const QString& text : DataTexts()) {
        for (int round = 0; round < 8; ++round) {
            ExpectSame(Mutated(text, random));
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace vellum::test
