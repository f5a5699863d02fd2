// Notes of the saves under way, so that the next start can put right what a killed one left.
#pragma once

#include "files/file_descriptor.h"

#include <QByteArray>
#include <QByteArrayList>

#include <functional>

namespace vellum {

// A name that nobody else uses, for a file that gets its own when it is whole; it begins with the prefix.
inline const QByteArray hiddenPrefix = ".vellumcraft-";
[[nodiscard]] QByteArray HiddenName();

// A note in $XDG_STATE_HOME/vellumcraft/saves, there from its making to its end, and locked as long as this process
// lives. Where none can be made the save goes on without.
class SaveRecord {
public:
    // `target`: the file that is about to be written. `hidden`: the files that stand under names of our own meanwhile.
    SaveRecord(const QByteArray& target, const QByteArrayList& hidden);
    ~SaveRecord();
    SaveRecord(const SaveRecord&) = delete;
    SaveRecord& operator=(const SaveRecord&) = delete;

    // Puts the note on disk, for a save that a power cut may leave half done.
    void Sync() const;

private:
    QByteArray path_;  // empty when there is no note
    FileDescriptor lock_;
};

// Hands over the saves whose process is gone, with absolute paths, and forgets those that `repair` returns true for.
// Costs next to nothing when there are none.
void VisitAbandonedSaves(const std::function<bool(const QByteArray& target, const QByteArrayList& hidden)>& repair);

}  // namespace vellum
