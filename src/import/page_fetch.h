// The source of a web page, over HTTP.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <atomic>
#include <optional>

namespace vellum {

// How long a page may be in bytes, unpacked.
inline constexpr qsizetype mostPageBytes = qsizetype{50} << 20;

// What an address means that a person typed: the scheme http may be left out. Empty when it is no address of HTTP.
[[nodiscard]] QUrl PageUrl(const QString& address);

// Fetches a page, also by way of redirects; the body of a reply that tells of an error is a page, too, unless it is
// empty. Blocks for as long as the server takes, up to about a second after `stopped` was set. Empty when no page came,
// or only a part of it, when a certificate is not in order, and when the page is too long.
[[nodiscard]] std::optional<QString> FetchPage(const QUrl& url, const std::atomic<bool>& stopped);

// The text of a page, with a "\n" at line ends. Its encoding is that of its byte order mark, else the one that
// `contentType`, a header of the reply, tells, and else the one that DecodeText finds.
[[nodiscard]] QString DecodePage(const QByteArray& bytes, const QByteArray& contentType);

}  // namespace vellum
