#include "shell/mdiform1.h"

#include "preview/preview_pipeline.h"
#include "reference/add_tags.h"
#include "settings/settings_keys.h"
#include "shell/color_bar.h"
#include "shell/form16.h"
#include "shell/form26.h"
#include "shell/menus.h"
#include "shell/popup_menus.h"
#include "shell/status_bar.h"
#include "shell/toolbar.h"
#include "shell/window_commands.h"
#include "surface/edit_surface.h"
#include "system/programs.h"
#include "values/number_rules.h"
#include "website/website_panel.h"
#include "widgets/tab_strip.h"
#include "widgets/wait_pointer.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include <array>

namespace vellum {

MDIform1::MDIform1(SettingsStore& settings, Prompts& prompts, RecoveryStore& recovery, QStringList fontNames,
                   bool usePreview)
    : Picture1(new MainToolbar(*this)),
      Picture14(new ColorBar(this)),
      clrbutton(Picture14->clrbutton),
      Picture15(new QWidget(this)),
      TabStrip2(new TabStrip(Picture15)),
      TabStrip1(new TabStrip(this)),
      area(new QMdiArea(this)),
      Picture11(new WebsitePanel(this)),
      StatusBar1(new StatusBar(this)),
      List4(new QListWidget(this)),
      lstDocTypes(new QListWidget(this)),
      List6(new QListWidget(this)),
      RichTextBox1(new EditSurface(this)),
      Text5(new QLineEdit(QStringLiteral("1"), this)),
      settings_(settings),
      prompts_(prompts),
      files_(*this),
      recovery_(recovery),
      fontNames_(std::move(fontNames)),
      usePreview_(usePreview) {
    BuildRegions();
    BuildMenus();
    WireRegions();
    BuildShortcuts();
}

// The documents go first, as they speak to the window until their end.
MDIform1::~MDIform1() {
    area->disconnect(this);
    Picture11->TreeView1->Forget();  // it outlives the nodes that it shows
    qDeleteAll(area->subWindowList());
}

Document* MDIform1::ActiveDocument() const {
    const QMdiSubWindow* child = area->currentSubWindow();
    return child ? qobject_cast<Document*>(child->widget()) : nullptr;
}

QString MDIform1::OpenDocCount() const {
    return Text5->text();
}
void MDIform1::SetOpenDocCount(const QString& count) {
    Text5->setText(count);
}
void MDIform1::ShowStatus(StatusPanel panel, const QString& text) {
    StatusBar1->SetPanel(panel, text);
}
QStringList MDIform1::FontNames() const {
    return fontNames_;
}
QString MDIform1::WebsiteDirectory() const {
    return Picture11->FilePath();
}
void MDIform1::RefreshWebsite() {
    Picture11->Refresh();
}
void MDIform1::AddRecentFile(const QString& path) {
    files_.AddRecentFile(path);
}

void MDIform1::startup() {
    if (ReadSetting(settings_, keys::showStart) == QLatin1String("yes")) ShowTips(*this);
}

void MDIform1::ColorBarSetup() {
    Picture14->update();
}

void MDIform1::AddTags() {
    const WaitPointer wait;
    Picture11->TreeView1->BeginRefill();
    vellum::AddTags(references_, settings_, DataPath("Dtd"),
                    [this](const QString& caption) { setWindowTitle(caption); });
    Picture11->TreeView1->EndRefill();
}

void MDIform1::ApplyEditorFont(const QString& family, const QString& pointSize) {
    RichTextBox1->SetEditorFont(family, pointSize);
    if (const Document* document = ActiveDocument()) document->Text1->SetEditorFont(family, pointSize);
}

// Only the active window takes the new font and period; the others keep theirs until they are opened anew.
void MDIform1::FollowOptions() {
    constexpr int millisecondsInSecond = 1000;
    const EditorOptions& options = Options().Now();
    ApplyEditorFont(options.EditorFontName, options.EditorFontSize);
    if (auto* document = qobject_cast<Form16*>(ActiveDocument())) {
        document->Timer2->setInterval(options.RefreshRate * millisecondsInSecond);
    }
}

void MDIform1::PaintActiveDocument(ColorNumber color) {
    const Document* document = ActiveDocument();
    if (!document) return;
    document->Text1->SetSelStart(0);
    document->Text1->SetSelLength(document->Text1->Length());
    document->Text1->SetSelColor(color);
    document->Text1->SetSelStart(0);
}

void MDIform1::SetWrapChecked(bool checked) {
    if (QAction* item = Item("mnuWrapItem")) item->setChecked(checked);
}

Document* MDIform1::CreateDocument() {
    auto* document = usePreview_ ? static_cast<DocumentWindow*>(new Form16(*this)) : new Form26(*this);
    QMdiSubWindow* child = area->addSubWindow(document);
    child->setAttribute(Qt::WA_DeleteOnClose);
    child->setWindowIcon(windowIcon());
    // The File menu has the same shortcut, and two of them cancel each other out.
    for (QAction* item : child->systemMenu()->actions()) item->setShortcut({});
    child->resize(area->viewport()->size() * 3 / 4);
    recovery_.Watch(*document);
    connect(document->Text1, &EditSurface::Changed, this, [this, document] { ShowDocumentFacts(*document); });
    connect(document->Text1, &EditSurface::SelChanged, this, [this, document] { ShowDocumentFacts(*document); });
    connect(document, &Document::MenuWanted, this, [this](QPoint place) { ShowTextMenu(*this, place); });
    connect(document, &Document::SaverChanged, this, [this, document] { ShowDocumentFacts(*document); });
    if (area->subWindowList().size() == 1) {
        document->showMaximized();
    } else {
        document->show();
    }
    area->setActiveSubWindow(child);
    document->ResizeMe();  // its first layout may have measured the window that was active before
    document->setFocus();
    return document;
}

void MDIform1::OpenInNewWindow(const QString& path, const QString& failure) {
    files_.OpenInNewWindow(path, failure);
}

void MDIform1::LoadPage(QString& html) {
    vellum::LoadPage(*this, html);
}

void MDIform1::ShowDocumentFacts(const Document& document) {
    if (&document != ActiveDocument()) return;
    ShowStatus(StatusPanel::Saved, document.Saver() ? tr("Saved") : tr("Changed"));
    ShowStatus(StatusPanel::Length, NumberText(document.Text1->Length()) + " bytes");
    ShowStatus(StatusPanel::Line, NumberText(document.Text1->GetLineFromChar(document.Text1->SelStart()) + 1));
}

void MDIform1::ShowActiveDocument() {
    const Document* document = ActiveDocument();
    if (document) {
        SetWrapChecked(document->WordWrapOn);
        ShowDocumentFacts(*document);
        return;
    }
    for (const StatusPanel panel : {StatusPanel::Saved, StatusPanel::Length, StatusPanel::Line}) ShowStatus(panel, {});
}

void MDIform1::ShowRecentFiles() {
    QAction* menu = Item("mnuRecentFile");
    menu->setEnabled(false);
    for (int i = 0; i < RecentFileList::slotCount; ++i) {
        const QString& path = files_.Recent().Slot(i);
        QAction* item = Item(QStringLiteral("mnuRecents(%1)").arg(i));
        item->setText(QString(path).replace('&', "&&"));
        item->setVisible(!path.isEmpty());
        if (!path.isEmpty()) menu->setEnabled(true);
    }
}

void MDIform1::TellDocumentCount() {
    ShowStatus(StatusPanel::OpenDocuments, tr("%1 open").arg(OpenDocCount()));
    emit DocumentsOpen(OpenDocCount() != QLatin1String("0"));
}

QAction* MDIform1::Item(const QString& name) const {
    return findChild<QAction*>(name);
}

QWidget* MDIform1::Region(int index) const {
    switch (index) {
        case 0:
            return Picture1;
        case 1:
            return Picture14;
        case 2:
            return Picture15;
        default:
            return Picture11;
    }
}

bool MDIform1::UnloadActiveDocument() {
    QMdiSubWindow* child = area->currentSubWindow();
    if (!child && !area->subWindowList().isEmpty()) child = area->subWindowList().last();
    return child && child->close();
}

void MDIform1::closeEvent(QCloseEvent* event) {
    StopClosing = false;
    while (!StopClosing) {
        if (LeadingNumber(OpenDocCount()) < 1) {
            WriteState();
            hide();
            break;
        }
        if (UnloadActiveDocument() || StopClosing) continue;
        // With a count that is too high the documents run out first; the window then goes without writing its state.
        if (area->subWindowList().isEmpty()) break;
        StopClosing = true;
    }
    event->setAccepted(!StopClosing);
    if (!StopClosing) emit Unloaded();
}

}  // namespace vellum
