// What the form kit has beyond the fields of the present tools, on one form.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum::contact_sheet {

class KitSample : public ToolDialog {
    Q_OBJECT
public:
    explicit KitSample(Workbench& bench);

private:
    enum class Kind { Button, Password, Textbox };

    void AddSlides();
    void AddGradient();
    void AddInput();
    [[nodiscard]] QStringList NewSlide(const QStringList& typed);

    QStringList sources_{"sunset.jpg", "calf.jpg"};
    QStringList captions_{"A sunset", "A calf"};
    QStringList colors_{"#800000", "#000080"};

    ColorNumber first_ = 0x800000;
    ColorNumber last_ = 0x40C0FF;
    QString steps_ = "12";

    Kind kind_ = Kind::Password;
    QString label_;
    QString width_ = "20";
    QString length_ = "8";
    QString contents_;
    bool disabled_ = true;
    QString reason_;
};

}  // namespace vellum::contact_sheet
