#include "surface/text_offsets.h"

#include <QString>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace vellum {
namespace {

// The position of an offset in CR LF text, counted from the start.
int CountedPosition(const QString& text, int offset) {
    const auto end = std::clamp(offset, 0, static_cast<int>(text.size()));
    const bool inLineEnd = end > 0 && end < text.size() && text.at(end) == u'\n';
    return end - static_cast<int>(text.left(end).count(u'\n')) - (inLineEnd ? 1 : 0);
}

TextPlace PlaceOf(const QTextDocument& document, int position) {
    const QTextBlock block = document.findBlock(position);
    return {block.blockNumber(), position - block.position()};
}

TEST(TextOffsets, ALineEndCountsAsTwo) {
    QTextDocument document("ab\n\ncde\n");
    const TextOffsets offsets(document);
    EXPECT_EQ(offsets.Length(), 11);
    EXPECT_EQ(offsets.PositionOf(2), 2);  // before CR
    EXPECT_EQ(offsets.PositionOf(3), 2);  // between CR and LF
    EXPECT_EQ(offsets.PositionOf(4), 3);
    EXPECT_EQ(offsets.PositionOf(6), 4);
    EXPECT_EQ(offsets.PositionOf(11), 8);
    EXPECT_EQ(offsets.PositionOf(-5), 0);
    EXPECT_EQ(offsets.PositionOf(99), 8);
    EXPECT_EQ(offsets.OffsetOf(2), 2);
    EXPECT_EQ(offsets.OffsetOf(3), 4);
    EXPECT_EQ(offsets.OffsetOf(8), 11);
}

TEST(TextOffsets, AgreesWithCountingWhereverItIsAsked) {
    std::mt19937 random(5);
    for (int round = 0; round < 20; ++round) {
        QString text;
        for (unsigned pieces = random() % 400; pieces > 0; --pieces) text += random() % 3 == 0 ? "\r\n" : "abc";
        QTextDocument document;
        document.setPlainText(text);
        const TextOffsets offsets(document);
        FormatStore formats;
        std::vector<int> lengths;
        for (const QString& line : text.split("\r\n")) lengths.push_back(static_cast<int>(line.size()));
        formats.Reset(lengths, LineEnd::CrLf, {});
        PlaceFinder places(formats, 0, 0);
        ASSERT_EQ(offsets.Length(), text.size());
        for (int asked = 0; asked < 200; ++asked) {
            const int offset = static_cast<int>(random() % static_cast<unsigned>(text.size() + 3)) - 1;
            const int position = CountedPosition(text, offset);
            ASSERT_EQ(offsets.PositionOf(offset), position) << offset << " of " << text.size();
            ASSERT_EQ(places.At(offset), PlaceOf(document, position)) << offset << " of " << text.size();
            ASSERT_EQ(CountedPosition(text, offsets.OffsetOf(position)), position);
        }
    }
}

TEST(TextOffsets, FollowsTheDocument) {
    QTextDocument document(QString("line\n").repeated(100));
    const TextOffsets offsets(document);
    EXPECT_EQ(offsets.PositionOf(600), 500);  // the last line is known from here on
    document.setPlainText("a\nb");
    EXPECT_EQ(offsets.PositionOf(3), 2);
    EXPECT_EQ(offsets.Length(), 4);
}

}  // namespace
}  // namespace vellum
