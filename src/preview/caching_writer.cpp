#include "preview/caching_writer.h"

#include "files/declared_encoding.h"
#include "files/file_names.h"
#include "files/safe_write.h"
#include "files/save_record.h"
#include "preview/caching_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <atomic>
#include <cstdio>

namespace vellum {
namespace {

// Knows which write of each file was ordered last, and which one the file holds.
class WriteOrder {
public:
    [[nodiscard]] quint64 Next() { return ++last_; }

    // Gives a finished file its name, unless a later one has it already.
    bool Put(const QString& path, quint64 number, const QString& finished) {
        const QMutexLocker lock(&mutex_);
        quint64& standing = standing_[path];
        if (standing > number) return QFile::remove(finished);
        if (std::rename(QFile::encodeName(finished).constData(), QFile::encodeName(path).constData()) != 0) {
            QFile::remove(finished);
            return false;
        }
        standing = number;
        return true;
    }

    // The same for a path that only the careful writer can deal with.
    bool PutSafely(const QString& path, quint64 number, const QByteArray& bytes) {
        const QMutexLocker lock(&mutex_);
        quint64& standing = standing_[path];
        if (standing > number) return true;
        if (!WriteFileSafely(path, bytes)) return false;
        standing = number;
        return true;
    }

private:
    std::atomic<quint64> last_ = 0;
    QMutex mutex_;
    QHash<QString, quint64> standing_;
};

WriteOrder& Order() {
    static WriteOrder order;
    return order;
}

QThreadPool& Pool() {
    Order();  // made first, because it must outlive the pool, which still writes at the end of the program
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    return pool;
}

// Completes a file beside the old one before it gets the name. Where the old one is a link, is locked or is no file,
// and where the folder takes no new file, the careful writer does it instead.
bool WriteQuickly(const QString& path, const QByteArray& bytes, quint64 number) {
    const QFileInfo old(path);
    const bool plain = !old.isSymLink() && (!old.exists() || (old.isFile() && old.isWritable()));
    QFile file(
        QStringLiteral("%1/.vellumcraft-preview-%2-%3")
            .arg(old.absolutePath(), QString::number(QCoreApplication::applicationPid()), QString::number(number)));
    const SaveRecord record(EncodeFileName(path), {EncodeFileName(file.fileName())});
    if (!plain || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return Order().PutSafely(path, number, bytes);
    if (old.exists()) file.setPermissions(old.permissions());
    const bool complete = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    if (complete && file.error() == QFileDevice::NoError) return Order().Put(path, number, file.fileName());
    file.remove();
    return false;
}

// The path of the file, empty when it can't be written.
QString Write(const CachingJob& job, quint64 number) {
    const QByteArray bytes = CachingBytes(job);
    for (const QString& wanted : {job.path, job.substitute}) {
        if (wanted.isEmpty()) continue;
        QString path = PathBesideDocuments(wanted, job.documents);
        if (WriteQuickly(path, bytes, number)) return path;
    }
    return {};
}

}  // namespace

QByteArray CachingBytes(const CachingJob& job) {
    QString text = job.scrollTop ? WithScrollScript(job.text, *job.scrollTop) : job.text;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    TextFormat format = job.format;
    format.lineEnd = LineEnd::CrLf;
    const EncodedText own = EncodeText(text, {}, format);
    const bool known = own.bytes && (own.format.byteOrderMark || own.format.encoding == "UTF-8" ||
                                     !DeclarationsInHead(*own.bytes).empty());
    if (known) return *own.bytes;
    format.byteOrderMark = true;
    return EncodeAsUtf8(text, {}, format).bytes.value_or(QByteArray());
}

QFuture<QString> WriteCachingFileLater(CachingJob job) {
    return QtConcurrent::run(&Pool(), [job = std::move(job), number = Order().Next()] { return Write(job, number); });
}

QString WriteCachingFile(const CachingJob& job) {
    return Write(job, Order().Next());
}

}  // namespace vellum
