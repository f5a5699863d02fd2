#include "files/recovery_copy.h"

#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(RecoveryCopy, WithoutWhatLaterOnesTellIsReadable) {
    const QTemporaryDir folder;
    QFile file(folder.filePath("1.copy"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    const QByteArray units("a\0\n\0", 4);
    file.write(R"({"byteOrderMark":true,"caption":"/a.htm","checksum":")" +
               QCryptographicHash::hash(units, QCryptographicHash::Sha1).toHex() +
               R"(","encoding":"UTF-16LE","lineEnd":"2","version":1,"writtenAt":5})" + '\n' + units);
    file.close();
    const std::optional<RecoveredText> copy = ReadKeptText(QFile::encodeName(folder.path()), 1);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->text, "a\n");
    EXPECT_EQ(copy->format.Description(), "UTF-16 LE, LF");
    EXPECT_TRUE(copy->otherLineEnds.empty());
}

TEST(RecoveryCopy, TellsOfBadBytes) {
    const QTemporaryDir folder;
    const QByteArray place = QFile::encodeName(folder.path());
    RecoveredText written;
    written.text = "a" + QString(QChar(0xDCE9));
    written.format.holdsBytes = true;
    ASSERT_TRUE(WriteRecoveryCopy(CopyPath(place, 1), written, 1));
    const std::optional<RecoveredText> copy = ReadKeptText(place, 1);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->text, written.text);
    EXPECT_TRUE(copy->format.holdsBytes);
    EXPECT_EQ(copy->format.Description(), "UTF-8, bad bytes");
}

}  // namespace
}  // namespace vellum
