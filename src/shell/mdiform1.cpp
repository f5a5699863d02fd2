#include "shell/mdiform1.h"

#include "editor/document.h"
#include "files/file_names.h"
#include "files/paths.h"
#include "preview/preview_pipeline.h"
#include "reference/add_tags.h"
#include "settings/settings_keys.h"
#include "shell/color_bar.h"
#include "shell/commands.h"
#include "shell/form16.h"
#include "shell/main_state.h"
#include "shell/menus.h"
#include "shell/popup_menus.h"
#include "shell/status_bar.h"
#include "shell/tag_bar.h"
#include "shell/toolbar.h"
#include "values/number_rules.h"
#include "website/website_panel.h"
#include "widgets/tab_strip.h"
#include "widgets/wait_pointer.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

namespace vellum {
namespace {

// Keys of no menu item. The window takes them before the text could.
constexpr std::pair<QKeyCombination, Command> shortcuts[] = {
    {Qt::Key_F6, commands::stepPane<1>},
    {Qt::SHIFT | Qt::Key_F6, commands::stepPane<-1>},
    {Qt::CTRL | Qt::Key_Tab, commands::stepDocument<1>},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, commands::stepDocument<-1>},
    {Qt::CTRL | Qt::Key_F6, commands::stepDocument<1>},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, commands::stepDocument<-1>},
};

QStringList Entries(const QListWidget& list) {
    QStringList entries;
    for (int i = 0; i < list.count(); ++i) entries << list.item(i)->text();
    return entries;
}

void Replace(QListWidget& list, const QStringList& entries) {
    list.clear();
    list.addItems(entries);
}

// What the website panel puts into the page: the first two by a double click, the link by the right button.
FileTools MakeFileTools(Workbench& bench) {
    return {[&bench](const QString& path) { ShowTool<frmGraphics>(bench, GraphicsOf(path)); },
            [&bench](const QString& path) {
                ShowTool<frmSound>(bench, BackgroundSoundFields{.source = QFileInfo(path).fileName()});
            },
            [&bench](const QString& name) { ShowTool<frmAnchors>(bench, LinkFields{.url = name}); }};
}

}  // namespace

MDIform1::MDIform1(SettingsStore& settings, Prompts& prompts, RecoveryStore& recovery, QStringList fontNames,
                   bool usePreview)
    : documents(*this, *area),
      settings_(settings),
      prompts_(prompts),
      files_(*this, documents),
      internet_(*this, documents),
      recovery_(recovery, *this),
      outside_(documents, *this),
      website_(new WebsiteCommands(*this, *Picture11, MakeFileTools(*this))),
      fontNames_(std::move(fontNames)),
      usePreview_(usePreview) {
    setObjectName("MDIform1");
    WireCommands();
    WireRegions();
}

void MDIform1::WireCommands() {
    BuildMenuBar(*menuBar(), *this);
    BuildTagBar(*TabStrip1, *this);
    BuildWebsiteMenus(*this);
    Picture1->Connect(*this);
    connect(TabStrip2, &TabStrip::TabClicked, this, [this](int tab) { RunCustomBar(*this, tab); });
    connect(Picture14, &ColorBar::ColorTaken, this, [this](ColorNumber color) { InsertColor(*this, color); });
    connect(clrbutton, &TabStrip::TabClicked, this, [this] { InsertOtherColor(*this); });
    for (QWidget* bar : std::initializer_list<QWidget*>{Picture14, Picture15, TabStrip1, TabStrip2}) {
        connect(this, &MDIform1::DocumentsOpen, bar, &QWidget::setEnabled);
    }
    for (const auto& [key, command] : shortcuts) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, command = command] { Execute(command, *this); });
    }
}

void MDIform1::WireRegions() {
    area->viewport()->installEventFilter(this);
    const auto showHint = [this](const QString& text) { SetHint(text); };
    connect(Picture1, &MainToolbar::Hint, this, showHint);
    connect(Picture11, &WebsitePanel::Hint, this, showHint);
    connect(&documents, &OpenDocuments::Made, this, &MDIform1::WireDocument);
    connect(&documents, &OpenDocuments::CountChanged, this, &MDIform1::TellDocumentCount);
    connect(&Options(), &SharedOptions::Changed, this, &MDIform1::FollowOptions);
    connect(&settings_, &SettingsStore::Changed, this, [this] { Options().Set(ReadEditorOptions(settings_)); });
    connect(&files_, &FileCommands::RecentFilesChanged, this, &MDIform1::ShowRecentFiles);
    connect(area, &QMdiArea::subWindowActivated, this, &MDIform1::ShowActiveDocument);
    connect(area, &QMdiArea::subWindowActivated, this, [this] { outside_.Arrive(); });
    Picture11->TreeView1->Show(references_, *this);
}

void MDIform1::Load(const QString& commandLine, const std::function<void()>& splashDone) {
    SetHint("Getting Data From Computer");
    StoreFonts(*this, fontNames_, settings_);
    Options().Set(ReadEditorOptions(settings_));
    SetWrapChecked(Options()->wordWrap);
    RestoreState(*this, files_.Recent(), settings_);
    ShowRecentFiles();
    TellDocumentCount();
    AddTags();
    splashDone();
    ShowLaidOut();
    documents.Open({.path = commandLine, .isFirst = true});
    SetHint({});
    // What was lost comes before the tips, which keep away from a page that has text.
    recovery_.OfferLost(documents);
    const Document* const active = ActiveDocument();
    if (active && active->Text1->Length() == 0) startup();
}

// The documents go first, as they speak to the window until their end.
MDIform1::~MDIform1() {
    area->disconnect(this);
    Picture11->TreeView1->Forget();  // it outlives the nodes that it shows
    qDeleteAll(area->subWindowList());
}

Document* MDIform1::NewForm() {
    return documents.Open({});
}
void MDIform1::OpenInNewWindow(const QString& path, const QString& failure) {
    documents.Open({.path = path, .failure = failure});
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

void MDIform1::startup() {
    if (ReadSetting(settings_, keys::showStart) == QLatin1String("yes")) ShowTips(*this);
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
    const EditorOptions& options = Options().Now();
    ApplyEditorFont(options.EditorFontName, options.EditorFontSize);
    if (auto* document = qobject_cast<Form16*>(ActiveDocument())) {
        document->Pipeline().SetRefreshRate(options.RefreshRate);
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

void MDIform1::WireDocument(DocumentWindow* window) {
    recovery_.Watch(*window);
    outside_.Watch(*window);
    SetWrapChecked(window->WordWrapOn);
    connect(window, &DocumentWindow::Focused, this, [this, window] { SetWrapChecked(window->WordWrapOn); });
    connect(window, &DocumentWindow::Saved, &files_, &FileCommands::AddRecentFile);
    connect(window, &Document::MenuWanted, this, [this](QPoint place) { ShowTextMenu(*this, place); });
    const auto showFacts = [this, window] { ShowDocumentFacts(*window); };
    connect(window->Text1, &EditSurface::Changed, this, showFacts);
    connect(window->Text1, &EditSurface::SelChanged, this, showFacts);
    connect(window, &Document::SaverChanged, this, showFacts);
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
        item->setText(ReadableName(path).replace('&', "&&"));
        item->setVisible(!path.isEmpty());
        if (!path.isEmpty()) menu->setEnabled(true);
    }
}

void MDIform1::TellDocumentCount() {
    Text5->setText(QString::number(OpenDocCount()));
    ShowStatus(StatusPanel::OpenDocuments, tr("%1 open").arg(OpenDocCount()));
    emit DocumentsOpen(OpenDocCount() != 0);
}

QStringList MDIform1::ImageTypes() const {
    return Entries(*List4);
}
QStringList MDIform1::DocumentTypes() const {
    return Entries(*lstDocTypes);
}
void MDIform1::SetImageTypes(const QStringList& types) {
    Replace(*List4, types);
}
void MDIform1::SetDocumentTypes(const QStringList& types) {
    Replace(*lstDocTypes, types);
}
void MDIform1::SetCustomCaption(int row, const QString& caption) {
    TabStrip2->SetCaption(row + 2, caption);
}

bool MDIform1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove && watched == area->viewport()) SetHint({});
    return MainRegions::eventFilter(watched, event);
}

void MDIform1::closeEvent(QCloseEvent* event) {
    documents.StopClosing = false;
    while (!documents.StopClosing) {
        if (OpenDocCount() < 1) {
            WriteState(*this, files_.Recent(), settings_);
            hide();
            break;
        }
        if (documents.CloseActive() || documents.StopClosing) continue;
        // With a count that is too high the documents run out first; the window then goes without writing its state.
        if (area->subWindowList().isEmpty()) break;
        documents.StopClosing = true;
    }
    event->setAccepted(!documents.StopClosing);
    if (!documents.StopClosing) emit Unloaded();
}

}  // namespace vellum
