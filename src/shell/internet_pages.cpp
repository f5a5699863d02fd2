#include "shell/internet_pages.h"

#include "editor/workbench.h"
#include "import/page_fetch.h"
#include "shell/open_documents.h"
#include "widgets/prompts.h"
#include "widgets/wait_pointer.h"

#include <QApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QKeyEvent>
#include <QtConcurrent>

#include <atomic>
#include <memory>

namespace vellum {
namespace {

// Takes the keyboard and the mouse away from the main window for as long as it stands.
class Pause : public QObject {
public:
    explicit Pause(QWidget& window) : window_(window) {
        window_.setEnabled(false);
        qApp->installEventFilter(this);
    }
    ~Pause() override { window_.setEnabled(true); }

    // Until `future` has come, or the author gives up. True when it has come.
    template <typename Result>
    bool WaitFor(const QFuture<Result>& future) {
        QFutureWatcher<Result> watcher;
        connect(&watcher, &QFutureWatcherBase::finished, &loop_, [this] { loop_.exit(came); });
        watcher.setFuture(future);
        return loop_.exec() == came;
    }

    // The window is off, so that its keys come by here alone.
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool closes = watched == &window_ && event->type() == QEvent::Close;
        if (closes) loop_.exit(givenUp);
        if (event->type() != QEvent::KeyPress || QApplication::activeModalWidget()) return false;
        if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
        event->accept();
        loop_.exit(givenUp);
        return true;
    }

private:
    static constexpr int came = 1;
    static constexpr int givenUp = 0;

    QWidget& window_;
    QEventLoop loop_;
};

}  // namespace

InternetPages::InternetPages(Workbench& workbench, OpenDocuments& documents)
    : workbench_(workbench), documents_(documents) {
    constexpr int mostAtATime = 8;
    fetches_.setMaxThreadCount(mostAtATime);
}

void InternetPages::Open() {
    const auto address =
        workbench_.Ask().Input(workbench_.Window(), "Enter URL (Must Be Connected to ISP)", "Open From Internet");
    if (!address || address->isEmpty()) return;
    DocumentWindow* const document = documents_.Open({});
    const std::optional<QString> page = Fetch(*address);
    if (!documents_.All().contains(document)) return;  // it was closed along with the main window
    document->Activate();
    document->Text1->setFocus();
    if (page) {
        const WaitPointer wait;
        document->Text1->SetText(*page);
        workbench_.Smartcolor();
    } else {
        workbench_.Ask().Message(workbench_.Window(), "Unable to Establish Connection");
    }
}

std::optional<QString> InternetPages::Fetch(const QString& address) {
    const auto stopped = std::make_shared<std::atomic<bool>>(false);
    const QFuture<std::optional<QString>> page =
        QtConcurrent::run(&fetches_, [url = PageUrl(address), stopped] { return FetchPage(url, *stopped); });
    workbench_.ShowStatus(StatusPanel::Work, "Getting code from online web page.");
    workbench_.SetHint("Esc stops it.");
    const bool came = Pause(*workbench_.Window()).WaitFor(page);
    workbench_.SetHint({});
    workbench_.ShowStatus(StatusPanel::Work, {});
    if (came) return page.result();
    *stopped = true;
    return std::nullopt;
}

}  // namespace vellum
