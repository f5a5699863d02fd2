// The live preview: writes a document's text to its caching file and sends the document's browser there.
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QString>

#include <optional>

class QAbstractButton;
class QTimer;

namespace vellum {

class BrowserSurface;
class Document;
class Workbench;

// One a document. Nobody else starts, stops or times the refresh timer, a child of the document named "Timer2": it runs
// from the start, and each change of the text starts it unless it runs. All that a refresh has to do with files happens
// on a worker thread, and the document's Saver and file are never touched. When a page has come, the keyboard returns
// from the page to the text, if that window is the active one.
class PreviewPipeline : public QObject {
    Q_OBJECT
public:
    // Refreshes by the timer only while `autoPreview` is checked. All parameters must outlive the pipeline.
    PreviewPipeline(Workbench& workbench, Document& document, BrowserSurface& browser,
                    const QAbstractButton& autoPreview);

    // The refresh timer's period; the RefreshRate of the settings unless it is set.
    void SetInterval(int milliseconds);

    // A tick of the refresh timer. The timer stops when the file stands and the text is still the same; a file that
    // can't be written leaves it running, without a word.
    void Refresh();

    // Tab 1: the same at once, whatever the AutoPreview box says. A failure tells "Trouble with IE".
    void PreviewNow();

    // Shows another file than the document's, until the text changes. What is being written will not be shown.
    void ShowFile(const QString& path);

    // For a window that has closed: nothing is refreshed or shown any more.
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
    QFutureWatcher<QString> watcher_;  // of the path that the file gets
    std::optional<Order> writing_;
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
