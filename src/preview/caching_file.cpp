#include "preview/caching_file.h"

#include "files/file_descriptor.h"
#include "files/file_names.h"
#include "files/paths.h"

#include <array>
#include <climits>
#include <cstdlib>

namespace vellum {
namespace {

// The path without symbolic links, as far as it exists.
QByteArray Resolved(const QString& path) {
    const QByteArray name = EncodeFileName(path);
    std::array<char, PATH_MAX> real;
    if (::realpath(name.constData(), real.data()) != nullptr) return real.data();
    if (::realpath(FolderOf(name).constData(), real.data()) != nullptr)
        return QByteArray(real.data()) + '/' + NameOf(name);
    return EncodeFileName(AbsolutePath(path));
}

}  // namespace

QString CachingFileName(const QString& caption) {
    if (!caption.contains('.')) return QStringLiteral("caching.htm");
    const QString lastFive = caption.right(5);
    QString ending = lastFive.startsWith('.') ? lastFive : caption.right(4);
    ending.remove('/');  // from a short name without an extension, in a directory with a dot
    return QStringLiteral("caching") + ending;
}

QString CachingPath(const QString& caption, const QString& websiteDirectory) {
    const QString name = CachingFileName(caption);
    if (caption.startsWith(QLatin1String("New"))) return JoinPath(websiteDirectory, name);
    return caption.left(caption.lastIndexOf('/') + 1) + name;
}

QString PathBesideDocuments(const QString& path, const QStringList& documents) {
    const qsizetype ending = path.lastIndexOf('/') + 1 + QLatin1String("caching").size();
    QByteArrayList files;
    for (const QString& document : documents) files << Resolved(document);
    QString candidate = path;
    for (int number = 1;; ++number) {
        if (!files.contains(Resolved(candidate))) return candidate;
        const QString mark = number == 1 ? QString() : QString::number(number);
        candidate = path.left(ending) + QLatin1String("-preview") + mark + path.mid(ending);
    }
}

QString WithScrollScript(const QString& text, int scrollTop) {
    const QLatin1String lineEnd("\r\n");
    return text + lineEnd + QLatin1String("<SCRIPT language=\"Javascript\">") + lineEnd +
           QLatin1String("setTimeout('ScrollStart()',5)") + lineEnd + QLatin1String("function ScrollStart() {") +
           lineEnd + QLatin1String("window.scrollTo(0,") + QString::number(scrollTop) + QLatin1String(")") + lineEnd +
           QLatin1String("}") + QLatin1String("</SCRIPT>") + lineEnd;
}

bool TakesScrollScript(const QString& fileName) {
    return fileName.contains(QLatin1String(".htm"), Qt::CaseInsensitive);
}

}  // namespace vellum
