// Drives a form that opens while a command runs, and closes it again whatever the checks say.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vellum::test {

// Runs `command`, which opens a modal form of the kind `Form`, and `steps` on that form as soon as it is active. The
// form is cancelled when the steps leave it open, and the test fails when no such form comes within ten seconds.
template <typename Form>
void InModal(const std::function<void()>& command, const std::function<void(Form&)>& steps) {
    bool ran = false;
    QElapsedTimer since;
    since.start();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* const front = QApplication::activeModalWidget();
        auto* const form = dynamic_cast<Form*>(front);
        constexpr int patience = 10000;
        // Before it is active it has no focus, and access keys go nowhere.
        if ((!form || !form->isActiveWindow()) && since.elapsed() < patience) return;
        poll.stop();
        if (!form) {
            ADD_FAILURE() << "no such form came";
            if (auto* const other = qobject_cast<QDialog*>(front)) other->reject();
            return;
        }
        ran = true;
        const QPointer<Form> open(form);
        steps(*form);
        if (Form* const left = open.data(); left && left->isVisible()) left->reject();
    });
    poll.start(5);
    command();
    EXPECT_TRUE(ran) << "no such form came";
}

// Runs `command`, which opens a popup menu, and `steps` on the menu; the menu is closed afterwards.
inline void InPopup(const std::function<void()>& command, const std::function<void(QMenu&)>& steps) {
    bool ran = false;
    QElapsedTimer since;
    since.start();
    QTimer poll;
    const auto look = [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        constexpr int patience = 10000;
        if (!menu && since.elapsed() < patience) return;
        poll.stop();
        if (!menu) return;
        ran = true;
        const QPointer<QMenu> open(menu);
        steps(*menu);
        if (QMenu* const left = open.data(); left && left->isVisible()) left->close();
    };
    QObject::connect(&poll, &QTimer::timeout, look);
    poll.start(5);
    command();
    while (poll.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    EXPECT_TRUE(ran) << "no popup came";
}

}  // namespace vellum::test
