// A home of its own for a test program, so that none sees a person's settings.
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace vellum::test {

// Made before the application object.
class TestHome {
public:
    TestHome() {
        for (const auto& [name, folder] : {std::pair{"HOME", ""},
                                           {"XDG_CONFIG_HOME", "/.config"},
                                           {"XDG_STATE_HOME", "/.local/state"},
                                           {"XDG_DATA_HOME", "/.local/share"},
                                           {"XDG_CACHE_HOME", "/.cache"},
                                           {"XDG_RUNTIME_DIR", "/run"}}) {
            const QString path = home_.path() + QLatin1String(folder);
            QDir().mkpath(path);
            qputenv(name, path.toLocal8Bit());
        }
        QFile::setPermissions(home_.path() + "/run", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QTemporaryDir home_;
};

}  // namespace vellum::test
