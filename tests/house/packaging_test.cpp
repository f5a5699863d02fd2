// What lies beside the sources: the package list, the scripts and the desktop entry.
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace vellum::house {
namespace {

QString InProject(const QString& name) {
    return QStringLiteral(VELLUM_SOURCE_DIR) + '/' + name;
}

QString TextOf(const QString& name) {
    QFile file(InProject(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

TEST(Packaging, EveryPackageHasAUseANameAndAReason) {
    static const QRegularExpression entry("^(build|run|screen|test|bench|fuzz) +[a-z0-9][a-z0-9+.-]+ +[^ ].*$");
    QSet<QString> uses;
    for (const QString& line : TextOf("packaging/packages.txt").split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#')) continue;
        EXPECT_TRUE(entry.match(line).hasMatch()) << line.toStdString();
        uses.insert(line.section(' ', 0, 0));
    }
    EXPECT_EQ(uses, QSet<QString>({"build", "run", "screen", "test", "bench", "fuzz"}));
}

TEST(Packaging, ScriptsAreSoundAndCanBeStarted) {
    for (const char* script : {"run", "test", ".ci/run", "packaging/install-packages"}) {
        EXPECT_TRUE(QFileInfo(InProject(script)).isExecutable()) << script;
        QProcess check;
        check.start("bash", {"-n", InProject(script)});
        ASSERT_TRUE(check.waitForFinished());
        EXPECT_EQ(check.exitCode(), 0) << check.readAllStandardError().toStdString();
    }
}

TEST(Packaging, AnUnknownUseOfPackagesIsRefused) {
    if (QStandardPaths::findExecutable("dpkg-query").isEmpty()) GTEST_SKIP() << "this is no Debian system";
    QProcess install;
    install.start(InProject("packaging/install-packages"), {"nonsense"});
    ASSERT_TRUE(install.waitForFinished());
    EXPECT_EQ(install.exitCode(), 2);
}

TEST(Packaging, DesktopEntryIsValid) {
    const QString validator = QStandardPaths::findExecutable("desktop-file-validate");
    if (validator.isEmpty()) GTEST_SKIP() << "desktop-file-validate is not installed";
    QProcess check;
    check.setProcessChannelMode(QProcess::MergedChannels);
    check.start(validator, {InProject("packaging/vellumcraft.desktop")});
    ASSERT_TRUE(check.waitForFinished());
    EXPECT_EQ(check.exitCode(), 0);
    EXPECT_EQ(check.readAll(), QByteArray());
}

}  // namespace
}  // namespace vellum::house
