#include "shell/frm_settings.h"

#include "widgets/color_swatch.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTableWidget>

namespace vellum {
namespace {

enum Column { captionColumn, textColumn };

// In characters.
constexpr int numberWidth = 12;
constexpr int nameWidth = 50;

// Completes what is typed by the names of the list.
void Complete(QComboBox* box) {
    auto* const completer = new QCompleter(box->model(), box);
    completer->setCompletionMode(QCompleter::InlineCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    box->setCompleter(completer);
}

}  // namespace

frmSettings::frmSettings(Workbench& workbench, SettingsTarget& target)
    : FieldForm(workbench, "frmSettings", "Settings"), target_(target), fields_(LoadSettingsFields(workbench)) {
    AddEditorPane();
    AddColorPane();
    AddFileTypesPane();
    AddCustomPane();
    AddFtpPane();
    AddXmlPane();
    AddDefinitionsPane();
    AddPreviewPane();
    auto* const purge = new QCheckBox("&Purge Settings");
    purge->setObjectName("chkPurge");
    purge->setToolTip("OK then deletes all preferences instead of saving them");
    Bind(purge_, purge);
    const auto press = [this] { accept(); };
    AddClosingRow({"cmdOK", "&OK"}, press, purge);
    tabs_->setFocus();
}

void frmSettings::AddEditorPane() {
    AddPane("Editor Settings");
    SetFieldWidth(AddCombo(fields_.fontSize, "Combo1", "Editor Font &Size", {"6", "8", "10", "12", "14", "16"}),
                  numberWidth, numberWidth);
    QComboBox* const names = AddCombo(fields_.fontName, "Combo2", "Editor Font &Name", bench_.FontNames());
    SetFieldWidth(names, nameWidth, nameWidth);
    Complete(names);
    AddSwatch(fields_.foreColor, "lblForeColor", "Editor &Forecolor");
    AddSwatch(fields_.backColor, "lblBackColor", "Editor &Backcolor");
    AddCheck(fields_.wordWrap, "chkWrap", "&Word Wrap By Default")
        ->setToolTip("New windows break long lines at the edge of the window");
    AddCheck(fields_.autoTab, "chkAutoTab", "&AutoTab")
        ->setToolTip("A new line begins with the tabs of the line before");
    AddCheck(fields_.popupTag, "chkPop", "Popup &Tag/Attribute List")
        ->setToolTip("Offers tags and attributes while you type");
}

void frmSettings::AddColorPane() {
    AddPane("SmartColor");
    AddCheck(fields_.colorCodingOff, "chkOnOff", "&Disable Color Coding");
    AddFrame({}, [this] {
        AddTagColor(tablesTag, "&Tables");
        AddTagColor(framesTag, "&Frames");
        AddTagColor(linksTag, "&Links");
        NextColumn();
        AddTagColor(commentsTag, "Co&mments");
        AddTagColor(aspTag, "&ASP / JSP");
        AddTagColor(otherTag, "Ot&her Tags");
        NextColumn(2);  // is empty, and keeps the others together
    });
    AddCheck(fields_.aspBold, "chkASPBold", "&Bolderize ASP/JSP Tags");
}

void frmSettings::AddTagColor(int index, const QString& caption) {
    auto* const swatch = AddSwatch(fields_.tagColors[index], Indexed("picColor", index));
    swatch->setAccessibleName(QString(caption).remove(u'&'));
    swatch->setFocusPolicy(Qt::NoFocus);  // the button beside it takes the keys
    Beside();
    QPushButton* const button = AddButton(Indexed("cmdColor", index), caption, [swatch] { swatch->click(); });
    button->setToolTip("Chooses the color of these tags");
}

void frmSettings::AddFileTypesPane() {
    AddPane("File Types");
    const QLatin1String hint("A part of the file name, as \".htm\"");
    AddLists({.columns = {{.entries = fields_.documentTypes,
                           .list = {"lstDocuments", "Document &Types"},
                           .line = {"txtDocuments", "&New Type"}}},
              .add = {"cmdAddDocument", "&Add"},
              .remove = {"lstDocsRemove", "&Remove"}})
        ->findChild<QLineEdit*>()
        ->setToolTip(hint);
    NextColumn();
    AddLists({.columns = {{.entries = fields_.imageTypes,
                           .list = {"List1", "&Image Types"},
                           .line = {"Text2", "Ne&w Type"}}},
              .add = {"Command9", "A&dd"},
              .remove = {"Command10", "Re&move"}})
        ->findChild<QLineEdit*>()
        ->setToolTip(hint);
}

void frmSettings::AddCustomPane() {
    AddPane("Customizations");
    QTableWidget* const grid = MakeButtonGrid();
    AddGrowing(grid, "Custom &Buttons");
    auto* const cell = new QLineEdit;
    cell->setObjectName("Text3");
    cell->setToolTip("The text of the chosen cell");
    AddField("&Edit Cell", cell);
    connect(grid, &QTableWidget::currentCellChanged, cell, [grid, cell] {
        const QSignalBlocker blocker(cell);
        cell->setText(grid->currentIndex().data().toString());
    });
    connect(cell, &QLineEdit::textChanged, grid, [grid](const QString& text) {
        if (QTableWidgetItem* item = grid->currentItem()) item->setText(text);
    });
    grid->setCurrentCell(0, captionColumn);
    NextColumn();
    AddLists({.columns = {{.entries = fields_.customTags,
                           .list = {"List2", "Custom &List"},
                           .line = {"Text4", "&New Entry"}}},
              .add = {"Command11", "&Add"},
              .remove = {"Command12", "&Delete"}});
}

QTableWidget* frmSettings::MakeButtonGrid() {
    constexpr int captionLetters = 18;
    auto* const grid = new QTableWidget(customButtonCount, 2);
    grid->setObjectName("Grid1");
    grid->setAccessibleName("Custom Buttons");
    grid->setHorizontalHeaderLabels({"Caption", "Text Inserted"});
    grid->setColumnWidth(captionColumn, grid->fontMetrics().averageCharWidth() * captionLetters);
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setTabKeyNavigation(false);
    for (int row = 0; row < customButtonCount; ++row) {
        grid->setItem(row, captionColumn, new QTableWidgetItem(fields_.customCaptions[row]));
        grid->setItem(row, textColumn, new QTableWidgetItem(fields_.customTexts[row]));
    }
    connect(grid, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem* cell) {
        (cell->column() == captionColumn ? fields_.customCaptions : fields_.customTexts)[cell->row()] = cell->text();
    });
    return grid;
}

void frmSettings::AddFtpPane() {
    AddPane("FTP");
    AddText(fields_.ftpUrl, "Text5", "&Upload URL");
    SetFieldWidth(AddText(fields_.ftpUserName, "Text6", "FTP User&name"), nameWidth, nameWidth);
    QLineEdit* const password = AddText(fields_.ftpPassword, "Text7", "FTP Pass&word");
    SetFieldWidth(password, nameWidth, nameWidth);
    password->setEchoMode(QLineEdit::Password);
    password->setStyleSheet(QStringLiteral("lineedit-password-character: %1").arg(int{'*'}));
    password->setToolTip("Kept as typed in the settings file, which only you can read");
}

void frmSettings::AddXmlPane() {
    AddPane("XML Helpers");
    AddCheck(fields_.autoCase, "chkXMLCase", "Automatically &Lowercase all XHTML Tags");
    AddCheck(fields_.autoQuote, "chkXMLQuotes", "Automatically &Quote Tag Attributes");
    AddCheck(fields_.autoEmptySlash, "chkXMLSlash", "&Enforce backslashing of empty elements");
}

void frmSettings::AddDefinitionsPane() {
    AddPane("Document Type Definitions");
    AddFrame("XHTML 1.0", [this] {
        AddOption(fields_.xhtmlVariant, 0, "optXHTML(0)", "&Transitional");
        AddOption(fields_.xhtmlVariant, 1, "optXHTML(1)", "&Strict");
        AddOption(fields_.xhtmlVariant, 2, "optXHTML(2)", "&Frameset");
    });
    NextColumn();
    AddFrame("Other Definitions", [this] {
        AddCheck(fields_.dtdMath, "chkMath", "&MaHTML 2.0 Specification");
        AddCheck(fields_.dtdSmil, "chkSmil", "SM&IL 1.0 Specification");
        AddCheck(fields_.dtdSvg, "chkSVG", "S&VG 1.0 Specification");
        AddCheck(fields_.dtdOpen, "chkOpenBook", "Open &eBook Specification");
        AddCheck(fields_.dtdWml, "chkWML", "&WML 1.3 Specification");
        AddCheck(fields_.dtdX3d, "chkX3D", "&X3D Compromise Specification");
    });
}

void frmSettings::AddPreviewPane() {
    AddPane("Preview Settings");
    for (int i = 0; i < externalBrowserCount; ++i) AddBrowser(i);
    txtRate = AddText(fields_.refreshRate, "txtRate", "Preview &Refresh Rate In Seconds (IE)");
    txtRate->setToolTip("1 to 30");
    AddFrame("Default Editor/Preview Split (IE)", [this] {
        AddOption(fields_.splitVertical, true, "OptVertical", "&Vertical");
        Beside();
        AddOption(fields_.splitVertical, false, "optHorizontal", "&Horizontal");
    });
    txtPercent = AddText(fields_.editPercent, "txtPercent", "&Default % of Window For Editing (IE)");
    txtPercent->setToolTip("0 to 100");
    for (QLineEdit* number : {txtRate, txtPercent}) SetFieldWidth(number, numberWidth, numberWidth);
}

void frmSettings::AddBrowser(int index) {
    AddText(fields_.browsers[index], Indexed("txtBrowser", index),
            QStringLiteral("External Browser &%1:").arg(index + 1))
        ->setToolTip("The command that opens the document; \"None\" for no browser");
    Beside();
    AddButton(Indexed("cmbBrowser", index), "Choose", [this, index] {
        ChooseBrowser(index);
    })->setAccessibleName(QStringLiteral("Choose External Browser %1").arg(index + 1));
}

void frmSettings::ChooseBrowser(int index) {
    const QFileInfo present(fields_.browsers[index]);
    const QString chosen =
        bench_.Ask().OpenFile(this, {.filter = "Executable Files (*.EXE)|*.EXE",
                                     .directory = present.isAbsolute() ? present.path() : QStringLiteral("/usr/bin")});
    if (chosen.isEmpty()) return;
    fields_.browsers[index] = chosen;
    ShowFields();
}

void frmSettings::accept() {
    if (purge_) {
        PurgeSettings(bench_, target_);
        bench_.Ask().Message(this, "Please Restart Program");
        return QDialog::accept();
    }
    if (const std::optional<QString> problem = ValidateSettings(fields_)) {
        bench_.Ask().Message(this, *problem);
        QLineEdit* const field = IsValidRefreshRate(fields_.refreshRate) ? txtPercent : txtRate;
        tabs_->setCurrentIndex(tabs_->count() - 1);
        field->setFocus();
        field->selectAll();
        return;
    }
    ApplySettings(fields_, bench_, target_);
    QDialog::accept();
}

}  // namespace vellum
