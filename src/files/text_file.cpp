#include "files/text_file.h"

#include "files/declared_encoding.h"
#include "files/encoding_labels.h"
#include "files/encodings.h"
#include "files/file_descriptor.h"
#include "files/file_errors.h"
#include "files/file_names.h"
#include "files/in_place_write.h"
#include "files/utf8.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>

namespace vellum {
namespace {

// A text surface counts positions in 31 bits and a line end as two of them.
constexpr qint64 kLargestFile = (qint64{1} << 30) - 1;

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);
constexpr QByteArrayView kUtf16LeMark("\xFF\xFE", 2);
constexpr QByteArrayView kUtf16BeMark("\xFE\xFF", 2);

// The encodings that a file says it has; the first one that fits is meant. Empty when it says none.
std::vector<QByteArray> DeclaredEncodings(QByteArrayView bytes) {
    for (const EncodingDeclaration& declaration : DeclarationsInHead(bytes)) {
        std::vector<QByteArray> encodings = EncodingsOfLabel(declaration.label.toLatin1(), declaration.byXml);
        if (!encodings.empty()) return encodings;
    }
    return {};
}

bool Decode(QByteArrayView bytes, const QByteArray& encoding, LoadedText& loaded) {
    std::optional<QString> text = DecodeBytes(bytes, encoding);
    if (!text) return false;
    loaded.text = std::move(*text);
    loaded.format.encoding = encoding;
    return true;
}

void TakeFlawedUtf8(FlawedUtf8 decoded, LoadedText& loaded) {
    loaded.text = std::move(decoded.text);
    loaded.format.encoding = utf8Name;
    loaded.format.badBytes = decoded.badBytes > 0;
    loaded.format.holdsBytes = loaded.format.badBytes;
}

void TakeUtf16(QByteArrayView bytes, const QByteArray& encoding, LoadedText& loaded) {
    const qsizetype even = bytes.size() / 2 * 2;
    loaded.text = DecodeBytes(bytes.first(even), encoding).value_or(QString());
    loaded.format.encoding = encoding;
    loaded.format.oddByte = bytes.sliced(even).toByteArray();
}

bool DecodeMarked(QByteArrayView bytes, LoadedText& loaded) {
    if (bytes.startsWith(kUtf8Mark)) {
        const QByteArrayView rest = bytes.sliced(kUtf8Mark.size());
        if (!Decode(rest, utf8Name, loaded)) TakeFlawedUtf8(DecodeFlawedUtf8(rest), loaded);
    } else if (bytes.startsWith(kUtf16LeMark)) {
        TakeUtf16(bytes.sliced(kUtf16LeMark.size()), utf16LeName, loaded);
    } else if (bytes.startsWith(kUtf16BeMark)) {
        TakeUtf16(bytes.sliced(kUtf16BeMark.size()), utf16BeName, loaded);
    } else {
        return false;
    }
    loaded.format.byteOrderMark = true;
    return true;
}

void DecodeUnmarked(QByteArrayView bytes, LoadedText& loaded) {
    if (const QByteArray utf16 = LooksLikeUtf16(bytes); !utf16.isEmpty()) return TakeUtf16(bytes, utf16, loaded);
    const std::vector<QByteArray> declared = DeclaredEncodings(bytes);
    for (const QByteArray& encoding : declared) {
        if (Decode(bytes, encoding, loaded)) return;
    }
    const bool saysUtf8 = !declared.empty() && declared.front() == utf8Name;
    if (!declared.empty() && !saysUtf8) loaded.format.passedOver = declared.front();
    if (Decode(bytes, utf8Name, loaded)) return;
    FlawedUtf8 flawed = DecodeFlawedUtf8(bytes);
    if (saysUtf8 || flawed.sequences > flawed.badBytes) return TakeFlawedUtf8(std::move(flawed), loaded);
    (void)Decode(bytes, windows1252Name, loaded);
}

QByteArray MarkOf(const TextFormat& format) {
    if (!format.byteOrderMark) return {};
    if (format.encoding == utf8Name) return kUtf8Mark.toByteArray();
    if (format.encoding == utf16LeName) return kUtf16LeMark.toByteArray();
    return format.encoding == utf16BeName ? kUtf16BeMark.toByteArray() : QByteArray();
}

// Whether a file of these bytes is read as the text that they were made of, here and in browsers, which go by what is
// declared. Another encoding will do where it gives the same, as most do for plain ASCII.
bool ReadsAsWritten(const QByteArray& bytes, const TextFormat& format, QStringView text) {
    if (format.byteOrderMark) return true;
    const std::vector<QByteArray> declared = DeclaredEncodings(bytes);
    const bool saysSo = std::ranges::find(declared, format.encoding) != declared.end();
    if (!declared.empty() && !saysSo && declared.front() != format.passedOver) {
        return std::ranges::any_of(declared, [&](const QByteArray& each) { return DecodeBytes(bytes, each) == text; });
    }
    const bool plain = !bytes.startsWith(kUtf8Mark) && LooksLikeUtf16(bytes).isEmpty();
    if (plain && format.encoding == utf8Name && (saysSo || (declared.empty() && !format.holdsBytes))) return true;
    LoadedText found;
    if (!DecodeMarked(bytes, found)) DecodeUnmarked(bytes, found);
    if (found.text == text && found.format.oddByte == format.oddByte) return true;
    // Half a surrogate pair went into UTF-8 as something else.
    return format.encoding == utf8Name && found.format.encoding == utf8Name && !found.format.byteOrderMark;
}

// The bytes without a mark; empty when the encoding can't hold the text.
std::optional<QByteArray> EncodeIn(const TextFormat& format, QStringView text) {
    if (format.encoding == utf8Name && format.holdsBytes) return EncodeFlawedUtf8(text);
    std::optional<QByteArray> bytes = EncodeUnits(text, format.encoding);
    if (bytes) *bytes += format.oddByte;
    return bytes;
}

// A text with its line ends as the file has them; a stray carriage return is one, too.
QString Spelled(QStringView text, std::span<const OtherLineEnd> others, const TextFormat& format) {
    if (!text.contains(u'\r')) return SpellLineEnds(text, format.lineEnd, others);
    QString unified = text.toString();
    UnifyLineEnds(unified, LineEnd::Lf);
    return SpellLineEnds(unified, format.lineEnd, others);
}

// A text on its way into bytes.
class Encoder {
public:
    Encoder(QStringView text, std::span<const OtherLineEnd> others, TextFormat format)
        : text_(Spelled(text, others, format)), format_(std::move(format)) {
        LineEndCounts counts = CountLineEnds(text, format_.lineEnd, others);
        format_.mixedLineEnds = counts.Mixed();
        if (counts.All() > 0 && counts.Of(format_.lineEnd) == 0) format_.lineEnd = counts.MostFrequent();
        format_.badBytes = format_.holdsBytes && HoldsBytes(text_);
    }

    [[nodiscard]] EncodedText ByFormat() {
        if (auto encoded = In(format_)) return std::move(*encoded);
        if (format_.encoding == utf16LeName || format_.encoding == utf16BeName) return Marked();
        const std::vector<QByteArray> declared = Declared();
        if (!declared.empty() && std::ranges::find(declared, format_.encoding) == declared.end()) {
            format_.encoding = declared.front();
            if (auto encoded = In(format_)) return std::move(*encoded);
        }
        return format_.encoding == utf8Name ? Marked() : EncodedText{std::nullopt, format_};
    }

    [[nodiscard]] EncodedText AsUtf8() {
        format_.encoding = utf8Name;
        format_.oddByte.clear();
        auto encoded = In(format_);
        return encoded ? std::move(*encoded) : Marked();
    }

private:
    [[nodiscard]] std::optional<EncodedText> In(const TextFormat& format) const {
        std::optional<QByteArray> bytes = EncodeIn(format, text_);
        if (!bytes || !ReadsAsWritten(*bytes, format, text_)) return std::nullopt;
        return EncodedText{MarkOf(format) + *bytes, format};
    }

    // The declaration stands in ASCII, which is the same in all encodings that a declaration can name.
    [[nodiscard]] std::vector<QByteArray> Declared() const {
        constexpr qsizetype head = 1024;
        return DeclaredEncodings(EncodeFlawedUtf8(QStringView(text_).first(std::min(text_.size(), head))));
    }

    [[nodiscard]] EncodedText Marked() {
        format_.byteOrderMark = true;
        return {MarkOf(format_) + EncodeIn(format_, text_).value_or(QByteArray()), format_};
    }

    QString text_;
    TextFormat format_;
};

// The bytes of a regular file; empty with a sentence for anything else.
std::optional<QByteArray> ReadRegularFile(const QString& path, QString* error) {
    const QByteArray name = EncodeFileName(path);
    struct stat status = {};
    // Asked before the file is opened, for opening alone sets some devices going.
    if (::stat(name.constData(), &status) != 0) {
        Say(error, CannotRead(path, errno));
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        Say(error, NotAFile(path, status.st_mode));
        return std::nullopt;
    }
    const FileDescriptor descriptor = OpenFile(name, O_RDONLY);
    if (!descriptor.IsOpen() || ::fstat(descriptor.Get(), &status) != 0) {
        Say(error, CannotRead(path, errno));
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        Say(error, NotAFile(path, status.st_mode));
        return std::nullopt;
    }
    std::optional<QByteArray> bytes = ReadAll(descriptor.Get(), kLargestFile);
    if (!bytes) Say(error, CannotRead(path, errno));
    return bytes;
}

}  // namespace

QString LoadedText::ReadableText() const {
    return format.badBytes ? DecodeUtf8(EncodeUtf8(text)) : text;
}

LoadedText DecodeText(const QByteArray& bytes) {
    LoadedText loaded;
    if (!DecodeMarked(bytes, loaded)) DecodeUnmarked(bytes, loaded);
    const LineEndCounts counts = CountLineEnds(loaded.text);
    loaded.format.lineEnd = counts.MostFrequent();
    loaded.format.mixedLineEnds = counts.Mixed();
    if (counts.crLf + counts.cr > 0) loaded.otherLineEnds = UnifyLineEnds(loaded.text, loaded.format.lineEnd);
    loaded.bytes = bytes;
    return loaded;
}

EncodedText EncodeText(QStringView text, std::span<const OtherLineEnd> others, const TextFormat& format) {
    return Encoder(text, others, format).ByFormat();
}

EncodedText EncodeAsUtf8(QStringView text, std::span<const OtherLineEnd> others, TextFormat format) {
    return Encoder(text, others, std::move(format)).AsUtf8();
}

std::optional<LoadedText> ReadTextFile(const QString& path, QString* error) {
    try {
        RestoreInterruptedWrite(path);
        const std::optional<QByteArray> bytes = ReadRegularFile(path, error);
        if (!bytes) return std::nullopt;
        return DecodeText(WholeContent(FollowLinks(EncodeFileName(path)), *bytes));
    } catch (const std::bad_alloc&) {
        Say(error, CannotRead(path, ENOMEM));
        return std::nullopt;
    }
}

QString TextFormat::EncodingName() const {
    if (encoding == utf16LeName) return "UTF-16 LE";
    if (encoding == utf16BeName) return "UTF-16 BE";
    QString name = QString::fromLatin1(encoding);
    if (encoding.startsWith("windows-")) name[0] = u'W';
    return name;
}

QString TextFormat::Description() const {
    QString description = EncodingName();
    if (encoding == utf8Name && byteOrderMark) description += " with byte order mark";
    if (badBytes || !oddByte.isEmpty()) description += ", bad bytes";
    if (mixedLineEnds) return description + ", mixed line ends";
    if (lineEnd == LineEnd::Lf) description += ", LF";
    if (lineEnd == LineEnd::Cr) description += ", CR";
    return description;
}

}  // namespace vellum
