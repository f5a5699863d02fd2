#include "files/utf8.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

using Bytes = QByteArray;

TEST(FlawedUtf8, CountsWhatIsGoodAndBad) {
    const FlawedUtf8 flawed = DecodeFlawedUtf8("a\xC3\xA9\xFF\xE2\x82z\xF0\x9F\x98\x80\xC3");
    EXPECT_EQ(flawed.text,
              u"a\u00E9"_qs + QChar(0xDCFF) + QChar(0xDCE2) + QChar(0xDC82) + u"z\U0001F600"_qs + QChar(0xDCC3));
    EXPECT_EQ(flawed.sequences, 2);
    EXPECT_EQ(flawed.badBytes, 4);
    EXPECT_TRUE(HoldsBytes(flawed.text));
    EXPECT_FALSE(HoldsBytes(u"\U0001F600\U000103FF"_qs));
    EXPECT_EQ(EncodeFlawedUtf8(flawed.text), Bytes("a\xC3\xA9\xFF\xE2\x82z\xF0\x9F\x98\x80\xC3"));
}

// Every sequence of two bytes, and the first of more, is good or bad as the toolkit has it.
TEST(FlawedUtf8, IsAsStrictAsTheToolkit) {
    const Bytes seconds = "\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0";
    for (int lead = 0x80; lead < 0x100; ++lead) {
        for (const char second : seconds) {
            for (const Bytes& rest :
                 {Bytes(), Bytes("\x80"), Bytes("\x80\xBF"), Bytes("\xBF\xBF\xBF"), Bytes("\x7F")}) {
                const Bytes bytes = Bytes(1, static_cast<char>(lead)) + second + rest;
                const FlawedUtf8 flawed = DecodeFlawedUtf8(bytes);
                ASSERT_EQ(flawed.badBytes == 0, bytes.isValidUtf8()) << bytes.toHex(' ').data();
                ASSERT_EQ(EncodeFlawedUtf8(flawed.text), bytes) << bytes.toHex(' ').data();
            }
        }
    }
}

}  // namespace
}  // namespace vellum
