#include "shell/frm_settings.h"

#include "editor/workbench.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

namespace vellum {
namespace {

enum Column { captionColumn, textColumn };

QStringList Entries(const QListWidget& list) {
    QStringList entries;
    for (int row = 0; row < list.count(); ++row) entries << list.item(row)->text();
    return entries;
}

}  // namespace

frmSettings::frmSettings(Workbench& workbench, SettingsTarget& target, QWidget* parent)
    : QDialog(parent), workbench_(workbench), target_(target) {
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(QStringLiteral("Settings"));
    Combo2->addItems(workbench_.FontNames());
    BuildEditorPanel();
    BuildColorPanel();
    BuildFileTypesPanel();
    BuildCustomPanel();
    BuildFtpPanel();
    BuildXmlPanel();
    BuildDefinitionsPanel();
    BuildPreviewPanel();
    BuildFrame();
    Show(LoadSettingsFields(workbench_));
    Wire();
    Grid1->setCurrentCell(0, captionColumn);
}

void frmSettings::Wire() {
    connect(TabStrip1, &QTabBar::currentChanged, panels_, &QStackedWidget::setCurrentIndex);
    for (const auto& [sequence, step] : {std::pair{"Ctrl+Tab", 1},
                                         {"Ctrl+PgDown", 1},
                                         {"Ctrl+Shift+Tab", -1},
                                         {"Ctrl+Shift+Backtab", -1},
                                         {"Ctrl+PgUp", -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(QString::fromLatin1(sequence)), this);
        connect(shortcut, &QShortcut::activated, this, [this, step = step] { StepTab(step); });
    }
    for (ColorSwatch* swatch : {lblForeColor, lblBackColor}) {
        connect(swatch, &QPushButton::clicked, this, [this, swatch] { ChooseColor(swatch); });
    }
    for (int i = 0; i < tagColorCount; ++i) {
        connect(picColor[i], &QPushButton::clicked, this, [this, i] { ChooseColor(picColor[i]); });
        connect(cmdColor[i], &QPushButton::clicked, this, [this, i] { ChooseColor(picColor[i]); });
    }
    WireList(lstDocuments, txtDocuments, cmdAddDocument, lstDocsRemove);
    WireList(List1, Text2, Command9, Command10);
    WireList(List2, Text4, Command11, Command12);
    connect(Grid1, &QTableWidget::currentCellChanged, this, &frmSettings::ShowCell);
    connect(Text3, &QLineEdit::textChanged, this, &frmSettings::WriteCell);
    for (int i = 0; i < externalBrowserCount; ++i) {
        connect(cmbBrowser[i], &QPushButton::clicked, this, [this, i] { ChooseBrowser(i); });
    }
    connect(cmdOK, &QPushButton::clicked, this, &frmSettings::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSettings::reject);
}

void frmSettings::WireList(QListWidget* list, QLineEdit* line, QPushButton* add, QPushButton* remove) {
    connect(add, &QPushButton::clicked, this, [list, line] {
        if (line->text().isEmpty()) return;
        list->addItem(line->text());
        line->clear();
    });
    connect(remove, &QPushButton::clicked, this, [list] {
        for (const QListWidgetItem* item : list->selectedItems()) delete item;
    });
    line->installEventFilter(this);
    list->installEventFilter(this);
    // The filter finds the button that a key in the line or in the list stands for.
    line->setProperty("button", QVariant::fromValue<QWidget*>(add));
    list->setProperty("button", QVariant::fromValue<QWidget*>(remove));
}

// Return in the line of a list adds its text, and only then is it OK; Delete in a list removes.
bool frmSettings::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    auto* button = qobject_cast<QPushButton*>(watched->property("button").value<QWidget*>());
    const auto* line = qobject_cast<QLineEdit*>(watched);
    const bool adds = line != nullptr && !line->text().isEmpty() && (key == Qt::Key_Return || key == Qt::Key_Enter);
    const bool removes = line == nullptr && key == Qt::Key_Delete;
    if (button == nullptr || (!adds && !removes)) return QDialog::eventFilter(watched, event);
    button->click();
    return true;
}

void frmSettings::Show(const SettingsFields& fields) {
    Combo1->setCurrentText(fields.fontSize);
    Combo2->setCurrentText(fields.fontName);
    lblForeColor->SetColor(fields.foreColor);
    lblBackColor->SetColor(fields.backColor);
    chkWrap->setChecked(fields.wordWrap);
    chkAutoTab->setChecked(fields.autoTab);
    chkPop->setChecked(fields.popupTag);
    chkOnOff->setChecked(fields.colorCodingOff);
    for (int i = 0; i < tagColorCount; ++i) picColor[i]->SetColor(fields.tagColors[i]);
    chkASPBold->setChecked(fields.aspBold);
    lstDocuments->addItems(fields.documentTypes);
    List1->addItems(fields.imageTypes);
    for (int row = 0; row < customButtonCount; ++row) {
        Grid1->setItem(row, captionColumn, new QTableWidgetItem(fields.customCaptions[row]));
        Grid1->setItem(row, textColumn, new QTableWidgetItem(fields.customTexts[row]));
    }
    List2->addItems(fields.customTags);
    Text5->setText(fields.ftpUrl);
    Text6->setText(fields.ftpUserName);
    Text7->setText(fields.ftpPassword);
    chkXMLCase->setChecked(fields.autoCase);
    chkXMLQuotes->setChecked(fields.autoQuote);
    chkXMLSlash->setChecked(fields.autoEmptySlash);
    optXHTML[fields.xhtmlVariant]->setChecked(true);
    chkMath->setChecked(fields.dtdMath);
    chkSmil->setChecked(fields.dtdSmil);
    chkSVG->setChecked(fields.dtdSvg);
    chkOpenBook->setChecked(fields.dtdOpen);
    chkWML->setChecked(fields.dtdWml);
    chkX3D->setChecked(fields.dtdX3d);
    for (int i = 0; i < externalBrowserCount; ++i) txtBrowser[i]->setText(fields.browsers[i]);
    txtRate->setText(fields.refreshRate);
    (fields.splitVertical ? OptVertical : optHorizontal)->setChecked(true);
    txtPercent->setText(fields.editPercent);
}

SettingsFields frmSettings::Fields() const {
    SettingsFields fields;
    fields.fontSize = Combo1->currentText();
    fields.fontName = Combo2->currentText();
    fields.foreColor = lblForeColor->Color();
    fields.backColor = lblBackColor->Color();
    fields.wordWrap = chkWrap->isChecked();
    fields.autoTab = chkAutoTab->isChecked();
    fields.popupTag = chkPop->isChecked();
    fields.colorCodingOff = chkOnOff->isChecked();
    for (int i = 0; i < tagColorCount; ++i) fields.tagColors[i] = picColor[i]->Color();
    fields.aspBold = chkASPBold->isChecked();
    fields.documentTypes = Entries(*lstDocuments);
    fields.imageTypes = Entries(*List1);
    for (int row = 0; row < customButtonCount; ++row) {
        fields.customCaptions[row] = Grid1->item(row, captionColumn)->text();
        fields.customTexts[row] = Grid1->item(row, textColumn)->text();
    }
    fields.customTags = Entries(*List2);
    fields.ftpUrl = Text5->text();
    fields.ftpUserName = Text6->text();
    fields.ftpPassword = Text7->text();
    fields.autoCase = chkXMLCase->isChecked();
    fields.autoQuote = chkXMLQuotes->isChecked();
    fields.autoEmptySlash = chkXMLSlash->isChecked();
    for (int i = 0; i < static_cast<int>(optXHTML.size()); ++i) {
        if (optXHTML[i]->isChecked()) fields.xhtmlVariant = i;
    }
    fields.dtdMath = chkMath->isChecked();
    fields.dtdSmil = chkSmil->isChecked();
    fields.dtdSvg = chkSVG->isChecked();
    fields.dtdOpen = chkOpenBook->isChecked();
    fields.dtdWml = chkWML->isChecked();
    fields.dtdX3d = chkX3D->isChecked();
    for (int i = 0; i < externalBrowserCount; ++i) fields.browsers[i] = txtBrowser[i]->text();
    fields.refreshRate = txtRate->text();
    fields.splitVertical = OptVertical->isChecked();
    fields.editPercent = txtPercent->text();
    return fields;
}

void frmSettings::accept() {
    if (chkPurge->isChecked()) {
        PurgeSettings(workbench_, target_);
        workbench_.Ask().Message(this, QStringLiteral("Please Restart Program"));
        return QDialog::accept();
    }
    const SettingsFields fields = Fields();
    if (const std::optional<QString> problem = ValidateSettings(fields)) {
        workbench_.Ask().Message(this, *problem);
        QLineEdit* field = IsValidRefreshRate(fields.refreshRate) ? txtPercent : txtRate;
        TabStrip1->setCurrentIndex(panels_->indexOf(picOption[panelCount - 1]));
        field->setFocus();
        field->selectAll();
        return;
    }
    ApplySettings(fields, workbench_, target_);
    QDialog::accept();
}

void frmSettings::ShowCell() {
    const QSignalBlocker blocker(Text3);
    const QTableWidgetItem* cell = Grid1->currentItem();
    Text3->setText(cell == nullptr ? QString() : cell->text());
}

void frmSettings::WriteCell() {
    if (QTableWidgetItem* cell = Grid1->currentItem()) cell->setText(Text3->text());
}

void frmSettings::ChooseColor(ColorSwatch* swatch) {
    if (const std::optional<ColorNumber> color = workbench_.Ask().PickColor(this, swatch->Color())) {
        swatch->SetColor(*color);
    }
}

void frmSettings::ChooseBrowser(int index) {
    const QFileInfo present(txtBrowser[index]->text());
    FileRequest request;
    request.filter = QStringLiteral("Executable Files (*.EXE)|*.EXE");
    request.directory = present.isAbsolute() ? present.path() : QStringLiteral("/usr/bin");
    const QString chosen = workbench_.Ask().OpenFile(this, request);
    if (!chosen.isEmpty()) txtBrowser[index]->setText(chosen);
}

void frmSettings::StepTab(int step) {
    TabStrip1->setCurrentIndex((TabStrip1->currentIndex() + step + panelCount) % panelCount);
}

}  // namespace vellum
