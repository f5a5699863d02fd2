#include "shell/session.h"

#include "files/safe_write.h"
#include "shell/mdiform1.h"
#include "shell/start.h"

namespace vellum {

Session::Session(QString commandLine)
    : commandLine_(std::move(commandLine)),
      settings_(SettingsStore::DefaultPath()),
      recovery_(RecoveryStore::DefaultRoot()) {}

Session::~Session() = default;

void Session::Run() {
    RepairInterruptedSaves();
    start_ = std::make_unique<Start>(settings_, prompts_);
    connect(start_.get(), &Start::Ready, this, &Session::LoadMainWindow);
    start_->Load();
}

void Session::LoadMainWindow(bool usePreview) {
    window_ = std::make_unique<MDIform1>(settings_, prompts_, recovery_, start_->FontNames(), usePreview);
    connect(window_.get(), &MDIform1::Unloaded, this, &Session::Ended);
    window_->Load(commandLine_, [this] {
        start_->disconnect(this);
        start_.release()->deleteLater();
    });
}

}  // namespace vellum
