// The main window of the benchmarks. It starts in the steps of a session, asks nobody anything, and shows no tips.
#pragma once

#include "files/recovery_store.h"
#include "settings/settings_store.h"
#include "shell/mdiform1.h"
#include "tests/support/scripted_prompts.h"

#include <QStringList>

#include <memory>

namespace vellum::bench {

class SilentStart {
public:
    // Settings and texts for recovery go to the folder `home`.
    SilentStart(const QString& home, bool usePreview);

    // The steps of a start, in their order.
    void ReadSettings();
    void PrepareFonts();
    void Build();
    void Load();

    [[nodiscard]] MDIform1& Window() { return *window_; }

private:
    const QString home_;
    const bool usePreview_;
    test::ScriptedPrompts prompts_;
    std::unique_ptr<SettingsStore> settings_;
    QStringList fonts_;
    std::unique_ptr<RecoveryStore> recovery_;
    std::unique_ptr<MDIform1> window_;
};

}  // namespace vellum::bench
