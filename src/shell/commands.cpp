#include "shell/commands.h"

#include "editor/document.h"

#include <QAction>

namespace vellum {

void Execute(const Command& command, MDIform1& window) {
    if (command.run) return command.run(window);
    const Document* const document = window.ActiveDocument();
    if (!command.open || !document) return;
    window.Addstuff(command.open, command.close);
    document->Text1->setFocus();
    document->Text1->ensureCursorVisible();
}

void Connect(QAction& item, const Command& command, MDIform1& window) {
    QObject::connect(&item, &QAction::triggered, &window, [&window, command] { Execute(command, window); });
    if (command.needs == Needs::Document) {
        QObject::connect(&window, &MDIform1::DocumentsOpen, &item, &QAction::setEnabled);
    } else if (command.needs == Needs::Preview) {
        item.setEnabled(window.UsePreview());
    }
}

}  // namespace vellum
