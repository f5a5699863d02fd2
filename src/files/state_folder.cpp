#include "files/state_folder.h"

#include "files/file_descriptor.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <sys/stat.h>

namespace vellum {

QByteArray StateFolder() {
    QByteArray state = qgetenv("XDG_STATE_HOME");
    if (!state.startsWith('/')) state = QFile::encodeName(QDir::homePath()) + "/.local/state";
    return state + "/vellumcraft";
}

bool MakeStateFolder(const QByteArray& folder) {
    constexpr mode_t ownerOnly = 0700;
    QDir().mkpath(QFile::decodeName(FolderOf(folder)));
    return (::mkdir(folder.constData(), ownerOnly) == 0 || errno == EEXIST) &&
           ::chmod(folder.constData(), ownerOnly) == 0;
}

}  // namespace vellum
