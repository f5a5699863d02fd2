// Starting other programs, and the desktop's default handlers.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// Splits a command at blanks outside double quotes, appends `argument` when it is not empty, and starts the program
// detached in `workingDirectory` (else the current one). A command that is the path of a program, blanks and all, is
// taken whole. False when there is no such program or it can't be started.
bool RunCommand(const QString& command, const QString& argument = {}, const QString& workingDirectory = {});

// Opens a file or address with the program the desktop has for it; a relative path is taken from `workingDirectory`.
// False when the file is missing or the desktop has no program. Waits half a second at most to learn that.
bool OpenWithDefault(const QString& pathOrAddress, const QString& workingDirectory = {});

// The full path of a program on the search path, by the name of its counterpart ("calc.exe") or its own; empty if none.
[[nodiscard]] QString FindProgram(const QString& name);

// Where the system's own programs stand; empty when there is no such directory.
[[nodiscard]] QString WindowsDirectoryPath();

// "Edit with Vellumcraft" for HTML files: the text of a desktop entry that runs `program`.
[[nodiscard]] QString EditVerbDesktopEntry(const QString& program);

// Writes that entry into the person's applications folder and lets the desktop know. The program that opens HTML files
// by default stays what it is. False when it can't be written.
bool AddEditVerb(const QString& program);

}  // namespace vellum
