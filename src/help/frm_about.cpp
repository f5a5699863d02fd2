#include "help/frm_about.h"

#include "system/programs.h"
#include "values/number_rules.h"
#include "widgets/icons.h"
#include "widgets/wait_pointer.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include <array>

namespace vellum {
namespace {

// Heights of the texts, in lines.
constexpr int leastHeight = 3;
constexpr int factsHeight = 11;
constexpr int creditsHeight = 8;
constexpr double headingScale = 1.8;
constexpr auto site = "https://vellumcraft.example/";

constexpr auto disclaimer =
    "Copyright \u00a9 2026 The Vellumcraft developers\n\n"
    "Vellumcraft is free software under the MIT License: you may use it, copy it, change it and pass it on, as long as "
    "the copyright notice and the text of the licence go along with it.\n\n"
    "It comes as it is, without warranty of any kind. Nobody who made it or passes it on is liable for any claim or "
    "damage that arises from it or from its use.\n\n"
    "The files of the document types are Vellumcraft's own. The vocabularies that they describe are their publishers'.";

constexpr std::array credits{
    DtdCredit{"XHTML 1.0",
              "\"XHTML 1.0: The Extensible HyperText Markup Language\", second edition, 2002. A Recommendation of the "
              "World Wide Web Consortium (W3C), which also publishes the three sets of named characters."},
    DtdCredit{
        "OpenEBook Document",
        "The pages of an electronic book in the \"Open eBook Publication Structure\", version 1.0, 1999. Published "
        "by the Open eBook Forum."},
    DtdCredit{"OpenEBook Package",
              "The list of a book's files in the \"Open eBook Publication Structure\", version 1.0, 1999. Published by "
              "the Open eBook Forum."},
    DtdCredit{
        "SMIL 1.0",
        "\"Synchronized Multimedia Integration Language (SMIL) 1.0\", 1998. A Recommendation of the World Wide Web "
        "Consortium (W3C)."},
    DtdCredit{"SVG 1.0",
              "\"Scalable Vector Graphics (SVG) 1.0\", 2001. A Recommendation of the World Wide Web Consortium (W3C)."},
    DtdCredit{"WML 1.3", "\"Wireless Markup Language\", version 1.3, 2000. Published by the WAP Forum."},
    DtdCredit{
        "X3D Compromise 0.79",
        "Extensible 3D in the tag set that its authors called the compromise. Published by the Web3D Consortium."},
};

// With its decimals, because the figures are not always whole megabytes.
QString Megabytes(std::uint64_t bytes) {
    return NumberText(static_cast<double>(bytes) / 1024 / 1024) + " Megabytes";
}

// Hours with two decimals and a comma between the thousands, as in "1,234.50". Halves are rounded up.
QString StandardHours(std::uint64_t milliseconds) {
    constexpr std::uint64_t hundredth = 36000;
    const std::uint64_t hundredths = (milliseconds + hundredth / 2) / hundredth;
    QLocale plain = QLocale::c();
    plain.setNumberOptions(QLocale::DefaultNumberOptions);
    return plain.toString(static_cast<qulonglong>(hundredths / 100)) +
           QStringLiteral(".%1").arg(hundredths % 100, 2, 10, QChar(u'0'));
}

QLabel* MakeLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

template <typename TextWidget>
int HeightOf(const TextWidget& text, int lines) {
    const double margins = 2 * (text.document()->documentMargin() + text.frameWidth());
    return text.fontMetrics().lineSpacing() * lines + static_cast<int>(margins) + 1;
}

// As wide as its longest line, with room for a scroll bar.
int FullWidth(const QPlainTextEdit& text) {
    int width = 0;
    for (const QString& line : text.toPlainText().split(u'\n')) {
        width = qMax(width, text.fontMetrics().horizontalAdvance(line));
    }
    const double margins = 2 * (text.document()->documentMargin() + text.frameWidth());
    return width + static_cast<int>(margins) + text.verticalScrollBar()->sizeHint().width() + 1;
}

// Makes a text read-only, with a cursor for the keyboard and for screen readers. The Tab key leaves it.
template <typename TextWidget>
QLabel* PrepareText(TextWidget* text, const QString& name, const QString& caption, QWidget* parent) {
    text->setObjectName(name);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setMinimumHeight(HeightOf(*text, leastHeight));
    auto* label = new QLabel(caption, parent);
    label->setBuddy(text);
    return label;
}

void FillCredits(QTextEdit& text) {
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QTextCursor cursor(text.document());
    for (const DtdCredit& credit : DtdCredits()) {
        if (!cursor.atStart()) cursor.insertText("\n\n", {});
        cursor.insertText(credit.name, bold);
        cursor.insertText(QStringLiteral("\n") + credit.text, {});
    }
    text.moveCursor(QTextCursor::Start);
}

}  // namespace

std::span<const DtdCredit> DtdCredits() {
    return credits;
}

QString SystemFactsText(const SystemFacts& facts) {
    return QStringList{
        "--About Your System--",
        "",
        "Processor Type:  " + QString::number(facts.processorType),
        "# Of Processors: " + QString::number(facts.processorCount),
        "Windows Directory: " + facts.windowsDirectory,
        "System Directory: " + facts.systemDirectory,
        "Total Physical Memory: " + Megabytes(facts.totalPhysicalMemory),
        "Physical Memory Available: " + Megabytes(facts.freePhysicalMemory),
        "Total Virtual Memory: " + Megabytes(facts.totalVirtualMemory),
        "Virtual Memory Available: " + Megabytes(facts.freeVirtualMemory),
        "Windows has been running for: " + StandardHours(facts.millisecondsSinceBoot) + " Hours",
    }
        .join("\r\n");
}

frmAbout::frmAbout(Workbench& bench, const SystemFacts& facts, Opener open)
    : QDialog(bench.Window()),
      bench_(bench),
      open_(std::move(open)),
      Text1(new QPlainTextEdit(this)),
      Text2(new QPlainTextEdit(this)),
      Text3(new QTextEdit(this)),
      Label5(new QPushButton(site, this)),
      cmdOK(new QPushButton("&OK", this)) {
    setObjectName("frmAbout");
    setWindowTitle("About...");
    if (!open_) open_ = [](const QString& address) { return OpenWithDefault(address); };
    auto* outer = new QVBoxLayout(this);
    outer->addLayout(BuildHeader());
    outer->addSpacing(fontMetrics().height() / 2);
    outer->addLayout(BuildTexts(facts), 1);
    outer->addLayout(BuildButtons());
    QWidget* before = Label5;
    for (QWidget* next : std::initializer_list<QWidget*>{Text1, Text2, Text3, cmdOK}) {
        setTabOrder(before, next);
        before = next;
    }
    cmdOK->setDefault(true);
    cmdOK->setFocus();
    FitToScreen();
}

QLayout* frmAbout::BuildHeader() {
    auto* picture = new QLabel(this);
    const int side = fontMetrics().height() * 4;
    picture->setPixmap(OwnIcon("vellumcraft").pixmap(side, side));

    QLabel* product = MakeLabel("Label1", "Vellumcraft", this);
    QFont large = product->font();
    large.setPointSizeF(large.pointSizeF() * headingScale);
    large.setBold(true);
    product->setFont(large);

    // It looks like a link but is a button, so that the keyboard and a screen reader can press it.
    Label5->setObjectName("Label5");
    Label5->setFlat(true);
    Label5->setCursor(Qt::PointingHandCursor);
    Label5->setToolTip(tr("Opens the site in your browser"));
    QFont underlined = Label5->font();
    underlined.setUnderline(true);
    Label5->setFont(underlined);
    QPalette colors = Label5->palette();
    colors.setColor(QPalette::ButtonText, colors.color(QPalette::Link));
    Label5->setPalette(colors);
    connect(Label5, &QPushButton::clicked, this, &frmAbout::OpenSite);

    auto* lines = new QVBoxLayout;
    lines->addWidget(product);
    lines->addWidget(MakeLabel("Label2", "Version X Release 2", this));
    lines->addWidget(MakeLabel("Label3", "ActiveX and VBScript are trademarks of Microsoft", this));
    auto* header = new QHBoxLayout;
    header->addWidget(picture);
    header->addLayout(lines);
    header->addStretch();
    header->addWidget(Label5, 0, Qt::AlignTop);
    return header;
}

QLayout* frmAbout::BuildTexts(const SystemFacts& facts) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(fontMetrics().height());
    grid->addWidget(PrepareText(Text1, "Text1", tr("&Disclaimer"), this), 0, 0);
    grid->addWidget(Text1, 1, 0);
    grid->addWidget(PrepareText(Text2, "Text2", tr("&System"), this), 0, 1);
    grid->addWidget(Text2, 1, 1);
    grid->addWidget(PrepareText(Text3, "Text3", tr("&Credits"), this), 2, 0, 1, 2);
    grid->addWidget(Text3, 3, 0, 1, 2);
    grid->setRowStretch(1, factsHeight);
    grid->setRowStretch(3, creditsHeight);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    Text1->setPlainText(QString::fromUtf8(disclaimer));
    Text2->setPlainText(SystemFactsText(facts));
    FillCredits(*Text3);
    return grid;
}

QLayout* frmAbout::BuildButtons() {
    cmdOK->setObjectName("cmdOK");
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cmdOK);
    return row;
}

// Makes the dialog large enough for the facts without scrolling where the screen has the room.
void frmAbout::FitToScreen() {
    const QSize room = screen()->availableSize() * 9 / 10;
    Text2->setMinimumWidth(qMin(FullWidth(*Text2), room.width() * 3 / 5));
    const QSize least = minimumSizeHint();
    const int taller = HeightOf(*Text2, factsHeight) + HeightOf(*Text3, creditsHeight) - Text2->minimumHeight() -
                       Text3->minimumHeight();
    const QMargins margins = layout()->contentsMargins();
    const int width = 2 * FullWidth(*Text2) + margins.left() + margins.right() + fontMetrics().height();
    const QSize wanted = least.expandedTo({width, least.height() + taller});
    resize(wanted.boundedTo(room));
}

void frmAbout::OpenSite() {
    bool opened = false;
    {
        const WaitPointer wait;
        opened = open_(Label5->text());
    }
    if (!opened) bench_.Ask().Message(this, tr("No program could be started to open %1").arg(Label5->text()));
}

}  // namespace vellum
