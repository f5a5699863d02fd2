// One page of the browser surface, kept from disturbing the program around it.
#pragma once

#include <QElapsedTimer>
#include <QUrl>
#include <QWebEnginePage>

namespace vellum {

// Emits a signal for a link that leaves the site instead of following it. Answers the dialogs of scripts at once, a
// confirm with yes and a prompt with its default, and emits their text. Refuses permissions, downloads, file choosers
// and new windows. Never shows a window.
class BrowserPage : public QWebEnginePage {
    Q_OBJECT
public:
    explicit BrowserPage(QObject* parent);

    // Lets the main frame go to `address`, and from there to other pages of its host.
    void Permit(const QUrl& address) { permitted_ = address; }

    // To be called when a person presses a button or a key in the page. A page can open an address outside only soon
    // after that.
    void NotePerson() { sincePerson_.start(); }

    [[nodiscard]] bool IsDead() const { return dead_; }

    // Ends the page's process, even one that hangs. The page is dead afterwards.
    void Kill();

signals:
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
    void GoOutside(const QUrl& url, bool byPerson);
    void CountNoise(int weight);

    QUrl permitted_;
    QElapsedTimer sincePerson_;
    QElapsedTimer noiseWindow_;
    int noise_ = 0;
    bool dead_ = false;
};

}  // namespace vellum
