// Numbers in fields and settings, read and written by one set of rules and with no locale.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace vellum {

// The number that `text` begins with, blanks, tabs and line ends anywhere in it skipped; 0 when it begins with none.
// Reads sign, digits, a point, an exponent with E or D, and &H / &O numbers.
[[nodiscard]] double LeadingNumber(QStringView text);

// True when the whole of `text` is one number: blanks at the ends, sign, digits, point and exponent.
[[nodiscard]] bool IsNumeric(QStringView text);

// Nearest whole number, halves to the even one.
[[nodiscard]] double RoundHalfEven(double value);

// The value as a 16-bit whole number after half-to-even rounding; empty outside -32768 to 32767.
[[nodiscard]] std::optional<std::int16_t> ToInt16(double value);

// The product as a 16-bit whole number; empty when it does not fit.
[[nodiscard]] std::optional<std::int16_t> MultiplyInt16(std::int16_t left, std::int16_t right);

// At most fifteen significant digits, no trailing zeros, a point as decimal mark, exponent form from 1E+15 on.
[[nodiscard]] QString NumberText(double value);

// True for "True" in any case and for every number but 0; false for anything else.
[[nodiscard]] bool TruthValue(QStringView text);

}  // namespace vellum
