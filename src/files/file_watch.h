// Tells when something happens to files, also to files that are replaced by others or not there yet.
#pragma once

#include <QObject>
#include <QStringList>

class QThread;

namespace vellum {

// The watching runs in a thread of its own, so that a mount that is gone holds nobody up. It is a hint: network folders
// may tell nothing.
class FileWatch : public QObject {
    Q_OBJECT
public:
    explicit FileWatch(QObject* parent = nullptr);
    ~FileWatch() override;

    // From now on these are watched, and no others.
    void SetFiles(const QStringList& files);

signals:
    // Something happened to one of the files or beside it; what comes close together is told once.
    void Stirred();

private:
    QThread* thread_;
    QObject* watcher_;  // lives in that thread
};

}  // namespace vellum
