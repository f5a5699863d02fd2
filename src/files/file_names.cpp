#include "files/file_names.h"

#include "files/file_descriptor.h"

#include <QDir>
#include <QStringDecoder>

#include <algorithm>

namespace vellum {
namespace {

constexpr char16_t kOddByte = 0xDC00;  // and the byte, which is 0x80 or more

bool IsOddByte(QChar unit) {
    return unit >= QChar(kOddByte + 0x80) && unit <= QChar(kOddByte + 0xFF);
}

// Of UTF-8 without a flaw; what looks like a byte order mark is part of a name.
QString Decoded(QByteArrayView bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

// The length of the character that begins the bytes; 0 when none does.
qsizetype CharacterLength(QByteArrayView bytes) {
    constexpr qsizetype longest = 4;
    for (qsizetype length = 1; length <= std::min(longest, bytes.size()); ++length) {
        if (bytes.first(length).isValidUtf8()) return length;
    }
    return 0;
}

// The text up to the next odd byte, pairs of surrogates being no such thing.
qsizetype PlainLength(QStringView text) {
    qsizetype length = 0;
    while (length < text.size() && !IsOddByte(text[length])) {
        const bool pair =
            text[length].isHighSurrogate() && length + 1 < text.size() && text[length + 1].isLowSurrogate();
        length += pair ? 2 : 1;
    }
    return length;
}

}  // namespace

QString DecodeFileName(QByteArrayView bytes) {
    if (bytes.isValidUtf8()) return Decoded(bytes);
    QString name;
    while (!bytes.isEmpty()) {
        const qsizetype length = CharacterLength(bytes);
        if (length > 0) {
            name += Decoded(bytes.first(length));
        } else {
            name += QChar(kOddByte + static_cast<unsigned char>(bytes.front()));
        }
        bytes = bytes.sliced(std::max(length, qsizetype{1}));
    }
    return name;
}

QByteArray EncodeFileName(QStringView name) {
    QByteArray bytes;
    while (!name.isEmpty()) {
        const qsizetype plain = PlainLength(name);
        bytes += name.first(plain).toUtf8();
        name = name.sliced(plain);
        if (name.isEmpty()) break;
        bytes += static_cast<char>(name.front().unicode() - kOddByte);
        name = name.sliced(1);
    }
    return bytes;
}

QString ReadableName(const QString& name) {
    constexpr QChar lineEnd(0x2424);  // the sign for one
    QString readable = name;
    for (qsizetype i = 0; i < readable.size(); ++i) {
        const QChar unit = readable[i];
        if (unit.isHighSurrogate() && i + 1 < readable.size() && readable[i + 1].isLowSurrogate()) {
            ++i;
        } else if (unit.isSurrogate()) {
            readable[i] = QChar::ReplacementCharacter;
        } else if (unit == u'\n' || unit == u'\r' || unit == QChar::LineSeparator ||
                   unit == QChar::ParagraphSeparator) {
            readable[i] = lineEnd;
        }
    }
    return readable;
}

QString AbsolutePath(const QString& path) {
    return QDir::cleanPath(DecodeFileName(AbsoluteName(EncodeFileName(path))));
}

}  // namespace vellum
