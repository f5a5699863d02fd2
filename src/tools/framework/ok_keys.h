// The keys of OK in a form whose fields need Enter for themselves.
#pragma once

class QPushButton;

namespace vellum {

// Ctrl+Enter, on either part of the keyboard, presses the button wherever its form has the keyboard.
void PressByCtrlEnter(QPushButton& button);

}  // namespace vellum
