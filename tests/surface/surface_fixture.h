// A shown edit surface that has the keyboard.
#pragma once

#include "surface/edit_surface.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum::test {

inline constexpr ColorNumber red = 0x0000FF;
inline constexpr ColorNumber blue = 0xFF0000;
inline constexpr ColorNumber green = 0x008000;

class SurfaceFixture : public testing::Test {
protected:
    SurfaceFixture() {
        surface.resize(500, 300);
        surface.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&surface));
        surface.setFocus();
    }

    // What an input method commits, and what it composes from then on.
    void Commit(const QString& text, const QString& preedit = {}, int replaceFrom = 0, int replaceLength = 0) {
        QInputMethodEvent event(preedit, {});
        if (!text.isEmpty() || replaceLength > 0) event.setCommitString(text, replaceFrom, replaceLength);
        QApplication::sendEvent(&surface, &event);
    }

    EditSurface surface;
};

}  // namespace vellum::test
