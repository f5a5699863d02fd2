// Special Effects: layered, sloped and colored text, and a divider.
#pragma once

#include "tools/framework/tool_dialog.h"
#include "tools/text/effect_sample.h"

namespace vellum {

class CStuff : public ToolDialog {
    Q_OBJECT
public:
    explicit CStuff(Workbench& bench);

private:
    void AddLayers();
    void AddSloped();
    void AddDivider();
    void AddGradient();
    void AddSize(int& size, const QString& name, const QString& caption);
    void AddSample(const EffectSample::Paint& paint);

    std::optional<QString> BuildLayers();
    std::optional<QString> BuildSloped();
    std::optional<QString> BuildDivider();
    std::optional<QString> BuildGradient();

    LayeredText layers_;
    SlopedText sloped_;
    GradientDivider divider_;
    GradientText gradient_;
};

}  // namespace vellum
