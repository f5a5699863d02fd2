// Plays a sound or a film with the desktop's player, and ends it again.
#pragma once

#include <QPointer>
#include <QProcess>
#include <QString>

namespace vellum {

class MediaPlayer {
public:
    MediaPlayer() = default;
    ~MediaPlayer() { Stop(); }
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    // Starts the player with the file as its one argument, and ends what it played before. False when no player is
    // there or it can't be started.
    bool Play(const QString& path);
    // Tells the player to end, and doesn't wait for it.
    void Stop();

private:
    QPointer<QProcess> process_;  // deletes itself when the player has ended
};

}  // namespace vellum
