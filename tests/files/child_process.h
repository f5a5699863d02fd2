// A part of a test that needs a process of its own, to be killed or to live under other rules: this program again, with
// one of the disabled tests, which finds its folder in ChildFolder().
#pragma once

#include <QByteArray>
#include <QDir>
#include <QProcess>
#include <QString>

#include <gtest/gtest.h>

namespace vellum {

class ChildProcess : public QProcess {
public:
    // `test`: "Suite.DISABLED_Name".
    ChildProcess(const QString& test, const QString& folder) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("VELLUM_TEST_FOLDER", folder);
        environment.insert("TMPDIR", folder + "/tmp");  // so that nothing of a killed child stays behind
        QDir(folder).mkdir("tmp");
        setProcessEnvironment(environment);
        setProcessChannelMode(MergedChannels);
        start("/proc/self/exe", {"--gtest_also_run_disabled_tests", "--gtest_filter=" + test});
    }
    ~ChildProcess() override {
        kill();
        waitForFinished();
    }

    // All of its checks held.
    [[nodiscard]] testing::AssertionResult Succeeds() {
        if (waitForFinished(60'000) && exitStatus() == NormalExit && exitCode() == 0) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << readAll().constData();
    }

    [[nodiscard]] bool WaitFor(const QByteArray& word) {
        QByteArray said;
        while (!said.contains(word)) {
            if (!waitForReadyRead(20'000)) return false;
            said += readAll();
        }
        return true;
    }

    [[nodiscard]] bool KilledNow() {
        kill();
        return waitForFinished() && exitStatus() == CrashExit;
    }
};

inline QString ChildFolder() {
    return qEnvironmentVariable("VELLUM_TEST_FOLDER");
}

}  // namespace vellum
