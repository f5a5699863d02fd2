#include "files/text_file.h"

#include "files/declared_encoding.h"
#include "files/file_descriptor.h"
#include "files/file_errors.h"
#include "files/file_names.h"
#include "files/in_place_write.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unicode/ucnv.h>

namespace vellum {
namespace {

// A text surface counts positions in 31 bits and a line end as two of them.
constexpr qint64 kLargestFile = (qint64{1} << 30) - 1;

constexpr const char* kUtf8 = "UTF-8";
constexpr const char* kUtf16Le = "UTF-16LE";
constexpr const char* kUtf16Be = "UTF-16BE";
constexpr const char* kWindows1252 = "windows-1252";

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF", 3);
constexpr QByteArrayView kUtf16LeMark("\xFF\xFE", 2);
constexpr QByteArrayView kUtf16BeMark("\xFE\xFF", 2);

// The bytes 0x80 to 0x9F. The five that the code page leaves undefined stand for the control characters of the same
// number, so that every byte has a character of its own.
constexpr std::array<char16_t, 32> kWindows1252High = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

// A converter that stops at what it can't convert instead of writing a stand-in; null for a name that ICU doesn't know.
Converter OpenConverter(const QByteArray& name) {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(name.isEmpty() ? nullptr : ucnv_open(name.constData(), &status));
    if (U_FAILURE(status) || !converter) return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter.get(), false);
    return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

QString DecodeWindows1252(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        const char16_t unit = character.unicode();
        if (unit >= 0x80 && unit < 0xA0) character = QChar(kWindows1252High[unit - 0x80]);
    }
    return text;
}

std::optional<QByteArray> EncodeWindows1252(QStringView text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < 0x80 || (unit >= 0xA0 && unit < 0x100)) {
            *out++ = static_cast<char>(unit);
            continue;
        }
        const auto* const found = std::find(kWindows1252High.begin(), kWindows1252High.end(), unit);
        if (found == kWindows1252High.end()) return std::nullopt;
        *out++ = static_cast<char>(0x80 + (found - kWindows1252High.begin()));
    }
    return bytes;
}

// Code units as they stand, so that half a surrogate pair survives. Needs an even number of bytes.
QString DecodeUtf16(QByteArrayView bytes, bool bigEndian) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    auto* const units = reinterpret_cast<char16_t*>(text.data());
    if (bigEndian)
        qFromBigEndian<char16_t>(bytes.data(), text.size(), units);
    else
        qFromLittleEndian<char16_t>(bytes.data(), text.size(), units);
    return text;
}

QByteArray EncodeUtf16(QStringView text, bool bigEndian) {
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    if (bigEndian)
        qToBigEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    else
        qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data());
    return bytes;
}

// Empty unless the bytes are UTF-8 without a flaw, which has one spelling for every text.
std::optional<QString> DecodeUtf8(QByteArrayView bytes) {
    if (!bytes.isValidUtf8()) return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return QString(decoder(bytes));
}

QByteArray EncodeUtf8(QStringView text) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    return encoder(text);
}

std::optional<QByteArray> EncodeWithConverter(QStringView text, UConverter* converter) {
    UErrorCode status = U_ZERO_ERROR;
    const qsizetype most = text.size() * ucnv_getMaxCharSize(converter) + 16;  // room for a closing escape sequence
    if (most > INT32_MAX) return std::nullopt;
    QByteArray bytes(most, Qt::Uninitialized);
    const int32_t length = ucnv_fromUChars(converter, bytes.data(), static_cast<int32_t>(bytes.size()), text.utf16(),
                                           static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    bytes.truncate(length);
    return bytes;
}

std::optional<QString> DecodeWithConverter(QByteArrayView bytes, UConverter* converter) {
    if (bytes.size() >= INT32_MAX / 2) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const int32_t length =
        ucnv_toUChars(converter, reinterpret_cast<UChar*>(text.data()), static_cast<int32_t>(text.size()), bytes.data(),
                      static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    text.truncate(length);
    return text;
}

std::optional<QByteArray> EncodeUnits(QStringView text, const QByteArray& encoding) {
    if (encoding == kUtf8) return EncodeUtf8(text);
    if (encoding == kUtf16Le) return EncodeUtf16(text, false);
    if (encoding == kUtf16Be) return EncodeUtf16(text, true);
    if (encoding == kWindows1252) return EncodeWindows1252(text);
    const Converter converter = OpenConverter(encoding);
    return converter ? EncodeWithConverter(text, converter.get()) : std::nullopt;
}

// What browsers read a label as: the wider code page that people mean when they write the narrow name.
QByteArray WiderLabel(const QByteArray& label) {
    static constexpr auto kWider = std::to_array<std::pair<const char*, const char*>>({
        {"gb2312", "GBK"},
        {"gb_2312-80", "GBK"},
        {"euc-kr", "windows-949"},
        {"ks_c_5601-1987", "windows-949"},
        {"iso-8859-9", "windows-1254"},
        {"latin5", "windows-1254"},
        {"tis-620", "windows-874"},
        {"iso-8859-11", "windows-874"},
    });
    const QByteArray lower = label.toLower();
    for (const auto& [narrow, wide] : kWider) {
        if (lower == narrow) return wide;
    }
    return label;
}

bool IsPlainName(const QByteArray& label) {
    return !label.isEmpty() && label.size() < 60 && std::all_of(label.begin(), label.end(), [](char character) {
        return std::isalnum(static_cast<unsigned char>(character)) != 0 || std::strchr("-_.:+", character) != nullptr;
    });
}

// The encoding that a declared label stands for; empty when the label says nothing that a file of ASCII markup can be.
QByteArray EncodingOfLabel(const QByteArray& label) {
    if (!IsPlainName(label)) return {};
    const QByteArray wider = WiderLabel(label);
    const Converter converter = OpenConverter(wider);
    if (!converter) return {};
    UErrorCode status = U_ZERO_ERROR;
    const QByteArray canonical = ucnv_getName(converter.get(), &status);
    if (ucnv_getType(converter.get()) == UCNV_UTF8) return kUtf8;
    if (canonical == "ISO-8859-1" || canonical == "US-ASCII" || canonical.startsWith("ibm-5348")) return kWindows1252;
    // The declaration itself was found as ASCII, so an encoding that would spell it in another way can't be meant.
    if (EncodeWithConverter(u"<meta charset=\"x\">", converter.get()) != QByteArray("<meta charset=\"x\">")) return {};
    const char* const preferred = ucnv_getStandardName(wider.constData(), "MIME", &status);
    return U_SUCCESS(status) && preferred != nullptr && ucnv_compareNames(preferred, wider.constData()) == 0
               ? QByteArray(preferred)
               : wider;
}

bool DecodeMarked(QByteArrayView bytes, LoadedText& loaded) {
    const auto take = [&](QString text, const char* encoding) {
        loaded.text = std::move(text);
        loaded.format.encoding = encoding;
        loaded.format.byteOrderMark = true;
        return true;
    };
    if (bytes.startsWith(kUtf8Mark)) {
        std::optional<QString> text = DecodeUtf8(bytes.sliced(kUtf8Mark.size()));
        return text && take(std::move(*text), kUtf8);
    }
    if (bytes.size() % 2 != 0) return false;
    if (bytes.startsWith(kUtf16LeMark)) return take(DecodeUtf16(bytes.sliced(2), false), kUtf16Le);
    if (bytes.startsWith(kUtf16BeMark)) return take(DecodeUtf16(bytes.sliced(2), true), kUtf16Be);
    return false;
}

bool DecodeDeclared(QByteArrayView bytes, const QByteArray& encoding, LoadedText& loaded) {
    const Converter converter = OpenConverter(encoding);
    if (!converter) return false;
    std::optional<QString> text = DecodeWithConverter(bytes, converter.get());
    if (!text || EncodeWithConverter(*text, converter.get()) != bytes.toByteArray()) return false;
    loaded.text = std::move(*text);
    loaded.format.encoding = encoding;
    return true;
}

void DecodeUnmarked(QByteArrayView bytes, LoadedText& loaded) {
    const QByteArray declared = EncodingOfLabel(DeclaredEncoding(bytes));
    const bool isOther = !declared.isEmpty() && declared != kUtf8 && declared != kWindows1252;
    if (isOther && DecodeDeclared(bytes, declared, loaded)) return;
    if (declared != kWindows1252) {
        if (std::optional<QString> text = DecodeUtf8(bytes)) {
            loaded.text = std::move(*text);
            return;
        }
    }
    loaded.text = DecodeWindows1252(bytes);
    loaded.format.encoding = kWindows1252;
}

struct LineEndCounts {
    qsizetype crLf = 0;
    qsizetype lf = 0;
    qsizetype cr = 0;

    [[nodiscard]] bool Mixed() const { return (crLf > 0) + (lf > 0) + (cr > 0) > 1; }
    [[nodiscard]] LineEnd MostFrequent() const {
        if (crLf >= lf && crLf >= cr) return LineEnd::CrLf;
        return lf >= cr ? LineEnd::Lf : LineEnd::Cr;
    }
};

LineEndCounts CountLineEnds(QStringView text) {
    LineEndCounts counts;
    const qsizetype feeds = text.count(u'\n');
    const qsizetype returns = text.count(u'\r');
    if (returns > 0) {
        for (qsizetype i = 0; i + 1 < text.size(); ++i) counts.crLf += text[i] == u'\r' && text[i + 1] == u'\n';
    }
    counts.lf = feeds - counts.crLf;
    counts.cr = returns - counts.crLf;
    return counts;
}

// Makes every line end one "\n".
void UnifyLineEnds(QString& text) {
    QChar* out = text.data();
    const QChar* const end = text.constData() + text.size();
    for (const QChar* in = text.constData(); in != end; ++in) {
        const bool isReturn = *in == u'\r';
        if (isReturn && in + 1 != end && in[1] == u'\n') ++in;
        *out++ = isReturn ? QChar(u'\n') : *in;
    }
    text.truncate(out - text.constData());
}

void TakeLineEnds(LoadedText& loaded) {
    const LineEndCounts counts = CountLineEnds(loaded.text);
    loaded.format.lineEnd = counts.MostFrequent();
    loaded.format.mixedLineEnds = counts.Mixed();
    if (counts.crLf + counts.cr > 0) UnifyLineEnds(loaded.text);
}

// `text`, with "\n" at line ends, with others in their place.
QString SpellLineEnds(QStringView text, QStringView lineEnd) {
    QString spelled;
    spelled.reserve(text.size() + text.count(u'\n'));
    qsizetype start = 0;
    for (qsizetype feed = text.indexOf(u'\n'); feed >= 0; feed = text.indexOf(u'\n', start)) {
        spelled.append(text.sliced(start, feed - start)).append(lineEnd);
        start = feed + 1;
    }
    return spelled.append(text.sliced(start));
}

QByteArray MarkOf(const TextFormat& format) {
    if (!format.byteOrderMark) return {};
    if (format.encoding == kUtf8) return kUtf8Mark.toByteArray();
    if (format.encoding == kUtf16Le) return kUtf16LeMark.toByteArray();
    return format.encoding == kUtf16Be ? kUtf16BeMark.toByteArray() : QByteArray();
}

// Whether a file of these bytes is read as the text that they were made of. Another encoding will do where it gives
// the same, as most do for plain ASCII.
bool ReadsAsWritten(const QByteArray& bytes, const TextFormat& format, QStringView text) {
    if (format.byteOrderMark) return true;
    if (format.encoding == kUtf8 && !bytes.startsWith(kUtf8Mark)) {
        const QByteArray declared = EncodingOfLabel(DeclaredEncoding(bytes));
        if (declared.isEmpty() || declared == kUtf8) return true;
    }
    LoadedText found;
    if (!DecodeMarked(bytes, found)) DecodeUnmarked(bytes, found);
    return found.text == text || (found.format.encoding == format.encoding && !found.format.byteOrderMark);
}

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

LoadedText DecodeText(const QByteArray& bytes) {
    LoadedText loaded;
    if (!DecodeMarked(bytes, loaded)) DecodeUnmarked(bytes, loaded);
    TakeLineEnds(loaded);
    loaded.bytes = bytes;
    return loaded;
}

QByteArray EncodeText(QStringView text, TextFormat& format) {
    QString spelled;
    if (text.contains(u'\r')) {  // a stray carriage return is a line end like any other
        spelled = text.toString();
        UnifyLineEnds(spelled);
        text = spelled;
    }
    if (format.lineEnd != LineEnd::Lf && text.contains(u'\n')) {
        spelled = SpellLineEnds(text, format.lineEnd == LineEnd::Cr ? u"\r" : u"\r\n");
        text = spelled;
    }
    format.mixedLineEnds = false;

    if (format.encoding.startsWith("UTF-16")) format.byteOrderMark = true;  // without it nobody could read the file
    const std::optional<QByteArray> bytes = EncodeUnits(text, format.encoding);
    if (bytes && ReadsAsWritten(*bytes, format, text)) return MarkOf(format) + *bytes;

    format.encoding = kUtf8;
    const QByteArray utf8 = EncodeUtf8(text);
    format.byteOrderMark = format.byteOrderMark || !ReadsAsWritten(utf8, format, text);
    return MarkOf(format) + utf8;
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

QString TextFormat::Description() const {
    QString description = QString::fromLatin1(encoding);
    if (encoding == kUtf16Le) description = "UTF-16 LE";
    if (encoding == kUtf16Be) description = "UTF-16 BE";
    if (encoding.startsWith("windows-")) description[0] = u'W';
    if (encoding == kUtf8 && byteOrderMark) description += " with byte order mark";
    if (mixedLineEnds) return description + ", mixed line ends";
    if (lineEnd == LineEnd::Lf) description += ", LF";
    if (lineEnd == LineEnd::Cr) description += ", CR";
    return description;
}

}  // namespace vellum
