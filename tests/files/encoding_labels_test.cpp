#include "files/encoding_labels.h"

#include "files/text_file.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

using Bytes = QByteArray;
using Names = std::vector<Bytes>;

TEST(EncodingLabels, MeanWhatBrowsersReadIntoThem) {
    EXPECT_EQ(EncodingsOfLabel("iso-8859-1", false), Names{"windows-1252"});
    EXPECT_EQ(EncodingsOfLabel("ASCII", false), Names{"windows-1252"});
    EXPECT_EQ(EncodingsOfLabel("latin5", false), Names{"windows-1254"});
    EXPECT_EQ(EncodingsOfLabel("gb2312", false), (Names{"GBK", "gb18030", "windows-936"}));
    EXPECT_EQ(EncodingsOfLabel("big5", false), (Names{"Big5", "Big5-HKSCS", "windows-950"}));
    EXPECT_EQ(EncodingsOfLabel("x-sjis", false), Names{"Shift_JIS"});
    EXPECT_EQ(EncodingsOfLabel("utf8", false), Names{"UTF-8"});
    EXPECT_EQ(EncodingsOfLabel("utf-16", false), Names{"UTF-8"});
    EXPECT_EQ(EncodingsOfLabel("nonsense", false), Names{});
    EXPECT_EQ(EncodingsOfLabel("ibm037", false), Names{}) << "no ASCII";
    EXPECT_EQ(EncodingsOfLabel("a b", false), Names{});
}

TEST(EncodingLabels, MeanNoMoreThanTheySayToAnXmlParser) {
    EXPECT_EQ(EncodingsOfLabel("iso-8859-1", true), (Names{"ISO-8859-1", "windows-1252"}));
    EXPECT_EQ(EncodingsOfLabel("us-ascii", true), (Names{"US-ASCII", "windows-1252"}));
    EXPECT_EQ(EncodingsOfLabel("iso-8859-9", true), (Names{"ISO-8859-9", "windows-1254"}));
    EXPECT_EQ(EncodingsOfLabel("gb2312", true), (Names{"GB2312", "GBK", "gb18030", "windows-936"}));
    EXPECT_EQ(EncodingsOfLabel("windows-1251", true), Names{"windows-1251"});
}

struct Reading {
    const char* label;
    Bytes bytes;
    QString text;
};

void PrintTo(const Reading& reading, std::ostream* out) {
    *out << reading.label;
}

class BrowserReading : public testing::TestWithParam<Reading> {};

// From the tables that browsers go by. Each of these was another character, or Windows-1252, by ICU's own reading.
TEST_P(BrowserReading, IsOurs) {
    const Reading& reading = GetParam();
    const Bytes page = Bytes("<meta charset=") + reading.label + ">" + reading.bytes;
    const LoadedText loaded = DecodeText(page);
    EXPECT_EQ(loaded.text.mid(loaded.text.indexOf('>') + 1), reading.text);
    EXPECT_EQ(EncodeText(loaded.text, loaded.otherLineEnds, loaded.format).bytes, page);
}

INSTANTIATE_TEST_SUITE_P(
    Labels, BrowserReading,
    testing::Values(Reading{"big5", "\x87\x40\xA4\xA4", u"\u43F0\u4E2D"_qs}, Reading{"big5", "\x88\x66", u"\u00CA"_qs},
                    Reading{"cn-big5", "\xA4\xA4", u"\u4E2D"_qs}, Reading{"x-x-big5", "\xA4\xA4", u"\u4E2D"_qs},
                    Reading{"csbig5", "\x91\x45", u"\u4AFF"_qs}, Reading{"gb2312", "\xE9\x46", u"\u9555"_qs},
                    Reading{"gb_2312", "\x81\x40", u"\u4E02"_qs}, Reading{"chinese", "\x81\x40", u"\u4E02"_qs},
                    Reading{"csgb2312", "\x81\x40", u"\u4E02"_qs}, Reading{"iso-ir-58", "\x81\x40", u"\u4E02"_qs},
                    Reading{"gbk", "\xA8\xBF", u"\u01F9"_qs}, Reading{"gbk", "\x81\x30\x89\x38", u"\u00DF"_qs},
                    Reading{"gb2312", "\xA1\xA4", u"\u00B7"_qs}, Reading{"gbk", "\x80", u"\u20AC"_qs},
                    Reading{"euc-kr", "\x81\x41", u"\uAC02"_qs}, Reading{"cseuckr", "\x81\x41", u"\uAC02"_qs},
                    Reading{"korean", "\x81\x41", u"\uAC02"_qs}, Reading{"iso-8859-9", "\x80", u"\u20AC"_qs},
                    Reading{"l5", "\x80", u"\u20AC"_qs}, Reading{"iso88599", "\x80", u"\u20AC"_qs},
                    Reading{"iso8859-11", "\x80", u"\u20AC"_qs}, Reading{"dos-874", "\xA1", u"\u0E01"_qs},
                    Reading{"koi8-u", "\xAE\xBE", u"\u045E\u040E"_qs}, Reading{"koi8-ru", "\xAE", u"\u045E"_qs},
                    Reading{"koi", "\xF0", u"\u041F"_qs}, Reading{"visual", "\xE0", u"\u05D0"_qs},
                    Reading{"logical", "\xE0", u"\u05D0"_qs}, Reading{"csiso88598i", "\xE0", u"\u05D0"_qs},
                    Reading{"csiso88596e", "\xC7", u"\u0627"_qs}, Reading{"x-mac-ukrainian", "\x80", u"\u0410"_qs},
                    Reading{"x-user-defined", "\x80", u"\u20AC"_qs}, Reading{"iso-8859-16", "\xAA", u"\u0218"_qs},
                    Reading{"windows-1255", "\xCA", u"\u05BA"_qs}, Reading{"cp1255", "\xCA", u"\u05BA"_qs},
                    Reading{"ansi_x3.4-1968", "\x80", u"\u20AC"_qs}, Reading{"utf-16", "\xC3\xA9", u"\u00E9"_qs}));

}  // namespace
}  // namespace vellum
