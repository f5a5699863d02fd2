#include "files/recovery_copy.h"

#include "files/edit_journal.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>

namespace vellum {
namespace {

constexpr int kVersion = 2;
constexpr int kVersionWithoutJournal = 1;
constexpr qint64 kLargestFile = (qint64{1} << 33);

QByteArrayView UnitsOf(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * static_cast<qsizetype>(sizeof(char16_t))};
}

QByteArray Checksum(QByteArrayView units) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(units);
    return hash.result().toHex();
}

LineEnd LineEndOf(int number) {
    const bool known = number >= static_cast<int>(LineEnd::CrLf) && number <= static_cast<int>(LineEnd::Cr);
    return known ? static_cast<LineEnd>(number) : LineEnd::CrLf;
}

// Line, kind, line, kind ...
QJsonArray OthersToJson(const std::vector<OtherLineEnd>& others) {
    QJsonArray array;
    for (const OtherLineEnd& other : others) {
        array.append(other.line);
        array.append(static_cast<int>(other.end));
    }
    return array;
}

std::vector<OtherLineEnd> OthersOf(const QJsonArray& array) {
    std::vector<OtherLineEnd> others;
    for (qsizetype index = 0; index + 1 < array.size(); index += 2) {
        others.push_back({array[index].toInt(), LineEndOf(array[index + 1].toInt())});
    }
    return others;
}

QByteArray HeaderOf(const RecoveredText& copy, int generation, const QByteArray& checksum) {
    const QJsonObject header = {{"version", kVersion},
                                {"caption", copy.caption},
                                {"writtenAt", copy.writtenAt},
                                {"fileTime", copy.fileTime},
                                {"encoding", QString::fromLatin1(copy.format.encoding)},
                                {"byteOrderMark", copy.format.byteOrderMark},
                                {"holdsBytes", copy.format.holdsBytes},
                                {"oddByte", QString::fromLatin1(copy.format.oddByte.toHex())},
                                {"passedOver", QString::fromLatin1(copy.format.passedOver)},
                                {"lineEnd", QString::number(static_cast<int>(copy.format.lineEnd))},
                                {"otherLineEnds", OthersToJson(copy.otherLineEnds)},
                                {"generation", generation},
                                {"checksum", QString::fromLatin1(checksum)}};
    return QJsonDocument(header).toJson(QJsonDocument::Compact) + '\n';
}

TextFormat FormatOf(const QJsonObject& header) {
    TextFormat format;
    format.encoding = header["encoding"].toString().toLatin1();
    format.byteOrderMark = header["byteOrderMark"].toBool();
    format.holdsBytes = header["holdsBytes"].toBool();
    format.badBytes = format.holdsBytes;
    format.oddByte = QByteArray::fromHex(header["oddByte"].toString().toLatin1());
    format.passedOver = header["passedOver"].toString().toLatin1();
    format.lineEnd = LineEndOf(header["lineEnd"].toString().toInt());
    return format;
}

QByteArray Name(int document, int generation, const char* suffix) {
    return '/' + QByteArray::number(document) + '.' + QByteArray::number(generation) + suffix;
}

std::optional<QByteArray> ReadWholeFile(const QByteArray& path) {
    const FileDescriptor descriptor = OpenFile(path, O_RDONLY | O_NOFOLLOW);
    return descriptor.IsOpen() ? ReadAll(descriptor.Get(), kLargestFile) : std::nullopt;
}

}  // namespace

QByteArray CopyPath(const QByteArray& folder, int document) {
    return folder + '/' + QByteArray::number(document) + ".copy";
}

QByteArray PartPath(const QByteArray& folder, int document, int generation) {
    return folder + Name(document, generation, ".part");
}

QByteArray JournalPath(const QByteArray& folder, int document, int generation) {
    return folder + Name(document, generation, ".edits");
}

std::optional<RecoveryFileName> ReadFileName(const QString& name) {
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(R"(([0-9]+)(?:(\.copy)|\.([0-9]+)\.(part|edits)))"));
    const QRegularExpressionMatch match = pattern.match(name);
    if (!match.hasMatch()) return std::nullopt;
    using Kind = RecoveryFileName::Kind;
    const Kind kind = match.hasCaptured(2) ? Kind::Copy : match.captured(4) == "part" ? Kind::Part : Kind::Journal;
    return RecoveryFileName{match.captured(1).toInt(), match.captured(3).toInt(), kind};
}

std::optional<WrittenCopy> WriteRecoveryCopy(const QByteArray& path, const RecoveredText& copy, int generation) {
    const QByteArrayView units = UnitsOf(copy.text);
    WrittenCopy written{{}, Checksum(units), units.size()};
    written.file = OpenFile(path, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0600);
    if (!written.file.IsOpen()) return std::nullopt;
    const QByteArray header = HeaderOf(copy, generation, written.checksum);
    if (WriteAll(written.file.Get(), header) && WriteAll(written.file.Get(), units, header.size())) return written;
    const int number = errno;
    RemoveFile(path);
    errno = number;
    return std::nullopt;
}

std::optional<ReadCopy> ReadRecoveryCopy(const QByteArray& path) {
    const std::optional<QByteArray> bytes = ReadWholeFile(path);
    const qsizetype end = bytes ? bytes->indexOf('\n') : -1;
    if (end < 0) return std::nullopt;
    const QJsonObject header = QJsonDocument::fromJson(bytes->first(end)).object();
    const QByteArrayView units = QByteArrayView(*bytes).sliced(end + 1);
    const int version = header["version"].toInt();
    ReadCopy copy{{}, Checksum(units), header["generation"].toInt()};
    const bool isWhole = (version == kVersion || version == kVersionWithoutJournal) && units.size() % 2 == 0 &&
                         header["checksum"].toString().toLatin1() == copy.checksum;
    if (!isWhole) return std::nullopt;

    copy.text.caption = header["caption"].toString();
    copy.text.writtenAt = header["writtenAt"].toInteger();
    copy.text.fileTime = header["fileTime"].toInteger();
    copy.text.format = FormatOf(header);
    copy.text.otherLineEnds = OthersOf(header["otherLineEnds"].toArray());
    copy.text.text = QString(units.size() / 2, Qt::Uninitialized);
    std::memcpy(copy.text.text.data(), units.data(), static_cast<size_t>(units.size()));
    return copy;
}

std::optional<RecoveredText> ReadKeptText(const QByteArray& folder, int document) {
    std::optional<ReadCopy> newest = ReadRecoveryCopy(CopyPath(folder, document));
    for (const QString& name : QDir(QFile::decodeName(folder)).entryList(QDir::Files | QDir::Hidden)) {
        const auto file = ReadFileName(name);
        if (!file || file->document != document || file->kind != RecoveryFileName::Kind::Part) continue;
        std::optional<ReadCopy> part = ReadRecoveryCopy(folder + '/' + QFile::encodeName(name));
        if (part && (!newest || part->generation > newest->generation)) newest = std::move(part);
    }
    if (!newest) return std::nullopt;
    RecoveredText text = std::move(newest->text);
    if (const auto journal = ReadWholeFile(JournalPath(folder, document, newest->generation))) {
        ReplayedText replayed = ReplayEdits(text.text, text.otherLineEnds, *journal, newest->checksum);
        text.text = std::move(replayed.text);
        text.otherLineEnds = std::move(replayed.otherLineEnds);
        text.incomplete = !replayed.complete;
        text.writtenAt = std::max(text.writtenAt, replayed.lastEditAt);
    }
    text.format.mixedLineEnds = CountLineEnds(text.text, text.format.lineEnd, text.otherLineEnds).Mixed();
    return text;
}

}  // namespace vellum
