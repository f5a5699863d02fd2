// One page of the browser surface, kept from disturbing the program around it.
#pragma once

#include <QElapsedTimer>
#include <QUrl>
#include <QWebEnginePage>

#include <memory>

namespace vellum {

class DoorPass;
class ShownFolder;

enum class PageKind {
    Local,  // of this machine, kept from the network and from reading files
    Web,    // of the net, kept from this machine
};

// Emits a signal for a link that leaves the site, when a person clicks it, instead of following it. Answers the dialogs
// of scripts at once, a confirm with yes and a prompt with its default, and emits their text. Refuses permissions,
// downloads, file choosers and new windows. Never shows a window.
class BrowserPage : public QWebEnginePage {
    Q_OBJECT
public:
    BrowserPage(PageKind kind, QObject* parent);
    ~BrowserPage() override;

    [[nodiscard]] PageKind Kind() const { return kind_; }

    // Lets the main frame go to `address`, which is of the page's kind, and from there to other pages of its host or of
    // this machine.
    void Permit(const QUrl& address);

    // To be called when a person presses a button or a key in the page. An address outside is opened only soon after
    // that, and only that of the link which was clicked so.
    void NotePerson();

    [[nodiscard]] bool IsDead() const { return dead_; }

    // Ends the page's process, even one that hangs. The page is dead afterwards.
    void Kill();

signals:
    void Arrived();  // a document has come into the main frame; it may not be whole yet
    void OutsideLink(const QUrl& address);
    void ScriptSpoke(const QString& text);
    void Died();

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles, const QStringList& mimeTypes) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& initial, QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    bool TakeClick(const QUrl& url);
    void GoOutside(const QUrl& url);
    void OpenNewWindow(const QUrl& url);
    void CountNoise(int weight);

    const PageKind kind_;
    std::unique_ptr<DoorPass> pass_;
    std::unique_ptr<ShownFolder> folder_;
    QUrl permitted_;
    QUrl clicked_;  // the link that the person has clicked since the last press
    QElapsedTimer sincePerson_;
    QElapsedTimer noiseWindow_;
    int noise_ = 0;
    bool dead_ = false;
};

}  // namespace vellum
