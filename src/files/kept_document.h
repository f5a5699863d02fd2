// Writes what a session keeps of one document: a whole copy, then the edits since. All of it survives the end of the
// program once a function returns; its Settling() makes it survive that of the machine.
#pragma once

#include "files/edit_journal.h"
#include "files/file_descriptor.h"
#include "files/recovery_store.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

namespace vellum {

class KeptDocument {
public:
    explicit KeptDocument(int document) : document_(document) {}

    // Writes a new copy beside the one before it, which goes when the new one has settled. False with errno.
    [[nodiscard]] bool Begin(const QByteArray& folder, const RecoveredText& copy);
    // Whether there is a copy that edits can follow. Somebody may have removed it.
    [[nodiscard]] bool Stands() const;
    // False with errno; nothing can be appended any more then, until a new copy begins.
    [[nodiscard]] bool Append(const std::vector<TextEdit>& edits);
    // More edits than a new copy would take.
    [[nodiscard]] bool IsLong() const;

    // What waits until the disk has everything that is written by now. False with errno. It may run on any thread, one
    // after the other in the order in which they were asked for.
    [[nodiscard]] std::function<bool()> Settling();

private:
    using SharedFile = std::shared_ptr<FileDescriptor>;

    int document_;
    QByteArray folder_;
    int generation_ = 0;
    SharedFile copy_;  // none when edits can't follow
    qint64 copySize_ = 0;
    SharedFile unsettled_;  // the copy that has its first name yet
    EditJournal records_;
    SharedFile journal_;    // none before the first edit
    bool isNamed_ = false;  // the journal's name is on its way to the disk
    qint64 journalSize_ = 0;
};

// Removes all that is kept of a document, whatever is still to settle. False with errno.
bool RemoveKeptDocument(const QByteArray& folder, int document);

}  // namespace vellum
