#include "browser/browser_engine.h"
#include "files/file_names.h"
#include "shell/session.h"
#include "system/process_end.h"

#include <QApplication>
#include <QByteArrayList>

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

    // As bytes, since the name of a file may be no text. What the toolkit understands is taken out by now.
    QByteArrayList words;
    for (int i = 1; i < argc; ++i) words << argv[i];
    int code = 0;
    {
        vellum::Session session(vellum::DecodeFileName(words.join(' ')));
        QObject::connect(&session, &vellum::Session::Ended, &application, &QApplication::quit, Qt::QueuedConnection);
        session.Run();
        code = QApplication::exec();
    }
    vellum::EndProcessWithin(std::chrono::seconds(3), code);
    return code;
}
