// One run of the program: the splash, then the main window, until that is unloaded.
#pragma once

#include "files/recovery_store.h"
#include "settings/settings_store.h"
#include "system/termination.h"
#include "widgets/prompts.h"

#include <QObject>

#include <memory>

namespace vellum {

class MDIform1;
class Start;

class Session : public QObject {
    Q_OBJECT
public:
    // `commandLine`: everything after the program's name, as one path; empty for none.
    explicit Session(QString commandLine);
    ~Session() override;

    void Run();

signals:
    void Ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadMainWindow(bool usePreview);
    void FollowDesktop();

    const QString commandLine_;
    SettingsStore settings_;
    DialogPrompts prompts_;
    RecoveryStore recovery_;
    std::unique_ptr<Start> start_;
    std::unique_ptr<MDIform1> window_;
    bool ended_ = false;
    Termination termination_;  // uses what stands before it
};

}  // namespace vellum
