// A search path of the test's own, for programs that are started.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

class ScriptFolder : public testing::Test {
protected:
    static constexpr int patience = 30000;  // milliseconds until a condition counts as never met

    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        ASSERT_TRUE(QDir(folder.path()).mkpath("bin"));
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder.filePath("bin")));
    }
    void TearDown() override { qputenv("PATH", path_); }

    // A program that writes a line "process|number of arguments|argument|..." into a note and then goes on with `rest`.
    void AddScript(const QString& name, const QByteArray& rest = "exit 0") {
        const QByteArray note = QFile::encodeName(folder.filePath("note"));
        QFile script(folder.filePath("bin/" + name));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\n{ printf '%s|%s' \"$$\" \"$#\"; for a in \"$@\"; do printf '|%s' \"$a\"; done; } > '" +
                     note + ".new'\n/bin/mv '" + note + ".new' '" + note + "'\n" + rest + "\n");
        script.close();
        ASSERT_TRUE(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    // Waits for the note and takes it away: the process, the number of arguments, the arguments.
    QStringList TakeNote() {
        const QString path = folder.filePath("note");
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }, patience));
        QFile note(path);
        if (!note.open(QIODevice::ReadOnly)) return {};
        QStringList parts = QString::fromUtf8(note.readAll()).split('|');
        note.remove();
        return parts;
    }

    QTemporaryDir folder;

private:
    QByteArray path_;
};

}  // namespace vellum::test
