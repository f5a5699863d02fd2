#include "shell/toolbar.h"

#include "shell/commands.h"
#include "widgets/icons.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>

#include <algorithm>
#include <array>

namespace vellum {
namespace {

using namespace commands;
using enum ButtonArray;

struct ToolbarButton {
    ButtonArray array;
    int index;
    const char* icon;
    const char* toolTip;
    const char* hint;  // empty: the hint line stays as it is
    bool startsGroup;
    Command command{};
};

constexpr auto previewTip = "Previews The Document In An External Browser";

constexpr std::array<ToolbarButton, 15> buttons{{
    {Command44, 0, "new", "Creates a New Document", "Creates a new document", false, newPage},
    {Command44, 1, "open", "Opens an existing file", "Opens an existing XHTML or TXT file", false, openPages},
    {Command44, 2, "save", "Saves the Current Document", "Saves the document", false, savePage},
    {Command44, 3, "save-as", "Saves the Current Document With a Choice of a New Name", "Saves the document", false,
     savePageAs},
    {Command44, 4, "print", "Prints the Current Document", "Prints the document", false, printPage},
    {Command44, 6, "close", "Closes the Current Document", "Closes the current document", false, closePage},
    {Command44, 5, "browser-1", previewTip, "Previews the document in external browser", true, externalBrowser<0>},
    {Command44, 9, "browser-2", previewTip, "", false, externalBrowser<1>},
    {Command44, 10, "browser-3", previewTip, "", false, externalBrowser<2>},
    {Command44, 8, "color-code", "Color-Codes  XHTML Syntax", "Color codes the XHTML code", true, colorCode},
    {Command44, 7, "organizer", "Personal Scheduler", "Opens the personal information manager", true},
    {Command93, 0, "transfer", "Retrieves Files From Other Directories", "Copies files to website directory", true},
    {Command93, 1, "thumbnails", "Thumbnail Viewer", "Browses the images in the Website Directory", false},
    {Command93, 2, "ftp", "FTP File Transfer", "Transfers Files to an FTP Directory", false},
    {Command93, 3, "fonts", "Font Browser", "Previews all the fonts installed on the PC", false},
}};

QString ButtonName(ButtonArray array, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(array == Command44 ? "Command44" : "Command93")).arg(index);
}

}  // namespace

MainToolbar::MainToolbar(QWidget* parent) : QWidget(parent) {
    setObjectName("Picture1");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->setSpacing(2);
    constexpr int smallest = 22;
    const int side = std::max(smallest, fontMetrics().height() * 4 / 3);
    for (const ToolbarButton& design : buttons) {
        if (design.startsGroup) {
            auto* rule = new QFrame(this);
            rule->setFrameShape(QFrame::VLine);
            rule->setFrameShadow(QFrame::Sunken);
            row->addWidget(rule);
        }
        auto* button = new QToolButton(this);
        button->setObjectName(ButtonName(design.array, design.index));
        button->setIcon(ThemeIcon(design.icon));
        button->setIconSize({side, side});
        button->setAutoRaise(true);
        button->setToolTip(design.toolTip);
        button->setAccessibleName(design.toolTip);
        button->setFocusPolicy(Qt::TabFocus);
        button->setMouseTracking(true);
        button->setProperty("hint", QString::fromLatin1(design.hint));
        button->installEventFilter(this);
        row->addWidget(button);
    }
    row->addStretch();
}

void MainToolbar::Connect(MDIform1& window) {
    for (const ToolbarButton& design : buttons) {
        QToolButton* const button = Button(design.array, design.index);
        connect(button, &QToolButton::clicked, &window,
                [&window, command = design.command] { Execute(command, window); });
        if (design.command.needs == Needs::Document)
            connect(&window, &MDIform1::DocumentsOpen, button, &QWidget::setEnabled);
    }
}

QToolButton* MainToolbar::Button(ButtonArray array, int index) const {
    return findChild<QToolButton*>(ButtonName(array, index));
}

bool MainToolbar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) {
        if (const QString hint = watched->property("hint").toString(); !hint.isEmpty()) emit Hint(hint);
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace vellum
