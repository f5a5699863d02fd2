// Decides whether the browser engine can start here, and with which switches, before any of it is loaded.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace vellum {

// What the switches depend on.
struct EngineSurroundings {
    bool root = false;         // the engine's sandbox refuses to start for root
    bool sandboxOff = false;   // a person has switched the sandbox off by QTWEBENGINE_DISABLE_SANDBOX
    bool graphics = true;      // there is a graphics device and a screen to use it for
    QByteArray switches = {};  // those that a person has set in QTWEBENGINE_CHROMIUM_FLAGS
    QByteArray door = {};      // the engine's way to the network, an address with a port
};

// The person's switches, and after them those of the program that the person hasn't set. Those that keep pages from the
// network and from other files are set in any case, and count.
[[nodiscard]] QByteArray EngineSwitches(const EngineSurroundings& surroundings);

// Empty when the engine can start, else a sentence for a person. The system is asked only once.
[[nodiscard]] QString EngineObstacle();

// Gets the process ready for the engine; main() calls it once, before it makes the application object. For root the
// engine runs without its sandbox, which can't start there, and the error stream says so.
void PrepareBrowserEngine();

// Runs `start`, which makes the first profile and so starts the engine, with the switches in the environment. They are
// gone from there afterwards: a browser that the program starts may have the same engine.
void StartBrowserEngine(const std::function<void()>& start);

}  // namespace vellum
