#include "files/utf8.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace vellum {
namespace {

constexpr char16_t firstHeldByte = 0xDC80;
constexpr char16_t lastHeldByte = 0xDCFF;

// How many bytes the good UTF-8 sequence at an offset has; 0 when there is none.
qsizetype SequenceLength(QByteArrayView bytes, qsizetype offset) {
    const auto at = [&](qsizetype index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : static_cast<unsigned char>(0);
    };
    const auto follows = [&](qsizetype index) { return (at(index) & 0xC0U) == 0x80; };
    const unsigned char lead = at(offset);
    const unsigned char second = at(offset + 1);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4 || !follows(offset + 1)) return 0;
    if (lead < 0xE0) return 2;
    if (!follows(offset + 2)) return 0;
    if (lead < 0xF0) return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ? 0 : 3;
    if (!follows(offset + 3)) return 0;
    return (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F) ? 0 : 4;
}

bool IsHeldByte(QStringView text, qsizetype index) {
    const char16_t unit = text[index].unicode();
    return unit >= firstHeldByte && unit <= lastHeldByte && (index == 0 || !text[index - 1].isHighSurrogate());
}

}  // namespace

QString DecodeUtf8(QByteArrayView bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

QByteArray EncodeUtf8(QStringView text) {
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    return encoder(text);
}

FlawedUtf8 DecodeFlawedUtf8(QByteArrayView bytes) {
    FlawedUtf8 result;
    result.text.reserve(bytes.size());
    qsizetype start = 0;  // of what is good and not yet decoded
    for (qsizetype index = 0; index < bytes.size();) {
        const qsizetype length = SequenceLength(bytes, index);
        if (length > 0) {
            result.sequences += length > 1;
            index += length;
            continue;
        }
        result.text += DecodeUtf8(bytes.sliced(start, index - start));
        result.text += QChar(static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(bytes[index])));
        ++result.badBytes;
        start = ++index;
    }
    result.text += DecodeUtf8(bytes.sliced(start));
    return result;
}

QByteArray EncodeFlawedUtf8(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    qsizetype start = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (!IsHeldByte(text, index)) continue;
        bytes += EncodeUtf8(text.sliced(start, index - start));
        bytes += static_cast<char>(text[index].unicode() & 0xFFU);
        start = index + 1;
    }
    return bytes += EncodeUtf8(text.sliced(start));
}

bool HoldsBytes(QStringView text) {
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (IsHeldByte(text, index)) return true;
    }
    return false;
}

}  // namespace vellum
