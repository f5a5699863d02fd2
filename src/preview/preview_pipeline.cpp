#include "preview/preview_pipeline.h"

#include "browser/browser_surface.h"
#include "editor/document.h"
#include "editor/workbench.h"
#include "preview/caching_file.h"
#include "system/programs.h"

#include <QFileInfo>
#include <QTimer>

#include <utility>

namespace vellum {
namespace {

// The form of several resolutions joins here.
void ShowMultiPreview(Workbench& /*workbench*/) {}

// The visual editor's form joins here.
void ShowVisualEdit(Workbench& /*workbench*/, const QString& /*cachePath*/) {}

bool IsEmpty(const Document& document) {
    return document.Text1->Length() == 0;
}

}  // namespace

PreviewPipeline::PreviewPipeline(Workbench& workbench, PreviewHost& host)
    : QObject(&host.OwnDocument()), workbench_(workbench), host_(host) {
    connect(&watcher_, &QFutureWatcher<bool>::finished, this, &PreviewPipeline::Written);
    connect(host_.OwnDocument().Text1, &EditSurface::Changed, this, [this] {
        if (!host_.RefreshTimer().isActive()) host_.RefreshTimer().start();
    });
    connect(&host_.Browser(), &BrowserSurface::NavigateComplete, this, &PreviewPipeline::ReturnFocus);
}

void PreviewPipeline::Refresh() {
    if (!host_.AutoPreviewOn() || writing_) return;
    Document& document = host_.OwnDocument();
    const int scrollTop = ScrollOffset();
    if (IsEmpty(document)) return;
    Write({DocumentPath(), document.Text1->RawText(), document.Text1->Format(), scrollTop},
          {.revision = document.Text1->Revision()});
}

void PreviewPipeline::PreviewNow() {
    host_.RefreshTimer().stop();
    Document& document = host_.OwnDocument();
    const int scrollTop = ScrollOffset();
    if (IsEmpty(document)) return;
    if (!host_.Browser().IsAvailable()) return TellTrouble();
    if (writing_) {
        again_ = true;
        return;
    }
    CachingJob job{DocumentPath(), document.Text1->RawText(), document.Text1->Format(), {}};
    if (TakesScrollScript(QFileInfo(job.path).fileName())) job.scrollTop = scrollTop;
    Write(std::move(job), {.revision = document.Text1->Revision(), .byTab = true});
}

void PreviewPipeline::MultiPreview() {
    if (!IsEmpty(host_.OwnDocument())) ShowMultiPreview(workbench_);
}

void PreviewPipeline::VisualEdit(QString& cachePath) {
    if (RefuseFrameset(workbench_)) return;
    const EditSurface& text = *host_.OwnDocument().Text1;
    cachePath =
        PathBesideOpenDocuments(workbench_, JoinPath(workbench_.WebsiteDirectory(), QStringLiteral("caching.htm")));
    if (!WriteCachingFile({cachePath, text.RawText(), text.Format(), {}}))
        return workbench_.Ask().Message(workbench_.Window(),
                                        QStringLiteral("Cannot save file.  It may be locked or read-only."));
    ShowVisualEdit(workbench_, cachePath);
}

void PreviewPipeline::ForgetPending() {
    again_ = false;
    if (writing_) writing_->forgotten = true;
}

QString PreviewPipeline::DocumentPath() const {
    const QString path = CachingPath(host_.OwnDocument().Caption(), workbench_.WebsiteDirectory());
    return PathBesideOpenDocuments(workbench_, path);
}

int PreviewPipeline::ScrollOffset() const {
    const BrowserSurface& browser = host_.Browser();
    return browser.Title() == QLatin1String("Vellumcraft Manual") ? 0 : browser.ScrollTop();
}

void PreviewPipeline::Write(CachingJob job, Order order) {
    path_ = job.path;
    writing_ = order;
    watcher_.setFuture(WriteCachingFileLater(std::move(job)));
}

void PreviewPipeline::Written() {
    const bool ok = watcher_.result();
    const Order order = *writing_;
    writing_.reset();
    if (std::exchange(again_, false)) return PreviewNow();
    if (order.forgotten) return;
    if (!ok) {
        if (order.byTab) TellTrouble();
        return;
    }
    if (order.revision == host_.OwnDocument().Text1->Revision()) host_.RefreshTimer().stop();
    host_.Browser().Navigate(path_);
    ReturnFocus();
}

void PreviewPipeline::TellTrouble() {
    workbench_.Ask().Message(workbench_.Window(), QStringLiteral("Trouble with IE"));
}

void PreviewPipeline::ReturnFocus() {
    Document& document = host_.OwnDocument();
    if (document.isActiveWindow() && host_.Browser().HasKeyboard()) document.Text1->setFocus();
}

QString PathBesideOpenDocuments(Workbench& workbench, const QString& path) {
    QStringList documents;
    if (const Document* const active = workbench.ActiveDocument()) documents << active->Caption();
    if (const QWidget* const window = workbench.Window()) {
        for (const Document* const document : window->findChildren<Document*>()) documents << document->Caption();
    }
    return PathBesideDocuments(path, documents);
}

bool RefuseFrameset(Workbench& workbench) {
    const Document* const document = workbench.ActiveDocument();
    if (document == nullptr || !document->Text1->RawText().contains(QLatin1String("<FRAMESET"), Qt::CaseInsensitive))
        return false;
    workbench.Ask().Message(workbench.Window(), QStringLiteral("Cannot load Frameset documents"));
    return true;
}

}  // namespace vellum
