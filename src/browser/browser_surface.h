// The browser surface: shows a file, knows its title and scroll offset, and never holds up the program.
#pragma once

#include <QString>
#include <QWidget>

#include <memory>

namespace vellum {

// The engine starts at the first Navigate, so a surface costs nothing until it shows something. The keyboard goes to
// the page only when a person clicks it; neither a page nor a navigation takes it. Links to the web
// open in the system's browser when a person clicks them, local links to new windows in the place of the page. No
// other address is ever handed over.
//
// A local page is kept in a cage: it shows what lies on the disk as a browser would, but its scripts read no other
// file, and nothing leaves the machine.
class BrowserSurface : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title)
public:
    explicit BrowserSurface(QWidget* parent = nullptr);
    ~BrowserSurface() override;

    // Shows the file at `path`, or an address that starts with "http://" or "https://". The old page stays visible
    // until the new one can be painted. The file and all that it refers to are read anew, also for the same path. Where
    // the old page hangs or has crashed, the new one gets a fresh process.
    void Navigate(const QString& path);
    [[nodiscard]] QString Path() const;   // the file last navigated to
    [[nodiscard]] QString Title() const;  // the document's title; empty while there is no document, or it has none
    // The body's scroll offset from the top in CSS pixels, as the page last told it; 0 while there is no document.
    [[nodiscard]] int ScrollTop() const;
    [[nodiscard]] bool IsAvailable() const;  // false when the engine can't run here

    // True while the keys that a person types go to the page.
    [[nodiscard]] bool HasKeyboard() const;

signals:
    // Once for every navigation that ends, also one by a link in the page, except those that a later Navigate replaces.
    void NavigateComplete(bool ok);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace vellum
