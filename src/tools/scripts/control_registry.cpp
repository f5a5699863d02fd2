#include "tools/scripts/control_registry.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace vellum {
namespace {

struct Class {
    Control control;
    bool isControl = false;
};

// Keys and texts write some characters by a backslash: itself, quotes, brackets, a NUL, and others by up to four
// hexadecimal digits.
QString Unescaped(QStringView text) {
    constexpr int longest = 4;
    constexpr int base = 16;
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const QChar kind = text[++i];
        if (kind == u'x') {
            qsizetype digits = 0;
            while (digits < longest && i + 1 + digits < text.size() &&
                   QStringView(u"0123456789abcdefABCDEF").contains(text[i + 1 + digits])) {
                ++digits;
            }
            result += QChar(text.mid(i + 1, digits).toUShort(nullptr, base));
            i += digits;
        } else if (kind == u'0') {
            result += QChar(u'\0');
        } else {
            result += kind;
        }
    }
    return result;
}

// What a registry's value is worth: up to the first NUL, without blanks around it.
QString Trimmed(const QString& value) {
    return value.section(QChar(u'\0'), 0, 0).trimmed();
}

// Reads line by line. A line in brackets names the key that the following ones belong to; "@" is its default entry.
class RegistryReader {
public:
    void Take(const QString& line) {
        if (line.startsWith(u'[')) return TakeKey(line);
        static const QRegularExpression entry(R"re(^@="(.*)"$)re");
        if (!value_) return;
        if (const auto match = entry.match(line); match.hasMatch()) {
            *value_ = Trimmed(Unescaped(match.capturedView(1)));
        }
    }

    [[nodiscard]] std::vector<Control> Controls() const {
        std::vector<Control> controls;
        for (const Class& one : classes_) {
            if (one.isControl) controls.push_back(one.control);
        }
        std::stable_sort(controls.begin(), controls.end(), [](const Control& left, const Control& right) {
            return left.name.compare(right.name, Qt::CaseInsensitive) < 0;
        });
        return controls;
    }

private:
    void TakeKey(const QString& line) {
        static const QRegularExpression key(R"(^Software\\Classes\\(?:Wow6432Node\\)?CLSID\\([^\\]+)(?:\\([^\\]+))?$)",
                                            QRegularExpression::CaseInsensitiveOption);
        value_ = nullptr;
        const auto match = key.match(Unescaped(QStringView(line).mid(1, line.lastIndexOf(u']') - 1)));
        if (!match.hasMatch()) return;
        Class& one = classes_[match.captured(1).toLower()];
        const QString part = match.captured(2).toLower();
        if (part.isEmpty()) {
            one.control.classId = match.captured(1);
            value_ = &one.control.name;
        } else if (part == QLatin1String("progid")) {
            value_ = &one.control.programId;
        } else if (part == QLatin1String("control")) {
            one.isControl = true;
        }
    }

    QMap<QString, Class> classes_;  // by their identifiers in lower case
    QString* value_ = nullptr;      // what the default entry of the key is for
};

}  // namespace

QString RegistryFile() {
    const QString prefix = qEnvironmentVariable("WINEPREFIX", QDir::homePath() + QStringLiteral("/.wine"));
    return prefix + QStringLiteral("/system.reg");
}

std::vector<Control> ReadControls(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return {};
    RegistryReader reader;
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        while (line.endsWith('\n') || line.endsWith('\r')) line.chop(1);
        reader.Take(QString::fromLatin1(line));
    }
    return reader.Controls();
}

}  // namespace vellum
