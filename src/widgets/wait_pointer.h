// The busy pointer for as long as it stands.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace vellum {

class WaitPointer {
public:
    WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QGuiApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace vellum
