#include "preview/caching_writer.h"

#include "files/declared_encoding.h"
#include "files/file_descriptor.h"
#include "files/file_names.h"
#include "files/save_record.h"
#include "preview/caching_file.h"
#include "preview/file_readers.h"

#include <QHash>
#include <QMutex>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

// Knows which write of each file was ordered last, and which one the file holds.
class WriteOrder {
public:
    [[nodiscard]] quint64 Next() { return ++last_; }

    // Gives a finished file its name, unless a later one has it already.
    bool Put(const QByteArray& name, quint64 number, const QByteArray& finished) {
        const QMutexLocker lock(&mutex_);
        quint64& standing = standing_[name];
        if (standing > number) return RemoveFile(finished);
        if (std::rename(finished.constData(), name.constData()) != 0) {
            RemoveFile(finished);
            return false;
        }
        standing = number;
        return true;
    }

    // Writes into the file that has the name, for a folder that takes no new ones. A kill meanwhile leaves a part of
    // it.
    bool PutInPlace(const CachingJob& job, quint64 number, const QByteArray& bytes) {
        const QMutexLocker lock(&mutex_);
        const QByteArray name = EncodeFileName(job.path);
        quint64& standing = standing_[name];
        if (standing > number) return true;
        const FileDescriptor file = OpenFile(name, O_WRONLY | O_NOFOLLOW);
        struct stat status = {};
        if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0) return false;
        if (!S_ISREG(status.st_mode) || status.st_nlink != 1) return false;
        if (!TakeReadersOf(EncodeFileName(job.page), file.Get(), name) || !WriteAll(file.Get(), bytes) ||
            ::ftruncate(file.Get(), bytes.size()) != 0)
            return false;
        standing = number;
        return true;
    }

private:
    std::atomic<quint64> last_ = 0;
    QMutex mutex_;
    QHash<QByteArray, quint64> standing_;
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

bool TakesNoNewFile(int number) {
    return number == EACCES || number == EPERM || number == EROFS;
}

// Completes a file beside the old one before it gets the name. So a link with the name, symbolic or not, is replaced,
// and what it leads to stays as it is: anyone who can write in the folder could have put it there. A file that is
// locked stays, and so does what is no file.
bool Replace(const CachingJob& job, const QByteArray& bytes, quint64 number) {
    const QByteArray name = EncodeFileName(job.path);
    struct stat old = {};
    const bool exists = ::lstat(name.constData(), &old) == 0;
    const bool isFile = exists && S_ISREG(old.st_mode);
    if (exists && !isFile && !S_ISLNK(old.st_mode)) return false;
    if (isFile && ::access(name.constData(), W_OK) != 0) return false;
    const QByteArray unfinished = FolderOf(name) + '/' + HiddenName();
    const SaveRecord record(name, {unfinished});
    FileDescriptor file = OpenFile(unfinished, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.IsOpen()) return isFile && TakesNoNewFile(errno) && Order().PutInPlace(job, number, bytes);
    if (WriteAll(file.Get(), bytes) && TakeReadersOf(EncodeFileName(job.page), file.Get(), name) && file.Close())
        return Order().Put(name, number, unfinished);
    RemoveFile(unfinished);
    return false;
}

// The path of the file, empty when it can't be written.
QString Write(CachingJob job, quint64 number) {
    const QByteArray bytes = CachingBytes(job);
    for (const QString& wanted : {job.path, job.substitute}) {
        if (wanted.isEmpty()) continue;
        job.path = PathBesideDocuments(wanted, job.documents);
        if (Replace(job, bytes, number)) return job.path;
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
