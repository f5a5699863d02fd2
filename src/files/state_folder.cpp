#include "files/state_folder.h"

#include <QDir>
#include <QFile>

namespace vellum {

QByteArray StateFolder() {
    QByteArray state = qgetenv("XDG_STATE_HOME");
    if (!state.startsWith('/')) state = QFile::encodeName(QDir::homePath()) + "/.local/state";
    return state + "/vellumcraft";
}

}  // namespace vellum
