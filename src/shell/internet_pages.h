// Opens the source of a web page in a window of its own.
#pragma once

#include <QString>
#include <QThreadPool>

#include <optional>

namespace vellum {

class OpenDocuments;
class Workbench;

class InternetPages {
public:
    InternetPages(Workbench& workbench, OpenDocuments& documents);

    // Asks for the address. The main window takes no input while the page is on its way, but shows what goes on; Esc
    // gives the page up, and so does whoever closes the window. Without a page the new document stays empty.
    void Open();

private:
    // Empty when no page came.
    [[nodiscard]] std::optional<QString> Fetch(const QString& address);

    Workbench& workbench_;
    OpenDocuments& documents_;
    // Its own: a fetch that was given up may take a while to end. The last ones are waited for when this goes.
    QThreadPool fetches_;
};

}  // namespace vellum
