#include "preview/caching_writer.h"

#include "files/file_names.h"
#include "files/safe_write.h"
#include "tests/files/child_process.h"
#include "tests/files/kill_steps.h"
#include "tests/support/remove_all.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <array>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace vellum {
namespace {

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

class CachingWriterTest : public testing::Test {
protected:
    QString Path(const QString& name) const { return directory_.filePath(name); }
    QStringList Names() const {
        return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    bool Write(const QString& name, const QString& text) const {
        return WriteCachingFile({.path = Path(name), .text = text}) == Path(name);
    }
    QString WriteBeside(const QString& page) const {
        return WriteCachingFile({.path = Path("caching.htm"), .text = "x", .page = Path(page)});
    }
    void WritePage(const QString& name) const {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("page");
    }
    QByteArray Name(const QString& name) const { return QFile::encodeName(Path(name)); }
    struct stat Status(const QString& name) const {
        struct stat status = {};
        EXPECT_EQ(::lstat(Name(name).constData(), &status), 0);
        return status;
    }
    mode_t Mode(const QString& name) const { return Status(name).st_mode & 07777; }
    QFuture<QString> WriteLater(const QString& name, const QString& text) const {
        return WriteCachingFileLater({.path = Path(name), .text = text});
    }

    QTemporaryDir directory_;
};

// In a process of its own, because there is no way back from another person.
void BecomeNobody() {
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(::setgroups(0, nullptr), 0);
    ASSERT_EQ(::setgid(nobody), 0);
    ASSERT_EQ(::setuid(nobody), 0);
}

TEST(CachingWriterOfAnother, DISABLED_Writes) {
    BecomeNobody();
    const QString folder = ChildFolder() + '/';
    const CachingJob job{.path = folder + "caching.htm", .text = "x", .page = folder + "page.htm"};
    EXPECT_EQ(WriteCachingFile(job), job.path);
}

TEST(CachingWriterOfAnother, DISABLED_WritesInPlace) {
    BecomeNobody();
    EXPECT_NE(WriteCachingFile({.path = ChildFolder() + "/caching.htm", .text = "new"}), "");
    EXPECT_EQ(WriteCachingFile({.path = ChildFolder() + "/caching.xml", .text = "new"}), "") << "it has a second name";
}

TEST_F(CachingWriterTest, ReplacesTheFileAndLeavesNothingBeside) {
    ASSERT_TRUE(Write("caching.htm", "one"));
    ASSERT_TRUE(Write("caching.htm", "two"));
    EXPECT_EQ(Read(Path("caching.htm")), "two");
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

TEST_F(CachingWriterTest, WhatAKilledWriteLeftHiddenGoesAtTheNextStart) {
    int leftovers = 0;
    test::KillSteps write([this] { (void)Write("caching.htm", "two"); }, test::Killed::TheProcess);
    for (int step = 1; !HasFailure(); ++step) {
        const test::Killed killed = write.KillAt(step);
        if (killed == test::Killed::CannotTrace) GTEST_SKIP() << "no process may be looked at here";
        if (killed == test::Killed::Nothing) break;
        leftovers += static_cast<int>(Names().filter(".vellumcraft-").size());
        RepairInterruptedSaves();
        EXPECT_EQ(Names().filter(".vellumcraft-"), QStringList()) << step;
    }
    EXPECT_GT(leftovers, 0) << "else the test kills at no step that matters";
}

TEST_F(CachingWriterTest, TheFileOrderedLastStays) {
    const QString large = QString("<p>line</p>\n").repeated(1500000);
    QFuture<QString> other = WriteLater("other.htm", large);
    QFuture<QString> early = WriteLater("caching.htm", "early");
    ASSERT_TRUE(Write("caching.htm", "late"));
    EXPECT_FALSE(early.isFinished()) << "the page doesn't wait for a large document";
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_EQ(early.result(), Path("caching.htm"));
    EXPECT_EQ(other.result(), Path("other.htm"));
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_EQ(Names(), (QStringList{"caching.htm", "other.htm"}));
}

TEST_F(CachingWriterTest, TellsTheNameThatTheFileGotBesideADocument) {
    const CachingJob job{.path = Path("caching.htm"), .text = "x", .documents = {"New 1", Path("caching.htm")}};
    EXPECT_EQ(WriteCachingFile(job), Path("caching-preview.htm"));
    EXPECT_EQ(WriteCachingFileLater(job).result(), Path("caching-preview.htm"));
    EXPECT_EQ(Names(), QStringList{"caching-preview.htm"});
}

TEST_F(CachingWriterTest, AFolderWhoseNameIsNoTextTakesTheFile) {
    const QByteArray folder = Name("caf") + '\xE9';
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    const QString page = DecodeFileName(folder + "/page.htm");
    const QString path = DecodeFileName(folder + "/caching.htm");
    ASSERT_TRUE(WriteFileSafely(page, "page"));
    EXPECT_EQ(WriteCachingFile({.path = path, .text = "x", .documents = {page}, .page = page}), path);
    struct stat status = {};
    EXPECT_EQ(::stat((folder + "/caching.htm").constData(), &status), 0);
    EXPECT_EQ(WriteCachingFile({.path = path, .text = "x", .documents = {page, path}}),
              DecodeFileName(folder + "/caching-preview.htm"));
    test::RemoveAll(directory_.path());
}

TEST_F(CachingWriterTest, TheFileTakesTheEncodingOfTheDocument) {
    TextFormat format;
    format.encoding = "windows-1252";
    format.lineEnd = LineEnd::Lf;
    const CachingJob declared{.text = QString::fromUtf8("<meta charset=\"windows-1252\">\r\n\xC3\xA4"),
                              .format = format};
    EXPECT_EQ(CachingBytes(declared), "<meta charset=\"windows-1252\">\r\n\xE4");
    const CachingJob undeclared{.text = QString::fromUtf8("\xC3\xA4"), .format = format};
    EXPECT_EQ(CachingBytes(undeclared), "\xEF\xBB\xBF\xC3\xA4");
}

TEST_F(CachingWriterTest, ATextThatItsEncodingCannotHoldIsMarkedUtf8) {
    TextFormat format;
    format.encoding = "KOI8-R";
    const CachingJob misfit{.text = u"<meta charset=koi8-r>\u041F\u65E5"_qs, .format = format};
    EXPECT_EQ(CachingBytes(misfit), "\xEF\xBB\xBF<meta charset=koi8-r>\xD0\x9F\xE6\x97\xA5");
}

TEST_F(CachingWriterTest, Utf16WithoutAMarkGetsOneThatBrowsersSee) {
    TextFormat format;
    format.encoding = "UTF-16LE";
    format.oddByte = "x";
    EXPECT_EQ(CachingBytes({.text = "<p>a</p>", .format = format}), "\xEF\xBB\xBF<p>a</p>");
}

TEST_F(CachingWriterTest, TheFileHasTheReadersOfThePage) {
    WritePage("page.htm");
    const std::array<std::pair<mode_t, mode_t>, 6> modes{
        {{0644, 0644}, {0640, 0640}, {0600, 0600}, {0400, 0600}, {0755, 0644}, {0664, 0664}}};
    const mode_t usual = ::umask(0);
    for (const auto& [page, file] : modes) {
        ASSERT_EQ(::chmod(Name("page.htm").constData(), page), 0);
        ASSERT_EQ(WriteBeside("page.htm"), Path("caching.htm"));
        EXPECT_EQ(Mode("caching.htm"), file) << std::oct << page;
    }
    ::umask(usual);
}

TEST_F(CachingWriterTest, OnlyThePersonReadsATextThatNoFileBesideItHolds) {
    const mode_t usual = ::umask(0);
    ASSERT_TRUE(Write("caching.htm", "x"));
    EXPECT_EQ(Mode("caching.htm"), 0600U);
    ASSERT_EQ(::chmod(Name("caching.htm").constData(), 0666), 0);
    ASSERT_TRUE(Write("caching.htm", "y"));
    EXPECT_EQ(Mode("caching.htm"), 0600U) << "whatever it was before";
    ASSERT_TRUE(QDir(directory_.path()).mkdir("private"));
    WritePage("private/page.htm");
    ASSERT_EQ(::chmod(Name("private/page.htm").constData(), 0644), 0);
    ASSERT_EQ(WriteBeside("private/page.htm"), Path("caching.htm"));
    EXPECT_EQ(Mode("caching.htm"), 0600U) << "others may not come to the page";
    ASSERT_TRUE(QFile::link(Path("private/page.htm"), Path("link.htm")));
    ASSERT_EQ(WriteBeside("link.htm"), Path("caching.htm"));
    EXPECT_EQ(Mode("caching.htm"), 0600U) << "nor to what a link leads to";
    ASSERT_EQ(WriteBeside("missing.htm"), Path("caching.htm"));
    EXPECT_EQ(Mode("caching.htm"), 0600U);
    ::umask(usual);
}

TEST_F(CachingWriterTest, TheFileHasTheGroupOfThePage) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    WritePage("page.htm");
    ASSERT_EQ(::chown(Name("page.htm").constData(), 0, 12345), 0);
    ASSERT_EQ(::chmod(Name("page.htm").constData(), 0640), 0);
    ASSERT_EQ(WriteBeside("page.htm"), Path("caching.htm"));
    EXPECT_EQ(Mode("caching.htm"), 0640U);
    EXPECT_EQ(Status("caching.htm").st_gid, 12345U);
}

TEST_F(CachingWriterTest, APersonOfAnotherGroupSharesNoMoreThanAllMayRead) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    for (const auto& [page, file] : {std::pair<mode_t, mode_t>{0640, 0600}, {0644, 0644}, {0604, 0600}}) {
        WritePage("page.htm");
        ASSERT_EQ(::chown(Name("page.htm").constData(), 0, 12345), 0);
        ASSERT_EQ(::chmod(Name("page.htm").constData(), page), 0);
        ASSERT_EQ(::chmod(QFile::encodeName(directory_.path()).constData(), 0777), 0);
        EXPECT_TRUE(ChildProcess("CachingWriterOfAnother.DISABLED_Writes", directory_.path()).Succeeds());
        EXPECT_EQ(Mode("caching.htm"), file) << std::oct << page;
        ASSERT_TRUE(QFile::remove(Path("caching.htm")));
    }
}

TEST_F(CachingWriterTest, APageWithAnAccessListHasNoOtherReaders) {
    WritePage("page.htm");
    // Version 2; tag, bits and number of: the owner, one more person, the group, the mask, others.
    const QByteArray list = QByteArray::fromHex(
        "02000000"
        "01000600ffffffff"
        "0200040001000000"
        "04000000ffffffff"
        "10000400ffffffff"
        "20000000ffffffff");
    if (::setxattr(Name("page.htm").constData(), "system.posix_acl_access", list.constData(), list.size(), 0) != 0)
        GTEST_SKIP() << "a file system without access lists";
    ASSERT_EQ(Mode("page.htm"), 0640U);
    ASSERT_EQ(WriteBeside("page.htm"), Path("caching.htm"));
    EXPECT_EQ(Mode("caching.htm"), 0600U);
}

TEST_F(CachingWriterTest, ALinkInThePlaceIsReplacedAndItsTargetStays) {
    WritePage("victim.txt");
    ASSERT_TRUE(QFile::link(Path("victim.txt"), Path("caching.htm")));
    ASSERT_TRUE(Write("caching.htm", "two"));
    EXPECT_FALSE(QFileInfo(Path("caching.htm")).isSymLink());
    EXPECT_EQ(Read(Path("caching.htm")), "two");
    EXPECT_EQ(Read(Path("victim.txt")), "page");
    ASSERT_TRUE(QFile::remove(Path("caching.htm")));
    ASSERT_TRUE(QFile::link(Path("missing.txt"), Path("caching.htm")));
    ASSERT_TRUE(Write("caching.htm", "three"));
    EXPECT_FALSE(QFileInfo::exists(Path("missing.txt")));
    ASSERT_TRUE(QFile::remove(Path("caching.htm")));
    ASSERT_EQ(::link(Name("victim.txt").constData(), Name("caching.htm").constData()), 0);
    ASSERT_TRUE(Write("caching.htm", "four"));
    EXPECT_EQ(Read(Path("caching.htm")), "four");
    EXPECT_EQ(Read(Path("victim.txt")), "page");
}

TEST_F(CachingWriterTest, AFolderThatTakesNoNewFileStillTakesTheText) {
    if (::geteuid() != 0) GTEST_SKIP() << "the superuser makes the folder";
    WritePage("victim.txt");
    ASSERT_TRUE(Write("caching.htm", "a long old text"));
    ASSERT_EQ(::chown(Name("caching.htm").constData(), 65534, 65534), 0);
    ASSERT_EQ(::chown(Name("victim.txt").constData(), 65534, 65534), 0);
    ASSERT_EQ(::link(Name("victim.txt").constData(), Name("caching.xml").constData()), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(directory_.path()).constData(), 0555), 0);
    EXPECT_TRUE(ChildProcess("CachingWriterOfAnother.DISABLED_WritesInPlace", directory_.path()).Succeeds());
    EXPECT_EQ(Read(Path("caching.htm")), "new");
    EXPECT_EQ(Read(Path("victim.txt")), "page");
    ASSERT_EQ(::chmod(QFile::encodeName(directory_.path()).constData(), 0755), 0);
}

TEST_F(CachingWriterTest, WhatIsNoFileStays) {
    ASSERT_EQ(::mkfifo(Name("caching.htm").constData(), 0600), 0);
    EXPECT_FALSE(Write("caching.htm", "x"));
    EXPECT_TRUE(S_ISFIFO(Status("caching.htm").st_mode));
}

TEST_F(CachingWriterTest, AFolderInThePlaceIsAFailure) {
    ASSERT_TRUE(QDir(directory_.path()).mkdir("caching.htm"));
    EXPECT_EQ(WriteCachingFile({.path = Path("caching.htm"), .text = "x"}), "");
    EXPECT_EQ(WriteCachingFile({.path = Path("missing/caching.htm"), .text = "x"}), "");
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

}  // namespace
}  // namespace vellum
