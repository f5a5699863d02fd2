#include "files/file_names.h"

#include "files/file_facts.h"
#include "files/folder_reader.h"
#include "files/in_place_write.h"
#include "files/picture.h"
#include "files/rename_file.h"
#include "files/text_file.h"
#include "files/trash.h"
#include "tests/files/file_fixture.h"
#include "tests/support/remove_all.h"

#include <QImage>

#include <random>

namespace vellum::test {
namespace {

TEST(FileNames, ThatAreTextAreThatText) {
    for (const QByteArray& name : {QByteArray(), QByteArray("page.htm"), QByteArray("\xC3\xA9\xE4\xB8\xAD"),
                                   QByteArray("\xF0\x9F\x98\x80"), QByteArray("two\nlines"), QByteArray("\x01\x7F")}) {
        EXPECT_EQ(DecodeFileName(name), QString::fromUtf8(name));
        EXPECT_EQ(EncodeFileName(DecodeFileName(name)), name);
    }
    EXPECT_EQ(DecodeFileName("\xEF\xBB\xBFpage"), QChar(0xFEFF) + QString("page"));
    EXPECT_EQ(EncodeFileName(DecodeFileName("\xEF\xBB\xBFpage")), "\xEF\xBB\xBFpage");
}

TEST(FileNames, ThatAreNoTextHaveHalfAPairForEachByte) {
    EXPECT_EQ(DecodeFileName("caf\xE9.htm"), "caf" + QString(QChar(0xDCE9)) + ".htm");
    EXPECT_EQ(DecodeFileName("\x80\xFF"), QString(QChar(0xDC80)) + QChar(0xDCFF));
    EXPECT_EQ(DecodeFileName("\xF0\x9F\x98\x80\x98"), QString::fromUtf8("\xF0\x9F\x98\x80") + QChar(0xDC98))
        << "after a pair";
    EXPECT_EQ(DecodeFileName("\xED\xB3\xA9"), QString(QChar(0xDCED)) + QChar(0xDCB3) + QChar(0xDCA9))
        << "what would spell half a pair is no text";
    EXPECT_EQ(DecodeFileName("\xC0\xAF"), QString(QChar(0xDCC0)) + QChar(0xDCAF)) << "nor is a long spelling";
}

TEST(FileNames, ComeBackToTheByte) {
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray name = "a" + QByteArray(1, static_cast<char>(byte)) + "b";
        EXPECT_EQ(EncodeFileName(DecodeFileName(name)), name) << byte;
    }
    std::mt19937 random(4711);
    // Bytes that make pieces of characters, and whole ones, now and then.
    const QByteArray bytes = "a.\x80\x98\x9F\xA9\xB0\xBB\xBF\xC3\xE4\xED\xEF\xF0\xF4\xFF";
    for (int round = 0; round < 20'000; ++round) {
        QByteArray name;
        for (auto length = random() % 9; length > 0; --length)
            name += bytes[qsizetype(random() % size_t(bytes.size()))];
        ASSERT_EQ(EncodeFileName(DecodeFileName(name)), name) << name.toHex().constData();
    }
}

TEST(FileNames, AreReadInOneLine) {
    EXPECT_EQ(ReadableName("page \u00E9 \U0001F600.htm"), "page \u00E9 \U0001F600.htm");
    EXPECT_EQ(ReadableName("two\nlines\r"), QString("two") + QChar(0x2424) + "lines" + QChar(0x2424));
    EXPECT_EQ(ReadableName(DecodeFileName("caf\xE9\xF0\x9F\x98\x80\x98")),
              QString("caf") + QChar(0xFFFD) + "\U0001F600" + QChar(0xFFFD));
}

TEST(FileNames, GetTheirWholePath) {
    const QString here = QDir::currentPath();
    EXPECT_EQ(AbsolutePath("page.htm"), here + "/page.htm");
    EXPECT_EQ(AbsolutePath("./a/../caf\u00E9.htm"), here + "/caf\u00E9.htm");
    EXPECT_EQ(AbsolutePath(DecodeFileName("/a/./caf\xE9")), DecodeFileName("/a/caf\xE9"));
}

// A file and a folder whose names are Latin-1.
class OddNames : public FileWriting {
protected:
    void SetUp() override {
        ASSERT_TRUE(MakeFolder(odd));
        ASSERT_TRUE(WriteFileSafely(page, "caf\xC3\xA9"));
    }

    void TearDown() override { RemoveAll(folder_.path()); }

    QString odd = DecodeFileName(Name("m\u00FChle").replace("\xC3\xBC", "\xFC"));
    QByteArray pageName = EncodeFileName(odd) + "/caf\xE9.htm";
    QString page = DecodeFileName(pageName);
};

TEST_F(OddNames, AreMadeAndReadByTheirBytes) {
    struct stat status = {};
    ASSERT_EQ(::stat(pageName.constData(), &status), 0);
    EXPECT_EQ(status.st_size, 5);
    const std::optional<LoadedText> loaded = ReadTextFile(page);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->text, "caf\u00E9");
    ASSERT_TRUE(WriteFileSafely(page, "longer than before"));
    EXPECT_EQ(FactsOf(page)->size, 18);
    EXPECT_EQ(NamesIn(odd, FolderContent::Files), QStringList(DecodeFileName("caf\xE9.htm")));
    EXPECT_EQ(NamesIn(folder_.path(), FolderContent::Folders), QStringList(DecodeFileName("m\xFChle")));
}

TEST_F(OddNames, AreWrittenInPlace) {
    const QByteArray other = EncodeFileName(odd) + "/\xFF";
    ASSERT_EQ(::link(pageName.constData(), other.constData()), 0);
    ASSERT_TRUE(WriteFileSafely(page, "new"));
    EXPECT_EQ(ReadTextFile(DecodeFileName(other))->text, "new");
    EXPECT_EQ(NamesIn(odd, FolderContent::Files).size(), 2);
}

TEST_F(OddNames, HaveFacts) {
    EXPECT_TRUE(IsFolder(odd));
    EXPECT_TRUE(IsReadableFolder(odd));
    EXPECT_FALSE(IsFolder(page));
    EXPECT_FALSE(IsReadableFolder(page));
    const std::optional<FileFacts> facts = FactsOf(page);
    ASSERT_TRUE(facts);
    EXPECT_TRUE(facts->isFile);
    EXPECT_FALSE(facts->isFolder);
    EXPECT_TRUE(facts->isWritable);
    EXPECT_EQ(facts->size, 5);
    EXPECT_LE(qAbs(facts->changed.secsTo(QDateTime::currentDateTime())), 60);
    ASSERT_EQ(::chmod(pageName.constData(), 0444), 0);
    EXPECT_FALSE(FactsOf(page)->isWritable);
    EXPECT_FALSE(FactsOf(odd + "/missing"));
}

TEST_F(OddNames, AreRenamedAndThrownAway) {
    const QString renamed = DecodeFileName(EncodeFileName(odd) + "/\xE9t\xE9.htm");
    ASSERT_TRUE(RenameFile(page, renamed));
    EXPECT_FALSE(RenameFile(renamed, renamed + "/x"));
    EXPECT_EQ(NamesIn(odd, FolderContent::Files), QStringList(DecodeFileName("\xE9t\xE9.htm")));
    ASSERT_TRUE(MoveToTrash(renamed));
    EXPECT_TRUE(NamesIn(odd, FolderContent::Files).isEmpty());
    const QString trash = qEnvironmentVariable("XDG_DATA_HOME") + "/Trash/files";
    EXPECT_EQ(NamesIn(trash, FolderContent::Files), QStringList(DecodeFileName("\xE9t\xE9.htm")));
}

TEST_F(OddNames, NeverMeanAFileThatReadsLikeThem) {
    const QString likeIt = odd + "/" + ReadableName("caf" + QString(QChar(0xDCE9)) + ".htm");
    ASSERT_TRUE(WriteFileSafely(likeIt, "another"));
    ASSERT_TRUE(MoveToTrash(page));
    EXPECT_EQ(ReadTextFile(likeIt)->text, "another");
    EXPECT_FALSE(FactsOf(page));
}

TEST_F(OddNames, HavePictures) {
    QImage picture(7, 5, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(Path("plain.png")));
    ASSERT_TRUE(RenameFile(Path("plain.png"), page + ".png"));
    EXPECT_EQ(ImageSize(page + ".png"), QSize(7, 5));
    EXPECT_EQ(ReadPicture(page + ".png").image.size(), QSize(7, 5));
}

}  // namespace
}  // namespace vellum::test
