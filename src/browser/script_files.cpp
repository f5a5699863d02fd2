#include "browser/script_files.h"

#include "browser/page_files.h"

#include <QBuffer>
#include <QFutureWatcher>
#include <QThreadPool>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <QWebEngineUrlSchemeHandler>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

const QByteArray scheme = QByteArrayLiteral("page-script");
const QString host = QStringLiteral("disk");

bool IsScriptName(const QByteArray& path) {
    constexpr std::array endings{".js", ".mjs", ".cjs", ".es", ".jsonp"};
    const QByteArray name = path.toLower();
    return std::any_of(endings.begin(), endings.end(), [&](const char* ending) { return name.endsWith(ending); });
}

// Never destroyed, because a folder that doesn't answer must not hold up the end of the program.
QThreadPool& Pool() {
    static auto* const pool = new QThreadPool;
    return *pool;
}

void Serve(QWebEngineUrlRequestJob* job) {
    QUrl file = job->requestUrl();
    file.setScheme(QStringLiteral("file"));
    if (file.host() == host) file.setHost({});
    const QByteArray path = LocalPath(file);
    if (!IsScriptName(path)) return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    auto* const watcher = new QFutureWatcher<std::optional<QByteArray>>(job);
    QObject::connect(watcher, &QFutureWatcherBase::finished, job, [job, watcher] {
        const std::optional<QByteArray> bytes = watcher->result();
        if (!bytes) return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        auto* const device = new QBuffer(job);
        device->setData(*bytes);
        device->open(QIODevice::ReadOnly);
        job->reply("text/javascript", device);
    });
    watcher->setFuture(QtConcurrent::run(&Pool(), ReadForPages, path));
}

class ScriptFiles : public QWebEngineUrlSchemeHandler {
public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;
    void requestStarted(QWebEngineUrlRequestJob* job) override { Serve(job); }
};

}  // namespace

void RegisterScriptScheme() {
    if (QWebEngineUrlScheme::schemeByName(scheme).name() == scheme) return;
    QWebEngineUrlScheme served(scheme);
    served.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    served.setFlags(QWebEngineUrlScheme::LocalScheme);
    QWebEngineUrlScheme::registerScheme(served);
}

QUrl ScriptAddress(const QUrl& file) {
    QUrl address = file;
    address.setScheme(QString::fromLatin1(scheme));
    address.setHost(host);
    return address;
}

bool IsScriptAddress(const QUrl& address) {
    return address.scheme() == QLatin1String(scheme);
}

void InstallScriptFiles(QWebEngineProfile& profile) {
    profile.installUrlSchemeHandler(scheme, new ScriptFiles(&profile));
}

}  // namespace vellum
