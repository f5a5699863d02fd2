#include "files/declared_encoding.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

QString FirstLabel(const QByteArray& bytes) {
    const std::vector<EncodingDeclaration> found = DeclarationsInHead(bytes);
    return found.empty() ? QString() : found.front().label;
}

TEST(EncodingDeclaration, IsFoundWhereDocumentsSayIt) {
    EXPECT_EQ(FirstLabel("<?xml version=\"1.0\" encoding=\"windows-1251\"?>"), "windows-1251");
    EXPECT_EQ(FirstLabel("<?xml version='1.0' encoding='koi8-r' standalone='yes'?>"), "koi8-r");
    EXPECT_EQ(FirstLabel("<html><head><META charset=Shift_JIS>"), "Shift_JIS");
    EXPECT_EQ(FirstLabel("<meta charset = 'big5'/>"), "big5");
    EXPECT_EQ(FirstLabel("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-2\" />"),
              "iso-8859-2");
    EXPECT_EQ(FirstLabel("<meta content='text/html;charset=iso-8859-5' http-equiv=content-type>"), "iso-8859-5");
    EXPECT_EQ(FirstLabel("@charset \"iso-8859-15\";\nbody {}"), "iso-8859-15");
}

TEST(EncodingDeclaration, IsNotFoundElsewhere) {
    EXPECT_EQ(FirstLabel(""), "");
    EXPECT_EQ(FirstLabel("<p>charset=big5</p>"), "");
    EXPECT_EQ(FirstLabel("<!-- <meta charset=big5> --><p>"), "");
    EXPECT_EQ(FirstLabel("<!-- <meta charset=big5> --><meta charset=koi8-r>"), "koi8-r");
    EXPECT_EQ(FirstLabel("<!-- <meta charset=big5>"), "");
    EXPECT_EQ(FirstLabel("<script>write('<meta charset=big5>')</script><meta charset=koi8-r>"), "koi8-r");
    EXPECT_EQ(FirstLabel("<style>/* <meta charset=big5> */"), "");
    EXPECT_EQ(FirstLabel("<metadata charset=big5>"), "");
    EXPECT_EQ(FirstLabel("<meta charset=''>"), "");
    EXPECT_EQ(FirstLabel("<meta name=\"description\" content=\"how to write charset=big5\">"), "");
    EXPECT_EQ(FirstLabel("body {} @charset \"big5\";"), "");
    EXPECT_EQ(FirstLabel(QByteArray(1020, ' ') + "<meta charset=big5>"), "");
}

TEST(EncodingDeclaration, TellsWhereTheLabelStands) {
    const QString text =
        u"<?xml version='1.0' encoding=\"big5\" ?>\n<meta name='x' charset=' koi8-r '>\n"
        u"<META content=\"text/html; charset='latin1'\" http-equiv=Content-Type><meta charset=gbk>"_qs +
        QChar(0xDCE9) + QString(2000, u' ') + "<meta charset='shift_jis' title='" + QChar(0xDCE9) + "'>";
    QStringList labels;
    for (const EncodingDeclaration& declaration : FindDeclarations(text)) {
        EXPECT_EQ(text.mid(declaration.place.offset, declaration.place.length), declaration.label);
        EXPECT_EQ(declaration.byXml, labels.isEmpty());
        labels << declaration.label;
    }
    EXPECT_EQ(labels, QStringList({"big5", "koi8-r", "latin1", "gbk", "shift_jis"}));
    const auto styles = FindDeclarations(u"@charset \"big5\";"_qs);
    ASSERT_EQ(styles.size(), 1U);
    EXPECT_EQ(styles.front().place, (TextRange{10, 4}));
    EXPECT_FALSE(styles.front().byXml);
}

}  // namespace
}  // namespace vellum
