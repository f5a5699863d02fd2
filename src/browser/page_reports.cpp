#include "browser/page_reports.h"

#include <QRandomGenerator>

namespace vellum {
namespace {

// Known to the script and to the program alone, so that no page can forge a report.
const QString& Key() {
    static const QString key = QStringLiteral("report-%1-%2 ")
                                   .arg(QRandomGenerator::system()->generate64())
                                   .arg(QRandomGenerator::system()->generate64());
    return key;
}

// A document that is written anew loses the listeners of its window, but not the observers of its nodes.
constexpr auto source = R"js((() => {
    const report = word => console.info('%1' + word);
    const addressOf = link => {
        if (typeof link.href === 'string') return link.href;
        return link.href ? new URL(link.href.baseVal, link.baseURI).href : '';
    };
    const tell = event => {
        if (!event.isTrusted) return;
        const link = event.composedPath().find(node => node.localName === 'a' || node.localName === 'area');
        if (link) report(addressOf(link) || 'about:blank');
    };
    const listen = () => ['click', 'auxclick'].forEach(name => window.addEventListener(name, tell, true));
    listen();
    new MutationObserver(listen).observe(document, {childList: true});
    if (window === window.top) report('');
})();)js";

}  // namespace

QWebEngineScript ReportingScript() {
    QWebEngineScript script;
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(true);
    script.setSourceCode(QString::fromLatin1(source).arg(Key()));
    return script;
}

std::optional<PageReport> ReadReport(const QString& message) {
    if (!message.startsWith(Key())) return std::nullopt;
    return PageReport{.clicked = QUrl::fromEncoded(message.mid(Key().size()).toUtf8())};
}

}  // namespace vellum
