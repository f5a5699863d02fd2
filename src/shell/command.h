// What an item of a menu or a bar does, in a form that tables can hold.
#pragma once

namespace vellum {

class MDIform1;
class Workbench;

// One of four: a command of the main window, a tool, a tag pair, or nothing at all.
struct Command {
    void (MDIform1::*run)(int index) = nullptr;
    int index = 0;  // of the item in its array; 0 elsewhere
    void (*openTool)(Workbench& bench) = nullptr;
    const char* open = nullptr;  // goes before the selection, or in its place when `close` is empty
    const char* close = "";
};

[[nodiscard]] constexpr Command Run(void (MDIform1::*run)(int index), int index = 0) {
    return {run, index};
}
[[nodiscard]] constexpr Command Tool(void (*openTool)(Workbench& bench)) {
    return {nullptr, 0, openTool};
}
[[nodiscard]] constexpr Command Tags(const char* open, const char* close = "") {
    return {nullptr, 0, nullptr, open, close};
}
// Opens nothing and says nothing.
[[nodiscard]] constexpr Command Later() {
    return {};
}

// Carries the command out. After a tag pair the keyboard is with the active document's text.
void Execute(const Command& command, MDIform1& window);

}  // namespace vellum
