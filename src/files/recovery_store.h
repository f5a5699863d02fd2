// Copies of unsaved texts that survive a crash. Each running program keeps its own folder under the state directory,
// locked as long as it lives; a folder whose lock is free belongs to a program that died.
#pragma once

#include "files/edit_journal.h"
#include "files/text_file.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vellum {

// How the session ended that left a text behind, as far as it could still tell.
enum class SessionEnd : unsigned char {
    Unknown,     // it crashed, or the machine did
    Closed,      // by its author, with a text that could not be saved
    Terminated,  // by a signal that asks a program to end
    Desktop,     // with the session of the desktop
};

struct RecoveredText {
    QString caption;  // of the document window: a path, or "New 3"
    QString text;     // "\n" at line ends
    TextFormat format;
    qint64 writtenAt = 0;  // seconds since 1970, UTC; 0 stands for the moment of Keep()
    qint64 fileTime = 0;   // of its file while that held the same: nanoseconds since 1970, UTC; 0 for none
    std::vector<OtherLineEnd> otherLineEnds = {};  // those that are not format.lineEnd, ascending
    // Of a text that was found:
    SessionEnd end = SessionEnd::Unknown;
    bool incomplete = false;  // its last edits are lost
};

// Whether something else has changed the file of a text since the two were the same. Blocks.
[[nodiscard]] bool HasFileChanged(const RecoveredText& text);

// Where nothing can be written, all of it does nothing, and says so by a signal and in Flush: a lost copy must never
// stand in an author's way.
class RecoveryStore : public QObject {
    Q_OBJECT
public:
    // `root`: the folder that holds the sessions' folders, made when first needed and readable by its owner alone.
    explicit RecoveryStore(const QString& root, QObject* parent = nullptr);
    ~RecoveryStore() override;  // removes this session's copies but for those left behind

    [[nodiscard]] static QString DefaultRoot();  // $XDG_STATE_HOME/vellumcraft/recovery

    // Hands a copy to a worker thread, which writes it within a second; a newer copy of the same document overtakes a
    // waiting one.
    void Keep(int document, RecoveredText copy);
    // The same for an edit of a text that is kept: it costs what the edit holds, not what the text does.
    void Change(int document, TextEdit edit);
    // Removes the copy of a document that was saved or closed. It is gone when this returns, unless the disk takes
    // longer than a second.
    void Forget(int document);
    // The copy of this document outlives a normal end: its text could not be saved, and the next start offers it.
    void LeaveBehind(int document);
    // The program is about to end without asking what becomes of its texts: writes what is waiting, and leaves all
    // copies behind. Takes no longer than a second and a half. From any thread.
    void EndSession(SessionEnd end);
    // Waits until everything handed over is on disk. True when the newest copy of every document kept since the last
    // Flush is there or has been forgotten since.
    bool Flush();

    // What sessions that died left behind, oldest first. Sessions of living programs are not looked at. Claims the
    // folders, so that two starting programs don't offer the same text twice; until DiscardFound they stay on disk, and
    // a program that starts after this one has ended without it finds them again. Damaged copies are put aside.
    [[nodiscard]] std::vector<RecoveredText> FindLost();
    // Where FindLost has put damaged copies.
    [[nodiscard]] const QStringList& PutAside() const;
    // Deletes what FindLost found.
    void DiscardFound();

signals:
    // From the worker: its edits have become too many, or have lost their copy. Keep() it anew.
    void WholeWanted(int document);
    // From the worker: a sentence for a person says why its newest copy could not be written.
    void NotKept(int document, const QString& reason);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace vellum
