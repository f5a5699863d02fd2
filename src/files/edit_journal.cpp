#include "files/edit_journal.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <optional>
#include <utility>

namespace vellum {
namespace {

constexpr qsizetype kSizeBytes = sizeof(quint32);  // of what follows, without the checksum
constexpr qsizetype kChecksumBytes = 20;
constexpr auto kStreamVersion = QDataStream::Qt_6_4;

QByteArray ChecksumAfter(const QByteArray& before, QByteArrayView content) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(before);
    hash.addData(content);
    return hash.result();
}

// Empty when the journal doesn't begin with a whole record; else takes that off it.
std::optional<TextEdit> TakeRecord(QByteArrayView& journal, QByteArray& checksum) {
    if (journal.size() < kSizeBytes + kChecksumBytes) return std::nullopt;
    const qsizetype size = qFromBigEndian<quint32>(journal.data());
    if (size > journal.size() - kSizeBytes - kChecksumBytes) return std::nullopt;
    const QByteArrayView content = journal.sliced(kSizeBytes, size);
    checksum = ChecksumAfter(checksum, content);
    if (journal.sliced(kSizeBytes + size, kChecksumBytes) != checksum) return std::nullopt;
    journal = journal.sliced(kSizeBytes + size + kChecksumBytes);
    TextEdit edit;
    const QByteArray bytes = QByteArray::fromRawData(content.data(), content.size());
    QDataStream stream(bytes);
    stream.setVersion(kStreamVersion);
    stream >> edit.madeAt >> edit.position >> edit.removed >> edit.text;
    return stream.status() == QDataStream::Ok ? std::optional(edit) : std::nullopt;
}

// A text with a gap at the place of its last edit. The next one costs what lies between them, not what the text is
// long.
class GapText {
public:
    explicit GapText(QString text) : buffer_(std::move(text)) {}

    // False, and no change, for a place outside the text.
    bool Replace(qsizetype position, qsizetype removed, const QString& text) {
        const qsizetype length = buffer_.size() - gapLength_;
        if (position < 0 || removed < 0 || position > length || removed > length - position) return false;
        MoveGap(position);
        gapLength_ += removed;
        if (text.size() > gapLength_) Widen(text.size());
        std::copy(text.begin(), text.end(), buffer_.begin() + gap_);
        gap_ += text.size();
        gapLength_ -= text.size();
        return true;
    }

    [[nodiscard]] QString Text() const { return buffer_.first(gap_) + buffer_.sliced(gap_ + gapLength_); }

private:
    void MoveGap(qsizetype position) {
        QChar* const begin = buffer_.data();
        if (position < gap_) {
            std::move_backward(begin + position, begin + gap_, begin + gap_ + gapLength_);
        } else {
            std::move(begin + gap_ + gapLength_, begin + position + gapLength_, begin + gap_);
        }
        gap_ = position;
    }
    void Widen(qsizetype needed) {
        constexpr qsizetype spare = 65'536;
        const qsizetype more = needed - gapLength_ + spare;
        buffer_.insert(gap_, QString(more, u'\0'));
        gapLength_ += more;
    }

    QString buffer_;
    qsizetype gap_ = 0;
    qsizetype gapLength_ = 0;
};

}  // namespace

QByteArray EditJournal::Record(const TextEdit& edit) {
    QByteArray content;
    QDataStream stream(&content, QDataStream::WriteOnly);
    stream.setVersion(kStreamVersion);
    stream << edit.madeAt << edit.position << edit.removed << edit.text;
    QByteArray size(kSizeBytes, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), size.data());
    checksum_ = ChecksumAfter(checksum_, content);
    return size + content + checksum_;
}

ReplayedText ReplayEdits(const QString& text, QByteArrayView journal, const QByteArray& seed) {
    GapText edited(text);
    ReplayedText replayed;
    QByteArray checksum = seed;
    while (!journal.isEmpty() && replayed.complete) {
        const std::optional<TextEdit> edit = TakeRecord(journal, checksum);
        replayed.complete = edit && edited.Replace(edit->position, edit->removed, edit->text);
        if (replayed.complete) replayed.lastEditAt = edit->madeAt;
    }
    replayed.text = edited.Text();
    return replayed;
}

}  // namespace vellum
