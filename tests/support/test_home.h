// A home of its own for a test program, so that none sees a person's settings.
#pragma once

#include "tests/support/remove_all.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <utility>

namespace vellum::test {

// The variables that programs find a person's folders by, and where these lie in the home.
inline constexpr std::pair<const char*, const char*> homeFolders[] = {{"HOME", ""},
                                                                      {"XDG_CONFIG_HOME", "/.config"},
                                                                      {"XDG_STATE_HOME", "/.local/state"},
                                                                      {"XDG_DATA_HOME", "/.local/share"},
                                                                      {"XDG_CACHE_HOME", "/.cache"},
                                                                      {"XDG_RUNTIME_DIR", "/run"}};

// Nobody else may look into them, as the last one demands.
inline void MakeHomeFolders(const QString& home) {
    for (const auto& [name, folder] : homeFolders) {
        QDir().mkpath(home + folder);
        QFile::setPermissions(home + folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
}

// Made before the application object.
class TestHome {
public:
    TestHome() {
        MakeHomeFolders(home_.path());
        for (const auto& [name, folder] : homeFolders) qputenv(name, QFile::encodeName(home_.path() + folder));
    }
    ~TestHome() { RemoveAll(home_.path()); }
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

private:
    QTemporaryDir home_;
};

}  // namespace vellum::test
