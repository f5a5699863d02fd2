#include "tools/media/frm_graphics.h"

#include "files/picture.h"
#include "tools/framework/attributes.h"
#include "tools/framework/color_hex.h"
#include "tools/framework/values.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <iterator>

namespace vellum {
namespace {

// What a filter type writes: texts, with fields between them.
struct FilterStyle {
    const char* type;
    const char* start;
    QString GraphicsFields::*first = nullptr;
    const char* middle = "";
    QString GraphicsFields::*second = nullptr;
    const char* end = "";
};

constexpr FilterStyle filterStyles[] = {
    {"Flip Horizontal", "FlipH()"},
    {"Flip Vertical", "FlipV()"},
    {"Invert Filter", "Invert()"},
    {"Grayscale Filter", "Gray()"},
    {"XRay Filter", "Xray()"},
    {"Wave Filter", "Wave(Add=0, freq=3, light=50, phase=0, strength=25)"},
    {"Shadow Filter", "Shadow(color=", &GraphicsFields::filterColor, ", Direction=225)"},
    {"Alpha Filter", "Alpha(Opacity=", &GraphicsFields::strength, ")"},
    {"Blur Filter", "Blur(add=0, direction=90, strength=", &GraphicsFields::strength, ")"},
    {"Glow Filter", "Glow(color=", &GraphicsFields::filterColor, ", strength=", &GraphicsFields::strength, ")"},
    {"Mask Filter", "Mask(color=", &GraphicsFields::filterColor, ")"},
};

QString StyleAttribute(const GraphicsFields& fields) {
    const auto* const style = std::find_if(std::begin(filterStyles), std::end(filterStyles),
                                           [&](const FilterStyle& row) { return fields.filterType == row.type; });
    if (style == std::end(filterStyles)) return {};
    QString filter = QStringLiteral("filter:") + style->start;
    if (style->first) filter += fields.*style->first;
    filter += style->middle;
    if (style->second) filter += fields.*style->second;
    return Attribute("style", filter + style->end);
}

// Told by the last three characters, so that "a.jpeg" is none.
bool IsMeasured(const QString& name) {
    return QStringLiteral("GIF,JPG,BMP").contains(name.right(3).toUpper());
}

// Sets the text's color along with its background, so that both fit in a light theme as in a dark one.
void Paint(QWidget& widget, QPalette::ColorRole background, const QColor& color, QPalette::ColorRole text,
           const QColor& textColor) {
    QPalette palette = widget.palette();
    palette.setColor(background, color);
    palette.setColor(text, textColor);
    widget.setPalette(palette);
}

}  // namespace

QString GraphicsMarkup(const GraphicsFields& fields) {
    QString markup = "<img " + fields.mediaType + "=\"" + fields.url + '"';
    markup += AttributeIfAny("height", fields.height);
    markup += AttributeIfAny("width", fields.width);
    markup += AttributeIfAny("hspace", fields.hspace);
    markup += AttributeIfAny("vspace", fields.vspace);
    markup += AttributeIfAny("border", fields.border);
    markup += AttributeIfAny("align", fields.alignment);
    markup += AttributeIfAny("alt", fields.description);
    markup += AttributeIfAny("transparency", fields.transparency);
    if (fields.imageMap) markup += Attribute("usemap", fields.mapName);
    return markup + StyleAttribute(fields) + " />";
}

frmGraphics::frmGraphics(Workbench& bench) : ToolDialog(bench, "frmGraphics", "Graphics") {
    AddPane("URL and Positioning");
    AddPositioning();
    AddPane("Microsoft Gradient Filters");
    AddFilters();
    Finish([this] { return GraphicsMarkup(Fields()); });
}

void frmGraphics::AddPositioning() {
    const GraphicsFields defaults;
    cboMediaType = AddCombo("cboMediaType", "Media Type", {"dynsrc", "src", "vrml"}, defaults.mediaType);
    txtURL = AddFile("txtURL", "URL", "Find", "All Files|*.*", [this](const QString& path) {
        if (IsMeasured(path)) Measure(path);
    });
    txtHeight = AddText("txtHeight", "Height");
    txtWidth = AddText("txtWidth", "Width");
    txtHSpace = AddText("txtHSpace", "HSPACE");
    txtVSpace = AddText("txtVSpace", "VSPACE");
    NextColumn();
    cboBorder = AddCombo("cboBorder", "Border", Numbers(0, 10) << "20");
    cboAlignment =
        AddCombo("cboAlignment", "Alignment",
                 {"ABSBOTTOM", "ABSMIDDLE", "BASELINE", "BOTTOM", "LEFT", "MIDDLE", "RIGHT", "TEXTTOP", "TOP"});
    txtDescription = AddText("txtDescription", "Description");
    BeginFrame("WebTV");
    cboTransparency = AddCombo("cboTransparency", "Transparency", Numbers(0, 100, 10));
    EndFrame();
    AddImageMap();
    // Two columns of them stand side by side.
    constexpr int fieldWidth = 28;  // in characters
    for (QLineEdit* field : {txtURL, txtHeight, txtWidth, txtHSpace, txtVSpace, txtDescription, txtImageMap}) {
        field->setMinimumWidth(fieldWidth * fontMetrics().averageCharWidth());
    }
}

void frmGraphics::AddImageMap() {
    auto* row = new QWidget(Parent());
    chkImageMap = new QCheckBox("Image Map", row);
    chkImageMap->setObjectName("chkImageMap");
    txtImageMap = MakeText("txtImageMap");
    txtImageMap->setAccessibleName("Image Map");
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(chkImageMap);
    layout->addWidget(txtImageMap, 1);
    connect(chkImageMap, &QCheckBox::toggled, this, &frmGraphics::ShowImageMap);
    ShowImageMap(false);
    AddField({}, row);
}

void frmGraphics::AddFilters() {
    cboFilterType = AddCombo("cboFilterType", "Filter Type",
                             {"Alpha Filter", "Blur Filter", "Flip Horizontal", "Flip Vertical", "Grayscale Filter",
                              "Invert Filter", "Mask Filter", "Wave Filter", "XRay Filter"});
    auto* set = MakeFieldButton("cmdFilterColor", "Set", "Filter Color");
    set->setToolTip(tr("Opens the color dialog"));
    set->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lblFilterColor = new QLabel(Parent());
    lblFilterColor->setObjectName("lblFilterColor");
    lblFilterColor->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    lblFilterColor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    lblFilterColor->setAlignment(Qt::AlignCenter);
    connect(set, &QPushButton::clicked, this, &frmGraphics::SetFilterColor);
    AddField("Filter Color", set, lblFilterColor);
    AddNote(set, "Needed For Mask Filter");
    txtStrength = AddText("txtStrength", "Strength");
    AddNote(txtStrength, "Needed For: Alpha Filter - Opacity");
    AddNote(txtStrength, "Blur Filter - Pixel Displacement");
}

void frmGraphics::ShowImageMap(bool on) {
    txtImageMap->setEnabled(on);
    const QColor background = on ? Qt::white : ColorFromNumber(0xC0C0C0);
    Paint(*txtImageMap, QPalette::Base, background, QPalette::Text, on ? Qt::black : ColorFromNumber(0x404040));
}

void frmGraphics::SetFilterColor() {
    const auto color = bench_.Ask().PickColor(this, 0);
    if (!color) return;
    filterColor_ = ColorToHex(*color);
    const QColor shown = ColorFromNumber(*color);
    const bool isLight = qGray(shown.rgb()) > 127;
    lblFilterColor->setAutoFillBackground(true);
    lblFilterColor->setText(filterColor_);
    Paint(*lblFilterColor, QPalette::Window, shown, QPalette::WindowText, isLight ? Qt::black : Qt::white);
}

void frmGraphics::SetFile(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    txtURL->setText(name);
    if (IsMeasured(name)) Measure(path);
}

void frmGraphics::Measure(const QString& path) {
    const std::optional<QSize> size = ImageSize(path);
    if (!size) return;
    txtWidth->setText(QString::number(size->width()));
    txtHeight->setText(QString::number(size->height()));
}

GraphicsFields frmGraphics::Fields() const {
    GraphicsFields fields;
    fields.mediaType = cboMediaType->currentText();
    fields.url = txtURL->text();
    fields.height = txtHeight->text();
    fields.width = txtWidth->text();
    fields.hspace = txtHSpace->text();
    fields.vspace = txtVSpace->text();
    fields.border = cboBorder->currentText();
    fields.alignment = cboAlignment->currentText();
    fields.description = txtDescription->text();
    fields.transparency = cboTransparency->currentText();
    fields.imageMap = chkImageMap->isChecked();
    fields.mapName = txtImageMap->text();
    fields.filterType = cboFilterType->currentText();
    fields.filterColor = filterColor_;
    fields.strength = txtStrength->text();
    return fields;
}

}  // namespace vellum
