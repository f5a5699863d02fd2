#include "files/file_names.h"

#include "files/file_descriptor.h"
#include "files/utf8.h"

#include <QDir>

namespace vellum {

QString DecodeFileName(QByteArrayView bytes) {
    return DecodeFlawedUtf8(bytes).text;
}

QByteArray EncodeFileName(QStringView name) {
    return EncodeFlawedUtf8(name);
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
