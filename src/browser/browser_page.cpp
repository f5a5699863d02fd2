#include "browser/browser_page.h"

#include "browser/browser_profiles.h"
#include "browser/net_door.h"
#include "browser/page_files.h"
#include "browser/page_reports.h"
#include "files/file_descriptor.h"

#include <QColor>
#include <QCoreApplication>
#include <QWebEngineCertificateError>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEngineNewWindowRequest>

#include <csignal>

namespace vellum {
namespace {

using namespace std::chrono_literals;

// A page with more messages than this in one second is ended, because all of them pass through this thread.
constexpr int noiseLimit = 2000;
constexpr int dialogNoise = 10;
constexpr auto personWindow = 2000ms;

bool IsWeb(const QUrl& url) {
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

}  // namespace

BrowserPage::BrowserPage(PageKind kind, QObject* parent)
    : QWebEnginePage(kind == PageKind::Web ? WebProfile() : LocalProfile(), parent), kind_(kind) {
    if (kind == PageKind::Web) pass_ = std::make_unique<DoorPass>();
    setBackgroundColor(QColor(Qt::white));
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] {
        dead_ = true;
        emit Died();
    });
    connect(this, &QWebEnginePage::newWindowRequested, this, [this](QWebEngineNewWindowRequest& request) {
        if (request.isUserInitiated()) OpenNewWindow(request.requestedUrl());
    });
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::fileSystemAccessRequested, this,
            [](QWebEngineFileSystemAccessRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::titleChanged, this, [this] { CountNoise(1); });
}

BrowserPage::~BrowserPage() = default;

void BrowserPage::Permit(const QUrl& address) {
    permitted_ = address;
    folder_.reset();
    if (kind_ == PageKind::Local) folder_ = std::make_unique<ShownFolder>(FolderOf(LocalPath(address)));
}

void BrowserPage::NotePerson() {
    sincePerson_.start();
    clicked_.clear();
}

void BrowserPage::Kill() {
    dead_ = true;
    const qint64 process = renderProcessPid();
    if (process > 0 && process != QCoreApplication::applicationPid()) ::kill(static_cast<pid_t>(process), SIGKILL);
}

bool BrowserPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (isMainFrame && url == permitted_) return true;
    if (IsPartOfPage(url)) return true;
    if (kind_ == PageKind::Local && url.isLocalFile()) return IsForPagesNow(LocalPath(url));
    if (kind_ == PageKind::Web && IsWeb(url)) {
        if (!isMainFrame || url.host() == permitted_.host() || type == NavigationTypeRedirect) return true;
    }
    GoOutside(url);
    return false;
}

QStringList BrowserPage::chooseFiles(FileSelectionMode /*mode*/, const QStringList& /*oldFiles*/,
                                     const QStringList& /*mimeTypes*/) {
    return {};
}

void BrowserPage::javaScriptAlert(const QUrl& /*origin*/, const QString& text) {
    CountNoise(dialogNoise);
    emit ScriptSpoke(text);
}

bool BrowserPage::javaScriptConfirm(const QUrl& /*origin*/, const QString& text) {
    CountNoise(dialogNoise);
    emit ScriptSpoke(text);
    return true;
}

bool BrowserPage::javaScriptPrompt(const QUrl& /*origin*/, const QString& text, const QString& initial,
                                   QString* result) {
    CountNoise(dialogNoise);
    emit ScriptSpoke(text);
    *result = initial;
    return true;
}

void BrowserPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/, const QString& message,
                                           int /*line*/, const QString& /*source*/) {
    const std::optional<PageReport> report = ReadReport(message);
    if (!report) {
        CountNoise(1);
    } else if (report->clicked.isEmpty()) {
        emit Arrived();
    } else {
        clicked_ = report->clicked;
    }
}

// True once for the link that a person has just clicked: one press opens one address. The type of a navigation doesn't
// tell, because a script that runs after a click seems to follow links.
bool BrowserPage::TakeClick(const QUrl& url) {
    const bool lately =
        sincePerson_.isValid() && !sincePerson_.hasExpired(std::chrono::milliseconds(personWindow).count());
    if (!lately || url.isEmpty() || url != clicked_) return false;
    clicked_.clear();
    return true;
}

void BrowserPage::GoOutside(const QUrl& url) {
    if (IsWeb(url) && TakeClick(url)) emit OutsideLink(url);
}

// A local page that asks for a window of its own takes the place of this one.
void BrowserPage::OpenNewWindow(const QUrl& url) {
    if (kind_ == PageKind::Local && url.isLocalFile()) {
        if (TakeClick(url)) load(url);
    } else {
        GoOutside(url);
    }
}

void BrowserPage::CountNoise(int weight) {
    if (!noiseWindow_.isValid() || noiseWindow_.hasExpired(1000)) {
        noiseWindow_.start();
        noise_ = 0;
    }
    noise_ += weight;
    if (noise_ > noiseLimit && !dead_) Kill();
}

}  // namespace vellum
