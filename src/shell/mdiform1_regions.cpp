// The regions of the main window: how they are built, wired, laid out and dragged.
#include "editor/document.h"
#include "shell/color_bar.h"
#include "shell/commands.h"
#include "shell/mdiform1.h"
#include "shell/menus.h"
#include "shell/popup_menus.h"
#include "shell/status_bar.h"
#include "shell/tag_bar.h"
#include "shell/toolbar.h"
#include "shell/twip_geometry.h"
#include "surface/edit_surface.h"
#include "tools/links/frm_anchors.h"
#include "tools/media/frm_graphics.h"
#include "tools/media/frm_sound.h"
#include "website/website_commands.h"
#include "website/website_panel.h"
#include "widgets/icons.h"
#include "widgets/tab_strip.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

// Where Drive1 and Dir1 stand in the panel, in twips.
constexpr int directoryLeft = 45;

QFrame* MakeRule(QWidget* parent, const QString& name) {
    auto* rule = new QFrame(parent);
    rule->setObjectName(name);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

QHBoxLayout* BarLayout(QWidget* bar) {
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    return row;
}

// What a double click in the website panel puts into the page.
FileTools MakeFileTools(Workbench& bench) {
    return {[&bench](const QString& path) {
                ShowPreparedTool<frmGraphics>(bench, [&path](frmGraphics& tool) { tool.SetFile(path); });
            },
            [&bench](const QString& path) {
                const QString name = QFileInfo(path).fileName();
                ShowPreparedTool<frmSound>(bench, [&name](frmSound& tool) { tool.SetSource(name); });
            },
            [&bench](const QString& name) {
                ShowPreparedTool<frmAnchors>(bench, [&name](frmAnchors& tool) { tool.SetUrl(name); });
            }};
}

}  // namespace

void MDIform1::BuildBars() {
    Picture15->setObjectName("Picture15");
    TabStrip2->setObjectName("TabStrip2");
    TabStrip2->setAccessibleName(tr("Custom bar"));
    TabStrip2->AddTab("Customize/", "Opens the Vellumcraft Settings Dialog Box");
    for (int i = 0; i < 6; ++i) TabStrip2->AddTab({});
    QHBoxLayout* custom = BarLayout(Picture15);
    custom->addWidget(TabStrip2);
    custom->addStretch();
    TabStrip1->setObjectName("TabStrip1");
    TabStrip1->setAccessibleName(tr("Tag bar"));
    BuildTagBar(*TabStrip1, *this);
}

void MDIform1::BuildRegions() {
    setObjectName("MDIform1");
    setWindowTitle("Vellumcraft");
    setWindowIcon(ThemeIcon("vellumcraft"));

    BuildBars();
    area->setObjectName("area");
    area->setAccessibleName(tr("Documents"));
    area->setMinimumSize(0, 0);
    area->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Picture11->setObjectName("Picture11");

    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeRule(centre, "Line1"));
    column->addWidget(Picture1);
    column->addWidget(MakeRule(centre, "Line2"));
    const std::array<QWidget*, 3> bars{Picture14, Picture15, TabStrip1};
    for (QWidget* bar : bars) column->addWidget(bar);
    column->addWidget(area, 1);
    column->addWidget(Picture11);
    column->addSpacing(PixelsFromTwips(StatusBarTop(0, 0)));
    setCentralWidget(centre);
    setStatusBar(StatusBar1);

    List4->addItems({".bmp", ".jpg", ".gif", ".png", ".wrl"});
    lstDocTypes->addItems(
        {".asa", ".asp", ".css", ".hta", ".htm", ".html", ".inc", ".js", ".jsp", ".smil", ".txt", ".vbs", ".xml"});
    const std::pair<QWidget*, const char*> helpers[] = {{List4, "List4"},
                                                        {lstDocTypes, "lstDocTypes"},
                                                        {List6, "List6"},
                                                        {RichTextBox1, "RichTextBox1"},
                                                        {Text5, "Text5"}};
    for (const auto& [helper, name] : helpers) {
        helper->setObjectName(name);
        helper->hide();
    }
}

void MDIform1::BuildMenus() {
    BuildMenuBar(*menuBar(), *this);
}

void MDIform1::WireRegions() {
    for (QWidget* region : {static_cast<QWidget*>(this), centralWidget(), area->viewport()}) {
        region->setMouseTracking(true);
    }
    area->viewport()->installEventFilter(this);
    connect(Picture1, &MainToolbar::Hint, this, [this](const QString& text) { SetHint(text); });
    connect(TabStrip2, &TabStrip::TabClicked, this, [this](int tab) { RunCustomBar(*this, tab); });
    connect(Picture14, &ColorBar::ColorTaken, this, [this](ColorNumber color) { InsertColor(*this, color); });
    connect(clrbutton, &TabStrip::TabClicked, this, [this] { InsertOtherColor(*this); });
    connect(Text5, &QLineEdit::textChanged, this, &MDIform1::TellDocumentCount);
    connect(&Options(), &SharedOptions::Changed, this, &MDIform1::FollowOptions);
    connect(&files_, &FileCommands::RecentFilesChanged, this, &MDIform1::ShowRecentFiles);
    connect(area, &QMdiArea::subWindowActivated, this, &MDIform1::ShowActiveDocument);
    Picture11->TreeView1->Show(references_, *this);
    connect(Picture11, &WebsitePanel::Hint, this, [this](const QString& text) { SetHint(text); });
    website_ = new WebsiteCommands(*this, *Picture11, MakeFileTools(*this));
    BuildWebsiteMenus(*this);
    for (QWidget* bar : std::initializer_list<QWidget*>{Picture14, Picture15, TabStrip1, TabStrip2}) {
        connect(this, &MDIform1::DocumentsOpen, bar, &QWidget::setEnabled);
    }
    connect(Picture11->Picture2, &DragBar::Dragged, this, [this](int y) { DragPanel(y, DragPhase::Moving); });
    connect(Picture11->Picture2, &DragBar::Released, this, [this](int y) { DragPanel(y, DragPhase::Released); });
}

// Keys of no menu item. The window takes them before the text could.
void MDIform1::BuildShortcuts() {
    static constexpr std::pair<QKeyCombination, Command> keys[] = {
        {Qt::Key_F6, commands::stepPane<1>},
        {Qt::SHIFT | Qt::Key_F6, commands::stepPane<-1>},
        {Qt::CTRL | Qt::Key_Tab, commands::stepDocument<1>},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, commands::stepDocument<-1>},
        {Qt::CTRL | Qt::Key_F6, commands::stepDocument<1>},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_F6, commands::stepDocument<-1>},
    };
    for (const auto& [key, command] : keys) {
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, command = command] { Execute(command, *this); });
    }
}

// The editor takes the Tab key for itself, so F6 and Shift+F6 lead out of it, from pane to pane.
void MDIform1::StepPane(int step) {
    QWidgetList panes;
    if (auto* document = ActiveDocument()) {
        panes << document->Text1;
        if (auto* commands = document->findChild<TabStrip*>("TabStrip1")) panes << commands;
    }
    panes << Picture11->Dir1 << Picture11->File2 << Picture11->TreeView1 << Picture14 << TabStrip2 << TabStrip1;
    panes.removeIf([](const QWidget* pane) { return !pane->isVisible() || !pane->isEnabled(); });
    if (panes.isEmpty()) return;
    const auto current = std::find_if(panes.begin(), panes.end(), [](const QWidget* pane) {
        return pane == QApplication::focusWidget() || pane->isAncestorOf(QApplication::focusWidget());
    });
    const auto index = current == panes.end() ? 0 : current - panes.begin() + step;
    panes.at((index + panes.size()) % panes.size())->setFocus(Qt::TabFocusReason);
}

bool MDIform1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove && watched == area->viewport()) SetHint({});
    return QMainWindow::eventFilter(watched, event);
}

void MDIform1::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    ApplyLayout();
}

void MDIform1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) ApplyLayout();
}

void MDIform1::ApplyLayout() {
    if (!laidOut_ || isMinimized()) return;
    ColorBarSetup();
    layout_ =
        LayOutMain(layout_, TwipsFromPixels(width()), TwipsFromPixels(height()), !Picture11->isHidden(), directoryLeft);
    TabStrip1->setMaximumWidth(PixelsFromTwips(layout_.tabStripWidth));
    TabStrip2->setMaximumWidth(PixelsFromTwips(layout_.tabStripWidth));
    SetPanelHeight(layout_.panelHeight);
    PlaceLists();
}

void MDIform1::PlaceLists() {
    const auto column = [](int leftTwips, int widthTwips, int top) {
        return QRect(PixelsFromTwips(leftTwips), top, std::max(PixelsFromTwips(widthTwips), 0), 0);
    };
    const int top = Picture11->Picture2->height() + 1;
    Picture11->Picture2->resize(PixelsFromTwips(layout_.dragBarWidth), Picture11->Picture2->height());
    QRect drive = column(directoryLeft, layout_.directoryWidth, top);
    drive.setHeight(Picture11->Drive1->sizeHint().height());
    Picture11->ApplyLists(drive, column(directoryLeft, layout_.directoryWidth, drive.bottom() + 2),
                          column(layout_.fileLeft, layout_.fileWidth, top),
                          column(layout_.treeLeft, layout_.treeWidth, top));
}

void MDIform1::SetPanelHeight(int twips) {
    layout_.panelHeight = twips;
    Picture11->SetWantedHeight(std::max(PixelsFromTwips(twips), PixelsFromTwips(100)));
    if (QLayout* column = centralWidget()->layout()) column->activate();
}

void MDIform1::DragPanel(int pointerY, DragPhase phase) {
    SetPanelHeight(DraggedPanelHeight(TwipsFromPixels(pointerY), layout_.panelHeight, TwipsFromPixels(height()),
                                      TwipsFromPixels(Picture11->Picture2->height()), phase));
}

}  // namespace vellum
