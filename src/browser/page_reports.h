// What a script of the program itself reports from every page: that a document has come, and which links a person has
// clicked. A page's scripts can click as well, and the engine doesn't tell the difference.
#pragma once

#include <QString>
#include <QUrl>
#include <QWebEngineScript>

#include <optional>

namespace vellum {

struct PageReport {
    QUrl clicked = {};  // empty when a document has come into the main frame
};

// Runs in every frame, in a world of its own that no page can reach into. Reports through the console, and a click
// before the page hears of it.
[[nodiscard]] QWebEngineScript ReportingScript();

// The report in a console message; none in a message of anyone else.
[[nodiscard]] std::optional<PageReport> ReadReport(const QString& message);

}  // namespace vellum
