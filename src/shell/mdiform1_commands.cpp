// The main window's commands on colours, other programs, help and the next document.
#include "editor/document.h"
#include "help/didyouknow.h"
#include "help/frm_about.h"
#include "help/manual.h"
#include "settings/settings_keys.h"
#include "shell/mdiform1.h"
#include "system/programs.h"
#include "tools/framework/color_hex.h"
#include "website/website_commands.h"
#include "widgets/tab_strip.h"

#include <QMdiArea>
#include <QMdiSubWindow>

#include <array>

namespace vellum {
namespace {

// The colour of the place counts for the text, whichever colour it speaks of.
void WriteColor(Document& document, ColorNumber color) {
    document.Text1->SetSelText(ColorToHex(color));
    document.Text1->setFocus();
    document.Text1->ensureCursorVisible();
}

}  // namespace

void MDIform1::InsertColor(ColorNumber color) {
    Document* const document = ActiveDocument();
    if (!document) return;
    document->usingKeys = false;
    document->ProcessUndo();
    document->ResetRedo();
    WriteColor(*document, color);
}

// Takes no snapshot: it is undone together with what was done before.
void MDIform1::InsertOtherColor() {
    if (Document* const document = ActiveDocument()) {
        if (const auto color = prompts_.PickColor(this, 0)) WriteColor(*document, *color);
    }
    clrbutton->update();
}

// In the order in which the documents were opened, so that going on comes past each.
void MDIform1::StepDocument(int step) {
    const QList<QMdiSubWindow*> children = area->subWindowList(QMdiArea::CreationOrder);
    if (children.size() < 2) return;
    const auto next = children.indexOf(area->currentSubWindow()) + step + children.size();
    area->setActiveSubWindow(children.at(next % children.size()));
    if (const Document* const document = ActiveDocument()) document->Text1->setFocus();
}

void MDIform1::mnuFindFileItem(int /*index*/) {
    website_->mnuFindFileItem();
}

void MDIform1::mnuMSAppsItem(int index) {
    static constexpr std::array programs{"calc.exe", "charmap.exe", "clipbrd.exe"};
    const QString program = FindProgram(programs.at(index));
    if (program.isEmpty() || !RunCommand(program)) {
        prompts_.Message(this, "This Windows Application is not installed on your computer");
    }
}

void MDIform1::mnuManualItem(int /*index*/) {
    QString page = ManualPage();
    LoadPage(page);
}

// What the author went for in the tips follows when they are gone.
void MDIform1::mnuDidYouKnow(int /*index*/) {
    TipsChoice choice{};
    {
        Didyouknow tips(*this);
        tips.exec();
        choice = tips.Choice();
    }
    if (choice == TipsChoice::NewDocument) mnuNewItem(0);
    if (choice == TipsChoice::OpenPage) mnuOpenItem(0);
}

void MDIform1::startup() {
    if (ReadSetting(settings_, keys::showStart) == QLatin1String("yes")) mnuDidYouKnow(0);
}

void MDIform1::mnuAboutItem(int /*index*/) {
    frmAbout about(*this);
    about.exec();
}

}  // namespace vellum
