#include "shell/form16.h"

#include "editor/workbench.h"
#include "help/manual.h"
#include "preview/generated_page.h"
#include "preview/visual_copy.h"
#include "settings/settings_keys.h"
#include "shell/twip_geometry.h"
#include "values/number_rules.h"
#include "widgets/icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace vellum {
namespace {

// The slider's range before the first layout; fine enough for any percentage.
constexpr int designSliderMaximum = 10000;

// What the layout leaves free below the panes, and how high a bar may be that still stands in it, in twips.
constexpr int barRoom = 400;
constexpr int largestBar = 450;

}  // namespace

Form16::Form16(Workbench& workbench, QWidget* parent)
    : DocumentWindow(workbench, parent),
      WebBrowser1(new BrowserSurface(this)),
      Slider1(new QSlider(Qt::Horizontal, this)),
      TabStrip1(new TabStrip(this)),
      Check1(new QCheckBox("AutoPreview", this)),
      Timer1(new QTimer(this)),
      bar_(new QWidget(this)),
      pipeline_(workbench, *this, *WebBrowser1, *Check1) {
    setObjectName("Form16");
    NameControls();
    WireControls();

    LoadWrap();
    const QString vertical = ReadSetting(workbench.Settings(), keys::verticalMain);
    PreviewSplitVertical = vertical == QLatin1String("True");
    LoadFont();
    LoadSplit();
    Timer1->start();
}

void Form16::NameControls() {
    WebBrowser1->setObjectName("WebBrowser1");
    WebBrowser1->hide();
    Slider1->setObjectName("Slider1");
    Slider1->setToolTip("Resizes the Editing and Preview Panes.");
    Slider1->setAccessibleName(tr("Split between editing and preview panes"));
    Slider1->setMouseTracking(true);
    Slider1->installEventFilter(this);
    TabStrip1->setObjectName("TabStrip1");
    TabStrip1->setAccessibleName(tr("Preview commands"));
    TabStrip1->AddTab(tr("Preview"), "Previews the HTML Document", ThemeIcon("preview"));
    TabStrip1->AddTab(tr("Multi"), "Opens Multi-Resolution Preview", ThemeIcon("multi-preview"));
    TabStrip1->AddTab("Visual VC", "Launches Visual VC, a WYSIWYG editor.", ThemeIcon("visual"));
    TabStrip1->AddTab(tr("Split"), "Shifts Between A Vertical and Horizontal Split of the Editing and Preview Panes.",
                      ThemeIcon("split"));
    Check1->setObjectName("Check1");
    Check1->setChecked(true);
    Check1->setToolTip(tr("Refreshes the preview by itself while you type"));
    Check1->setFocusPolicy(Qt::TabFocus);
    bar_->setMouseTracking(true);
    auto* row = new QHBoxLayout(bar_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(TabStrip1);
    row->addWidget(Check1);

    Timer1->setObjectName("Timer1");
    Timer1->setInterval(400);
    Timer1->setSingleShot(true);
}

void Form16::WireControls() {
    connect(Timer1, &QTimer::timeout, this, &Form16::ShowFirstView);
    connect(TabStrip1, &TabStrip::TabClicked, this, &Form16::RunTab);
    connect(Slider1, &QSlider::valueChanged, this, &Form16::FollowHandle);
    // A closed window is deleted some time later, and must do nothing until then.
    connect(this, &DocumentWindow::Closing, this, [this] {
        Timer1->stop();
        pipeline_.Stop();
    });
}

void Form16::LoadSplit() {
    layout_.slider.maximum = designSliderMaximum;
    const double percent = std::clamp(ReadNumberSetting(workbench_.Settings(), keys::editPercent), 0.0, 100.0);
    layout_.slider.value = static_cast<int>(RoundHalfEven(percent * designSliderMaximum * 0.01));
}

// A page that was asked for in the meantime stays.
void Form16::ShowFirstView() {
    const bool asked = !WebBrowser1->Path().isEmpty() || pipeline_.IsWriting();
    if (!asked) ShowPageIn(workbench_, pipeline_, ManualPage());
    WebBrowser1->show();
}

void Form16::EditVisually() {
    if (const QString path = WriteVisualCopy(workbench_, *this); !path.isEmpty()) CachePath = path;
}

void Form16::RunTab(int index) {
    switch (index) {
        case 1:
            pipeline_.PreviewNow();
            Text1->setFocus();
            break;
        case 3:
            EditVisually();
            break;
        case 4:
            PreviewSplitVertical = !PreviewSplitVertical;
            ResizeMe();
            break;
        default:
            break;
    }
}

// The room below the panes has a fixed height in the layout; what a large font needs beyond it is taken off the
// window.
WindowSize Form16::Sizes() const {
    const QWidget* active = workbench_.ActiveDocument();
    if (!active) active = this;
    const int bar = bar_->sizeHint().height();
    const int more = bar > PixelsFromTwips(largestBar) ? bar - PixelsFromTwips(barRoom) : 0;
    return {TwipsFromPixels(width()), TwipsFromPixels(height() - more), TwipsFromPixels(active->width()),
            TwipsFromPixels(active->height() - more)};
}

void Form16::LayOut() {
    layout_ = PreviewSplitVertical ? LayOutSideBySide(layout_, Sizes(), WordWrapOn)
                                   : LayOutStacked(layout_, Sizes(), WordWrapOn);
    Apply();
}

bool Form16::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Slider1 && event->type() == QEvent::MouseMove) {
        workbench_.SetHint("Resizes the editing and preview panes.");
        // The slider would hand a move without a button on to the window, which clears the hint.
        return static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton;
    }
    return DocumentWindow::eventFilter(watched, event);
}

void Form16::FollowHandle(int value) {
    if (applying_) return;
    layout_ = FollowSlider(layout_, value, Sizes(), WordWrapOn);
    Apply();
}

void Form16::Apply() {
    const QScopedValueRollback guard(applying_, true);
    const SplitSlider& slider = layout_.slider;
    Slider1->setOrientation(slider.horizontal ? Qt::Horizontal : Qt::Vertical);
    // Upright, the handle's top end means an editor of no height.
    Slider1->setInvertedAppearance(!slider.horizontal);
    Slider1->setInvertedControls(!slider.horizontal);
    Slider1->setRange(0, std::max(slider.maximum, 0));
    Slider1->setValue(slider.value);
    Slider1->setTickInterval(slider.tickFrequency);
    Slider1->setPageStep(std::max(slider.largeChange, 1));
    Slider1->setSingleStep(std::max(slider.smallChange, 1));
    SetTwipGeometry(Slider1, slider.place);
    SetTwipGeometry(Text1, layout_.text);
    Text1->SetRightMargin(layout_.rightMargin);

    const QSize barSize = bar_->sizeHint();
    QRect browser = PixelRect(layout_.browser);
    QPoint bar(PixelsFromTwips(layout_.barLeft), PixelsFromTwips(layout_.barTop));
    if (!slider.horizontal) {
        // The bar stands between the panes and is higher than their gap: the preview begins below it.
        browser.setTop(std::max(browser.top(), bar.y() + barSize.height()));
    }
    bar.setX(std::clamp(bar.x(), 0, std::max(width() - barSize.width(), 0)));
    WebBrowser1->setGeometry(browser);
    bar_->setGeometry(QRect(bar, barSize));
    bar_->raise();
    const QRect text = PixelRect(layout_.text);
    lblFormat_->setGeometry(text.left(), slider.horizontal ? text.bottom() + 1 : browser.bottom() + 1,
                            std::min(text.width(), slider.horizontal ? bar.x() : text.width()), FormatHeight());
}

}  // namespace vellum
