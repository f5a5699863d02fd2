#include "import/rtf_tokens.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace vellum {
namespace {

using Kind = RtfToken::Kind;

// The tokens of a file as a line of words each.
QStringList Tokens(const QByteArray& bytes) {
    QStringList list;
    RtfTokens tokens(bytes);
    for (RtfToken token = tokens.Next(); token.kind != Kind::End; token = tokens.Next()) {
        const QString text = QString::fromLatin1(token.text);
        const QString number = QString::number(token.number);
        switch (token.kind) {
            case Kind::Open:
                list << "open";
                break;
            case Kind::Close:
                list << "close";
                break;
            case Kind::Word:
                list << "word " + text + (token.hasNumber ? " " + number : "");
                break;
            case Kind::Symbol:
                list << "symbol " + number;
                break;
            case Kind::Byte:
                list << "byte " + number;
                break;
            default:
                list << "text " + text;
        }
    }
    return list;
}

TEST(RtfTokens, AreGroupsWordsAndText) {
    EXPECT_EQ(Tokens("{\\rtf1\\ansi Some text.}"),
              (QStringList{"open", "word rtf 1", "word ansi", "text Some text.", "close"}));
}

TEST(RtfTokens, HaveOneBlankAfterAWord) {
    EXPECT_EQ(Tokens("\\b a"), (QStringList{"word b", "text a"}));
    EXPECT_EQ(Tokens("\\b  a"), (QStringList{"word b", "text  a"}));
    EXPECT_EQ(Tokens("\\b0 a"), (QStringList{"word b 0", "text a"}));
    EXPECT_EQ(Tokens("\\b0a"), (QStringList{"word b 0", "text a"}));
}

TEST(RtfTokens, ReadNumbers) {
    EXPECT_EQ(Tokens("\\fi-360\\u-3913 x"), (QStringList{"word fi -360", "word u -3913", "text x"}));
    EXPECT_EQ(Tokens("\\b-x"), (QStringList{"word b", "text -x"}));
    EXPECT_EQ(Tokens("\\b-"), (QStringList{"word b", "text -"}));
    EXPECT_EQ(Tokens("\\b99999999999999999999"), QStringList("word b 2147483647"));
    EXPECT_EQ(Tokens("\\b-99999999999999999999"), QStringList("word b -2147483647"));
}

TEST(RtfTokens, PassTheLineEndsOfTheFileBy) {
    EXPECT_EQ(Tokens("a\r\nb\n\\par\r\nc"), (QStringList{"text a", "text b", "word par", "text c"}));
}

TEST(RtfTokens, KnowSymbols) {
    EXPECT_EQ(Tokens("\\{\\}\\\\\\~\\*"),
              (QStringList{"symbol 123", "symbol 125", "symbol 92", "symbol 126", "symbol 42"}));
    EXPECT_EQ(Tokens("a\\\r\nb\\\nc"), (QStringList{"text a", "symbol 10", "text b", "symbol 10", "text c"}));
}

TEST(RtfTokens, ReadBytes) {
    EXPECT_EQ(Tokens("\\'e4\\'E4x"), (QStringList{"byte 228", "byte 228", "text x"}));
    EXPECT_EQ(Tokens("\\'zz"), QStringList("text zz")) << "what has no digits is no byte";
    EXPECT_EQ(Tokens("\\'e"), QStringList("text e"));
}

TEST(RtfTokens, PassBinaryDataBy) {
    EXPECT_EQ(Tokens("{\\pict\\bin6 }}{\\x} end}"),
              (QStringList{"open", "word pict", "word bin 6", "text  end", "close"}));
    EXPECT_EQ(Tokens("\\bin0 a"), (QStringList{"word bin 0", "text a"}));
    EXPECT_EQ(Tokens("\\bin900 cut off"), QStringList("word bin 900"));
}

TEST(RtfTokens, LeaveOutWhatIsCutOff) {
    EXPECT_EQ(Tokens("a\\"), QStringList("text a"));
    EXPECT_EQ(Tokens("a\\'"), QStringList("text a"));
    EXPECT_EQ(Tokens(QByteArray("\\'").repeated(100000)), QStringList());
}

}  // namespace
}  // namespace vellum
