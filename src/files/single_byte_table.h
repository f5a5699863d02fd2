// Encodings of one byte a character that ICU doesn't know, or reads otherwise than browsers do.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>
#include <span>
#include <unordered_map>

namespace vellum {

class SingleByteTable {
public:
    // The table of an encoding, by its name in small letters; null for one that ICU reads as browsers do.
    [[nodiscard]] static const SingleByteTable* Find(const QByteArray& encoding);

    // Empty when a byte has no character.
    [[nodiscard]] std::optional<QString> Decode(QByteArrayView bytes) const;
    // Empty when a character has no byte.
    [[nodiscard]] std::optional<QByteArray> Encode(QStringView text) const;

    // A byte whose character isn't that of the encoding that a table is made of.
    struct Difference {
        unsigned char byte;
        char16_t character;
    };

    // `base`: the name of an encoding that ICU knows.
    SingleByteTable(const QByteArray& base, std::span<const Difference> differences);

private:
    std::array<char16_t, 256> characters_{};
    std::unordered_map<char16_t, char> bytes_;
};

}  // namespace vellum
