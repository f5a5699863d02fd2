#include "tools/scripts/frm_script_wizard.h"

#include "files/picture.h"
#include "values/color_hex.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTabWidget>
#include <QTableWidget>

namespace vellum {
namespace {

constexpr auto pictureFiles = "Image Files (*.gif,*.jpg,*.bmp)|*.gif;*.jpg;*.bmp";
constexpr auto allFiles = "All Files|*.*";

// A patch of each colour, side by side.
QPixmap Patches(const QStringList& colors, QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const auto count = static_cast<int>(colors.size());
    for (int i = 0; i < count; ++i) {
        const int left = size.width() * i / count;
        painter.fillRect(left, 0, size.width() * (i + 1) / count - left, size.height(), QColor(colors.at(i)));
    }
    painter.setPen(Qt::gray);  // seen on a light form as on a dark one
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return pixmap;
}

}  // namespace

frmScriptWizard::frmScriptWizard(Workbench& bench) : ToolDialog(bench, "frmScriptWizard", "Premade Scripts") {
    PutTabsAside();
    AddPane("Premade Scripts");
    AddPremade();
    AddPane("Popup Image", {}, [this] { return BuildPopupImage(); });
    AddPopupImage();
    AddRandom();
    AddPane("Linkbox", {}, [this] { return LinkboxScript(linkbox_); });
    AddLinkbox();
    AddPane("Scrolling Status Bar Message", {}, [this] { return StatusMessageScript(message_); });
    AddText(message_, "txtMessage", "The Message");
    AddPane("Image Rollover Link", {}, [this] {
        QRandomGenerator& random = *QRandomGenerator::global();
        return RolloverScript(rollover_, RolloverName(random.generateDouble(), random.generateDouble()));
    });
    AddRollover();
    AddPane("Changing Background", {}, [this] { return BuildFade(); });
    AddFade();
    QPushButton* const ok = Finish({}, OnCancel::FocusText);
    // A script of the lists is taken by a double click.
    ok->hide();
    connect(tabs_, &QTabWidget::currentChanged, ok, [ok](int pane) { ok->setVisible(pane > 0); });
}

void frmScriptWizard::AddPremade() {
    AddChoices(ScriptLanguage::Javascript, "List1", "JavaScript");
    NextColumn();
    AddChoices(ScriptLanguage::VBScript, "List2", "VBScript");
}

void frmScriptWizard::AddChoices(ScriptLanguage language, const QString& name, const QString& caption) {
    auto* const list = new QListWidget;
    list->setObjectName(name);
    list->addItems(PremadeNames(language));
    list->setProperty("language", static_cast<int>(language));
    list->setToolTip(tr("A double click, or Enter, puts the script into the page"));
    const int rows = static_cast<int>(PremadeNames(ScriptLanguage::Javascript).size());
    list->setMinimumHeight(rows * list->sizeHintForRow(0) + 2 * list->frameWidth());
    list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth());
    list->installEventFilter(this);
    list->viewport()->installEventFilter(this);
    AddGrowing(list, caption);
}

// A double click beside the entries counts as well, for the entry that is chosen, or for none.
bool frmScriptWizard::eventFilter(QObject* watched, QEvent* event) {
    const bool pressed = event->type() == QEvent::KeyPress;
    const bool clicked = event->type() == QEvent::MouseButtonDblClick;
    if (!pressed && !clicked) return ToolDialog::eventFilter(watched, event);
    auto* const list = qobject_cast<QListWidget*>(pressed ? watched : watched->parent());
    if (!list) return ToolDialog::eventFilter(watched, event);
    const QList<QListWidgetItem*> chosen = list->selectedItems();
    if (pressed) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (chosen.isEmpty() || (key != Qt::Key_Return && key != Qt::Key_Enter)) return false;
    }
    const auto language = static_cast<ScriptLanguage>(list->property("language").toInt());
    HandOver(PremadeScript(language, chosen.isEmpty() ? QString() : chosen.front()->text()));
    return true;
}

void frmScriptWizard::AddPopupImage() {
    AddText(popup_.begin, "popupTxtBegin", "Beginning Width (Pixels)");
    AddText(popup_.end, "popupTxtEnd", "Ending Width      (Pixels)");
    AddFile(popup_.image, "popupTxtImage", "Image", "&Find", pictureFiles, [this](const QString& path) {
        const auto size = ImageSize(path);
        if (!size) return;
        popup_.end = QString::number(size->width());
        ShowFields();
    });
    AddText(popup_.id, "popupTxtID", "ID");
}

std::optional<QString> frmScriptWizard::BuildPopupImage() {
    const std::optional<QString> script = PopupImageScript(popup_);
    if (!script) bench_.Ask().Message(this, "Please make sure all text boxes have a value.");
    return script;
}

void frmScriptWizard::AddRandom() {
    AddPane("Random Background Color IVB Script)", {}, [this] { return RandomColorScript(colors_); });
    const auto pick = [this](const QStringList& /*typed*/) {
        const auto color = bench_.Ask().PickColor(this, 0);
        return color ? QStringList{ColorToHex(*color)} : QStringList();
    };
    AddLists({.columns = {{.entries = colors_, .list = {"BCList1", {}}}},
              .add = {"cmdBCAdd", "Add Color"},
              .remove = {"cmdBCRemove", "Remove Color"},
              .entry = pick});
    findChild<QListWidget*>("BCList1")->setAccessibleName(tr("Colors"));
    Follow([this] { ShowColors(); });

    AddPane("Random Text (VB Script)", {}, [this] { return RandomTextScript(texts_); });
    AddGrid(texts_, {.titles = {"Text"},
                     .grid = "TextGrid1",
                     .editor = "TextText1",
                     .rows = "lblTextRows",
                     .plus = "cmdTextPlus",
                     .minus = "cmdTextMinus"});
    findChild<QTableWidget*>("TextGrid1")->horizontalHeader()->hide();
}

// Each entry of the list has its colour beside it.
void frmScriptWizard::ShowColors() {
    const auto* const list = findChild<QListWidget*>("BCList1");
    const int height = list->fontMetrics().height();
    for (int row = 0; row < list->count(); ++row) {
        QListWidgetItem* const item = list->item(row);
        if (item->icon().isNull()) item->setIcon(Patches({item->text()}, {2 * height, height}));
    }
}

void frmScriptWizard::AddLinkbox() {
    AddText(linkbox_.name, "LBText1", "Name");
    AddText(linkbox_.caption, "LBtxtCaption", "Displayed Caption");
    AddGrid(linkbox_.links, {.titles = {"Listing", "Link Address"},
                             .grid = "LBGrid1",
                             .editor = "LBText3",
                             .rows = "lblLBRows",
                             .plus = "cmdLBPlus",
                             .minus = "cmdLBMinus"});
}

void frmScriptWizard::AddRollover() {
    AddFile(rollover_.mainImage, "txtMainImage", "Main Image", "Find Image", allFiles);
    AddFile(rollover_.rollImage, "txtRollImage", "Mouseover Image", "Find Image", allFiles);
    AddText(rollover_.url, "txtRollURL", "Link URL");
}

void frmScriptWizard::AddFade() {
    AddSwatch(fade_.first, "lblCBColor1", "Color 1");
    AddSwatch(fade_.last, "lblCBColor2", "Color 2");
    SetFieldWidth(AddText(fade_.steps, "txtCBSteps", "Steps"), 6);
    auto* const colors = new QLabel;
    colors->setObjectName("lblCBColors");
    AddField("Colors", colors);
    Follow([this] { ShowFade(); });
}

void frmScriptWizard::ShowFade() {
    constexpr int width = 24;  // in characters
    auto* const shown = findChild<QLabel*>("lblCBColors");
    const QFontMetrics metrics = shown->fontMetrics();
    shown->setPixmap(Patches(FadeColors(fade_), {width * metrics.averageCharWidth(), metrics.height()}));
}

std::optional<QString> frmScriptWizard::BuildFade() {
    const QStringList colors = FadeColors(fade_);
    if (colors.isEmpty()) {
        bench_.Ask().Message(this, "The Steps box must be filled with a numberic value above 0.");
        return std::nullopt;
    }
    return FadeScript(colors);
}

}  // namespace vellum
