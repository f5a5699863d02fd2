#include "shell/frm_settings.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace vellum {
namespace {

constexpr const char* tabCaptions[frmSettings::panelCount] = {
    "Editor Settings",           "SmartColor",      "File Types", "Customizations", "FTP", "XML Helpers",
    "Document Type Definitions", "Preview Settings"};

QLabel* LabelFor(QWidget* buddy, const QString& caption) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
    return label;
}

// Checks one below the other, at the top of what holds them.
QVBoxLayout* Column(std::initializer_list<QWidget*> widgets) {
    auto* column = new QVBoxLayout;
    for (QWidget* widget : widgets) column->addWidget(widget);
    column->addStretch();
    return column;
}

// Keeps a field as wide as what is written into it.
void LimitWidth(QWidget* field, int characters) {
    field->setMaximumWidth(field->fontMetrics().averageCharWidth() * characters);
}

int Gap(const QWidget* panel) {
    return panel->fontMetrics().averageCharWidth() * 4;
}

struct ListCaptions {
    QString list;
    QString line;
    QString add;
    QString remove;
};

// A list under its caption, with the line for new entries and the two buttons below.
QGridLayout* ListLayout(QListWidget* list, QLineEdit* line, QPushButton* add, QPushButton* remove,
                        const ListCaptions& captions) {
    add->setText(captions.add);
    remove->setText(captions.remove);
    auto* grid = new QGridLayout;
    grid->addWidget(LabelFor(list, captions.list), 0, 0, 1, 3);
    grid->addWidget(list, 1, 0, 1, 3);
    grid->addWidget(LabelFor(line, captions.line), 2, 0);
    grid->addWidget(line, 2, 1);
    grid->addWidget(add, 2, 2);
    grid->addWidget(remove, 3, 2);
    return grid;
}

}  // namespace

void frmSettings::BuildEditorPanel() {
    for (QComboBox* box : {Combo1, Combo2}) {
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
    }
    Combo1->addItems({"6", "8", "10", "12", "14", "16"});
    LimitWidth(Combo1, 12);
    LimitWidth(Combo2, 50);
    chkWrap->setText(QStringLiteral("&Word Wrap By Default"));
    chkAutoTab->setText(QStringLiteral("&AutoTab"));
    chkPop->setText(QStringLiteral("Popup &Tag/Attribute List"));
    chkWrap->setToolTip(QStringLiteral("New windows break long lines at the edge of the window"));
    chkAutoTab->setToolTip(QStringLiteral("A new line begins with the tabs of the line before"));
    chkPop->setToolTip(QStringLiteral("Offers tags and attributes while you type"));

    auto* form = new QFormLayout(picOption[0]);
    form->addRow(LabelFor(Combo1, QStringLiteral("Editor Font &Size")), Combo1);
    form->addRow(LabelFor(Combo2, QStringLiteral("Editor Font &Name")), Combo2);
    form->addRow(LabelFor(lblForeColor, QStringLiteral("Editor &Forecolor")), lblForeColor);
    form->addRow(LabelFor(lblBackColor, QStringLiteral("Editor &Backcolor")), lblBackColor);
    form->addRow(QString(), chkWrap);
    form->addRow(QString(), chkAutoTab);
    form->addRow(QString(), chkPop);
}

void frmSettings::BuildColorPanel() {
    static constexpr const char* captions[tagColorCount] = {"&Tables",   "&Frames",    "&Links",
                                                            "Co&mments", "&ASP / JSP", "Ot&her Tags"};
    chkOnOff->setText(QStringLiteral("&Disable Color Coding"));
    chkASPBold->setText(QStringLiteral("&Bolderize ASP/JSP Tags"));
    auto* colors = new QGridLayout;
    for (int i = 0; i < tagColorCount; ++i) {
        const QString caption = QString::fromLatin1(captions[i]);
        cmdColor[i]->setText(caption);
        cmdColor[i]->setToolTip(QStringLiteral("Chooses the color of these tags"));
        picColor[i]->setAccessibleName(QString(caption).remove(u'&'));
        picColor[i]->setFocusPolicy(Qt::NoFocus);  // the button beside it takes the keys
        colors->addWidget(picColor[i], i % 3, i / 3 * 3);
        colors->addWidget(cmdColor[i], i % 3, i / 3 * 3 + 1);
    }
    colors->setColumnMinimumWidth(2, Gap(picOption[1]));
    colors->setColumnStretch(5, 1);
    auto* column = new QVBoxLayout(picOption[1]);
    column->addWidget(chkOnOff);
    column->addLayout(colors);
    column->addWidget(chkASPBold);
    column->addStretch();
}

void frmSettings::BuildFileTypesPanel() {
    auto* row = new QHBoxLayout(picOption[2]);
    row->addLayout(ListLayout(lstDocuments, txtDocuments, cmdAddDocument, lstDocsRemove,
                              {QStringLiteral("Document &Types"), QStringLiteral("&New Type"), QStringLiteral("&Add"),
                               QStringLiteral("&Remove")}));
    row->addSpacing(Gap(picOption[2]));
    row->addLayout(ListLayout(List1, Text2, Command9, Command10,
                              {QStringLiteral("&Image Types"), QStringLiteral("Ne&w Type"), QStringLiteral("A&dd"),
                               QStringLiteral("Re&move")}));
    for (QLineEdit* line : {txtDocuments, Text2}) {
        line->setToolTip(QStringLiteral("A part of the file name, as \".htm\""));
    }
}

QLayout* frmSettings::BuildCustomList() {
    return ListLayout(List2, Text4, Command11, Command12,
                      {QStringLiteral("Custom &List"), QStringLiteral("&New Entry"), QStringLiteral("&Add"),
                       QStringLiteral("&Delete")});
}

void frmSettings::BuildCustomPanel() {
    Grid1->setRowCount(customButtonCount);
    Grid1->setColumnCount(2);
    Grid1->setHorizontalHeaderLabels({"Caption", "Text Inserted"});
    constexpr int captionLetters = 18;
    Grid1->setColumnWidth(0, Grid1->fontMetrics().averageCharWidth() * captionLetters);
    Grid1->horizontalHeader()->setStretchLastSection(true);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->setTabKeyNavigation(false);
    Grid1->setAccessibleName(QStringLiteral("Custom Buttons"));
    Text3->setToolTip(QStringLiteral("The text of the chosen cell"));

    auto* line = new QHBoxLayout;
    line->addWidget(LabelFor(Text3, QStringLiteral("&Edit Cell")));
    line->addWidget(Text3);
    auto* left = new QVBoxLayout;
    left->addWidget(LabelFor(Grid1, QStringLiteral("Custom &Buttons")));
    left->addWidget(Grid1);
    left->addLayout(line);
    auto* row = new QHBoxLayout(picOption[3]);
    row->addLayout(left, 3);
    row->addSpacing(Gap(picOption[3]));
    row->addLayout(BuildCustomList(), 2);
}

void frmSettings::BuildFtpPanel() {
    Text7->setEchoMode(QLineEdit::Password);
    Text7->setStyleSheet(QStringLiteral("lineedit-password-character: %1").arg(int{'*'}));
    Text7->setToolTip(QStringLiteral("Kept as typed in the settings file, which only you can read"));
    LimitWidth(Text6, 50);
    LimitWidth(Text7, 50);
    auto* form = new QFormLayout(picOption[4]);
    form->addRow(LabelFor(Text5, QStringLiteral("&Upload URL")), Text5);
    form->addRow(LabelFor(Text6, QStringLiteral("FTP User&name")), Text6);
    form->addRow(LabelFor(Text7, QStringLiteral("FTP Pass&word")), Text7);
}

void frmSettings::BuildXmlPanel() {
    chkXMLCase->setText(QStringLiteral("Automatically &Lowercase all XHTML Tags"));
    chkXMLQuotes->setText(QStringLiteral("Automatically &Quote Tag Attributes"));
    chkXMLSlash->setText(QStringLiteral("&Enforce backslashing of empty elements"));
    picOption[5]->setLayout(Column({chkXMLCase, chkXMLQuotes, chkXMLSlash}));
}

void frmSettings::BuildDefinitionsPanel() {
    optXHTML[0]->setText(QStringLiteral("&Transitional"));
    optXHTML[1]->setText(QStringLiteral("&Strict"));
    optXHTML[2]->setText(QStringLiteral("&Frameset"));
    chkMath->setText(QStringLiteral("&MaHTML 2.0 Specification"));
    chkSmil->setText(QStringLiteral("SM&IL 1.0 Specification"));
    chkSVG->setText(QStringLiteral("S&VG 1.0 Specification"));
    chkOpenBook->setText(QStringLiteral("Open &eBook Specification"));
    chkWML->setText(QStringLiteral("&WML 1.3 Specification"));
    chkX3D->setText(QStringLiteral("&X3D Compromise Specification"));
    auto* variants = new QGroupBox(QStringLiteral("XHTML 1.0"));
    variants->setLayout(Column({optXHTML[0], optXHTML[1], optXHTML[2]}));
    auto* others = new QGroupBox(QStringLiteral("Other Definitions"));
    others->setLayout(Column({chkMath, chkSmil, chkSVG, chkOpenBook, chkWML, chkX3D}));
    auto* row = new QHBoxLayout(picOption[6]);
    row->addWidget(variants, 0, Qt::AlignTop);
    row->addWidget(others, 0, Qt::AlignTop);
    row->addStretch();
}

void frmSettings::BuildPreviewPanel() {
    auto* form = new QFormLayout(picOption[7]);
    for (int i = 0; i < externalBrowserCount; ++i) {
        cmbBrowser[i]->setText(QStringLiteral("Choose"));
        cmbBrowser[i]->setAccessibleName(QStringLiteral("Choose External Browser %1").arg(i + 1));
        txtBrowser[i]->setToolTip(QStringLiteral("The command that opens the document; \"None\" for no browser"));
        auto* row = new QHBoxLayout;
        row->addWidget(txtBrowser[i]);
        row->addWidget(cmbBrowser[i]);
        form->addRow(LabelFor(txtBrowser[i], QStringLiteral("External Browser &%1:").arg(i + 1)), row);
    }
    OptVertical->setText(QStringLiteral("&Vertical"));
    optHorizontal->setText(QStringLiteral("&Horizontal"));
    LimitWidth(txtRate, 12);
    LimitWidth(txtPercent, 12);
    txtRate->setToolTip(QStringLiteral("1 to 30"));
    txtPercent->setToolTip(QStringLiteral("0 to 100"));
    auto* split = new QGroupBox(QStringLiteral("Default Editor/Preview Split (IE)"));
    auto* options = new QHBoxLayout(split);
    options->addWidget(OptVertical);
    options->addWidget(optHorizontal);
    options->addStretch();
    form->addRow(LabelFor(txtRate, QStringLiteral("Preview &Refresh Rate In Seconds (IE)")), txtRate);
    form->addRow(split);
    form->addRow(LabelFor(txtPercent, QStringLiteral("&Default % of Window For Editing (IE)")), txtPercent);
}

void frmSettings::BuildFrame() {
    for (int i = 0; i < panelCount; ++i) {
        TabStrip1->addTab(QString::fromLatin1(tabCaptions[i]));
        picOption[i]->setAccessibleName(QString::fromLatin1(tabCaptions[i]));
        panels_->addWidget(picOption[i]);
    }
    TabStrip1->setExpanding(false);
    TabStrip1->setAccessibleName(QStringLiteral("Settings"));
    for (QToolButton* scroller : TabStrip1->findChildren<QToolButton*>()) scroller->setFocusPolicy(Qt::NoFocus);
    chkPurge->setText(QStringLiteral("&Purge Settings"));
    chkPurge->setToolTip(QStringLiteral("OK then deletes all preferences instead of saving them"));
    cmdOK->setText(QStringLiteral("&OK"));
    cmdOK->setDefault(true);
    cmdCancel->setText(QStringLiteral("&Cancel"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(chkPurge);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(TabStrip1);
    column->addWidget(panels_, 1);
    column->addLayout(buttons);
    // A dialog that sizes itself stays below two thirds of the screen, which can cut off tabs; large fonts may need
    // more than there is, and the tabs then get arrows.
    TabStrip1->setUsesScrollButtons(true);
    resize(sizeHint().boundedTo(screen()->availableSize() * 19 / 20));
    TabStrip1->setFocus();
}

}  // namespace vellum
