// A folder that doesn't answer, as on a network drive whose server is gone.
#pragma once

#include <QString>

namespace vellum::test {

// Calls of the system that look at a path in the folder wait until it is revived, or until this object goes; one such
// object at a time. The main thread doesn't wait, because it is the one that revives; its calls are counted.
class DeadFolder {
public:
    explicit DeadFolder(const QString& path);
    ~DeadFolder();
    DeadFolder(const DeadFolder&) = delete;
    DeadFolder& operator=(const DeadFolder&) = delete;

    [[nodiscard]] int Waiting() const;               // calls that wait right now
    [[nodiscard]] int CallsOfTheMainThread() const;  // so far, also after it was revived
    void Revive();
};

}  // namespace vellum::test
