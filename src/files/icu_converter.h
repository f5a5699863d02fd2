// One of ICU's converters, strict: it stops at what it can't convert instead of writing a stand-in.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct UConverter;

namespace vellum {

class IcuConverter {
public:
    // Empty for a name that ICU doesn't know.
    [[nodiscard]] static std::optional<IcuConverter> Open(const QByteArray& name);

    // The one name that ICU has for all that mean the same.
    [[nodiscard]] QByteArray CanonicalName() const;
    [[nodiscard]] bool IsUtf8() const;
    [[nodiscard]] bool IsUtf16() const;

    [[nodiscard]] std::optional<QString> Decode(QByteArrayView bytes) const;
    [[nodiscard]] std::optional<QByteArray> Encode(QStringView text) const;

private:
    struct Close {
        void operator()(UConverter* converter) const;
    };
    using Handle = std::unique_ptr<UConverter, Close>;

    explicit IcuConverter(Handle converter) : converter_(std::move(converter)) {}

    Handle converter_;
};

// The name that mail and the web have for what ICU knows by `name`; `name` itself when there is none.
[[nodiscard]] QByteArray StandardName(const QByteArray& name);

}  // namespace vellum
