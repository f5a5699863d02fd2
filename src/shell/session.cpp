#include "shell/session.h"

#include "files/safe_write.h"
#include "shell/mdiform1.h"
#include "shell/start.h"

#include <QEvent>
#include <QGuiApplication>

namespace vellum {

Session::Session(QString commandLine)
    : commandLine_(std::move(commandLine)),
      settings_(SettingsStore::DefaultPath()),
      recovery_(RecoveryStore::DefaultRoot()),
      termination_([this] { recovery_.EndSession(SessionEnd::Terminated); }) {
    FollowDesktop();
}

Session::~Session() = default;

void Session::Run() {
    RepairInterruptedSaves();
    start_ = std::make_unique<Start>(settings_, prompts_);
    connect(start_.get(), &Start::Ready, this, &Session::LoadMainWindow);
    start_->Load();
}

void Session::LoadMainWindow(bool usePreview) {
    window_ = std::make_unique<MDIform1>(settings_, prompts_, recovery_, start_->FontNames(), usePreview);
    connect(window_.get(), &MDIform1::Unloaded, this, [this] {
        ended_ = true;
        emit Ended();
    });
    window_->Load(commandLine_, [this] {
        start_->disconnect(this);
        start_.release()->deleteLater();
    });
}

// The desktop's session may end while nobody can be asked any more. It may also go on after all.
void Session::FollowDesktop() {
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [this] {
            recovery_.EndSession(SessionEnd::Desktop);
            qApp->installEventFilter(this);
        },
        Qt::DirectConnection);
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        if (!ended_) recovery_.EndSession(SessionEnd::Desktop);
    });
}

// The toolkit would close all windows, with their questions.
bool Session::eventFilter(QObject* watched, QEvent* event) {
    if (watched != qApp || event->type() != QEvent::Quit) return QObject::eventFilter(watched, event);
    QCoreApplication::exit();
    return true;
}

}  // namespace vellum
