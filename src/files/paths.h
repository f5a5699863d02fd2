// How paths are put together, and where the program's own directories are.
#pragma once

#include <QString>

namespace vellum {

// Directory joined with a name; the drive root gets no second separator, and no directory gives the bare name.
[[nodiscard]] QString JoinPath(const QString& directory, const QString& name);

// The program's own directory for the author's work: "Vellumcraft" in the documents folder, made when missing; the
// person's home when it can't be made.
[[nodiscard]] QString OwnDirectory();

// A read-only data file or folder of the program (for instance "Dtd/svg.dtd"): beside the binary, in the installed
// share folder, or in the source tree of a build. Empty when it is nowhere.
[[nodiscard]] QString DataPath(const QString& relative);
// The same for a binary in `programDirectory`.
[[nodiscard]] QString DataPathFrom(const QString& programDirectory, const QString& relative);

}  // namespace vellum
