#include "files/edit_journal.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace vellum {
namespace {

const QByteArray seed = "checksum of a copy";

QByteArray Journal(const std::vector<TextEdit>& edits) {
    EditJournal journal(seed);
    QByteArray bytes;
    for (const TextEdit& edit : edits) bytes += journal.Record(edit);
    return bytes;
}

// A letter typed, a line end taken away, a selection replaced by nothing and by what no text should hold.
const std::vector<TextEdit> someEdits{
    {3, 0, "x", 10}, {4, 1, "", 20}, {0, 4, QString(u'\0') + QChar(0xDC00) + u"\n\u2029"_qs, 30}, {4, 0, "end", 40}};

TEST(EditJournal, MakesTheEditsAgain) {
    const ReplayedText replayed = ReplayEdits("one\ntwo", {}, Journal(someEdits), seed);
    EXPECT_TRUE(replayed.text == QString(u'\0') + QChar(0xDC00) + u"\n\u2029endtwo"_qs);
    EXPECT_EQ(replayed.lastEditAt, 40);
    EXPECT_TRUE(replayed.complete);
}

TEST(EditJournal, AnEmptyOneChangesNothing) {
    const ReplayedText replayed = ReplayEdits("one\ntwo", {}, {}, seed);
    EXPECT_EQ(replayed.text, "one\ntwo");
    EXPECT_EQ(replayed.lastEditAt, 0);
    EXPECT_TRUE(replayed.complete);
}

TEST(EditJournal, ATornEndIsCutOffWhereverItTore) {
    const QByteArray whole = Journal(someEdits);
    const QStringList states{"one\ntwo", "onex\ntwo", "onextwo", QString(u'\0') + QChar(0xDC00) + u"\n\u2029two"_qs};
    std::vector<qsizetype> ends{0};
    for (size_t count = 1; count <= someEdits.size(); ++count) {
        ends.push_back(Journal({someEdits.begin(), someEdits.begin() + static_cast<std::ptrdiff_t>(count)}).size());
    }
    size_t edits = 0;
    for (qsizetype size = 0; size < whole.size(); ++size) {
        if (size == ends[edits + 1]) ++edits;
        const ReplayedText replayed = ReplayEdits("one\ntwo", {}, whole.first(size), seed);
        ASSERT_TRUE(replayed.text == states[static_cast<qsizetype>(edits)]) << size;
        ASSERT_EQ(replayed.complete, size == ends[edits]) << size;
    }
}

TEST(EditJournal, ADamagedRecordEndsIt) {
    const QByteArray whole = Journal(someEdits);
    const qsizetype first = Journal({someEdits[0]}).size();
    for (qsizetype index = 0; index < first; ++index) {
        QByteArray damaged = whole;
        damaged[index] = static_cast<char>(damaged[index] ^ 1);
        const ReplayedText replayed = ReplayEdits("one\ntwo", {}, damaged, seed);
        ASSERT_EQ(replayed.text, "one\ntwo") << index;
        ASSERT_FALSE(replayed.complete) << index;
    }
    EXPECT_FALSE(ReplayEdits("one\ntwo", {}, whole + QByteArray(100, '\0'), seed).complete) << "as a lost block looks";
}

TEST(EditJournal, FitsItsOwnCopyAlone) {
    EXPECT_EQ(ReplayEdits("one\ntwo", {}, Journal(someEdits), "another").text, "one\ntwo");
    const qsizetype first = Journal({someEdits[0]}).size();
    EXPECT_EQ(ReplayEdits("one\ntwo", {}, Journal(someEdits).sliced(first), seed).text, "one\ntwo") << "in order alone";
    EXPECT_FALSE(ReplayEdits("on", {}, Journal(someEdits), seed).complete) << "there is no such place";
}

TEST(EditJournal, FollowsRandomEdits) {
    std::mt19937 random(7);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QString start(5000, u's');
    QString text = start;
    EditJournal journal(seed);
    QByteArray bytes;
    for (int round = 0; round < 2000; ++round) {
        const int length = static_cast<int>(text.size());
        TextEdit edit{below(length + 1), 0,
                      QString(below(5) == 0 ? below(100'000) : below(20), QChar('a' + below(26)))};
        edit.removed = below(std::min(length - edit.position, below(10) == 0 ? 100'000 : 20) + 1);
        if (below(50) == 0) edit = {0, length, "all new"};
        text.replace(edit.position, edit.removed, edit.text);
        bytes += journal.Record(edit);
        if (round % 100 != 0) continue;
        ASSERT_TRUE(ReplayEdits(start, {}, bytes, seed).text == text) << round;
    }
    EXPECT_TRUE(ReplayEdits(start, {}, bytes, seed).text == text);
}

// In the model every line end is a character of its own kind.
TEST(EditJournal, LineEndsGoWithTheirLines) {
    std::mt19937 random(9);
    const auto below = [&random](qsizetype limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    // CR LF and CR where LF is the usual one, and a byte that no character explains.
    const QString pieces = u"\n\n\u0001\u0003ab"_qs + QChar(0xDC80);
    const auto anyText = [&](int most, qsizetype kinds) {
        QString text;
        for (int left = below(most); left > 0; --left) text += pieces[pieces.size() - 1 - below(kinds)];
        return text;
    };
    const auto withoutKinds = [](QString model) { return model.replace(u'\1', u'\n').replace(u'\3', u'\n'); };
    const auto kindsOf = [](const QString& model) {
        std::vector<OtherLineEnd> others;
        int line = 0;
        for (const QChar unit : model) {
            if (unit == u'\1' || unit == u'\3') others.push_back({line, static_cast<LineEnd>(unit.unicode())});
            line += unit == u'\n' || unit == u'\1' || unit == u'\3';
        }
        return others;
    };
    for (int round = 0; round < 200; ++round) {
        const QString start = anyText(60, pieces.size());
        QString model = start;
        EditJournal journal(seed);
        QByteArray bytes;
        for (int left = below(20); left > 0; --left) {
            TextEdit edit{below(model.size() + 1), 0, anyText(5, 3)};
            if (below(3) == 0) edit.text += u'\n';
            edit.removed = below(std::min<qsizetype>(model.size() - edit.position, 9) + 1);
            model.replace(edit.position, edit.removed, edit.text);
            bytes += journal.Record(edit);
        }
        const ReplayedText replayed = ReplayEdits(withoutKinds(start), kindsOf(start), bytes, seed);
        ASSERT_TRUE(replayed.complete);
        ASSERT_EQ(replayed.text, withoutKinds(model));
        ASSERT_EQ(replayed.otherLineEnds, kindsOf(model));
    }
}

}  // namespace
}  // namespace vellum
