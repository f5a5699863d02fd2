// What an input method composes at the caret. It stands in the layout of its line, and isn't text yet.
#pragma once

#include <QTextCursor>

namespace vellum {

class FormatLayouts;

class Composition {
public:
    explicit Composition(FormatLayouts& layouts) : layouts_(layouts) {}

    // While the toolkit shows or hides it, and reports that as if text changed.
    [[nodiscard]] bool Changes() const { return changes_; }
    void BeginChange() { changes_ = true; }
    // `place` is where something is composed from now on, null for nowhere.
    void EndChange(const QTextCursor& place);

    // Whatever else changes the text or moves the caret ends it. What the input method commits then is text; else what
    // is being composed is gone.
    void End(bool commits);

private:
    FormatLayouts& layouts_;
    QTextCursor place_;
    bool changes_ = false;
};

}  // namespace vellum
