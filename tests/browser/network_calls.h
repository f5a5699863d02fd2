// What this process asks of the network, seen where it asks the system: the engine's network code runs in it.
#pragma once

#include <QStringList>

namespace vellum::test {

// Counts from its making on; one such object at a time. Names of the domain "test" are those of this machine.
class NetworkCalls {
public:
    NetworkCalls();
    ~NetworkCalls();
    NetworkCalls(const NetworkCalls&) = delete;
    NetworkCalls& operator=(const NetworkCalls&) = delete;

    [[nodiscard]] QStringList LookUps() const;      // names, in the order of the calls
    [[nodiscard]] QStringList Connections() const;  // addresses with ports
    [[nodiscard]] int Datagrams() const;
};

}  // namespace vellum::test
