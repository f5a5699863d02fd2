#include "bench/silent_start.h"

#include "settings/settings_keys.h"
#include "shell/start.h"
#include "system/fonts.h"

namespace vellum::bench {

SilentStart::SilentStart(const QString& home, bool usePreview) : home_(home), usePreview_(usePreview) {
    SettingsStore settings(home_ + "/settings.json");
    WriteSetting(settings, keys::showStart, "no");
}

void SilentStart::ReadSettings() {
    settings_ = std::make_unique<SettingsStore>(home_ + "/settings.json");
}

void SilentStart::PrepareFonts() {
    fonts_ = PreparedFontNames(*settings_, SystemFontNames());
}

void SilentStart::Build() {
    recovery_ = std::make_unique<RecoveryStore>(home_ + "/recovery");
    window_ = std::make_unique<MDIform1>(*settings_, prompts_, *recovery_, fonts_, usePreview_);
}

void SilentStart::Load() {
    window_->Load({}, [] {});
}

}  // namespace vellum::bench
