// The two profiles of the engine: one that keeps local pages from the network and from other files, one for pages of
// the net.
#pragma once

class QUrl;
class QWebEngineProfile;

namespace vellum {

// True for an address that names no place: the page itself holds or makes what it stands for.
[[nodiscard]] bool IsPartOfPage(const QUrl& address);

// Both profiles are off the record and refuse downloads. They are made when they are first asked for.

// For pages of this machine. A page gets what a browser shows of it (pictures, styles, fonts, frames, sounds, scripts)
// and reads none of it; nothing that isn't on this machine is asked for.
[[nodiscard]] QWebEngineProfile* LocalProfile();

// For pages of the net, which get nothing of this machine.
[[nodiscard]] QWebEngineProfile* WebProfile();

}  // namespace vellum
