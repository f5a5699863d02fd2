// Files in a folder of a test's own, and checks of what a save leaves of them.
#pragma once

#include "files/safe_write.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum::test {

inline QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

inline void Put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

inline struct stat StatusOf(const QString& path) {
    struct stat status = {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &status), 0) << qPrintable(path);
    return status;
}

inline QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

inline void Write(const QString& path, const QByteArray& bytes) {
    QString error;
    EXPECT_TRUE(WriteFileSafely(path, bytes, &error)) << qPrintable(error);
    EXPECT_EQ(Content(path), bytes);
}

inline void ExpectRefused(const QString& path, const QByteArray& bytes = "new") {
    QString error;
    EXPECT_FALSE(WriteFileSafely(path, bytes, &error));
    EXPECT_TRUE(error.contains(QFileInfo(path).fileName())) << qPrintable(error);
    EXPECT_FALSE(WriteFileSafely(path, bytes)) << "without a place for the sentence";
}

class FileWriting : public testing::Test {
protected:
    [[nodiscard]] QString Path(const QString& name = "page.html") const { return folder_.filePath(name); }
    [[nodiscard]] QByteArray Name(const QString& name = "page.html") const { return QFile::encodeName(Path(name)); }
    // Where a write in place keeps both contents of a file.
    [[nodiscard]] QString CopyOf(const QString& name = "page.html") const {
        return Path('.' + name + ".vellumcraft-backup");
    }
    void ExpectOnly(const QStringList& names) const { EXPECT_EQ(NamesIn(folder_.path()), names); }

    QTemporaryDir folder_;
};

}  // namespace vellum::test
