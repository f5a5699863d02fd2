#include "tests/program/program_under_test.h"

#include "files/file_names.h"
#include "tests/support/test_home.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QProcessEnvironment>
#include <QTest>
#include <QUuid>

#include <csignal>

namespace vellum::test {
namespace {

constexpr int patience = 20000;  // milliseconds

QString InOctal(const QByteArray& bytes) {
    QString escaped;
    for (const char byte : bytes) escaped += "\\0" + QString::number(static_cast<unsigned char>(byte), 8);
    return escaped;
}

}  // namespace

ProgramUnderTest::ProgramUnderTest(QString home)
    : home_(std::move(home)),
      socketName_(QDir::tempPath() + "/vellum-" + QUuid::createUuid().toString(QUuid::Id128).left(12)) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    MakeHomeFolders(home_);
    for (const auto& [name, folder] : homeFolders) environment.insert(name, home_ + folder);
    environment.insert("QT_PLUGIN_PATH", VELLUM_DRIVER_FOLDER);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "vellumdriver:" + socketName_);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

ProgramUnderTest::~ProgramUnderTest() {
    Kill();
    QLocalSocket().close();
    QFile::remove(socketName_);
}

bool ProgramUnderTest::Start(const QStringList& arguments) {
    // Through a shell, which can pass on a name that is no text.
    const char* const script = arguments.isEmpty() ? R"(exec "$0")" : R"sh(exec "$0" "$(printf '%b' "$1")")sh";
    QStringList words{"-c", script, VELLUM_BINARY};
    for (const QString& argument : arguments) words << InOctal(EncodeFileName(argument));
    process_.start("/bin/sh", words);
    if (!process_.waitForStarted()) return false;
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < patience && process_.state() == QProcess::Running) {
        link_.connectToServer(socketName_);
        if (link_.waitForConnected(100)) return true;
        QTest::qWait(20);
    }
    return false;
}

bool ProgramUnderTest::StartToMainWindow(const QStringList& arguments) {
    if (!Start(arguments)) return false;
    return WaitFor([this] {
        const QJsonObject dialog = Ask("dialog");
        if (dialog.value("value").toString().startsWith("Is Internet Explorer")) Click("&Yes");
        if (Ask("get", "Start").value("visible").toBool()) Ask("key", "Start", "Esc");  // ends the splash
        return Ask("get", "MDIform1").value("visible").toBool() && !Get("Text1", "objectName").isEmpty();
    });
}

QJsonObject ProgramUnderTest::Ask(const QString& verb, const QString& target, const QString& value) {
    if (link_.state() != QLocalSocket::ConnectedState) return {};
    link_.write(QJsonDocument(QJsonObject{{"verb", verb}, {"target", target}, {"value", value}})
                    .toJson(QJsonDocument::Compact) +
                '\n');
    QElapsedTimer time;
    time.start();
    while (!link_.canReadLine() && time.elapsed() < patience && link_.state() == QLocalSocket::ConnectedState) {
        link_.waitForReadyRead(100);
    }
    return QJsonDocument::fromJson(link_.readLine()).object();
}

QString ProgramUnderTest::Get(const QString& widget, const QString& property) {
    return Ask("get", widget, property).value("value").toString();
}

bool ProgramUnderTest::WaitFor(const std::function<bool()>& holds) {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < patience) {
        if (holds()) return true;
        QTest::qWait(50);
    }
    return false;
}

bool ProgramUnderTest::WaitForEnd(int milliseconds) {
    return process_.waitForFinished(milliseconds) && process_.exitStatus() == QProcess::NormalExit &&
           process_.exitCode() == 0;
}

bool ProgramUnderTest::EndsBy(int signal) {
    ::kill(static_cast<pid_t>(ProcessId()), signal);
    return process_.waitForFinished(patience) && process_.exitStatus() == QProcess::CrashExit &&
           process_.exitCode() == signal;
}

void ProgramUnderTest::Kill() {
    link_.abort();
    if (process_.state() == QProcess::NotRunning) return;
    process_.kill();
    process_.waitForFinished();
}

}  // namespace vellum::test
