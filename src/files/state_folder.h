// Where the program keeps what must outlive it but is nobody's document.
#pragma once

#include <QByteArray>

namespace vellum {

// $XDG_STATE_HOME/vellumcraft, by default under ~/.local/state. Makes nothing.
[[nodiscard]] QByteArray StateFolder();

// Makes a folder in it, that nobody else may look into. False when it can't be had.
[[nodiscard]] bool MakeStateFolder(const QByteArray& folder);

}  // namespace vellum
