#include "files/write_contents.h"

#include "files/file_descriptor.h"

#include <QCryptographicHash>
#include <QList>

#include <algorithm>

namespace vellum {
namespace {

// "vellumcraft 1", the two lengths, the checksum.
constexpr qsizetype kFieldsInHeader = 5;

QByteArray Checksum(QByteArrayView before, QByteArrayView after) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(before);
    hash.addData(after);
    return hash.result().toHex();
}

QByteArray HeaderOf(const WriteContents& contents) {
    return "vellumcraft 1 " + QByteArray::number(contents.before.size()) + ' ' +
           QByteArray::number(contents.after.size()) + ' ' + Checksum(contents.before, contents.after) + '\n';
}

// A range of a content, with zeros from its end on.
QByteArray Page(QByteArrayView content, qsizetype offset, qsizetype length) {
    QByteArray page(length, '\0');
    if (offset < content.size()) {
        const QByteArrayView part = content.sliced(offset, std::min(length, content.size() - offset));
        std::copy(part.begin(), part.end(), page.begin());
    }
    return page;
}

// The same range when the new content has been written and the end of the old one not yet been cut.
QByteArray OverlaidPage(const WriteContents& contents, qsizetype offset, qsizetype length) {
    QByteArray page = Page(contents.before, offset, length);
    if (offset < contents.after.size()) {
        const QByteArrayView part =
            QByteArrayView(contents.after).sliced(offset, std::min(length, contents.after.size() - offset));
        std::copy(part.begin(), part.end(), page.begin());
    }
    return page;
}

}  // namespace

bool WriteTo(int descriptor, const WriteContents& contents) {
    const QByteArray header = HeaderOf(contents);
    return WriteAll(descriptor, header) && WriteAll(descriptor, contents.before, header.size()) &&
           WriteAll(descriptor, contents.after, header.size() + contents.before.size());
}

std::optional<WriteContents> ContentsFrom(QByteArrayView bytes) {
    const qsizetype end = bytes.indexOf('\n');
    if (end < 0) return std::nullopt;
    const QList<QByteArray> fields = bytes.first(end).toByteArray().split(' ');
    if (fields.size() != kFieldsInHeader) return std::nullopt;
    const qsizetype before = fields[2].toLongLong();
    const QByteArrayView both = bytes.sliced(end + 1);
    if (before < 0 || before > both.size()) return std::nullopt;
    const WriteContents contents{both.first(before).toByteArray(), both.sliced(before).toByteArray()};
    const bool whole = bytes.first(end + 1) == HeaderOf(contents);
    return whole ? std::optional(contents) : std::nullopt;
}

bool IsHalfOf(const WriteContents& contents, QByteArrayView found) {
    constexpr qsizetype kPage = 4096;
    if (found == contents.before || found == contents.after) return false;
    const auto [shorter, longer] = std::minmax({contents.before.size(), contents.after.size()});
    const bool atAnEnd = found.size() == shorter || found.size() == longer || found.size() % kPage == 0;
    if (!atAnEnd || found.size() < shorter || found.size() > longer) return false;
    for (qsizetype offset = 0; offset < found.size(); offset += kPage) {
        const qsizetype length = std::min(kPage, found.size() - offset);
        const QByteArrayView page = found.sliced(offset, length);
        const bool known = page == Page(contents.before, offset, length) ||
                           page == OverlaidPage(contents, offset, length) || page == Page({}, offset, length);
        if (!known) return false;
    }
    return true;
}

}  // namespace vellum
