// The folder of one running program, locked as long as it lives, in which it keeps its unsaved texts.
#pragma once

#include "files/file_descriptor.h"
#include "files/recovery_store.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

namespace vellum {

struct RecoverySession {
    QByteArray folder;
    FileDescriptor lock;
};

// A new folder of our own. Empty with errno when the root can't be had or written.
[[nodiscard]] std::optional<RecoverySession> MakeSession(const QByteArray& root);

// The folders whose lock nobody held: it is ours now. Folders with nothing in them but a lock go.
[[nodiscard]] std::vector<RecoverySession> ClaimDeadSessions(const QByteArray& root);

// The texts of a session. Damaged copies are moved to the folder `aside`, and their paths there added to `damaged`.
[[nodiscard]] std::vector<RecoveredText> ReadSession(const RecoverySession& session, const QByteArray& aside,
                                                     QStringList& damaged);

[[nodiscard]] bool HoldsCopies(const RecoverySession& session);
void RemoveSession(RecoverySession session);

// How the session ended, for the next one to read.
void WriteSessionEnd(const QByteArray& folder, SessionEnd end);
void RemoveSessionEnd(const QByteArray& folder);

}  // namespace vellum
