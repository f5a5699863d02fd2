// main() of every test program: an application object and a home of its own, so that no test sees a person's settings.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    for (const auto& [name, folder] : {std::pair{"HOME", ""},
                                       {"XDG_CONFIG_HOME", "/.config"},
                                       {"XDG_STATE_HOME", "/.local/state"},
                                       {"XDG_DATA_HOME", "/.local/share"},
                                       {"XDG_CACHE_HOME", "/.cache"},
                                       {"XDG_RUNTIME_DIR", "/run"}}) {
        const QString path = home.path() + QLatin1String(folder);
        QDir().mkpath(path);
        qputenv(name, path.toLocal8Bit());
    }
    QFile::setPermissions(home.path() + "/run", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QApplication application(argc, argv);
    QApplication::setApplicationName("vellumcraft-tests");
    return RUN_ALL_TESTS();
}
