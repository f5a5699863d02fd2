#include "values/number_rules.h"

#include <QByteArray>

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <system_error>

namespace vellum {
namespace {

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool IsSign(QChar c) {
    return c == u'+' || c == u'-';
}

QStringView WithoutOuterBlanks(QStringView text) {
    while (!text.isEmpty() && IsBlank(text.front())) text = text.mid(1);
    while (!text.isEmpty() && IsBlank(text.back())) text.chop(1);
    return text;
}

qsizetype CountDigits(QStringView text, qsizetype from) {
    qsizetype end = from;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return end - from;
}

// The length of the longest decimal number that `text` begins with; 0 when there is none.
qsizetype DecimalLength(QStringView text) {
    qsizetype at = !text.isEmpty() && IsSign(text[0]) ? 1 : 0;
    const qsizetype whole = CountDigits(text, at);
    at += whole;
    qsizetype fraction = 0;
    if (at < text.size() && text[at] == u'.') {
        fraction = CountDigits(text, at + 1);
        at += 1 + fraction;
    }
    if (whole + fraction == 0) return 0;
    if (at < text.size() && QStringView(u"eEdD").contains(text[at])) {
        const qsizetype digitsAt = at + 1 < text.size() && IsSign(text[at + 1]) ? at + 2 : at + 1;
        if (const qsizetype exponent = CountDigits(text, digitsAt); exponent > 0) at = digitsAt + exponent;
    }
    return at;
}

// The value of a text that DecimalLength measured; beyond the range of a double it is the largest one, or 0.
double DecimalValue(QStringView text) {
    QByteArray digits = text.toLatin1().toUpper();
    digits.replace('D', 'E');
    if (digits.startsWith('+')) digits.remove(0, 1);
    double value = 0;
    if (std::from_chars(digits.cbegin(), digits.cend(), value).ec == std::errc::result_out_of_range) {
        std::istringstream stream(digits.toStdString());  // tells the one end of the range from the other
        stream.imbue(std::locale::classic());
        stream >> value;
    }
    return value;
}

int DigitValue(QChar c) {
    if (IsDigit(c)) return c.unicode() - u'0';
    const char16_t lower = c.unicode() | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

double PrefixedValue(QStringView digits, int base) {
    double value = 0;
    for (const QChar c : digits) {
        const int digit = DigitValue(c);
        if (digit >= base) break;
        value = value * base + digit;
    }
    return value;
}

}  // namespace

double LeadingNumber(QStringView text) {
    QString packed;
    packed.reserve(text.size());
    for (const QChar c : text) {
        if (!IsBlank(c)) packed.append(c);
    }
    const QStringView number(packed);
    if (number.startsWith(u"&h", Qt::CaseInsensitive)) return PrefixedValue(number.mid(2), 16);
    if (number.startsWith(u"&o", Qt::CaseInsensitive)) return PrefixedValue(number.mid(2), 8);
    const qsizetype length = DecimalLength(number);
    return length == 0 ? 0 : DecimalValue(number.first(length));
}

bool IsNumeric(QStringView text) {
    const QStringView number = WithoutOuterBlanks(text);
    return !number.isEmpty() && DecimalLength(number) == number.size();
}

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double part = value - below;
    if (part == 0.5) return std::fmod(below, 2) == 0 ? below : below + 1;
    return part < 0.5 ? below : below + 1;
}

std::optional<std::int16_t> ToInt16(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(rounded);
}

std::optional<std::int16_t> MultiplyInt16(std::int16_t left, std::int16_t right) {
    return ToInt16(static_cast<double>(left) * right);
}

QString NumberText(double value) {
    if (value == 0) return QStringLiteral("0");  // the negative zero too
    return QString::number(value, 'G', 15);
}

bool TruthValue(QStringView text) {
    const QStringView word = WithoutOuterBlanks(text);
    if (word.compare(u"True", Qt::CaseInsensitive) == 0) return true;
    return IsNumeric(word) && LeadingNumber(word) != 0;
}

}  // namespace vellum
