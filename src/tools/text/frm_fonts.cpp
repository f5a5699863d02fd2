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
    const QStringList fonts = bench.FontNames();
    cboSize = AddCombo("cboSize", "Font Size", Numbers(1, 7));
    cboColor = AddColor("cboColor", "Font Color", "Choose", ColorStart::Field);
    cboPrimary = AddCombo("cboPrimary", "Primary Font Name", fonts);
    cboSecondary = AddCombo("cboSecondary", "Secondary Font Name", fonts);
    BeginFrame("WebTV");
    cboEffect = AddCombo("cboEffect", "Effect", {"emboss", "relief", "shadow"});
    cboTransparency = AddCombo("cboTransparency", "Transparency", Numbers(0, 100, 10));
    EndFrame();
    Finish([this] { return FontMarkup(Fields(), SelectedText(bench_)); }, OnCancel::FocusText);
}

FontFields frmFonts::Fields() const {
    return {cboSize->currentText(),      cboColor->currentText(),  cboPrimary->currentText(),
            cboSecondary->currentText(), cboEffect->currentText(), cboTransparency->currentText()};
}

}  // namespace vellum
