#include "shell/main_regions.h"

#include "editor/document.h"
#include "shell/color_bar.h"
#include "shell/status_bar.h"
#include "shell/toolbar.h"
#include "shell/twip_geometry.h"
#include "surface/edit_surface.h"
#include "website/website_panel.h"
#include "widgets/icons.h"
#include "widgets/tab_strip.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

#include <algorithm>

namespace vellum {
namespace {

// Where Drive1 and Dir1 stand in the panel, in twips.
constexpr int directoryLeft = 45;

constexpr int leastPanelHeight = 100;  // twips

QFrame* MakeRule(QWidget* parent, const QString& name) {
    auto* rule = new QFrame(parent);
    rule->setObjectName(name);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

}  // namespace

MainRegions::MainRegions()
    : Picture1(new MainToolbar(this)),
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
      Text5(new QLineEdit(this)) {
    setWindowTitle("Vellumcraft");
    setWindowIcon(ThemeIcon("vellumcraft"));
    BuildBars();
    BuildColumn();
    BuildHelpers();
    connect(Picture11->Picture2, &DragBar::Dragged, this, [this](int y) { DragPanel(y, DragPhase::Moving); });
    connect(Picture11->Picture2, &DragBar::Released, this, [this](int y) { DragPanel(y, DragPhase::Released); });
}

void MainRegions::BuildBars() {
    Picture15->setObjectName("Picture15");
    TabStrip2->setObjectName("TabStrip2");
    TabStrip2->setAccessibleName(tr("Custom bar"));
    TabStrip2->AddTab("Customize/", "Opens the Vellumcraft Settings Dialog Box");
    for (int i = 0; i < 6; ++i) TabStrip2->AddTab({});
    auto* const row = new QHBoxLayout(Picture15);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(TabStrip2);
    row->addStretch();
    TabStrip1->setObjectName("TabStrip1");
    TabStrip1->setAccessibleName(tr("Tag bar"));
}

void MainRegions::BuildColumn() {
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
    for (QWidget* bar : std::initializer_list<QWidget*>{Picture14, Picture15, TabStrip1}) column->addWidget(bar);
    column->addWidget(area, 1);
    column->addWidget(Picture11);
    column->addSpacing(PixelsFromTwips(StatusBarTop(0, 0)));
    setCentralWidget(centre);
    setStatusBar(StatusBar1);
    for (QWidget* background : std::initializer_list<QWidget*>{this, centre, area->viewport()}) {
        background->setMouseTracking(true);
    }
}

void MainRegions::BuildHelpers() {
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

QWidget* MainRegions::Region(int index) const {
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

QAction* MainRegions::Item(const QString& name) const {
    return findChild<QAction*>(name);
}

void MainRegions::ShowLaidOut() {
    laidOut_ = true;
    show();
    ApplyLayout();
}

void MainRegions::ColorBarSetup() {
    Picture14->update();
}

void MainRegions::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    ApplyLayout();
}

void MainRegions::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) ApplyLayout();
}

void MainRegions::ApplyLayout() {
    if (!laidOut_ || isMinimized()) return;
    ColorBarSetup();
    layout_ =
        LayOutMain(layout_, TwipsFromPixels(width()), TwipsFromPixels(height()), !Picture11->isHidden(), directoryLeft);
    TabStrip1->setMaximumWidth(PixelsFromTwips(layout_.tabStripWidth));
    TabStrip2->setMaximumWidth(PixelsFromTwips(layout_.tabStripWidth));
    SetPanelHeight(layout_.panelHeight);
    PlaceLists();
}

void MainRegions::PlaceLists() {
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

void MainRegions::SetPanelHeight(int twips) {
    layout_.panelHeight = twips;
    Picture11->SetWantedHeight(PixelsFromTwips(std::max(twips, leastPanelHeight)));
    if (QLayout* column = centralWidget()->layout()) column->activate();
}

void MainRegions::DragPanel(int pointerY, DragPhase phase) {
    SetPanelHeight(DraggedPanelHeight(TwipsFromPixels(pointerY), layout_.panelHeight, TwipsFromPixels(height()),
                                      TwipsFromPixels(Picture11->Picture2->height()), phase));
}

void MainRegions::StepPane(int step) {
    QWidgetList panes;
    const QMdiSubWindow* child = area->currentSubWindow();
    if (auto* const document = child ? qobject_cast<Document*>(child->widget()) : nullptr) {
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

}  // namespace vellum
