// The browser surface: shows a file, tells its title and scroll offset, and never blocks the program.
#pragma once

#include <QString>
#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>

namespace vellum {

// The engine starts at the first Navigate, so a surface costs nothing until it shows something. The keyboard goes to
// the page only when a person clicks it; no page and no navigation takes the focus by itself.
class BrowserSurface : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ Title NOTIFY TitleChanged)
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

    // The visible text, asked of the page; for tests and for the screen reader. Calls back with an empty text when
    // there is no document.
    void ReadText(std::function<void(const QString&)> callback) const;

    // Runs a script in the page and hands its value over as text; empty when there is no document. For tests.
    void Evaluate(const QString& script, std::function<void(const QString&)> callback) const;

    // The operating system's number of the process that renders the page; 0 while there is none.
    [[nodiscard]] qint64 RendererProcess() const;

    // What opens links that leave the site and links to new windows; the system's browser unless it is replaced. An
    // empty function puts that one back.
    static void SetAddressOpener(std::function<void(const QUrl&)> opener);

signals:
    // Once for every navigation that ends, those by a link in the page too. One that a newer Navigate overtakes ends
    // silently.
    void NavigateComplete(bool ok);
    void TitleChanged(const QString& title);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// To be called once in main() before the application object: switches for the engine (its own sandbox can't start for
// root, so it runs without it there and says so once on the error stream). Switches that a person has set in
// QTWEBENGINE_CHROMIUM_FLAGS stay.
void PrepareBrowserEngine();

}  // namespace vellum
