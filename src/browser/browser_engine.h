// Decides how the browser engine is started, and whether it can be, before anything of it is loaded.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// What the choice of switches hangs on.
struct EngineSurroundings {
    bool root = false;         // the engine's sandbox refuses to start for root
    bool sandboxOff = false;   // a person has switched the sandbox off by QTWEBENGINE_DISABLE_SANDBOX
    bool graphics = true;      // there is a graphics device and a screen to use it for
    QByteArray switches = {};  // those that a person has set
};

// The person's switches followed by those of the program that they don't speak of.
[[nodiscard]] QByteArray EngineSwitches(const EngineSurroundings& surroundings);

// Empty when the engine can start, else a sentence for a person. What the system allows is found out once.
[[nodiscard]] QString EngineObstacle();

// To be called once in main() before the application object: sets the engine's switches. Its own sandbox can't start
// for root, so it runs without it there and says so once on the error stream.
void PrepareBrowserEngine();

}  // namespace vellum
