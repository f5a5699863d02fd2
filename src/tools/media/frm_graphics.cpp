#include "tools/media/frm_graphics.h"

#include "files/picture.h"
#include "tools/framework/attributes.h"
#include "tools/framework/values.h"
#include "values/color_hex.h"

#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <utility>

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

// The kinds are told by the last three characters, so that "a.jpeg" is none. An image that can't be read leaves the
// fields as they are.
void Measure(GraphicsFields& fields, const QString& path) {
    if (!QStringLiteral("GIF,JPG,BMP").contains(path.right(3).toUpper())) return;
    const std::optional<QSize> size = ImageSize(path);
    if (!size) return;
    fields.width = QString::number(size->width());
    fields.height = QString::number(size->height());
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

GraphicsFields GraphicsOf(const QString& path) {
    GraphicsFields fields{.url = QFileInfo(path).fileName()};
    Measure(fields, path);
    return fields;
}

frmGraphics::frmGraphics(Workbench& bench, GraphicsFields fields)
    : ToolDialog(bench, "frmGraphics", "Graphics"), fields_(std::move(fields)) {
    AddPane("URL and Positioning");
    AddPositioning();
    AddPane("Microsoft Gradient Filters");
    AddFilters();
    Finish([this] { return GraphicsMarkup(fields_); });
}

void frmGraphics::AddPositioning() {
    constexpr int textWidth = 28;  // in characters; two columns of them stand side by side
    AddCombo(fields_.mediaType, "cboMediaType", "Media Type", {"dynsrc", "src", "vrml"});
    const auto measure = [this](const QString& path) {
        Measure(fields_, path);
        ShowFields();
    };
    SetFieldWidth(AddFile(fields_.url, "txtURL", "URL", "Find", "All Files|*.*", measure), textWidth);
    SetFieldWidth(AddText(fields_.height, "txtHeight", "Height"), textWidth);
    SetFieldWidth(AddText(fields_.width, "txtWidth", "Width"), textWidth);
    SetFieldWidth(AddText(fields_.hspace, "txtHSpace", "HSPACE"), textWidth);
    SetFieldWidth(AddText(fields_.vspace, "txtVSpace", "VSPACE"), textWidth);
    NextColumn();
    AddCombo(fields_.border, "cboBorder", "Border", Numbers(0, 10) << "20");
    AddCombo(fields_.alignment, "cboAlignment", "Alignment",
             {"ABSBOTTOM", "ABSMIDDLE", "BASELINE", "BOTTOM", "LEFT", "MIDDLE", "RIGHT", "TEXTTOP", "TOP"});
    SetFieldWidth(AddText(fields_.description, "txtDescription", "Description"), textWidth);
    AddFrame("WebTV",
             [this] { AddCombo(fields_.transparency, "cboTransparency", "Transparency", Numbers(0, 100, 10)); });
    AddCheck(fields_.imageMap, "chkImageMap", "Image Map");
    Beside();
    QLineEdit* const map = AddText(fields_.mapName, "txtImageMap");
    SetFieldWidth(map, textWidth);
    Follow([this, map] {
        const bool on = fields_.imageMap;
        map->setEnabled(on);
        Paint(*map, QPalette::Base, on ? Qt::white : ColorFromNumber(0xC0C0C0), QPalette::Text,
              on ? Qt::black : ColorFromNumber(0x404040));
    });
}

void frmGraphics::AddFilters() {
    AddCombo(fields_.filterType, "cboFilterType", "Filter Type",
             {"Alpha Filter", "Blur Filter", "Flip Horizontal", "Flip Vertical", "Grayscale Filter", "Invert Filter",
              "Mask Filter", "Wave Filter", "XRay Filter"});
    AddFilterColor();
    AddNote("Needed For Mask Filter");
    AddText(fields_.strength, "txtStrength", "Strength");
    AddNote("Needed For: Alpha Filter - Opacity");
    AddNote("Blur Filter - Pixel Displacement");
}

void frmGraphics::AddFilterColor() {
    auto* const set = new QPushButton("Set");
    set->setObjectName("cmdFilterColor");
    set->setAccessibleName("Set, Filter Color");
    set->setToolTip(tr("Opens the color dialog"));
    connect(set, &QPushButton::clicked, this, [this] {
        const auto color = bench_.Ask().PickColor(this, 0);
        if (!color) return;
        fields_.filterColor = ColorToHex(*color);
        ShowFields();
    });
    AddField("Filter Color", set);
    auto* const label = new QLabel;
    label->setObjectName("lblFilterColor");
    label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    label->setAlignment(Qt::AlignCenter);
    Beside();
    AddField({}, label);
    Follow([this, label] {
        const auto color = ColorFromText(fields_.filterColor);
        if (!color) return;
        const QColor shown = ColorFromNumber(*color);
        const bool isLight = qGray(shown.rgb()) > 127;
        label->setAutoFillBackground(true);
        label->setText(fields_.filterColor);
        Paint(*label, QPalette::Window, shown, QPalette::WindowText, isLight ? Qt::black : Qt::white);
    });
}

}  // namespace vellum
