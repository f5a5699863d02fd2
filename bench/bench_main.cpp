// main() of the benchmarks: an application object and a home of its own, and nobody who answers.
#include "tests/support/test_home.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

// A form that waits for an answer would wait for ever, so it ends the run.
void EndAtDialogs(QTimer& watch) {
    QObject::connect(&watch, &QTimer::timeout, [] {
        const QWidget* form = QApplication::activeModalWidget();
        if (!form) return;
        std::fprintf(stderr, "A benchmark has opened a dialog, \"%s\".\n", qPrintable(form->windowTitle()));
        std::_Exit(1);
    });
    watch.start(100);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("VELLUMCRAFT_NO_BROWSER", "1");  // the engine starts after all that is timed here
    const vellum::test::TestHome home;
    const QApplication application(argc, argv);
    QTimer watch;
    EndAtDialogs(watch);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
