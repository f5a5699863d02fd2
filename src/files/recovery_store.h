// Copies of unsaved texts that survive a crash. Each running program keeps its own folder under the state directory,
// locked as long as it lives; a folder whose lock is free belongs to a program that died.
#pragma once

#include "files/text_file.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace vellum {

struct RecoveredText {
    QString caption;  // of the document window: a path, or "New 3"
    QString text;     // "\n" at line ends
    TextFormat format;
    qint64 writtenAt = 0;  // seconds since 1970, UTC; 0 stands for the moment of Keep()
};

// Where nothing can be written, all of it does nothing and only Flush says so: a lost copy must never stand in an
// author's way.
class RecoveryStore : public QObject {
    Q_OBJECT
public:
    // `root`: the folder that holds the sessions' folders, made when first needed and readable by its owner alone.
    explicit RecoveryStore(const QString& root, QObject* parent = nullptr);
    ~RecoveryStore() override;  // removes this session's copies but for those left behind

    [[nodiscard]] static QString DefaultRoot();  // $XDG_STATE_HOME/vellumcraft/recovery

    // Hands a copy to a worker thread; a newer copy of the same document overtakes a waiting one.
    void Keep(int document, RecoveredText copy);
    // Removes the copy of a document that was saved or closed.
    void Forget(int document);
    // The copy of this document outlives a normal end: its text could not be saved, and the next start offers it.
    void LeaveBehind(int document);
    // Waits until everything handed over has been dealt with; for tests and the end of the program. True when the
    // newest copy of every document kept since the last Flush is on disk or has been forgotten since.
    bool Flush();

    // What sessions that died left behind, oldest first. Sessions of living programs are not looked at. Claims the
    // folders, so that two starting programs don't offer the same text twice; until DiscardFound they stay on disk, and
    // a program that starts after this one has ended without it finds them again. Damaged copies are left out.
    [[nodiscard]] std::vector<RecoveredText> FindLost();
    // Deletes what FindLost found.
    void DiscardFound();

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace vellum
