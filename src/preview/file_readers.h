// Who may read a file that the program writes: nobody who can't read the page that it shows.
#pragma once

#include <QByteArray>

namespace vellum {

// Gives an open file the readers of the page in the same folder, and never more. The person reads and writes it in any
// case, and alone when there is no such page, when the page is a link to some other place, when it lies in another
// folder, or when it has an access list. `file` is the path that the open file has or is to get. False with errno on
// failure; a file system without modes is none.
[[nodiscard]] bool TakeReadersOf(const QByteArray& page, int descriptor, const QByteArray& file);

}  // namespace vellum
