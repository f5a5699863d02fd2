// The live preview: writes a document's text to its caching file and sends the document's browser there.
#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

class QAbstractButton;
class QTimer;

namespace vellum {

class BrowserSurface;
class Document;
class Workbench;

// One a document. It alone starts, stops and times the refresh timer, a child of the document named "Timer2", which
// runs from the start and again after a change of the text. Files are looked at and written on a worker thread alone.
// The document's Saver and file are never touched. When a page has been loaded into the active window, the keyboard
// returns from the page to the text.
class PreviewPipeline : public QObject {
    Q_OBJECT
public:
    // The timer refreshes only while `autoPreview` is checked. All parameters must outlive the pipeline.
    PreviewPipeline(Workbench& workbench, Document& document, BrowserSurface& browser,
                    const QAbstractButton& autoPreview);

    // Seconds between refreshes, which is RefreshRate until this is called. A rate that gives no interval is taken for
    // the one of a window that knows no settings yet.
    void SetRefreshRate(std::int16_t seconds);

    // Shows the text as it is now; each tick of the timer calls it. The timer stops when the file is written and the
    // text hasn't changed since. When the file can't be written, it runs on, and nothing is said.
    void Refresh();

    // The same for tab 1, whether `autoPreview` is checked or not. A failure is told: "Trouble with IE".
    void PreviewNow();

    // Shows the file that is being written to that path, until the text changes; nothing when the path is empty. What
    // else is being written now will not be shown.
    void ShowLater(const QFuture<QString>& page);

    // Stops the timer, and doesn't show what is being written now.
    void Stop();

    [[nodiscard]] bool IsWriting() const { return writing_.has_value(); }

private:
    struct Order {
        quint64 revision = 0;  // of the text that is written
        bool byTab = false;
        bool forgotten = false;
    };

    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] int ScrollOffset() const;
    void Write(bool byTab);
    void Written();
    void TellTrouble();
    void ReturnFocus();

    Workbench& workbench_;
    Document& document_;
    BrowserSurface& browser_;
    const QAbstractButton& autoPreview_;
    QTimer* const timer_;
    QFutureWatcher<QString> watcher_;  // its result is the path of the file
    std::optional<Order> writing_;
    int stops_ = 0;       // how often it was stopped
    bool again_ = false;  // tab 1 was asked for while a file was being written
};

// A document window that has a preview.
class PreviewHost {
public:
    [[nodiscard]] virtual PreviewPipeline& Pipeline() = 0;

protected:
    ~PreviewHost() = default;
};

}  // namespace vellum
