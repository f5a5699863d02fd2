// The engine's page in a browser surface, of which tests ask what the program doesn't.
#pragma once

#include "browser/browser_surface.h"

#include <QWebEnginePage>
#include <QWebEngineView>

namespace vellum::test {

// The surface has navigated. Another page may take its place whenever it navigates again.
inline QWebEnginePage* PageOf(const BrowserSurface& surface) {
    return surface.findChild<QWebEngineView*>()->page();
}

}  // namespace vellum::test
