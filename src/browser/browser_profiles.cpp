#include "browser/browser_profiles.h"

#include "browser/browser_engine.h"
#include "browser/net_door.h"
#include "browser/page_files.h"
#include "browser/page_reports.h"
#include "browser/script_files.h"

#include <QCoreApplication>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include <utility>

namespace vellum {
namespace {

// The engine keeps the scripts of one local page from what it loads of another file. What may be loaded at all is
// decided here.
class LocalRequests : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        const QUrl address = info.requestUrl();
        const bool isScript = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeScript;
        if (IsPartOfPage(address)) return;
        if (isScript && IsScriptAddress(address)) return;
        if (isScript && address.isLocalFile()) {
            info.redirect(ScriptAddress(address));
        } else if (!IsShown(info.resourceType()) || !IsForPagesNow(LocalPath(address))) {
            info.block(true);
        }
    }

private:
    static bool IsShown(QWebEngineUrlRequestInfo::ResourceType type) {
        switch (type) {
            case QWebEngineUrlRequestInfo::ResourceTypeMainFrame:
            case QWebEngineUrlRequestInfo::ResourceTypeSubFrame:
            case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
            case QWebEngineUrlRequestInfo::ResourceTypeImage:
            case QWebEngineUrlRequestInfo::ResourceTypeFontResource:
            case QWebEngineUrlRequestInfo::ResourceTypeObject:
            case QWebEngineUrlRequestInfo::ResourceTypeMedia:
            case QWebEngineUrlRequestInfo::ResourceTypeFavicon:
                return true;
            default:
                return false;
        }
    }
};

class WebRequests : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& info) override {
        const QUrl address = info.requestUrl();
        if (address.isLocalFile()) {
            info.block(true);
        } else if (!IsPartOfPage(address)) {
            LetThroughDoor(address);
        }
    }
};

QWebEngineProfile* localProfile = nullptr;
QWebEngineProfile* webProfile = nullptr;

// They must outlive the pages, and go before the engine does.
void DeleteProfiles() {
    delete std::exchange(localProfile, nullptr);
    delete std::exchange(webProfile, nullptr);
}

QWebEngineProfile* MakeProfile() {
    QWebEngineProfile* profile = nullptr;
    if (localProfile == nullptr && webProfile == nullptr) {
        qAddPostRoutine(DeleteProfiles);
        StartBrowserEngine([&] { profile = new QWebEngineProfile(); });
    } else {
        profile = new QWebEngineProfile();
    }
    profile->setHttpCacheType(QWebEngineProfile::NoCache);
    profile->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    profile->setSpellCheckEnabled(false);
    profile->scripts()->insert(ReportingScript());
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

}  // namespace

bool IsPartOfPage(const QUrl& address) {
    static const QStringList schemes{QStringLiteral("about"), QStringLiteral("blob"), QStringLiteral("data"),
                                     QStringLiteral("javascript")};
    return schemes.contains(address.scheme());
}

QWebEngineProfile* LocalProfile() {
    if (localProfile == nullptr) {
        localProfile = MakeProfile();
        localProfile->setUrlRequestInterceptor(new LocalRequests(localProfile));
        InstallScriptFiles(*localProfile);
    }
    return localProfile;
}

QWebEngineProfile* WebProfile() {
    if (webProfile == nullptr) {
        webProfile = MakeProfile();
        webProfile->setUrlRequestInterceptor(new WebRequests(webProfile));
    }
    return webProfile;
}

}  // namespace vellum
