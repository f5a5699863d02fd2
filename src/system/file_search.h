// The desktop's own search for files.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// The command line of the installed search program, program first, that searches below `folder`; empty when none is
// installed.
[[nodiscard]] QStringList FileSearchCommand(const QString& folder);

// Opens the search, or where there is none the desktop's file manager, which has one, on `folder`. False when neither
// can be started.
bool StartFileSearch(const QString& folder);

}  // namespace vellum
