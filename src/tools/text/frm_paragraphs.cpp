#include "tools/text/frm_paragraphs.h"

#include "files/safe_write.h"
#include "files/text_file.h"
#include "import/rtf_reader.h"
#include "import/rtf_writer.h"
#include "import/text_import.h"
#include "surface/document_text.h"
#include "tools/framework/ok_keys.h"
#include "widgets/icons.h"
#include "widgets/wait_pointer.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include <utility>

namespace vellum {
namespace {

constexpr auto fileFilter = "Rich Text Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt";

struct StyleTool {
    RichSurface::Style style;
    const char* name;
    const char* caption;
    const char* toolTip;
    const char* icon;
    const char* key;
};

constexpr std::array<StyleTool, 4> styleTools{{
    {&RichFormat::bold, "cmdBold", "&B", "Bold", "bold", "Ctrl+B"},
    {&RichFormat::italic, "cmdItalic", "&I", "Italic", "italic", "Ctrl+I"},
    {&RichFormat::underline, "cmdUnderline", "&U", "Underline", "underline", "Ctrl+U"},
    {&RichFormat::strike, "cmdStrike", "&S", "Strike through", "strike", ""},
}};

struct AlignmentTool {
    RichAlignment alignment;
    const char* name;
    const char* caption;
    const char* icon;
};

constexpr std::array<AlignmentTool, 3> alignmentTools{{
    {RichAlignment::Left, "cmdLeft", "Left", "align-left"},
    {RichAlignment::Center, "cmdCenter", "Centre", "align-center"},
    {RichAlignment::Right, "cmdRight", "Right", "align-right"},
}};

QString WithLineFeeds(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

// In the format that an empty text has.
RichText PlainText(const LoadedText& file) {
    const RichText empty;
    return PlainRichText(WithCrLf(file.ReadableText()), empty.fonts.front(), empty.runs.front().format.Points());
}

QByteArray BytesOf(const RichText& rich, bool asRtf) {
    if (asRtf) return WriteRtf(rich);
    return EncodeAsUtf8(WithLineFeeds(rich.text), {}, {}).bytes.value_or(QByteArray());
}

QIcon ColorIcon(const QWidget& widget, ColorNumber color) {
    QPixmap picture(QSize(1, 1) * widget.fontMetrics().height());
    picture.fill(ColorFromNumber(color));
    QPainter painter(&picture);
    painter.setPen(Qt::gray);  // seen against a light button as against a dark one
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    return picture;
}

void AddGap(QHBoxLayout& row) {
    constexpr int gap = 12;
    row.addSpacing(gap);
}

}  // namespace

QString ParagraphMarkup(const RichText& rich) {
    return "<!-- Begin Paragraph -->\r\n<p>\r\n" + ConvertRichText(rich) + "\r\n</p>\r\n<!-- End Paragraph -->";
}

bool IsRtfName(const QString& path) {
    return path.contains(QLatin1String(".rtf"), Qt::CaseInsensitive);
}

frmParagraphs::frmParagraphs(Workbench& bench)
    : ToolDialog(bench, "frmParagraphs", "Paragraph Builder"),
      Text1(new RichSurface),
      Combo1(new QComboBox),
      Combo2(new QComboBox) {
    constexpr int lineCount = 16;
    Text1->setObjectName("Text1");
    Text1->setAccessibleName(windowTitle());
    SetFieldWidth(Text1, 100);
    Text1->setMinimumHeight(lineCount * fontMetrics().lineSpacing());
    AddMenus();
    AddTools();
    AddGrowing(Text1);
    QPushButton* const ok = Finish([this] { return ParagraphMarkup(Text1->Content()); }, OnCancel::FocusText);
    PressByCtrlEnter(*ok);  // Enter is a line end here
    connect(Text1, &RichSurface::SelChanged, this, &frmParagraphs::ShowSelection);
    ShowSelection();
    Text1->setFocus();
}

void frmParagraphs::AddMenus() {
    auto* const bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu& file = *bar->addMenu("&File");
    AddItem(file, "mnuOpenItem", "Open Text or RTF File", QKeySequence::Open, [this] { OpenText(); });
    AddItem(file, "mnuSaveItem", "Save Text or RTF File", QKeySequence::Save, [this] { SaveText(); });
    QMenu& edit = *bar->addMenu("&Edit");
    AddItem(edit, "mnuUndoItem", "&Undo", QKeySequence::Undo, [this] { Text1->undo(); });
    AddItem(edit, "mnuCutItem", "&Cut", QKeySequence::Cut, [this] { Text1->cut(); });
    AddItem(edit, "mnuCopyItem", "Cop&y", QKeySequence::Copy, [this] { Text1->copy(); });
    AddItem(edit, "mnuPasteItem", "&Paste", QKeySequence::Paste, [this] { Text1->paste(); });
    AddItem(edit, "mnuSelectItem", "&Select All", QKeySequence::SelectAll, [this] { Text1->selectAll(); });
    // The keys of editing are the surface's own; the items show them.
    for (QAction* const item : edit.actions()) item->setShortcutContext(Qt::WidgetShortcut);
}

void frmParagraphs::AddItem(QMenu& menu, const QString& name, const QString& caption, const QKeySequence& key,
                            const std::function<void()>& picked) {
    QAction* const item = menu.addAction(caption);
    item->setObjectName(name);
    item->setShortcut(key);
    connect(item, &QAction::triggered, this, picked);
}

void frmParagraphs::AddTools() {
    auto* const tools = new QWidget;
    auto* const row = new QHBoxLayout(tools);
    row->setContentsMargins(0, 0, 0, 0);
    AddFonts(*row);
    AddGap(*row);
    AddStyles(*row);
    AddGap(*row);
    AddAlignments(*row);
    AddGap(*row);
    AddFontColor(*row);
    row->addStretch();
    AddField({}, tools);
}

void frmParagraphs::AddFonts(QHBoxLayout& row) {
    const auto add = [&row](QComboBox* box, const QString& name, const QString& caption, const QStringList& values) {
        auto* const label = new QLabel(caption);
        label->setBuddy(box);
        box->setObjectName(name);
        box->addItems(values);
        row.addWidget(label);
        row.addWidget(box);
    };
    // The letters of the styles, the menus and the closing buttons are taken.
    add(Combo2, "Combo2", "Fo&nt Name", bench_.FontNames());
    add(Combo1, "Combo1", "Font Si&ze", {"8", "10", "12", "14", "18", "24", "36"});
    SetFieldWidth(Combo2, 24);
    connect(Combo2, &QComboBox::textActivated, this, [this](const QString& name) {
        Text1->SetSelFontName(name);
        Text1->setFocus();
    });
    connect(Combo1, &QComboBox::textActivated, this, [this](const QString& size) {
        Text1->SetSelFontSize(size.toDouble());
        Text1->setFocus();
    });
}

QToolButton* frmParagraphs::AddTool(QHBoxLayout& row, const QString& name, const QString& caption,
                                    const QString& toolTip, const QString& icon, const std::function<void()>& pressed) {
    auto* const tool = new QToolButton;
    tool->setObjectName(name);
    tool->setText(caption);
    tool->setToolTip(toolTip);
    tool->setAccessibleName(toolTip);
    tool->setIcon(OwnIcon(icon));
    tool->setIconSize({20, 20});
    tool->setAutoRaise(true);
    tool->setCheckable(true);
    tool->setFocusPolicy(Qt::TabFocus);
    row.addWidget(tool);
    connect(tool, &QToolButton::clicked, this, [this, pressed] {
        pressed();
        Text1->setFocus();
    });
    return tool;
}

void frmParagraphs::AddStyles(QHBoxLayout& row) {
    for (std::size_t i = 0; i < styleTools.size(); ++i) {
        const StyleTool& tool = styleTools.at(i);
        const QString key = tool.key;
        const QString toolTip = key.isEmpty() ? tool.toolTip : QStringLiteral("%1 (%2)").arg(tool.toolTip, key);
        styles_.at(i) = AddTool(row, tool.name, tool.caption, toolTip, tool.icon, [this, style = tool.style] {
            Text1->SetSelStyle(style, Text1->SelStyle(style) != true);
        });
        if (key.isEmpty()) continue;
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, styles_.at(i), &QToolButton::click);
    }
}

void frmParagraphs::AddAlignments(QHBoxLayout& row) {
    bullet_ = AddTool(row, "cmdBullet", QString(QChar(0x2022)), tr("Bullets"), "bullets",
                      [this] { Text1->SetSelBullet(Text1->SelBullet() != true); });
    for (std::size_t i = 0; i < alignmentTools.size(); ++i) {
        const AlignmentTool& tool = alignmentTools.at(i);
        alignments_.at(i) = AddTool(row, tool.name, tool.caption, tool.caption, tool.icon,
                                    [this, &tool] { Text1->SetSelAlignment(tool.alignment); });
    }
}

void frmParagraphs::AddFontColor(QHBoxLayout& row) {
    fontColor_ = new QPushButton("Font Co&lor");
    fontColor_->setObjectName("cmdFontColor");
    fontColor_->setAutoDefault(false);
    fontColor_->setToolTip(tr("Opens the color dialog"));
    connect(fontColor_, &QPushButton::clicked, this, &frmParagraphs::PickFontColor);
    row.addWidget(fontColor_);
}

void frmParagraphs::ShowSelection() {
    ShowFont();
    for (std::size_t i = 0; i < styles_.size(); ++i) {
        styles_.at(i)->setChecked(Text1->SelStyle(styleTools.at(i).style) == true);
    }
    for (std::size_t i = 0; i < alignments_.size(); ++i) {
        alignments_.at(i)->setChecked(Text1->SelAlignment() == alignmentTools.at(i).alignment);
    }
    bullet_->setChecked(Text1->SelBullet() == true);
    fontColor_->setIcon(ColorIcon(*fontColor_, Text1->SelColor().value_or(0)));
}

// A mixed selection leaves what is shown.
void frmParagraphs::ShowFont() {
    if (const auto size = Text1->SelFontSize()) Combo1->setCurrentIndex(Combo1->findText(QString::number(*size)));
    const auto name = Text1->SelFontName();
    if (!name) return;
    if (Combo2->findText(*name) < 0) Combo2->addItem(*name);  // the machine hasn't the font that the text asks for
    Combo2->setCurrentIndex(Combo2->findText(*name));
}

void frmParagraphs::PickFontColor() {
    if (const auto color = bench_.Ask().PickColor(this, Text1->SelColor().value_or(0))) Text1->SetSelColor(*color);
    Text1->setFocus();
}

void frmParagraphs::OpenText() {
    const QString path = PickFile(fileFilter);
    if (path.isEmpty()) return;
    QString error;
    const std::optional<LoadedText> file = ReadTextFile(path, &error);
    if (!file) return bench_.Ask().Message(this, error);
    const WaitPointer wait;
    const bool isRtf = IsRtfName(path) && IsRtf(file->bytes);
    Load(isRtf ? ReadRtf(file->bytes) : PlainText(*file));
}

void frmParagraphs::Load(const RichText& rich) {
    constexpr int rightMargin = 500;  // in twips, as the next ones
    constexpr int firstIndent = 0;
    constexpr int otherIndent = 200;
    QTextCursor step(Text1->document());
    step.beginEditBlock();
    Text1->SetContent(rich);
    Text1->selectAll();
    Text1->SetSelMargins(PixelsFromTwips(rightMargin), PixelsFromTwips(firstIndent), PixelsFromTwips(otherIndent));
    step.endEditBlock();
    Text1->moveCursor(QTextCursor::Start);
}

void frmParagraphs::SaveText() {
    const QString path = bench_.Ask().SaveFile(this, {fileFilter, bench_.WebsiteDirectory()});
    if (path.isEmpty()) return;
    QString error;
    if (!WriteFileSafely(path, BytesOf(Text1->Content(), IsRtfName(path)), &error)) {
        bench_.Ask().Message(this, error);
    }
}

}  // namespace vellum
