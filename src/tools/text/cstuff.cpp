#include "tools/text/cstuff.h"

#include "tools/framework/values.h"

#include <QComboBox>
#include <QLineEdit>

namespace vellum {

CStuff::CStuff(Workbench& bench) : ToolDialog(bench, "CStuff", "Special Effects") {
    sloped_.text = SelectedText(bench);
    AddPane("3D Text", "Creates 3-D Text", [this] { return BuildLayers(); });
    AddLayers();
    AddPane("Sloped Text", "Creates a line of sloped text", [this] { return BuildSloped(); });
    AddSloped();
    AddPane("Gradient Divider", "Creates a horizontal gradient divider", [this] { return BuildDivider(); });
    AddDivider();
    AddPane("Gradient Text", "Creates a line of text with gradient coloring", [this] { return BuildGradient(); });
    AddGradient();
    Finish();
}

void CStuff::AddLayers() {
    AddText(layers_.text, "Text17", "Text Displayed:");
    AddCombo(layers_.font, "Combo4", "Font", bench_.FontNames());
    AddCombo(layers_.size, "Combo5", "Font Size", Numbers(10, 48, 2));
    AddSwatch(layers_.front, "Label23", "Front Color");
    AddSwatch(layers_.back, "Label22", "Back Color");
    AddSample([this](QPainter& painter, const QRectF& room) { PaintLayers(painter, room, layers_); });
}

void CStuff::AddSloped() {
    AddText(sloped_.text, "Text1", "Text Displayed");
    AddSize(sloped_.smallest, "Combo1", "Smallest Font");
    AddSize(sloped_.largest, "Combo2", "Largest Font");
    AddSample([this](QPainter& painter, const QRectF& room) {
        if (sloped_.largest >= sloped_.smallest) PaintWave(painter, room, sloped_);
    });
}

// Its own box, as only these sizes will do.
void CStuff::AddSize(int& size, const QString& name, const QString& caption) {
    auto* const box = new QComboBox;
    box->setObjectName(name);
    box->addItems(Numbers(1, 7));
    box->setCurrentIndex(size - 1);
    connect(box, &QComboBox::currentIndexChanged, this, [this, &size](int index) {
        size = index + 1;
        emit Changed();
    });
    AddField(caption, box);
}

void CStuff::AddDivider() {
    AddText(divider_.height, "Text2", "Height (In Pixels)");
    QLineEdit* const steps = AddText(divider_.steps, "Text3", "Steps");
    connect(steps, &QLineEdit::textChanged, this, [this, steps](const QString& text) {
        if (text.isEmpty() || DividerSteps(divider_) != 0) return;
        steps->setText("1");
        steps->selectAll();
    });
    AddSwatch(divider_.first, "lblDivGradient1", "Color 1");
    AddSwatch(divider_.last, "lblDivGradient2", "Color 2");
    AddSample([this](QPainter& painter, const QRectF& room) { PaintDivider(painter, room, divider_); });
}

void CStuff::AddGradient() {
    AddText(gradient_.text, "Text16", "Text");
    AddCombo(gradient_.size, "Combo3", "Font-Size",
             {"8pt", "12pt", "14pt", "16pt", "18pt", "20pt", "22pt", "24pt", "48pt"});
    AddSwatch(gradient_.first, "lblGradient1", "Color 1");
    AddSwatch(gradient_.last, "lblGradient2", "Color 2");
    AddSample([this](QPainter& painter, const QRectF& room) { PaintGradient(painter, room, gradient_); });
}

void CStuff::AddSample(const EffectSample::Paint& paint) {
    constexpr int leastHeight = 5;  // in lines
    auto* const sample = new EffectSample(paint);
    sample->setObjectName("picSample");
    sample->setMinimumHeight(fontMetrics().lineSpacing() * leastHeight);
    AddGrowing(sample);
    Follow([sample] { sample->update(); });
}

std::optional<QString> CStuff::BuildLayers() {
    if (!layers_.text.isEmpty() && !layers_.size.isEmpty()) return LayeredTextMarkup(layers_);
    bench_.Ask().Message(this, "All Textboxes must be filled");
    return std::nullopt;
}

std::optional<QString> CStuff::BuildSloped() {
    if (sloped_.largest >= sloped_.smallest) return SlopedTextMarkup(sloped_);
    bench_.Ask().Message(this, "Small Font is larger Than Large Font");
    return std::nullopt;
}

std::optional<QString> CStuff::BuildDivider() {
    if (!divider_.height.isEmpty() && !divider_.steps.isEmpty()) return GradientDividerMarkup(divider_);
    bench_.Ask().Message(this, "All textboxes must be filled with a value");
    return std::nullopt;
}

std::optional<QString> CStuff::BuildGradient() {
    if (!gradient_.text.isEmpty()) return GradientTextMarkup(gradient_);
    bench_.Ask().Message(this, "A string of text must be specified");
    return std::nullopt;
}

}  // namespace vellum
