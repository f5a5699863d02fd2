#include "browser/browser_page.h"

#include <QColor>
#include <QCoreApplication>
#include <QWebEngineCertificateError>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include <csignal>

namespace vellum {
namespace {

using namespace std::chrono_literals;

// A page with more messages than this in one second is ended, because all of them pass through this thread.
constexpr int noiseLimit = 2000;
constexpr int dialogNoise = 10;
constexpr auto personWindow = 2000ms;

// Without access to local files the engine would not even load a page's own pictures and style sheets. So it has
// access, and requests by which scripts could read files are refused here, as other browsers do.
class ScriptRequests : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        if (!info.firstPartyUrl().isLocalFile() && !info.requestUrl().isLocalFile()) return;
        const auto type = info.resourceType();
        if (type == QWebEngineUrlRequestInfo::ResourceTypeXhr ||
            type == QWebEngineUrlRequestInfo::ResourceTypeWebSocket)
            info.block(true);
    }
};

// One profile for all pages. It must outlive them, and go before the engine does.
QWebEngineProfile* SharedProfile() {
    static QWebEngineProfile* profile = nullptr;
    if (profile != nullptr) return profile;
    profile = new QWebEngineProfile();
    qAddPostRoutine([] {
        delete profile;
        profile = nullptr;
    });
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile->setSpellCheckEnabled(false);
    profile->setUrlRequestInterceptor(new ScriptRequests(profile));
    QWebEngineSettings* settings = profile->settings();
    settings->setDefaultTextEncoding(QStringLiteral("utf-8"));
    for (const auto attribute :
         {QWebEngineSettings::FocusOnNavigationEnabled, QWebEngineSettings::LocalContentCanAccessRemoteUrls,
          QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::JavascriptCanAccessClipboard,
          QWebEngineSettings::ErrorPageEnabled, QWebEngineSettings::PluginsEnabled,
          QWebEngineSettings::FullScreenSupportEnabled, QWebEngineSettings::ScreenCaptureEnabled})
        settings->setAttribute(attribute, false);
    QObject::connect(profile, &QWebEngineProfile::downloadRequested, profile,
                     [](QWebEngineDownloadRequest* request) { request->cancel(); });
    return profile;
}

bool IsOutside(const QUrl& url) {
    const QString scheme = url.scheme();
    return scheme == QLatin1String("http") || scheme == QLatin1String("https") || scheme == QLatin1String("mailto") ||
           scheme == QLatin1String("ftp");
}

bool IsWeb(const QUrl& url) {
    return url.scheme().startsWith(QLatin1String("http"));
}

}  // namespace

BrowserPage::BrowserPage(QObject* parent) : QWebEnginePage(SharedProfile(), parent) {
    setBackgroundColor(QColor(Qt::white));
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] {
        dead_ = true;
        emit Died();
    });
    connect(this, &QWebEnginePage::newWindowRequested, this, [this](QWebEngineNewWindowRequest& request) {
        GoOutside(request.requestedUrl(), request.isUserInitiated());
    });
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl& origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::titleChanged, this, [this] { CountNoise(1); });
}

void BrowserPage::Kill() {
    dead_ = true;
    const qint64 process = renderProcessPid();
    if (process > 0 && process != QCoreApplication::applicationPid()) ::kill(static_cast<pid_t>(process), SIGKILL);
}

bool BrowserPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    const QString scheme = url.scheme();
    const bool inside = scheme == QLatin1String("file") || scheme == QLatin1String("about") ||
                        scheme == QLatin1String("data") || scheme == QLatin1String("blob") ||
                        scheme == QLatin1String("javascript");
    if (!isMainFrame) return inside || IsWeb(url);
    if (url == permitted_) return true;
    if (inside) return true;
    if (IsWeb(url) && IsWeb(permitted_) && (url.host() == permitted_.host() || type == NavigationTypeRedirect))
        return true;
    GoOutside(url, type != NavigationTypeReload);
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

void BrowserPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/, const QString& /*message*/,
                                           int /*line*/, const QString& /*source*/) {
    CountNoise(1);
}

void BrowserPage::GoOutside(const QUrl& url, bool byPerson) {
    const bool lately =
        sincePerson_.isValid() && !sincePerson_.hasExpired(std::chrono::milliseconds(personWindow).count());
    if (!byPerson || !lately) return;
    if (!IsOutside(url) && url.scheme() != QLatin1String("file")) return;
    sincePerson_.invalidate();  // one press opens one address
    emit OutsideLink(url);
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
