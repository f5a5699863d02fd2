// The engine's only way to the network: a proxy inside the program, open while a page of the net is shown.
#pragma once

#include <QByteArray>
#include <QUrl>

namespace vellum {

// Host and port of the door, the same for the whole session: an address of this machine that nothing else uses. The
// engine is told at its start to look up no names and to reach no address but this one.
[[nodiscard]] QByteArray DoorAddress();

// Keeps the door open for as long as it lives.
class DoorPass {
public:
    DoorPass();
    ~DoorPass();
    DoorPass(const DoorPass&) = delete;
    DoorPass& operator=(const DoorPass&) = delete;
};

// Lets connections to the host and port of an address pass until the door closes. Nothing passes to any other.
void LetThroughDoor(const QUrl& address);

}  // namespace vellum
