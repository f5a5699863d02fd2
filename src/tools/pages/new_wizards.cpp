#include "tools/pages/new_wizards.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "tools/frames/form_wizard.h"
#include "tools/framework/access_keys.h"
#include "tools/pages/frm_quick_start.h"
#include "tools/pages/page_skeletons.h"
#include "tools/styles/css.h"
#include "widgets/icons.h"

#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>

#include <array>

namespace vellum {
namespace {

constexpr int columns = 3;

void StartFrameset(Workbench& bench) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return;
    document->Text1->SetText(FramesetSkeleton());
    bench.Smartcolor();
    document->Text1->SetSelStart(document->Text1->Length() - framesetFromEnd);
    ShowFrameBuilder(bench);
}

void StartStructure(Workbench& bench) {
    QString markup = StructuralSkeleton();
    bench.PortableColor(markup);
}

void StartStyleSheet(Workbench& bench) {
    ShowTool<CSS>(bench, StyleMode::NewSheet);
}

struct Choice {
    const char* label;
    const char* icon;
    void (*follow)(Workbench&);  // what is done with the blank document; null leaves it blank
};

constexpr std::array<Choice, 9> choices{{
    {"Blank Document", "blank-document", nullptr},
    {"Quickstart Wizard", "quickstart", ShowTool<frmQuickStart>},
    {"Resume Wizard", "resume", nullptr},
    {"Frame Builder", "frames", StartFrameset},
    {"Slide Show Wizard", "slide-show", nullptr},
    {"Structural Tags", "structural", StartStructure},
    {"Table of Contents", "contents", nullptr},
    {"HTML Application", "application", nullptr},
    {"External Style Sheet", "style-sheet", StartStyleSheet},
}};

const Choice& ChoiceAt(int index) {
    return choices.at(static_cast<std::size_t>(index));
}

// A button that is let go elsewhere takes its press back.
bool IsClick(const QLabel& label, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonRelease) return false;
    const auto& release = static_cast<const QMouseEvent&>(event);
    return release.button() == Qt::LeftButton && label.rect().contains(release.position().toPoint());
}

std::optional<int> AskForChoice(Workbench& bench) {
    NewWizards dialog(bench.Window());
    dialog.exec();
    return dialog.Choice();
}

}  // namespace

const QStringList& NewWizardLabels() {
    static const QStringList labels = [] {
        QStringList list;
        for (const Choice& choice : choices) list << choice.label;
        return list;
    }();
    return labels;
}

void ShowNewWizards(Workbench& bench) {
    const std::optional<int> index = AskForChoice(bench);
    if (!index) return;
    bench.NewForm();
    if (const auto follow = ChoiceAt(*index).follow) follow(bench);
}

NewWizards::NewWizards(QWidget* parent) : QDialog(parent) {
    setObjectName("NewWizards");
    setWindowTitle("New...");
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(24);
    for (int index = 0; index < NewWizardLabels().size(); ++index) AddChoice(index, grid);
    auto* cancel = new QPushButton("&Cancel", this);
    cancel->setObjectName("cmdCancel");
    cancel->setAutoDefault(
        false);  // Enter belongs to the picture that has the focus, so Cancel must not look as if it did
    cancel->installEventFilter(this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    grid->addWidget(cancel, grid->rowCount(), columns - 1, Qt::AlignRight);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    SetAccessKeys(*this);
    Image1.front()->setFocus();
}

void NewWizards::AddChoice(int index, QGridLayout* grid) {
    const QString& text = NewWizardLabels().at(index);
    auto* picture = new QToolButton(this);
    picture->setObjectName(QString("Image1(%1)").arg(index));
    picture->setIcon(OwnIcon(ChoiceAt(index).icon));
    picture->setIconSize({48, 48});
    picture->setAutoRaise(true);
    picture->setFocusPolicy(Qt::StrongFocus);
    picture->setAccessibleName(text);
    picture->installEventFilter(this);
    connect(picture, &QToolButton::clicked, this, [this, index] { Choose(index); });
    Image1.push_back(picture);

    auto* label = new QLabel(text, this);
    label->setObjectName(QString("Label1(%1)").arg(index));
    label->setAlignment(Qt::AlignHCenter);
    label->setBuddy(picture);
    label->setMargin(2);
    label->installEventFilter(this);
    Label1.push_back(label);

    const int row = index / columns * 2;
    grid->addWidget(picture, row, index % columns, Qt::AlignHCenter);
    grid->addWidget(label, row + 1, index % columns, Qt::AlignHCenter | Qt::AlignTop);
    grid->setRowMinimumHeight(row + 1, label->sizeHint().height() + 12);
}

void NewWizards::Choose(int index) {
    choice_ = index;
    accept();
}

// The arrows move within the grid and stop at its edges; Enter chooses, as Space does by itself.
bool NewWizards::HandleKey(int index, int key) {
    int next = index;
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Choose(index);
            return true;
        case Qt::Key_Left:
            next = index % columns > 0 ? index - 1 : index;
            break;
        case Qt::Key_Right:
            next = index % columns < columns - 1 ? index + 1 : index;
            break;
        case Qt::Key_Up:
            next = index - columns;
            break;
        case Qt::Key_Down:
            next = index + columns;
            break;
        default:
            return false;
    }
    if (next >= 0 && next < static_cast<int>(Image1.size())) {
        Image1.at(static_cast<std::size_t>(next))->setFocus(Qt::TabFocusReason);
    }
    return true;
}

// The label of the focused picture is shown as selected, since a flat button shows its focus under few styles only.
void NewWizards::MarkFocus(std::size_t index, bool focused) {
    QLabel* label = Label1.at(index);
    label->setAutoFillBackground(focused);
    label->setBackgroundRole(focused ? QPalette::Highlight : QPalette::NoRole);
    label->setForegroundRole(focused ? QPalette::HighlightedText : QPalette::NoRole);
}

bool NewWizards::HandlePictureEvent(std::size_t index, const QEvent& event) {
    switch (event.type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            MarkFocus(index, event.type() == QEvent::FocusIn);
            return false;
        case QEvent::KeyPress:
            return HandleKey(static_cast<int>(index), static_cast<const QKeyEvent&>(event).key());
        default:
            return false;
    }
}

bool NewWizards::eventFilter(QObject* watched, QEvent* event) {
    for (std::size_t i = 0; i < Image1.size(); ++i) {
        if (watched == Image1[i]) return HandlePictureEvent(i, *event);
        if (watched == Label1[i] && IsClick(*Label1[i], *event)) {
            Choose(static_cast<int>(i));
            return true;
        }
    }
    if (watched->objectName() == u"cmdCancel" && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            reject();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace vellum
