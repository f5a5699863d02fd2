#include "shell/window_commands.h"

#include "editor/document.h"
#include "help/didyouknow.h"
#include "help/frm_about.h"
#include "help/manual.h"
#include "preview/generated_page.h"
#include "settings/settings_keys.h"
#include "shell/commands.h"
#include "shell/form16.h"
#include "shell/frm_settings.h"
#include "system/programs.h"
#include "values/color_hex.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace vellum {
namespace {

// The colour of the place counts for the text, whichever colour it speaks of.
void WriteColor(const Document& document, ColorNumber color) {
    document.Text1->SetSelText(ColorToHex(color));
    document.Text1->setFocus();
    document.Text1->ensureCursorVisible();
}

}  // namespace

void StepDocument(MDIform1& window, int step) {
    const QList<QMdiSubWindow*> children = window.area->subWindowList(QMdiArea::CreationOrder);
    if (children.size() < 2) return;
    const auto next = children.indexOf(window.area->currentSubWindow()) + step + children.size();
    window.area->setActiveSubWindow(children.at(next % children.size()));
    if (const Document* const document = window.ActiveDocument()) document->Text1->setFocus();
}

void ToggleWordWrap(MDIform1& window) {
    Document* const document = window.ActiveDocument();
    if (!document) return;
    document->WordWrapOn = window.Item("mnuWrapItem")->isChecked();
    document->ResizeMe();
}

void ShowRegion(MDIform1& window, int region) {
    window.Region(region)->setVisible(window.Item(QStringLiteral("mnuViewItem(%1)").arg(region))->isChecked());
    window.ApplyLayout();
}

void InsertColor(MDIform1& window, ColorNumber color) {
    Document* const document = window.ActiveDocument();
    if (!document) return;
    document->usingKeys = false;
    document->ProcessUndo();
    document->ResetRedo();
    WriteColor(*document, color);
}

void InsertOtherColor(MDIform1& window) {
    if (const Document* const document = window.ActiveDocument()) {
        if (const auto color = window.Ask().PickColor(&window, 0)) WriteColor(*document, *color);
    }
    window.clrbutton->update();
}

void RunCustomBar(MDIform1& window, int tab) {
    if (tab == 1) {
        ShowSettings(window);
    } else if (QString text = ReadSetting(window.Settings(), keys::customText, tab - 2); !text.isEmpty()) {
        window.PortableColor(text);
    }
    window.TabStrip2->update();
}

void EditVisually(MDIform1& window) {
    if (auto* const document = qobject_cast<Form16*>(window.ActiveDocument())) document->EditVisually();
}

void ShowSettings(MDIform1& window) {
    frmSettings dialog(window, window);
    dialog.exec();
}

void StartAccessory(MDIform1& window, const QString& program) {
    const QString path = FindProgram(program);
    if (path.isEmpty() || !RunCommand(path)) {
        window.Ask().Message(&window, "This Windows Application is not installed on your computer");
    }
}

void ShowManual(MDIform1& window) {
    LoadPage(window, ManualPage());
}

void ShowTips(MDIform1& window) {
    TipsChoice choice{};
    {
        Didyouknow tips(window);
        tips.exec();
        choice = tips.Choice();
    }
    if (choice == TipsChoice::NewDocument) Execute(commands::newPage, window);
    if (choice == TipsChoice::OpenPage) Execute(commands::openPages, window);
}

void ShowAbout(MDIform1& window) {
    frmAbout about(window);
    about.exec();
}

}  // namespace vellum
