#include "tools/text/frm_fonts.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

namespace vellum {
namespace {

QString FaceNames(const FontFields& fields) {
    const bool both = !fields.primary.isEmpty() && !fields.secondary.isEmpty();
    return fields.primary + (both ? "," : "") + fields.secondary;
}

}  // namespace

QString FontMarkup(const FontFields& fields, const QString& selection) {
    QString markup = "<font";
    markup += AttributeIfAny("face", FaceNames(fields));
    markup += AttributeIfAny("size", fields.size);
    markup += AttributeIfAny("color", fields.color);
    markup += AttributeIfAny("effect", fields.effect);
    markup += AttributeIfAny("transparency", fields.transparency);
    return markup + '>' + selection + "</font>";
}

frmFonts::frmFonts(Workbench& bench) : ToolDialog(bench, "frmFonts", "Font Wizard") {
    AddCombo(fields_.size, "cboSize", "Font Size", Numbers(1, 7));
    AddColor(fields_.color, "cboColor", "Font Color", "Choose", ColorStart::Field);
    AddCombo(fields_.primary, "cboPrimary", "Primary Font Name", bench.FontNames());
    AddCombo(fields_.secondary, "cboSecondary", "Secondary Font Name", bench.FontNames());
    AddFrame("WebTV", [this] {
        AddCombo(fields_.effect, "cboEffect", "Effect", {"emboss", "relief", "shadow"});
        AddCombo(fields_.transparency, "cboTransparency", "Transparency", Numbers(0, 100, 10));
    });
    Finish([this] { return FontMarkup(fields_, SelectedText(bench_)); }, OnCancel::FocusText);
}

}  // namespace vellum
