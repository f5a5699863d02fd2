#include "files/in_place_write.h"

#include "files/file_descriptor.h"
#include "files/text_file.h"
#include "files/write_contents.h"
#include "tests/files/file_fixture.h"

#include <fcntl.h>
#include <sys/file.h>

namespace vellum::test {
namespace {

const QByteArray oldContent = QByteArray("the old content\n").repeated(1000);
const QByteArray newContent = QByteArray("the new one, which is longer\n").repeated(1000);
// What is there when the new content was cut off after a page.
const QByteArray cutContent = newContent.first(4096) + oldContent.mid(4096);

class WritingInPlace : public FileWriting {
protected:
    // The copy that a write in place makes first.
    void PutCopy(const QString& name = "page.html") const {
        const FileDescriptor copy = OpenFile(QFile::encodeName(CopyOf(name)), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ASSERT_TRUE(copy.IsOpen() && WriteTo(copy.Get(), {oldContent, newContent}));
    }
};

TEST_F(WritingInPlace, CutOffIsCompleted) {
    Put(Path(), cutContent);
    PutCopy();
    EXPECT_TRUE(RestoreInterruptedWrite(Path()));
    EXPECT_EQ(Content(Path()), newContent);
    EXPECT_FALSE(RestoreInterruptedWrite(Path()));
    ExpectOnly({"page.html"});
}

TEST_F(WritingInPlace, CutOffIsCompletedByReading) {
    Put(Path(), cutContent);
    PutCopy();
    const std::optional<LoadedText> loaded = ReadTextFile(Path());
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->bytes, newContent);
    EXPECT_EQ(Content(Path()), newContent);
    ExpectOnly({"page.html"});
}

TEST_F(WritingInPlace, NeverGoesOverAWholeFile) {
    for (const QByteArray& whole : {oldContent, newContent, QByteArray("saved since"), QByteArray()}) {
        Put(Path(), whole);
        PutCopy();
        EXPECT_FALSE(RestoreInterruptedWrite(Path()));
        EXPECT_EQ(Content(Path()), whole);
        ExpectOnly({"page.html"});
    }
}

TEST_F(WritingInPlace, GoesByNoCopyThatIsDamaged) {
    Put(Path(), cutContent);
    Put(CopyOf(), "somebody's own file");
    EXPECT_FALSE(RestoreInterruptedWrite(Path()));
    EXPECT_EQ(Content(Path()), cutContent);
    EXPECT_EQ(Content(CopyOf()), "somebody's own file");
}

TEST_F(WritingInPlace, LeavesAFileAloneThatSomebodyIsWriting) {
    Put(Path(), cutContent);
    PutCopy();
    const FileDescriptor writer = OpenFile(Name(), O_RDWR);
    ASSERT_EQ(::flock(writer.Get(), LOCK_EX), 0);
    EXPECT_FALSE(RestoreInterruptedWrite(Path()));
    EXPECT_EQ(Content(Path()), cutContent);
    const std::optional<LoadedText> loaded = ReadTextFile(Path());
    EXPECT_TRUE(loaded && loaded->bytes == newContent) << "the whole content is shown all the same";
    QString error;
    EXPECT_FALSE(WriteInPlace(Name(), "other", &error));
    EXPECT_TRUE(error.contains("another program is writing it"));
}

TEST_F(WritingInPlace, SavingOverACutOffFileLeavesNoCopy) {
    Put(Path(), cutContent);
    PutCopy();
    Write(Path(), "new");
    ExpectOnly({"page.html"});

    Put(Path("second.html"), cutContent);
    PutCopy("second.html");
    ASSERT_EQ(::link(Name("second.html").constData(), Name("other.html").constData()), 0);
    Write(Path("second.html"), "new");
    ExpectOnly({"other.html", "page.html", "second.html"});
}

}  // namespace
}  // namespace vellum::test
