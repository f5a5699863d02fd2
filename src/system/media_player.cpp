#include "system/media_player.h"

#include "system/programs.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>

#include <csignal>
#include <unistd.h>

namespace vellum {

bool MediaPlayer::Play(const QString& path) {
    Stop();
    const QString program = FindProgram(QStringLiteral("mplayer.exe"));
    if (program.isEmpty()) return false;
    auto* process = new QProcess(QCoreApplication::instance());
    process->setProgram(program);
    // A full path never looks like an option or an address.
    process->setArguments({QFileInfo(path).absoluteFilePath()});
    process->setWorkingDirectory(QFileInfo(path).absolutePath());
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    // In a session of its own it can be ended with whatever it has started.
    process->setChildProcessModifier([] { ::setsid(); });
    process->start();
    if (!process->waitForStarted()) {
        delete process;
        return false;
    }
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process_ = process;
    return true;
}

void MediaPlayer::Stop() {
    QProcess* const process = process_;
    process_.clear();
    if (!process || process->state() == QProcess::NotRunning) return;
    const auto group = -static_cast<pid_t>(process->processId());
    ::kill(group, SIGTERM);
    constexpr int patience = 2000;
    QTimer::singleShot(patience, process, [group] { ::kill(group, SIGKILL); });
}

}  // namespace vellum
