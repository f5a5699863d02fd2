#include "files/edit_journal.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <optional>
#include <string>
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
template <typename Unit>
class GapText {
public:
    explicit GapText(std::basic_string<Unit> text) : buffer_(std::move(text)) {}

    // False, and no change, for a place outside the text.
    bool Replace(qsizetype position, qsizetype removed, QStringView text) {
        const qsizetype length = Length() - gapLength_;
        if (position < 0 || removed < 0 || position > length || removed > length - position) return false;
        MoveGap(position);
        gapLength_ += removed;
        if (text.size() > gapLength_) Widen(text.size());
        std::copy_n(text.utf16(), text.size(), buffer_.begin() + gap_);
        gap_ += text.size();
        gapLength_ -= text.size();
        return true;
    }

    [[nodiscard]] std::basic_string<Unit> Text() && {
        buffer_.erase(buffer_.begin() + gap_, buffer_.begin() + gap_ + gapLength_);
        return std::move(buffer_);
    }

private:
    [[nodiscard]] qsizetype Length() const { return static_cast<qsizetype>(buffer_.size()); }
    void MoveGap(qsizetype position) {
        const auto begin = buffer_.begin();
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
        buffer_.insert(static_cast<std::size_t>(gap_), static_cast<std::size_t>(more), Unit());
        gapLength_ += more;
    }

    std::basic_string<Unit> buffer_;
    qsizetype gap_ = 0;
    qsizetype gapLength_ = 0;
};

template <typename Unit>
std::basic_string<Unit> Replayed(std::basic_string<Unit> text, QByteArrayView journal, QByteArray checksum,
                                 ReplayedText& replayed) {
    GapText<Unit> edited(std::move(text));
    while (!journal.isEmpty() && replayed.complete) {
        const std::optional<TextEdit> edit = TakeRecord(journal, checksum);
        replayed.complete = edit && edited.Replace(edit->position, edit->removed, edit->text);
        if (replayed.complete) replayed.lastEditAt = edit->madeAt;
    }
    return std::move(edited).Text();
}

// Line ends that are not the usual one are numbers beyond those of characters, so that they move along with the text.
constexpr char32_t kOtherLineEnds = 0x110000;

std::u32string WithLineEnds(const QString& text, const std::vector<OtherLineEnd>& others) {
    std::u32string spelled(text.utf16(), text.utf16() + text.size());
    auto other = others.begin();
    int line = 0;
    for (char32_t& unit : spelled) {
        if (unit != U'\n') continue;
        if (other != others.end() && other->line == line) unit = kOtherLineEnds + static_cast<char32_t>((other++)->end);
        ++line;
    }
    return spelled;
}

void TakeLineEnds(const std::u32string& spelled, ReplayedText& replayed) {
    replayed.text = QString(static_cast<qsizetype>(spelled.size()), Qt::Uninitialized);
    QChar* out = replayed.text.data();
    int line = 0;
    for (const char32_t unit : spelled) {
        const bool isOther = unit > kOtherLineEnds;
        if (isOther) replayed.otherLineEnds.push_back({line, static_cast<LineEnd>(unit - kOtherLineEnds)});
        if (isOther || unit == U'\n') ++line;
        *out++ = isOther ? QChar(u'\n') : QChar(static_cast<char16_t>(unit));
    }
}

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

ReplayedText ReplayEdits(const QString& text, const std::vector<OtherLineEnd>& others, QByteArrayView journal,
                         const QByteArray& seed) {
    ReplayedText replayed;
    if (others.empty()) {
        replayed.text = QString::fromStdU16String(Replayed(text.toStdU16String(), journal, seed, replayed));
    } else {
        TakeLineEnds(Replayed(WithLineEnds(text, others), journal, seed, replayed), replayed);
    }
    return replayed;
}

}  // namespace vellum
