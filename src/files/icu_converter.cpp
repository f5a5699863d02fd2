#include "files/icu_converter.h"

#include <unicode/ucnv.h>

namespace vellum {

void IcuConverter::Close::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

std::optional<IcuConverter> IcuConverter::Open(const QByteArray& name) {
    UErrorCode status = U_ZERO_ERROR;
    Handle converter(name.isEmpty() ? nullptr : ucnv_open(name.constData(), &status));
    if (U_FAILURE(status) || !converter) return std::nullopt;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter.get(), false);
    if (U_FAILURE(status)) return std::nullopt;
    return IcuConverter(std::move(converter));
}

QByteArray IcuConverter::CanonicalName() const {
    UErrorCode status = U_ZERO_ERROR;
    return ucnv_getName(converter_.get(), &status);
}

bool IcuConverter::IsUtf8() const {
    return ucnv_getType(converter_.get()) == UCNV_UTF8;
}

bool IcuConverter::IsUtf16() const {
    const UConverterType type = ucnv_getType(converter_.get());
    return type == UCNV_UTF16 || type == UCNV_UTF16_BigEndian || type == UCNV_UTF16_LittleEndian;
}

std::optional<QString> IcuConverter::Decode(QByteArrayView bytes) const {
    if (bytes.size() >= INT32_MAX / 2) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const int32_t length =
        ucnv_toUChars(converter_.get(), reinterpret_cast<UChar*>(text.data()), static_cast<int32_t>(text.size()),
                      bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    text.truncate(length);
    return text;
}

std::optional<QByteArray> IcuConverter::Encode(QStringView text) const {
    UErrorCode status = U_ZERO_ERROR;
    // With room for a closing escape sequence.
    const qsizetype most = text.size() * ucnv_getMaxCharSize(converter_.get()) + 16;
    if (most > INT32_MAX) return std::nullopt;
    QByteArray bytes(most, Qt::Uninitialized);
    const int32_t length = ucnv_fromUChars(converter_.get(), bytes.data(), static_cast<int32_t>(bytes.size()),
                                           text.utf16(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return std::nullopt;
    bytes.truncate(length);
    return bytes;
}

QByteArray StandardName(const QByteArray& name) {
    for (const char* const standard : {"MIME", "IANA"}) {
        UErrorCode status = U_ZERO_ERROR;
        const char* const preferred = ucnv_getStandardName(name.constData(), standard, &status);
        if (U_SUCCESS(status) && preferred != nullptr) return preferred;
    }
    return name;
}

}  // namespace vellum
