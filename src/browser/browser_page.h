// One page of the browser surface: what it may do to the program around it, which is little.
#pragma once

#include <QElapsedTimer>
#include <QUrl>
#include <QWebEnginePage>

namespace vellum {

// Links that leave the site are told by a signal and not followed. Dialogs of scripts are answered at once: the text
// goes into a signal, confirm says yes and prompt its default. Permissions, downloads, file choosers and new windows
// are refused. Never shows a window.
class BrowserPage : public QWebEnginePage {
    Q_OBJECT
public:
    explicit BrowserPage(QObject* parent);

    // Allows the main frame to go to `address`, and on within its host.
    void Permit(const QUrl& address) { permitted_ = address; }

    // A person pressed a button or a key in the page. Only what follows soon after may open an address outside.
    void NotePerson() { sincePerson_.start(); }

    [[nodiscard]] bool IsDead() const { return dead_; }

    // Ends the page's process at once, whatever it is doing. The page is dead afterwards.
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
