#include "browser/browser_engine.h"
#include "shell/session.h"

#include <QApplication>

#include <csignal>

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN);  // a file larger than the system allows fails its write, and the program goes on
    vellum::PrepareBrowserEngine();
    QApplication application(argc, argv);
    QApplication::setApplicationName("vellumcraft");
    QApplication::setApplicationDisplayName({});
    QApplication::setApplicationVersion("2");
    QApplication::setDesktopFileName("vellumcraft");
    QApplication::setQuitOnLastWindowClosed(false);

    vellum::Session session(QApplication::arguments().mid(1).join(' '));
    QObject::connect(&session, &vellum::Session::Ended, &application, &QApplication::quit, Qt::QueuedConnection);
    session.Run();
    return QApplication::exec();
}
