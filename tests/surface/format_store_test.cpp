#include "surface/format_store.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace vellum {
namespace {

constexpr CharFormat plain{};
constexpr CharFormat red{0x0000FF, false};
constexpr CharFormat blueBold{0xFF0000, true};
constexpr ColorNumber own = 0x123456;

// One format a character, line ends among them: slow, and plainly right.
struct NaiveStore {
    std::string text;  // only the line ends matter
    std::vector<CharFormat> formats;
    std::vector<LineEnd> ends;  // also one a character

    [[nodiscard]] TextPlace PlaceOf(std::size_t index) const {
        TextPlace place;
        for (std::size_t at = 0; at < index; ++at) {
            place = text[at] == '\n' ? TextPlace{place.line + 1, 0} : TextPlace{place.line, place.column + 1};
        }
        return place;
    }
    void Replace(std::size_t from, std::size_t to, const std::string& with, const CharFormat& format, LineEnd end) {
        text.replace(from, to - from, with);
        const auto replace = [&](auto& values, const auto& value) {
            values.erase(values.begin() + static_cast<std::ptrdiff_t>(from),
                         values.begin() + static_cast<std::ptrdiff_t>(to));
            values.insert(values.begin() + static_cast<std::ptrdiff_t>(from), with.size(), value);
        };
        replace(formats, format);
        replace(ends, end);
    }
    [[nodiscard]] std::vector<OtherLineEnd> OtherLineEnds(LineEnd usual) const {
        std::vector<OtherLineEnd> others;
        int line = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text[at] != '\n') continue;
            if (ends[at] != usual) others.push_back({line, ends[at]});
            ++line;
        }
        return others;
    }
    void SetFormat(std::size_t from, std::size_t to, const FormatChange& change) {
        for (std::size_t at = from; at < to; ++at) formats[at] = change.AppliedTo(formats[at]);
    }
    [[nodiscard]] std::optional<ColorNumber> CommonColor(std::size_t from, std::size_t to) const {
        if (from == to) return std::nullopt;
        for (std::size_t at = from; at < to; ++at) {
            if (formats[at].color.value_or(own) != formats[from].color.value_or(own)) return std::nullopt;
        }
        return formats[from].color.value_or(own);
    }
    [[nodiscard]] std::optional<bool> CommonBold(std::size_t from, std::size_t to) const {
        if (from == to) return std::nullopt;
        for (std::size_t at = from; at < to; ++at) {
            if (formats[at].bold != formats[from].bold) return std::nullopt;
        }
        return formats[from].bold;
    }
};

std::vector<int> LengthsOf(const std::string& text) {
    std::vector<int> lengths{0};
    for (const char character : text) {
        if (character == '\n') {
            lengths.push_back(0);
        } else {
            ++lengths.back();
        }
    }
    return lengths;
}

void ExpectEqual(const FormatStore& store, const NaiveStore& naive) {
    const std::vector<int> lengths = LengthsOf(naive.text);
    ASSERT_EQ(store.LineCount(), static_cast<int>(lengths.size()));
    ASSERT_EQ(store.OtherLineEnds(LineEnd::CrLf), naive.OtherLineEnds(LineEnd::CrLf));
    ASSERT_FALSE(store.LineEndOf(store.LineCount() - 1));
    std::size_t index = 0;
    for (int line = 0; line < store.LineCount(); ++line) {
        ASSERT_EQ(store.LineLength(line), lengths[static_cast<std::size_t>(line)]) << "line " << line;
        for (int column = 0; column <= store.LineLength(line) && index < naive.text.size(); ++column, ++index) {
            ASSERT_EQ(store.FormatAt({line, column}), naive.formats[index]) << "line " << line << " column " << column;
        }
        int end = 0;
        const CharFormat* before = nullptr;
        for (const FormatRun& run : store.Runs(line)) {
            ASSERT_GT(run.range.length, 0);
            ASSERT_NE(run.format, store.Base());
            ASSERT_GE(run.range.offset, end);
            ASSERT_FALSE(before != nullptr && run.range.offset == end && run.format == *before) << "not merged";
            end = run.range.End();
            before = &run.format;
        }
        ASSERT_LE(end, store.LineLength(line) + 1);
    }
}

std::string RandomText(std::mt19937& random, int longest, int lineEndOneIn) {
    std::string text(random() % static_cast<unsigned>(longest + 1), 'x');
    for (char& character : text) {
        if (random() % static_cast<unsigned>(lineEndOneIn) == 0) character = '\n';
    }
    return text;
}

FormatStore StoreOf(const std::string& text) {
    FormatStore store;
    store.Reset(LengthsOf(text), LineEnd::CrLf, {});
    return store;
}

TEST(FormatStore, StartsAsOneEmptyLine) {
    const FormatStore store;
    EXPECT_EQ(store.LineCount(), 1);
    EXPECT_EQ(store.End(), (TextPlace{0, 0}));
    EXPECT_EQ(store.FormatAt({0, 0}), plain);
}

TEST(FormatStore, KeepsOnlyWhatDiffersFromTheBase) {
    FormatStore store = StoreOf("xxxxxxxxxx\nxxxx");
    store.SetFormat({0, 2}, {0, 5}, {.color = red.color, .bold = {}});
    ASSERT_EQ(store.Runs(0).size(), 1U);
    EXPECT_EQ(store.Runs(0)[0], (FormatRun{{2, 3}, red}));
    EXPECT_TRUE(store.Runs(1).empty());
    store.SetFormat({0, 0}, {0, 10}, {.color = std::optional<ColorNumber>(), .bold = {}});
    EXPECT_TRUE(store.Runs(0).empty());
}

TEST(FormatStore, MergesEqualNeighbours) {
    FormatStore store = StoreOf("xxxxxxxxxx");
    store.SetFormat({0, 2}, {0, 4}, {.color = red.color, .bold = false});
    store.SetFormat({0, 4}, {0, 6}, {.color = red.color, .bold = false});
    ASSERT_EQ(store.Runs(0).size(), 1U);
    EXPECT_EQ(store.Runs(0)[0], (FormatRun{{2, 4}, red}));
}

TEST(FormatStore, SplitsAndJoinsLinesWithTheirFormats) {
    FormatStore store = StoreOf("xxxxxx");
    store.SetFormat({0, 1}, {0, 5}, {.color = red.color, .bold = false});
    store.Replace({0, 3}, {0, 3}, std::vector{0, 0}, plain, LineEnd::Lf);  // a line end in the middle
    ASSERT_EQ(store.LineCount(), 2);
    EXPECT_EQ(store.Runs(0)[0], (FormatRun{{1, 2}, red}));
    EXPECT_EQ(store.Runs(1)[0], (FormatRun{{0, 2}, red}));
    store.Replace({0, 3}, {1, 0}, std::vector{0}, plain, LineEnd::Lf);
    ASSERT_EQ(store.LineCount(), 1);
    ASSERT_EQ(store.Runs(0).size(), 1U);
    EXPECT_EQ(store.Runs(0)[0], (FormatRun{{1, 4}, red}));
}

// A line end is a character: what comes before or after it leaves it as it is.
TEST(FormatStore, LineEndsStayAsTheyWere) {
    using Others = std::vector<OtherLineEnd>;
    FormatStore store;
    store.Reset(std::vector{1, 1, 1}, LineEnd::Lf, Others{{1, LineEnd::Cr}});
    EXPECT_EQ(store.OtherLineEnds(LineEnd::Lf), (Others{{1, LineEnd::Cr}}));
    store.Replace({1, 1}, {1, 1}, std::vector{0, 0}, plain, LineEnd::Lf);  // before the CR
    EXPECT_EQ(store.OtherLineEnds(LineEnd::Lf), (Others{{2, LineEnd::Cr}}));
    store.Replace({3, 0}, {3, 0}, std::vector{0, 0}, plain, LineEnd::Lf);  // after it
    EXPECT_EQ(store.OtherLineEnds(LineEnd::Lf), (Others{{2, LineEnd::Cr}}));
    store.Replace({0, 1}, {2, 0}, std::vector{0}, plain, LineEnd::Lf);
    EXPECT_EQ(store.OtherLineEnds(LineEnd::Lf), (Others{{0, LineEnd::Cr}}));
    store.Replace({0, 1}, {1, 0}, std::vector{0}, plain, LineEnd::Lf);
    EXPECT_EQ(store.OtherLineEnds(LineEnd::Lf), Others{});
    store.SetLineEnd(0, LineEnd::CrLf);
    EXPECT_EQ(store.LineEndOf(0), LineEnd::CrLf);
    EXPECT_EQ(store.LineEndOf(store.LineCount() - 1), std::nullopt);
}

TEST(FormatStore, ChangesOnePartOfTheFormat) {
    FormatStore store = StoreOf("xxxx");
    store.SetFormat({0, 0}, {0, 2}, {.color = red.color, .bold = {}});
    store.SetFormat({0, 1}, {0, 3}, {.color = {}, .bold = true});
    EXPECT_EQ(store.FormatAt({0, 0}), red);
    EXPECT_EQ(store.FormatAt({0, 1}), (CharFormat{red.color, true}));
    EXPECT_EQ(store.FormatAt({0, 2}), (CharFormat{std::nullopt, true}));
    EXPECT_EQ(store.FormatAt({0, 3}), plain);
}

TEST(FormatStore, TellsNoCommonColorOfAMixedRange) {
    FormatStore store = StoreOf("xx\nxx");
    EXPECT_EQ(store.CommonColor({0, 0}, {1, 2}, own), own);
    store.SetFormat({0, 2}, {1, 0}, {.color = red.color, .bold = {}});  // the line end alone
    EXPECT_EQ(store.CommonColor({0, 0}, {1, 2}, own), std::nullopt);
    EXPECT_EQ(store.CommonColor({0, 2}, {1, 0}, own), red.color);
    EXPECT_EQ(store.CommonBold({0, 0}, {1, 2}), false);
    EXPECT_EQ(store.CommonColor({0, 1}, {0, 1}, own), std::nullopt);
}

TEST(FormatStore, AnExplicitOwnColorIsTheOwnColor) {
    FormatStore store = StoreOf("xx");
    store.SetFormat({0, 0}, {0, 1}, {.color = own, .bold = {}});
    EXPECT_EQ(store.CommonColor({0, 0}, {0, 2}, own), own);
}

TEST(FormatStore, SetsEverythingAtOnceInTheBase) {
    FormatStore store = StoreOf("xx\nxx\nxx");
    store.SetFormat({0, 1}, {2, 1}, {.color = red.color, .bold = true});
    store.SetAll(blueBold, {});
    EXPECT_EQ(store.Base(), blueBold);
    for (int line = 0; line < 3; ++line) EXPECT_TRUE(store.Runs(line).empty());
    EXPECT_EQ(store.FormatAt({1, 1}), blueBold);
}

TEST(FormatStore, ACopyStaysAsItWas) {
    FormatStore store = StoreOf("xxxx\nxxxx");
    store.SetFormat({0, 0}, {0, 2}, {.color = red.color, .bold = {}});
    const FormatStore copy = store;
    store.Replace({0, 0}, {1, 2}, std::vector{7}, blueBold, LineEnd::Lf);
    store.SetAll(blueBold, {});
    EXPECT_EQ(copy.LineCount(), 2);
    EXPECT_EQ(copy.LineLength(0), 4);
    EXPECT_EQ(copy.FormatAt({0, 1}), red);
    EXPECT_EQ(copy.FormatAt({1, 1}), plain);
}

TEST(FormatStore, AdvancesOverLineEndsAndStopsAtTheEnd) {
    const FormatStore store = StoreOf("ab\n\ncd");
    EXPECT_EQ(store.Advance({0, 0}, 2), (TextPlace{0, 2}));
    EXPECT_EQ(store.Advance({0, 0}, 3), (TextPlace{1, 0}));
    EXPECT_EQ(store.Advance({0, 1}, 3), (TextPlace{2, 0}));
    EXPECT_EQ(store.Advance({0, 0}, 99), (TextPlace{2, 2}));
}

TEST(FormatStore, PaintsAWholeTextFromOffsets) {
    FormatStore store = StoreOf("xxxx\nxxxx\n\nxxxx");  // lines start at 0, 5, 10 and 11
    const std::vector<FormatRun> runs{{{1, 2}, red}, {{3, 9}, blueBold}, {{12, 1}, red}};
    store.SetAll(plain, runs);
    EXPECT_EQ(store.FormatAt({0, 0}), plain);
    EXPECT_EQ(store.FormatAt({0, 2}), red);
    EXPECT_EQ(store.FormatAt({0, 3}), blueBold);
    EXPECT_EQ(store.FormatAt({0, 4}), blueBold);  // the line end
    EXPECT_EQ(store.FormatAt({1, 3}), blueBold);
    EXPECT_EQ(store.FormatAt({2, 0}), blueBold);
    EXPECT_EQ(store.FormatAt({3, 0}), blueBold);
    EXPECT_EQ(store.FormatAt({3, 1}), red);
    EXPECT_EQ(store.FormatAt({3, 2}), plain);
}

TEST(FormatStore, ARunThatEndsBeforeTheLineEndLeavesItOut) {
    FormatStore store = StoreOf("xx\nxx");
    store.SetAll(plain, std::vector<FormatRun>{{{0, 2}, red}});
    EXPECT_EQ(store.FormatAt({0, 1}), red);
    EXPECT_EQ(store.FormatAt({0, 2}), plain);
}

class FormatStoreRandom : public testing::TestWithParam<unsigned> {};

TEST_P(FormatStoreRandom, AgreesWithOneFormatACharacter) {
    std::mt19937 random(GetParam());
    const std::vector<CharFormat> palette{plain, red, blueBold, {std::nullopt, true}, {0x00FF00, false}};
    NaiveStore naive;
    FormatStore store;
    naive.Replace(0, 0, RandomText(random, 3000, 3), plain, LineEnd::Lf);  // enough lines for several chunks
    for (LineEnd& end : naive.ends) {
        if (random() % 4 == 0) end = LineEnd::Cr;
    }
    store.Reset(LengthsOf(naive.text), LineEnd::Lf, naive.OtherLineEnds(LineEnd::Lf));
    FormatStore snapshot = store;
    NaiveStore naiveSnapshot = naive;
    for (int round = 0; round < 400; ++round) {
        std::size_t from = random() % (naive.text.size() + 1);
        const std::size_t reach = round % 10 == 0 ? naive.text.size() : 12;
        std::size_t to = std::min(naive.text.size(), from + random() % (reach + 1));
        if (round % 50 == 49) from = 0, to = naive.text.size();
        const TextPlace begin = naive.PlaceOf(from);
        const TextPlace end = naive.PlaceOf(to);
        const CharFormat format = palette[random() % palette.size()];
        switch (random() % 4) {
            case 0: {
                const std::string inserted = RandomText(random, round % 20 == 0 ? 2000 : 6, 3);
                const LineEnd spelling = std::array{LineEnd::CrLf, LineEnd::Lf, LineEnd::Cr}.at(random() % 3);
                naive.Replace(from, to, inserted, format, spelling);
                store.Replace(begin, end, LengthsOf(inserted), format, spelling);
                break;
            }
            case 1: {
                FormatChange change;
                if (random() % 2 == 0) change.color = format.color;
                if (random() % 2 == 0) change.bold = format.bold;
                naive.SetFormat(from, to, change);
                store.SetFormat(begin, end, change);
                break;
            }
            case 2:
                if (round % 8 == 0) {
                    std::ranges::fill(naive.formats, format);
                    store.SetAll(format, {});
                }
                break;
            default:
                ASSERT_EQ(store.CommonColor(begin, end, own), naive.CommonColor(from, to));
                ASSERT_EQ(store.CommonBold(begin, end), naive.CommonBold(from, to));
        }
        if (round % 7 == 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectEqual(store, naive)) << "round " << round;
        }
        if (round == 200) snapshot = store, naiveSnapshot = naive;
    }
    ExpectEqual(store, naive);
    ExpectEqual(snapshot, naiveSnapshot);
}

INSTANTIATE_TEST_SUITE_P(Seeds, FormatStoreRandom, testing::Range(1U, 7U));

}  // namespace
}  // namespace vellum
