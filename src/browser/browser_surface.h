// The browser surface: shows a file, tells its title and scroll offset, and never blocks the program.
#pragma once

#include <QString>
#include <QWidget>

#include <memory>

namespace vellum {

// The engine starts at the first Navigate, so a surface costs nothing until it shows something. The keyboard goes to
// the page only when a person clicks it; no page and no navigation takes the focus by itself. Links that leave the site
// and links to new windows open in the system's browser.
class BrowserSurface : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title)
public:
    explicit BrowserSurface(QWidget* parent = nullptr);
    ~BrowserSurface() override;

    // Shows the file at `path`, or an address that starts with "http://" or "https://". What is shown stays visible
    // until the new page can be painted. The same path again reads the file and all that it refers to from the disk
    // anew. A page that hangs or has crashed is given up, and the new one gets a fresh process.
    void Navigate(const QString& path);
    [[nodiscard]] QString Path() const;   // the file last navigated to
    [[nodiscard]] QString Title() const;  // the document's title; empty while there is no document, or it has none
    // The body's scroll offset from the top in CSS pixels; 0 while there is no document. Never waits for the page.
    [[nodiscard]] int ScrollTop() const;
    [[nodiscard]] bool IsAvailable() const;  // false when the engine can't run here

    // True while the keys that a person types go to the page.
    [[nodiscard]] bool HasKeyboard() const;

signals:
    // Once for every navigation that ends, those by a link in the page too. One that a newer Navigate overtakes ends
    // silently.
    void NavigateComplete(bool ok);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace vellum
