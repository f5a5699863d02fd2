// The real program as a process, with a home of its own, driven through a plugin inside it.
#pragma once

#include <QJsonObject>
#include <QLocalSocket>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

namespace vellum::test {

class ProgramUnderTest {
public:
    // `home`: the folder that holds the program's settings, state and documents.
    explicit ProgramUnderTest(QString home);
    ~ProgramUnderTest();
    ProgramUnderTest(const ProgramUnderTest&) = delete;
    ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;

    // Starts the program, with one argument at most, and waits until it answers. False when it does not.
    bool Start(const QStringList& arguments);
    // Starts it, answers the first-run question, and waits for the main window.
    bool StartToMainWindow(const QStringList& arguments);

    QJsonObject Ask(const QString& verb, const QString& target = {}, const QString& value = {});
    [[nodiscard]] QString Get(const QString& widget, const QString& property);
    void Type(const QString& widget, const QString& text) { Ask("type", widget, text); }
    void Trigger(const QString& command) { Ask("trigger", command); }
    void Click(const QString& widget) { Ask("click", widget); }

    // Asks again until `holds`, for at most 20 seconds.
    bool WaitFor(const std::function<bool()>& holds);
    // True when the program has ended by itself with exit code 0, after `milliseconds` at most.
    bool WaitForEnd(int milliseconds = 20000);
    // Sends a signal; true when the program has ended by it.
    bool EndsBy(int signal);
    void Kill();
    [[nodiscard]] qint64 ProcessId() const { return process_.processId(); }

private:
    QString home_;
    QString socketName_;
    QProcess process_;
    QLocalSocket link_;
};

}  // namespace vellum::test
