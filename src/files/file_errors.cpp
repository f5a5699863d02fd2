#include "files/file_errors.h"

#include "files/file_names.h"

#include <cerrno>
#include <sys/stat.h>

namespace vellum {

void Say(QString* error, const QString& sentence) {
    if (error != nullptr) *error = sentence;
}

QString SystemMessage(int number) {
    return qt_error_string(number);
}

QString CannotRead(const QString& path, int number) {
    if (number == EFBIG) return QString("Cannot read \"%1\": the file is too large.").arg(ReadableName(path));
    return QString("Cannot read \"%1\": %2.").arg(ReadableName(path), SystemMessage(number));
}

QString CannotWrite(const QString& path, int number) {
    return QString("Cannot write \"%1\": %2.").arg(ReadableName(path), SystemMessage(number));
}

QString NotAFile(const QString& path, mode_t mode) {
    return S_ISDIR(mode) ? QString("\"%1\" is a folder.").arg(ReadableName(path))
                         : QString("\"%1\" is not a text file.").arg(ReadableName(path));
}

}  // namespace vellum
