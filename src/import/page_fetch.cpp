#include "import/page_fetch.h"

#include "files/encoding_labels.h"
#include "files/encodings.h"
#include "files/text_file.h"

#include <QRegularExpression>

#include <curl/curl.h>
#include <memory>

namespace vellum {
namespace {

struct EndTransfer {
    void operator()(CURL* transfer) const { curl_easy_cleanup(transfer); }
};
using Transfer = std::unique_ptr<CURL, EndTransfer>;

struct Reply {
    QByteArray body;
    const std::atomic<bool>& stopped;
};

Transfer BeginTransfer() {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    return Transfer(ready == CURLE_OK ? curl_easy_init() : nullptr);
}

// Anything else than the number of bytes ends the transfer.
std::size_t TakeBytes(const char* bytes, std::size_t /*one*/, std::size_t count, void* target) {
    auto& reply = *static_cast<Reply*>(target);
    const auto size = static_cast<qsizetype>(count);
    if (reply.body.size() + size > mostPageBytes) return 0;
    reply.body.append(bytes, size);
    return count;
}

// Asked all the time, also while nothing comes. Anything else than 0 ends the transfer.
int TakeProgress(void* target, curl_off_t /*total*/, curl_off_t /*now*/, curl_off_t /*outTotal*/, curl_off_t /*out*/) {
    return static_cast<const Reply*>(target)->stopped ? 1 : 0;
}

void SetUp(CURL* transfer, const QByteArray& address, Reply& reply) {
    constexpr long mostRedirects = 20;
    constexpr auto protocols = "http,https";
    curl_easy_setopt(transfer, CURLOPT_URL, address.constData());
    curl_easy_setopt(transfer, CURLOPT_PROTOCOLS_STR, protocols);
    curl_easy_setopt(transfer, CURLOPT_REDIR_PROTOCOLS_STR, protocols);
    curl_easy_setopt(transfer, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(transfer, CURLOPT_MAXREDIRS, mostRedirects);
    curl_easy_setopt(transfer, CURLOPT_ACCEPT_ENCODING, "");  // all that the library unpacks
    curl_easy_setopt(transfer, CURLOPT_USERAGENT, "Vellumcraft");
    curl_easy_setopt(transfer, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(transfer, CURLOPT_TCP_KEEPALIVE, 1L);  // so that a connection that died is noticed
    curl_easy_setopt(transfer, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(mostPageBytes));
    curl_easy_setopt(transfer, CURLOPT_WRITEFUNCTION, TakeBytes);
    curl_easy_setopt(transfer, CURLOPT_WRITEDATA, &reply);
    curl_easy_setopt(transfer, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(transfer, CURLOPT_XFERINFOFUNCTION, TakeProgress);
    curl_easy_setopt(transfer, CURLOPT_XFERINFODATA, &reply);
}

QByteArray ContentType(CURL* transfer) {
    const char* type = nullptr;
    curl_easy_getinfo(transfer, CURLINFO_CONTENT_TYPE, &type);
    return {type};
}

bool TellsOfAnError(CURL* transfer) {
    constexpr long firstError = 400;
    long status = 0;
    curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &status);
    return status >= firstError;
}

QByteArray CharacterSet(const QByteArray& contentType) {
    static const QRegularExpression parameter(QStringLiteral(R"re(;\s*charset\s*=\s*(?:"([^"]*)"|([^\s;"]+)))re"),
                                              QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = parameter.match(QString::fromLatin1(contentType));
    return (match.captured(1) + match.captured(2)).toLatin1();
}

}  // namespace

QUrl PageUrl(const QString& address) {
    // A colon before digits is that of a port.
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:(?![0-9])"));
    QString whole = address.trimmed();
    if (whole.startsWith(QLatin1String("//"))) {
        whole.prepend(QLatin1String("http:"));
    } else if (!scheme.match(whole).hasMatch()) {
        whole.prepend(QLatin1String("http://"));
    }
    const QUrl url(whole);
    const bool isHttp = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    return url.isValid() && isHttp && !url.host().isEmpty() ? url : QUrl();
}

std::optional<QString> FetchPage(const QUrl& url, const std::atomic<bool>& stopped) {
    if (url.isEmpty()) return std::nullopt;
    const Transfer transfer = BeginTransfer();
    if (!transfer) return std::nullopt;
    Reply reply{.stopped = stopped};
    SetUp(transfer.get(), url.toEncoded(QUrl::RemoveFragment), reply);
    if (curl_easy_perform(transfer.get()) != CURLE_OK || stopped) return std::nullopt;
    if (reply.body.isEmpty() && TellsOfAnError(transfer.get())) return std::nullopt;
    return DecodePage(reply.body, ContentType(transfer.get()));
}

QString DecodePage(const QByteArray& bytes, const QByteArray& contentType) {
    LoadedText page = DecodeText(bytes);
    if (!page.format.byteOrderMark) {
        for (const QByteArray& encoding : EncodingsOfLabel(CharacterSet(contentType), false)) {
            std::optional<QString> text = DecodeBytes(bytes, encoding);
            if (!text) continue;
            page.text = std::move(*text);
            break;
        }
    }
    UnifyLineEnds(page.text, LineEnd::Lf);
    return page.ReadableText();
}

}  // namespace vellum
