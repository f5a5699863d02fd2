#include "preview/preview_pipeline.h"

#include "browser/browser_surface.h"
#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_file.h"
#include "preview/caching_writer.h"
#include "values/number_rules.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QTimer>

#include <utility>

namespace vellum {
namespace {

// Milliseconds.
constexpr int designInterval = 7000;
constexpr std::int16_t second = 1000;

}  // namespace

PreviewPipeline::PreviewPipeline(Workbench& workbench, Document& document, BrowserSurface& browser,
                                 const QAbstractButton& autoPreview)
    : workbench_(workbench),
      document_(document),
      browser_(browser),
      autoPreview_(autoPreview),
      timer_(new QTimer(&document)) {
    timer_->setObjectName("Timer2");
    SetRefreshRate(workbench_.Options()->RefreshRate);
    connect(timer_, &QTimer::timeout, this, &PreviewPipeline::Refresh);
    connect(&watcher_, &QFutureWatcherBase::finished, this, &PreviewPipeline::Written);
    connect(document_.Text1, &EditSurface::Changed, this, [this] {
        if (!timer_->isActive()) timer_->start();
    });
    connect(&browser_, &BrowserSurface::NavigateComplete, this, &PreviewPipeline::ReturnFocus);
    timer_->start();
}

void PreviewPipeline::SetRefreshRate(std::int16_t seconds) {
    const auto interval = MultiplyInt16(seconds, second);
    timer_->setInterval(interval && *interval > 0 ? *interval : designInterval);
}

void PreviewPipeline::Refresh() {
    if (autoPreview_.isChecked() && !writing_ && !IsEmpty()) Write(false);
}

void PreviewPipeline::PreviewNow() {
    timer_->stop();
    if (IsEmpty()) return;
    if (!browser_.IsAvailable()) return TellTrouble();
    if (writing_) {
        again_ = true;
    } else {
        Write(true);
    }
}

void PreviewPipeline::ShowLater(const QFuture<QString>& page) {
    Stop();
    auto* const watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, stops = stops_] {
        watcher->deleteLater();
        const QString path = watcher->result();
        if (path.isEmpty() || stops != stops_) return;
        browser_.show();
        browser_.Navigate(path);
    });
    watcher->setFuture(page);
}

void PreviewPipeline::Stop() {
    timer_->stop();
    ++stops_;
    again_ = false;
    if (writing_) writing_->forgotten = true;
}

bool PreviewPipeline::IsEmpty() const {
    return document_.Text1->Length() == 0;
}

int PreviewPipeline::ScrollOffset() const {
    return browser_.Title() == QLatin1String("Vellumcraft Manual") ? 0 : browser_.ScrollTop();
}

void PreviewPipeline::Write(bool byTab) {
    CachingJob job = DocumentJob(workbench_, document_);
    if (!byTab || TakesScrollScript(QFileInfo(job.path).fileName())) job.scrollTop = ScrollOffset();
    writing_ = Order{.revision = document_.Text1->Revision(), .byTab = byTab};
    watcher_.setFuture(WriteCachingFileLater(std::move(job)));
}

void PreviewPipeline::Written() {
    const QString path = watcher_.result();
    const Order order = *writing_;
    writing_.reset();
    if (std::exchange(again_, false)) return PreviewNow();
    if (order.forgotten) return;
    if (path.isEmpty()) {
        if (order.byTab) TellTrouble();
        return;
    }
    if (order.revision == document_.Text1->Revision()) timer_->stop();
    browser_.Navigate(path);
    ReturnFocus();
}

void PreviewPipeline::TellTrouble() {
    workbench_.Ask().Message(workbench_.Window(), QStringLiteral("Trouble with IE"));
}

void PreviewPipeline::ReturnFocus() {
    if (document_.isActiveWindow() && browser_.HasKeyboard()) document_.Text1->setFocus();
}

}  // namespace vellum
