#include "tools/pages/frm_quick_start.h"

#include "tools/framework/attributes.h"
#include "tools/framework/paper.h"
#include "tools/pages/page_skeletons.h"
#include "values/color_hex.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace vellum {
namespace {

constexpr auto pageFiles = "HTML Documents (*.htm;*.html)|*.htm;*.html|All Files|*.*";
constexpr auto pictureFiles = "Images (*.gif;*.jpg;*.jpeg;*.png)|*.gif;*.jpg;*.jpeg;*.png|All Files|*.*";
constexpr auto styleSheetFiles = "Style Sheet Files (*.css)|*.css|All Files|*.*";

struct ColorField {
    QString QuickStartFields::*color;
    const char* name;
    const char* caption;
};

constexpr std::array<ColorField, 5> colorFields{{
    {&QuickStartFields::textColor, "Combo1", "Text Color"},
    {&QuickStartFields::linkColor, "Combo2", "Link Color"},
    {&QuickStartFields::visitedColor, "Combo3", "Visited Link Color"},
    {&QuickStartFields::activeColor, "Combo5", "Active Link Color"},
    {&QuickStartFields::backgroundColor, "Combo4", "Background Color"},
}};
constexpr std::size_t background = 4;

QString MetaLine(const char* name, const QString& content) {
    return "<meta" + Attribute("http-equiv", name) + Attribute("content", content);
}

// Only what the author filled in.
QString MetaLines(const QuickStartFields& fields) {
    QString lines;
    if (!fields.keywords.isEmpty()) lines += MetaLine("Keywords", fields.keywords) + " />\r\n";
    if (fields.hasTransition) {
        const QString effect = QStringLiteral("RevealTrans(Duration=4,Transition=%1)").arg(fields.transition);
        lines += MetaLine("Page-Enter", effect) + " />\r\n";
    }
    if (!fields.seconds.isEmpty() && fields.seconds != "0") {
        const bool elsewhere = fields.goesElsewhere && !fields.newUrl.isEmpty();
        lines += MetaLine("refresh", fields.seconds + (elsewhere ? " ;url=" + fields.newUrl : QString())) + ">\r\n";
    }
    return lines;
}

QString BodyTag(const QuickStartFields& fields) {
    QString tag = "<body";
    tag += AttributeIfAny("leftmargin", fields.leftMargin);
    tag += AttributeIfAny("topmargin", fields.topMargin);
    tag += AttributeIfAny("text", fields.textColor);
    tag += AttributeIfAny("link", fields.linkColor);
    tag += AttributeIfAny("vlink", fields.visitedColor);
    tag += AttributeIfAny("alink", fields.activeColor);
    tag += AttributeIfAny("bgcolor", fields.backgroundColor);
    tag += AttributeIfAny("background", fields.backgroundImage);
    tag += AttributeIfAny("instructions", fields.instructions);
    tag += AttributeIfAny("credits", fields.credits);
    tag += AttributeIfAny("logo", fields.logo);
    if (fields.watermark && !fields.backgroundImage.isEmpty()) tag += Attribute("bgproperties", "fixed");
    return tag + '>';
}

std::optional<ColorNumber> NamedColor(const QString& name) {
    return ColorNames().contains(name, Qt::CaseInsensitive) ? ColorFromText(name) : std::nullopt;
}

}  // namespace

const QStringList& DocumentTypeLines() {
    static const QStringList lines{
        R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0//EN">)",
        R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 3.2//EN">)",
        R"(<!DOCTYPE HTML PUBLIC  "-//IETF//DTD HTML 2.0//EN">)",
        R"(<!DOCTYPE HTML PUBLIC  "-//IETF//DTD HTML Level 1//EN">)",
        R"(<!DOCTYPE HTML PUBLIC  "-//Microsoft/DTD Microsoft Internet Explorer 3.01 HTML//EN">)",
        QuickStartFields().documentType,
        R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Frameset//EN" "DTD/xhtml1-frameset.dtd">)",
    };
    return lines;
}

const QStringList& TransitionNames() {
    static const QStringList names{"Blend in",
                                   "Box in",
                                   "Box out",
                                   "Circle in",
                                   "Circle out",
                                   "Wipe up",
                                   "Wipe down",
                                   "Wipe right",
                                   "Wipe left",
                                   "Vertical blinds",
                                   "Horizontal blinds",
                                   "Checkerboard across",
                                   "Checkerboard down",
                                   "Random dissolve",
                                   "Split vertical in",
                                   "Split vertical out",
                                   "Split horizontal in",
                                   "Split horizontal out",
                                   "Strips left down",
                                   "Strips left up",
                                   "Strips right down",
                                   "Strips right up",
                                   "Random bars horizontal",
                                   "Random bars vertical",
                                   "Random"};
    return names;
}

QString QuickStartMarkup(const QuickStartFields& fields) {
    QString page = fields.documentType + "\r\n";
    page += "<html" + NameSpaceAttribute() + ">\r\n";
    page += "<head>\r\n";
    page += "<title>" + fields.title + "</title>\r\n";
    page += MetaLines(fields);
    if (fields.linksStyleSheet) {
        page += "<link" + Attribute("rel", "stylesheet") + Attribute("href", fields.styleSheet) + " />\r\n";
    }
    page += "</head>\r\n";
    return page + BodyTag(fields) + "\r\n\r\n\r\n</body>\r\n</html>";
}

frmQuickStart::frmQuickStart(Workbench& bench) : ToolDialog(bench, "frmQuickStart", " QuickStart") {
    AddPane("Title and Margins");
    AddTitle();
    AddPane("Colors and Graphics");
    AddColors();
    AddPane("META Information");
    AddMeta();
    AddPane("WebTV");
    AddTelevision();
    Finish([this] { return QuickStartMarkup(fields_); });
}

void frmQuickStart::AddTitle() {
    constexpr int lineWidth = 60;  // in characters
    QLineEdit* const title = AddText(fields_.title, "Text1", "Title");
    SetFieldWidth(title, lineWidth);
    AddCombo(fields_.documentType, "Combo7", "Document Type", DocumentTypeLines());
    AddText(fields_.leftMargin, "Text2", "Left Margin (In Pixels)");
    AddText(fields_.topMargin, "Text3", "Top Margin (In Pixels)");
    AddCheck(fields_.linksStyleSheet, "chkStyleSheet", "Linked Stylesheet");
    Beside();
    AddFile(fields_.styleSheet, "txtStyleSheet", {}, "Find", styleSheetFiles);
    Gate(fields_.linksStyleSheet, {"txtStyleSheet", "cmdStyleSheet"});
}

void frmQuickStart::AddColors() {
    for (std::size_t i = 0; i < previewCount; ++i) {
        const ColorField& field = colorFields.at(i);
        AddColor(fields_.*field.color, field.name, field.caption, "Set Color", ColorStart::Black,
                 [this, i](ColorNumber color) {
                     shown_.at(i) = color;
                     ShowPreviews();
                 });
        AddPreview(i);
    }
    Follow([this] { ShowPreviews(); });
    AddFile(fields_.backgroundImage, "Text4", "Background Image", "Find", pictureFiles);
    QCheckBox* const watermark = AddCheck(fields_.watermark, "Check1", "Watermark");
    Follow([this, watermark] { watermark->setEnabled(!fields_.backgroundImage.isEmpty()); });
}

void frmQuickStart::AddPreview(std::size_t index) {
    constexpr int margin = 3;
    auto* const preview = new QLabel("Aa Bb Cc");
    preview->setObjectName(Indexed("lblPreview", static_cast<int>(index)));
    preview->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    preview->setMargin(margin);
    preview->setAlignment(Qt::AlignCenter);
    preview->setAutoFillBackground(true);
    previews_.at(index) = preview;
    Beside();
    AddField({}, preview);
}

void frmQuickStart::ShowPreviews() {
    const ColorNumber paper = ColorFromText(fields_.backgroundColor).value_or(PaperFor(0));
    for (std::size_t i = 0; i < previewCount; ++i) {
        if (const auto color = NamedColor(fields_.*colorFields.at(i).color)) shown_.at(i) = color;
        const ColorNumber text = shown_.at(i).value_or(0);
        QPalette colors = previews_.at(i)->palette();
        colors.setColor(QPalette::WindowText, ColorFromNumber(text));
        colors.setColor(QPalette::Window, ColorFromNumber(i == background ? PaperFor(text) : paper));
        previews_.at(i)->setPalette(colors);
    }
}

void frmQuickStart::AddMeta() {
    AddText(fields_.keywords, "txtKeyWords", "Document Keywords");
    AddNote("Separate Words with commas");
    AddTransition();
    AddText(fields_.seconds, "txtSeconds", "Refresh Document After");
    AddCheck(fields_.goesElsewhere, "Check2", "On Refresh Goto:");
    Beside();
    AddText(fields_.newUrl, "txtNewURL");
    Gate(fields_.goesElsewhere, {"txtNewURL"});
}

// Its own box, as no text can be typed that has no index.
void frmQuickStart::AddTransition() {
    AddCheck(fields_.hasTransition, "Check3", "Transition (IE)");
    auto* const box = new QComboBox;
    box->setObjectName("Combo12");
    box->addItems(TransitionNames());
    box->setCurrentIndex(fields_.transition);
    connect(box, &QComboBox::currentIndexChanged, this, [this](int index) { fields_.transition = index; });
    Beside();
    AddField({}, box);
    Gate(fields_.hasTransition, {"Combo12"});
}

void frmQuickStart::AddTelevision() {
    AddFile(fields_.instructions, "txtTVInstruct", "Instructions", "Find", pageFiles);
    AddFile(fields_.credits, "txtTVCredits", "Credits", "Find", pageFiles);
    AddFile(fields_.logo, "txtTVLogo", "Graphical Logo", "Find", pictureFiles);
}

void frmQuickStart::Gate(const bool& check, const QStringList& names) {
    for (const QString& name : names) {
        auto* const field = findChild<QWidget*>(name);
        Follow([&check, field] { field->setEnabled(check); });
    }
}

}  // namespace vellum
