#include "files/write_contents.h"

#include "files/file_descriptor.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>
#include <unistd.h>

namespace vellum {
namespace {

QByteArray Written(const WriteContents& contents) {
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    EXPECT_TRUE(WriteTo(file.handle(), contents));
    return file.readAll();
}

TEST(WriteContents, ComeBackAsTheyWere) {
    const QByteArray texts[] = {"", "old", "two\nlines\n", QByteArray("\0\n\xFF", 3), QByteArray(100'000, 'x')};
    for (const QByteArray& before : texts) {
        for (const QByteArray& after : texts) {
            const std::optional<WriteContents> back = ContentsFrom(Written({before, after}));
            ASSERT_TRUE(back);
            EXPECT_EQ(back->before, before);
            EXPECT_EQ(back->after, after);
        }
    }
}

TEST(WriteContents, AreRefusedWhenTheyAreDamaged) {
    const QByteArray whole = Written({"the old one", "and the new one"});
    for (qsizetype length = 0; length < whole.size(); ++length) EXPECT_FALSE(ContentsFrom(whole.first(length)));
    for (qsizetype i = 0; i < whole.size(); ++i) {
        QByteArray damaged = whole;
        damaged[i] = damaged[i] == '1' ? '2' : '1';
        EXPECT_FALSE(ContentsFrom(damaged)) << i;
    }
    EXPECT_FALSE(ContentsFrom(whole + "x"));
    EXPECT_FALSE(ContentsFrom("<html>\nwhat was saved by another program"));
}

constexpr qsizetype page = 4096;

// Contents of that many bytes in which no page is like another.
QByteArray Text(char letter, qsizetype size) {
    QByteArray text;
    for (int line = 0; text.size() < size; ++line) text += letter + QByteArray::number(line) + '\n';
    return text.first(size);
}

// What a file holds when its write is cut off after `written` bytes.
QByteArray CutAfter(qsizetype written, const WriteContents& contents) {
    return contents.after.first(written) + contents.before.mid(written);
}

TEST(HalfAWrite, IsToldAtEveryPage) {
    for (const auto& [before, after] : {std::pair{5 * page + 17, 3 * page + 5}, std::pair{3 * page + 5, 5 * page + 17},
                                        std::pair{4 * page, 4 * page}, std::pair{qsizetype{100}, qsizetype{60}}}) {
        const WriteContents contents{Text('a', before), Text('b', after)};
        for (qsizetype written = page; written < after; written += page) {
            EXPECT_TRUE(IsHalfOf(contents, CutAfter(written, contents))) << before << ' ' << after << ' ' << written;
        }
        if (before > after) {
            EXPECT_TRUE(IsHalfOf(contents, CutAfter(after, contents))) << "the end was not cut yet";
        }
    }
}

TEST(HalfAWrite, IsToldAfterAPowerFailure) {
    const WriteContents contents{Text('a', 3 * page + 9), Text('b', 5 * page + 7)};
    QByteArray mixed = contents.after;
    mixed.replace(page, page, contents.before.sliced(page, page));
    EXPECT_TRUE(IsHalfOf(contents, mixed));
    mixed.replace(2 * page, page, QByteArray(page, '\0'));
    EXPECT_TRUE(IsHalfOf(contents, mixed));
    QByteArray noEnd = contents.before + QByteArray(contents.after.size() - contents.before.size(), '\0');
    EXPECT_TRUE(IsHalfOf(contents, noEnd));
    const WriteContents shorter{contents.after, contents.before};
    EXPECT_TRUE(IsHalfOf(shorter, shorter.before.first(shorter.after.size())));
}

TEST(HalfAWrite, IsNeitherContent) {
    for (const WriteContents& contents :
         {WriteContents{"old", "newer"}, WriteContents{"", "x"}, WriteContents{"x", ""}, WriteContents{"x", "x"}}) {
        EXPECT_FALSE(IsHalfOf(contents, contents.before));
        EXPECT_FALSE(IsHalfOf(contents, contents.after));
    }
}

TEST(HalfAWrite, IsNothingThatSomebodySavedSince) {
    const WriteContents contents{Text('a', 3 * page + 9), Text('b', 5 * page + 7)};
    QByteArray since = contents.after;
    since[page + 3] = '!';
    EXPECT_FALSE(IsHalfOf(contents, since));
    EXPECT_FALSE(IsHalfOf(contents, contents.after + 'x'));
    EXPECT_FALSE(IsHalfOf(contents, contents.after.chopped(1)));
    EXPECT_FALSE(IsHalfOf(contents, contents.before.first(2 * page)));
    EXPECT_FALSE(IsHalfOf(contents, ""));
    EXPECT_FALSE(IsHalfOf({"old", "newer"}, "newe"));
    EXPECT_FALSE(IsHalfOf({"old", "new"}, "nld")) << "no page is written in pieces";
}

}  // namespace
}  // namespace vellum
