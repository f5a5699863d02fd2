#include "files/recovery_copy.h"

#include "files/file_descriptor.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>

namespace vellum {
namespace {

constexpr int kVersion = 1;
constexpr qint64 kLargestCopy = (qint64{1} << 33);

QByteArrayView UnitsOf(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * static_cast<qsizetype>(sizeof(char16_t))};
}

QString Checksum(QByteArrayView units) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(units);
    return QString::fromLatin1(hash.result().toHex());
}

LineEnd LineEndOf(const QString& digit) {
    const int number = digit.toInt();
    const bool known = number >= static_cast<int>(LineEnd::CrLf) && number <= static_cast<int>(LineEnd::Cr);
    return known ? static_cast<LineEnd>(number) : LineEnd::CrLf;
}

QByteArray HeaderOf(const RecoveredText& copy) {
    const QJsonObject header = {{"version", kVersion},
                                {"caption", copy.caption},
                                {"writtenAt", copy.writtenAt},
                                {"encoding", QString::fromLatin1(copy.format.encoding)},
                                {"byteOrderMark", copy.format.byteOrderMark},
                                {"lineEnd", QString::number(static_cast<int>(copy.format.lineEnd))},
                                {"checksum", Checksum(UnitsOf(copy.text))}};
    return QJsonDocument(header).toJson(QJsonDocument::Compact) + '\n';
}

TextFormat FormatOf(const QJsonObject& header) {
    TextFormat format;
    format.encoding = header["encoding"].toString().toLatin1();
    format.byteOrderMark = header["byteOrderMark"].toBool();
    format.lineEnd = LineEndOf(header["lineEnd"].toString());
    return format;
}

}  // namespace

bool WriteRecoveryCopy(const QByteArray& path, const RecoveredText& copy) {
    const QByteArray unfinished = path + ".part";
    const QByteArray header = HeaderOf(copy);
    FileDescriptor descriptor = OpenFile(unfinished, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
    if (!descriptor.IsOpen()) return false;
    const bool written = WriteAll(descriptor.Get(), header) &&
                         WriteAll(descriptor.Get(), UnitsOf(copy.text), header.size()) && SyncFile(descriptor.Get()) &&
                         descriptor.Close() && std::rename(unfinished.constData(), path.constData()) == 0;
    if (!written) {
        const int number = errno;
        RemoveFile(unfinished);
        errno = number;
    }
    return written;
}

std::optional<RecoveredText> ReadRecoveryCopy(const QByteArray& path) {
    const FileDescriptor descriptor = OpenFile(path, O_RDONLY | O_NOFOLLOW);
    if (!descriptor.IsOpen()) return std::nullopt;
    const std::optional<QByteArray> bytes = ReadAll(descriptor.Get(), kLargestCopy);
    const qsizetype end = bytes ? bytes->indexOf('\n') : -1;
    if (end < 0) return std::nullopt;
    const QJsonObject header = QJsonDocument::fromJson(bytes->first(end)).object();
    const QByteArrayView units = QByteArrayView(*bytes).sliced(end + 1);
    const bool isWhole = header["version"].toInt() == kVersion && units.size() % 2 == 0 &&
                         header["checksum"].toString() == Checksum(units);
    if (!isWhole) return std::nullopt;

    RecoveredText copy;
    copy.caption = header["caption"].toString();
    copy.writtenAt = header["writtenAt"].toInteger();
    copy.format = FormatOf(header);
    copy.text = QString(units.size() / 2, Qt::Uninitialized);
    std::memcpy(copy.text.data(), units.data(), static_cast<size_t>(units.size()));
    return copy;
}

}  // namespace vellum
