#include "tests/contact_sheet/forms.h"

#include "help/didyouknow.h"
#include "help/frm_about.h"
#include "shell/frm_settings.h"
#include "shell/start.h"
#include "tests/contact_sheet/kit_sample.h"
#include "tools/forms/frm_forms.h"
#include "tools/forms/frm_input.h"
#include "tools/forms/frm_search_engines.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frame_grid.h"
#include "tools/frames/frame_page.h"
#include "tools/frames/frm_iframe.h"
#include "tools/links/frm_anchors.h"
#include "tools/lists/frm_lists.h"
#include "tools/media/frm_graphics.h"
#include "tools/media/frm_sound.h"
#include "tools/pages/frm_quick_start.h"
#include "tools/pages/new_wizards.h"
#include "tools/scripts/asp.h"
#include "tools/scripts/frm_applet.h"
#include "tools/scripts/frm_controls.h"
#include "tools/scripts/frm_insert_script.h"
#include "tools/scripts/frm_options.h"
#include "tools/scripts/frm_param.h"
#include "tools/scripts/frm_script_wizard.h"
#include "tools/scripts/in_script.h"
#include "tools/styles/css.h"
#include "tools/tables/frm_tables.h"
#include "tools/tables/table_grid.h"
#include "tools/tables/table_importer.h"
#include "tools/text/cstuff.h"
#include "tools/text/frm_fonts.h"
#include "tools/text/frm_paragraphs.h"
#include "tools/text/hrule.h"
#include "website/propform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QLinearGradient>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

namespace vellum::contact_sheet {
namespace {

constexpr auto samplePage =
    "<html>\n<head>\n<title>Paper</title>\n</head>\n<body bgcolor=\"#FFFFFF\">\n<!-- The first page -->\n"
    "<p>Vellum is made of <a href=\"calf.htm\">calfskin</a>.</p>\n<table border=\"1\"><tr><td>1</td></tr></table>\n"
    "</body>\n</html>\n";

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("can't write a sample file");
}

// For a form that is made from the main window alone.
template <typename Tool>
std::unique_ptr<QWidget> Make(Stage& stage) {
    return std::make_unique<Tool>(stage.bench);
}

// With its lines laid out, and one frame chosen.
template <typename Page>
std::unique_ptr<QWidget> MakeFrames(Stage& stage) {
    auto page = std::make_unique<Page>(stage.bench);
    page->template findChild<QLineEdit*>("txtNumber")->setText("3");
    page->template findChild<QPushButton*>("cmdNext")->click();
    auto* const grid = page->template findChild<FrameGrid*>("Row1(1)");
    grid->parentWidget()->template findChild<QPushButton*>()->click();  // the "+" of that line
    emit grid->Chosen(1);
    return page;
}

// Of terms with their definitions, some of them in colours.
std::unique_ptr<QWidget> MakeDefinitions(Stage& stage) {
    stage.bench.prompts.colors = {0x0000A0, 0x008000, 0x00E0FF};
    auto form = std::make_unique<frmLists>(stage.bench);
    form->findChild<QRadioButton*>("Option1")->click();
    auto* const grid = form->findChild<QTableWidget*>("Grid1");
    const std::pair<const char*, const char*> rows[] = {
        {"vellum", "made of calfskin"}, {"parchment", "made of sheepskin"}, {"papyrus", "made of reed"}};
    for (int row = 0; const auto& [term, definition] : rows) {
        if (row > 0) form->findChild<QPushButton*>("cmdPlus")->click();
        grid->model()->setData(grid->model()->index(row, 0), term);
        grid->model()->setData(grid->model()->index(row, 1), definition);
        grid->setCurrentCell(row++, 0);
        form->findChild<QPushButton*>("Command3")->click();
    }
    grid->setRangeSelected({0, 1, 1, 1}, true);
    return form;
}

std::unique_ptr<QWidget> MakeMailForm(Stage& stage) {
    stage.bench.prompts.inputs = {"scriptorium@example.com"};
    auto form = std::make_unique<frmForms>(stage.bench);
    form->findChild<QPushButton*>("cmdEmail")->click();
    return form;
}

// With the fields of one kind, and a few of the common ones.
std::unique_ptr<frmInput> MakeInput(Stage& stage, const char* option, const char* name) {
    auto form = std::make_unique<frmInput>(stage.bench);
    form->findChild<QRadioButton*>(option)->click();
    form->findChild<QLineEdit*>("txtName")->setText(name);
    form->findChild<QLineEdit*>("txtAccess")->setText("m");
    return form;
}

std::unique_ptr<QWidget> MakeListbox(Stage& stage) {
    auto form = MakeInput(stage, "Option10", "material");
    auto* const grid = form->findChild<QTableWidget*>("Grid1");
    const std::pair<const char*, const char*> rows[] = {
        {"calf", "Vellum of calfskin"}, {"sheep", "Parchment"}, {"reed", "Papyrus"}};
    for (int row = 0; const auto& [value, text] : rows) {
        if (row > 0) form->findChild<QPushButton*>("cmdListPlus")->click();
        grid->model()->setData(grid->model()->index(row, 0), value);
        grid->model()->setData(grid->model()->index(row++, 1), text);
    }
    form->findChild<QComboBox*>("cboListSize")->setEditText("3");
    return form;
}

std::unique_ptr<QWidget> MakeTextbox(Stage& stage) {
    auto form = MakeInput(stage, "Option9", "remarks");
    form->findChild<QPlainTextEdit*>("Text26")->setPlainText("Dear parchmenter,\n\n");
    return form;
}

std::unique_ptr<QWidget> MakePassword(Stage& stage) {
    return MakeInput(stage, "Option4", "password");
}

// With something of everything.
std::unique_ptr<QWidget> MakeParagraphs(Stage& stage) {
    RichText rich;
    rich.text = "Vellum\r\nVellum is prepared from animal skin.\r\ncalf\r\nlamb\r\nstruck and underlined";
    rich.fonts = {"DejaVu Serif", "DejaVu Sans"};
    rich.runs = {{.offset = 0, .format = {.halfPoints = 48, .color = 0x2060C0, .bold = true}},
                 {.offset = 8, .format = {.font = 1}},
                 {.offset = 27, .format = {.font = 1, .italic = true}},
                 {.offset = 45, .format = {.font = 1}},
                 {.offset = 57, .format = {.font = 1, .strike = true}},
                 {.offset = 64, .format = {.font = 1, .underline = true}}};
    rich.paragraphs = {{.alignment = RichAlignment::Center}, {}, {.bullet = true}, {.bullet = true}, {}};
    auto form = std::make_unique<frmParagraphs>(stage.bench);
    form->findChild<RichSurface*>("Text1")->SetContent(rich);
    return form;
}

// With values of many pages, and the one that shows.
template <StyleMode mode, int page>
std::unique_ptr<QWidget> MakeStyles(Stage& stage) {
    auto form = std::make_unique<CSS>(stage.bench, mode);
    const std::pair<int, const char*> values[] = {{1, "14pt"},  {4, "bold"},      {7, "center"},  {13, "#FFF4D0"},
                                                  {17, "NAVY"}, {22, "OLIVE"},    {29, "groove"}, {33, "6px"},
                                                  {37, "8px"},  {38, "12px"},     {40, "10px"},   {44, "8px"},
                                                  {52, "10px"}, {54, "relative"}, {58, "2"}};
    for (const auto& [property, value] : values) {
        form->findChild<QComboBox*>(QString("cboStyle(%1)").arg(property))->setEditText(value);
    }
    form->findChild<QComboBox*>("cboCategory")->setCurrentIndex(page);
    return form;
}

// With something to see on each tab.
std::unique_ptr<QWidget> MakeEffects(Stage& stage) {
    auto form = std::make_unique<CStuff>(stage.bench);
    form->findChild<QLineEdit*>("Text17")->setText("Made of calfskin");
    form->findChild<QLineEdit*>("Text1")->setText("Vellum goes up and down");
    form->findChild<QComboBox*>("Combo2")->setCurrentIndex(5);
    form->findChild<QLineEdit*>("Text2")->setText("24");
    form->findChild<QLineEdit*>("Text16")->setText("Vellum lasts for centuries");
    form->findChild<QComboBox*>("Combo3")->setEditText("24pt");
    return form;
}

// With colours of every lightness.
std::unique_ptr<QWidget> MakeQuickStart(Stage& stage) {
    auto form = std::make_unique<frmQuickStart>(stage.bench);
    const std::pair<const char*, const char*> colors[] = {
        {"Combo1", "WHITE"}, {"Combo2", "YELLOW"}, {"Combo3", "SILVER"}, {"Combo5", "LIME"}, {"Combo4", "NAVY"}};
    for (const auto& [box, color] : colors) form->findChild<QComboBox*>(box)->setEditText(color);
    return form;
}

// With texts, colours, sizes and a picture in its cells, some of them selected.
std::unique_ptr<QWidget> MakeTables(Stage& stage) {
    auto tables = std::make_unique<frmTables>(stage.bench);
    for (const char* check : {"Check4", "Check2"}) tables->findChild<QCheckBox*>(check)->click();
    auto& grid = *tables->findChild<TableGrid*>();
    grid.Resize(6, 4);
    const char* const texts[] = {"Sheet", "Made of", "A longer text than its cell has room for", "Two\nlines"};
    for (int column = 0; column < 4; ++column) grid.SetText(0, column, texts[column]);
    grid.Enter(0, 1);
    grid.ChangeSelected([](TableCell& cell) { cell.fontSize = 24; });
    grid.Enter(0, 3);
    grid.ChangeSelected([](TableCell& cell) { cell.fontSize = 9.75F; });
    grid.Enter(1, 0);
    grid.ChangeActive([](TableCell& cell) {
        cell.text = "Vellum";
        cell.color = 0x0000C0;
        cell.backColor = 0xB0F0FF;
    });
    grid.Enter(1, 1);
    grid.ChangeActive([](TableCell& cell) {
        cell.image = "calf.gif";
        cell.picture = QImage(60, 40, QImage::Format_RGB32);
        cell.picture.fill(QColor(0xC0, 0x90, 0x60));
    });
    grid.Select({1, 2}, {2, 4});
    return tables;
}

std::unique_ptr<QWidget> MakeImporter(Stage& stage) {
    return std::make_unique<TableImporter>(stage.bench, "/home/author/Documents/prices of parchment.txt");
}

// With colours to choose from and to fade.
std::unique_ptr<QWidget> MakeScripts(Stage& stage) {
    stage.bench.prompts.colors = {0x0060FF, 0x40C000, 0xC04000, 0x603000, 0x80E0FF};
    auto form = std::make_unique<frmScriptWizard>(stage.bench);
    for (int i = 0; i < 3; ++i) form->findChild<QPushButton*>("cmdBCAdd")->click();
    form->findChild<QPushButton*>("lblCBColor1")->click();
    form->findChild<QPushButton*>("lblCBColor2")->click();
    return form;
}

// Without the tips, which would wait for an answer.
class MainWindow : public MDIform1 {
public:
    using MDIform1::MDIform1;
    void startup() override {}
};

std::unique_ptr<QWidget> MakeStart(Stage& stage) {
    auto start = std::make_unique<Start>(stage.settings, stage.bench.prompts);
    start->timAnimation->stop();
    return start;
}

// Of a picture, which comes a little after the form.
std::unique_ptr<QWidget> MakeProperties(Stage& stage) {
    const QString path = stage.site.filePath("sunset.jpg");
    QImage picture(640, 400, QImage::Format_RGB32);
    QPainter painter(&picture);
    QLinearGradient sky(0, 0, 0, picture.height());
    sky.setColorAt(0, QColor(40, 60, 120));
    sky.setColorAt(1, QColor(250, 160, 60));
    painter.fillRect(picture.rect(), sky);
    painter.end();
    if (!picture.save(path)) qFatal("can't write a sample picture");
    auto form = std::make_unique<propform>(stage.bench, path);
    if (!QTest::qWaitFor([&form] { return !form->lblWidth->text().isEmpty(); })) qFatal("no picture came");
    return form;
}

}  // namespace

Stage::Stage() {
    for (const char* name : {"index.htm", "calf.htm", "style.css", "script.js", "a longer name with blanks.htm"}) {
        WriteFile(site.filePath(name), samplePage);
    }
    bench.document = &document;
    bench.website = site.path();
    WriteSetting(settings, keys::drive, "/");
    WriteSetting(settings, keys::director, site.path());
    WriteSetting(settings, keys::filePath, site.path());
}

const std::vector<Form>& Forms() {
    static const std::vector<Form> forms{
        {"Start", MakeStart},
        {"Didyouknow", Make<Didyouknow>},
        {"frmAbout", Make<frmAbout>},
        {"NewWizards", [](Stage&) { return std::make_unique<NewWizards>(); }},
        {"FormWizard", Make<FormWizard>},
        {"FormWizard2", MakeFrames<FormWizard2>},
        {"FormWizard3", MakeFrames<FormWizard3>},
        {"frmAnchors", Make<frmAnchors>},
        {"frmApplet", Make<frmApplet>},
        {"frmIFrame", Make<frmIFrame>},
        {"frmSound", Make<frmSound>},
        {"HRule", Make<HRule>},
        {"frmFonts", Make<frmFonts>},
        {"frmParam", Make<frmParam>},
        {"frmLists", Make<frmLists>},
        {"frmLists, definitions", MakeDefinitions},
        {"ASP", Make<ASP>},
        {"frmScriptWizard", MakeScripts},
        {"frmInsertScript", Make<frmInsertScript>},
        {"InScript", Make<InScript>},
        {"frmControls", Make<frmControls>},
        {"frmOptions",
         [](Stage& stage) {
             const Control control{"Button", "{0000AAAA-0000-0000-0000-000000000001}", "Forms.Button.1"};
             return std::make_unique<frmOptions>(stage.bench, control);
         }},
        {"frmForms", MakeMailForm},
        {"frmInput", Make<frmInput>},
        {"frmInput, list box", MakeListbox},
        {"frmInput, text box", MakeTextbox},
        {"frmInput, password", MakePassword},
        {"frmSearchEngines", Make<frmSearchEngines>},
        {"frmGraphics", Make<frmGraphics>},
        {"frmQuickStart", MakeQuickStart},
        {"frmParagraphs", MakeParagraphs},
        {"frmTables", MakeTables},
        {"TableImporter", MakeImporter},
        {"CSS", MakeStyles<StyleMode::Sheet, 0>},
        {"CSS, layout", MakeStyles<StyleMode::Sheet, 2>},
        {"CSS, inline", MakeStyles<StyleMode::Inline, 1>},
        {"CSS, in a tag", MakeStyles<StyleMode::InTag, 4>},
        {"CStuff", MakeEffects},
        {"KitSample", Make<KitSample>},
        {"propform", MakeProperties},
        {"frmSettings", [](Stage& stage) { return std::make_unique<frmSettings>(stage.bench, stage.bench); }},
    };
    return forms;
}

const std::vector<Box>& Boxes() {
    static const std::vector<Box> boxes{
        {"MessageBox", [] { DialogPrompts().Message(nullptr, "File Unavailable.", "Vellumcraft"); }},
        {"QuestionBox", [] { DialogPrompts().AskYesNoCancel(nullptr, "Do you want to save New 1?", "Save Document"); }},
        {"InputBox", [] { DialogPrompts().Input(nullptr, "What Line?", "Go To Line", "12"); }},
    };
    return boxes;
}

std::unique_ptr<MDIform1> MakeMainWindow(Stage& stage) {
    auto window = std::make_unique<MainWindow>(stage.settings, stage.bench.prompts, stage.recovery,
                                               stage.bench.FontNames(), true);
    window->Load(stage.site.filePath("index.htm"), [] {});
    window->setWindowState(Qt::WindowNoState);
    window->resize(1280, 800);
    return window;
}

}  // namespace vellum::contact_sheet
