// Scripts of local pages. A module has to come from where it may be asked for across origins, which a file may not, so
// scripts are served under a scheme of their own.
#pragma once

#include <QUrl>

class QWebEngineProfile;

namespace vellum {

// To be called once, before the engine starts.
void RegisterScriptScheme();

// The address under which the script in a file is served, and whether an address is one of those.
[[nodiscard]] QUrl ScriptAddress(const QUrl& file);
[[nodiscard]] bool IsScriptAddress(const QUrl& address);

// Serves a profile the scripts that pages may have, by their names: what else lies on the disk would be read by a page
// that takes it for a script or a module. Files are read on a worker thread.
void InstallScriptFiles(QWebEngineProfile& profile);

}  // namespace vellum
