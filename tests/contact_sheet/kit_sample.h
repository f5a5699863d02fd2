// What the form kit has beyond the fields of the present tools, on one form.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum::contact_sheet {

class KitSample : public ToolDialog {
    Q_OBJECT
public:
    explicit KitSample(Workbench& bench);

private:
    void AddSlides();
    void AddGradient();
    [[nodiscard]] QStringList NewSlide(const QStringList& typed);

    QStringList sources_{"sunset.jpg", "calf.jpg"};
    QStringList captions_{"A sunset", "A calf"};
    QStringList colors_{"#800000", "#000080"};

    ColorNumber first_ = 0x800000;
    ColorNumber last_ = 0x40C0FF;
    QString steps_ = "12";
};

}  // namespace vellum::contact_sheet
