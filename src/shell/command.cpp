#include "shell/command.h"

#include "editor/document.h"
#include "shell/mdiform1.h"

namespace vellum {

void Execute(const Command& command, MDIform1& window) {
    if (command.run) return (window.*command.run)(command.index);
    if (command.openTool) return command.openTool(window);
    const Document* const document = window.ActiveDocument();
    if (!command.open || !document) return;
    window.Addstuff(command.open, command.close);
    document->Text1->setFocus();
    document->Text1->ensureCursorVisible();
}

}  // namespace vellum
