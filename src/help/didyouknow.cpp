#include "help/didyouknow.h"

#include "settings/settings_keys.h"
#include "widgets/icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>
#include <random>

namespace vellum {
namespace {

constexpr int tipWidth = 42;  // in characters
constexpr int tipMargin = 10;
constexpr double headingScale = 1.4;

// Large enough for every tip, so that the dialog keeps its size from one to the next.
QSize RoomForTips(const QFontMetrics& metrics) {
    const int width = metrics.averageCharWidth() * tipWidth;
    int height = 0;
    for (const QString& tip : Tips()) {
        height = qMax(height, metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, tip).height());
    }
    return {width, height};
}

}  // namespace

const QStringList& Tips() {
    static const QStringList tips{
        "The Table Builder supports WYSIWYG cell sizing.",
        "Several pre-made Javascripts and VBScripts are available to help enhance your website.",
        "HTML generated graphics are available through \"Special Effects\"",
        "You can use the Image Map Editor to create context sensitive images.",
        "Vellumcraft supports external, header, and inline style sheets.",
        "Vellumcraft can convert both text files and table files to XHTML.",
        "The Frame Builder allows you to draw out your own frames.",
        "VRML Site maps can be generated with the VRML Builder.",
        "Microsoft Visual Filters are supported through the Image tool.",
        "Internet Explorer 5.0 or higher is used as the main preview window.",
        "Vellumcraft constructs its XHTML tree references straight from the XML DTDs.",
        "Vellumcraft has a new and improved color coding engine.",
        ("Tree References included with Vellumcraft include all three DTDs for XHTML as well as Open eBook, SVG 1.0, "
         "and SMIL 1.0."),
        "The editing and preview panes can be divided horizontally or vertically, and both are resizable.  (IE)",
        "You can select transitional, strict, or frameset references for XHTML 1.0 from the Settings box.",
        ("Right-clicking on an XML-based language in the tree reference will activate the popup tag/attribute box for "
         "that language."),
    };
    return tips;
}

int TipIndex(double random, int count) {
    return static_cast<int>(random * count);
}

std::function<double()> RandomFromClock() {
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    return [generator = std::mt19937(static_cast<std::mt19937::result_type>(now))]() mutable {
        return generator() / (static_cast<double>(std::mt19937::max()) + 1);
    };
}

Didyouknow::Didyouknow(Workbench& bench, std::function<double()> random)
    : QDialog(bench.Window()),
      bench_(bench),
      random_(std::move(random)),
      List1(new QListWidget(this)),
      Label2(new QLabel(this)),
      Command1(new QPushButton("C&lose", this)),
      Command2(new QPushButton("&Next Tip", this)),
      Command3(new QPushButton("&Create A New Document", this)),
      Command5(new QPushButton("&Open an Existing Webpage", this)),
      Check1(new QCheckBox("&Show me at startup", this)) {
    setObjectName("Didyouknow");
    setWindowTitle("Did You Know?");
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(BuildTip(), 1);
    columns->addLayout(BuildButtons());
    const int space = fontMetrics().height();
    columns->setSpacing(space);
    columns->setContentsMargins(space, space, space, space);
    QWidget* before = Label2;
    for (QWidget* next : std::initializer_list<QWidget*>{Check1, Command2, Command3, Command5, Command1}) {
        setTabOrder(before, next);
        before = next;
    }

    // The tips come unasked at start, so Enter closes them as Esc does. Some desktops give a dialog no close box.
    Command1->setDefault(true);
    Command1->setFocus();
    ShowTip();
}

QLayout* Didyouknow::BuildTip() {
    List1->setObjectName("List1");
    List1->addItems(Tips());
    List1->hide();

    auto* picture = new QLabel(this);
    const int side = fontMetrics().height() * 2;
    picture->setPixmap(OwnIcon("tip").pixmap(side, side));
    auto* heading = new QLabel("Did You Know...", this);
    heading->setObjectName("Label1");
    heading->setBuddy(Label2);
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * headingScale);
    large.setBold(true);
    heading->setFont(large);

    Label2->setObjectName("Label2");
    Label2->setTextFormat(Qt::PlainText);
    Label2->setWordWrap(true);
    Label2->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Label2->setFocusPolicy(Qt::StrongFocus);  // for screen readers
    Label2->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label2->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Label2->setMargin(tipMargin);
    Label2->setBackgroundRole(QPalette::Base);
    Label2->setForegroundRole(QPalette::Text);
    Label2->setAutoFillBackground(true);
    const int border = 2 * (tipMargin + Label2->frameWidth()) + 2;
    Label2->setMinimumSize(RoomForTips(Label2->fontMetrics()) + QSize(border, border));

    Check1->setObjectName("Check1");
    Check1->setChecked(ReadSetting(bench_.Settings(), keys::showStart) == u"yes");
    connect(Check1, &QCheckBox::toggled, this,
            [this](bool on) { WriteSetting(bench_.Settings(), keys::showStart, on ? "yes" : "no"); });

    auto* top = new QHBoxLayout;
    top->addWidget(picture);
    top->addWidget(heading, 1);
    auto* column = new QVBoxLayout;
    column->addLayout(top);
    column->setSpacing(fontMetrics().height() * 2 / 3);
    column->addWidget(Label2, 1);
    column->addWidget(Check1);
    return column;
}

QLayout* Didyouknow::BuildButtons() {
    Command1->setObjectName("Command1");
    Command2->setObjectName("Command2");
    Command3->setObjectName("Command3");
    Command5->setObjectName("Command5");
    connect(Command1, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command2, &QPushButton::clicked, this, &Didyouknow::ShowTip);
    connect(Command3, &QPushButton::clicked, this, [this] { Choose(TipsChoice::NewDocument); });
    connect(Command5, &QPushButton::clicked, this, [this] { Choose(TipsChoice::OpenPage); });
    auto* column = new QVBoxLayout;
    column->setSpacing(fontMetrics().height() / 2);
    for (QPushButton* button : {Command2, Command3, Command5}) column->addWidget(button);
    column->addStretch();
    column->addWidget(Command1);
    return column;
}

void Didyouknow::ShowTip() {
    const QString tip = List1->item(TipIndex(random_(), List1->count()))->text();
    Label2->setText(tip);
    // A screen reader stays on the button, so the button tells it the new tip.
    Command2->setAccessibleDescription(tip);
}

void Didyouknow::Choose(TipsChoice choice) {
    choice_ = choice;
    accept();
}

}  // namespace vellum
