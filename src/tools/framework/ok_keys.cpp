#include "tools/framework/ok_keys.h"

#include <QPushButton>
#include <QShortcut>

namespace vellum {

void PressByCtrlEnter(QPushButton& button) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const auto* const shortcut = new QShortcut(Qt::CTRL | key, button.window());
        QObject::connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
    }
}

}  // namespace vellum
