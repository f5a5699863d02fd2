#include "website/file_kind.h"

namespace vellum {

QStringList MatchingTypes(const QString& name, const QStringList& types) {
    QStringList matching;
    for (const QString& type : types) {
        if (!type.isEmpty() && name.contains(type, Qt::CaseInsensitive)) matching << type;
    }
    return matching;
}

bool IsPageSound(const QString& name) {
    return !MatchingTypes(name, {".AU", ".WAV", ".MID", ".RMI"}).isEmpty();
}

bool IsCachingName(const QString& name) {
    return name.contains(QLatin1String("caching."), Qt::CaseInsensitive);
}

bool IsWebImage(const QString& name) {
    return !MatchingTypes(name, {".jpg", ".bmp", ".gif"}).isEmpty();
}

bool IsPlayable(const QString& name) {
    return QStringList{".MID", ".WAV", ".AVI"}.contains(name.right(4).toUpper());
}

int AttributeBits(const QString& name, bool writable) {
    int bits = 0;
    if (!writable) bits |= ReadOnlyAttribute;
    if (name.startsWith(u'.')) bits |= HiddenAttribute;
    return bits;
}

QString AttributeText(int bits) {
    QString text;
    if (bits == 0) text += QLatin1String(", Normal ");
    if (bits & ArchiveAttribute) text += QLatin1String(", Archive ");
    if (bits & HiddenAttribute) text += QLatin1String(", Hidden ");
    if (bits & SystemAttribute) text += QLatin1String(", System File ");
    return text.mid(2);
}

QString SizeText(qint64 bytes) {
    return QString::number(bytes) + QLatin1String(" Bytes");
}

}  // namespace vellum
