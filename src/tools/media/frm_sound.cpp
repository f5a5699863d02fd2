#include "tools/media/frm_sound.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

namespace vellum {
namespace {

// In the order of the tabs.
enum Pane { BackgroundSoundPane, EmbeddedSoundPane, AudioscopePane };

QString TrueOrFalse(bool value) {
    return value ? "true" : "false";
}

}  // namespace

QString BackgroundSoundMarkup(const BackgroundSoundFields& fields) {
    return "<bgsound" + Attribute("src", fields.source) + AttributeIfAny("loop", fields.loop) + '>';
}

QString EmbeddedSoundMarkup(const EmbeddedSoundFields& fields) {
    return "<embed" + Attribute("src", fields.source) + Attribute("autostart", TrueOrFalse(fields.autoStart)) +
           Attribute("hidden", TrueOrFalse(fields.hidden)) + '>';
}

QString AudioscopeMarkup(const AudioscopeFields& fields) {
    QString markup = "<audioscope";
    markup += AttributeIfAny("align", fields.alignment);
    markup += AttributeIfAny("border", fields.border);
    markup += AttributeIfAny("width", fields.width);
    if (!fields.width.isEmpty()) markup += Attribute("height", fields.height);
    markup += AttributeIfAny("leftcolor", fields.leftColor);
    markup += AttributeIfAny("rightcolor", fields.rightColor);
    return markup + "></audioscope>";
}

frmSound::frmSound(Workbench& bench) : ToolDialog(bench, "frmSound", "Background Sounds") {
    const BackgroundSoundFields defaults;
    const QString filter = "Sound Files (*.AU;*.MID;*.RMI;*.WAV)|*.AU;*MID;*RMI;*.WAV";
    AddPane("    BGSOUND");
    txtSource = AddFile("txtSource", "Source", "Find", filter);
    cboLoop =
        AddCombo("cboLoop", "Loop", {"INFINITE", "1", "2", "3", "4", "5", "10", "20", "50", "100"}, defaults.loop);
    AddPane("      EMBED");
    txtEmbedSource = AddFile("txtEmbedSource", "Source", "Find", filter);
    chkAutoStart = AddCheck("chkAutoStart", "Start music on page load");
    chkHidden = AddCheck("chkHidden", "Controls Hidden");
    AddPane("AUDIOSCOPE (WebTV)");
    cboAlignment =
        AddCombo("cboAlignment", "Alignment",
                 {"absbottom", "absmiddle", "baseline", "bottom", "left", "middle", "right", "texttop", "top"});
    cboBorder = AddCombo("cboBorder", "Border", Numbers(1, 10));
    txtWidth = AddText("txtWidth", "Width (Pixels)");
    txtHeight = AddText("txtHeight", "Height (Pixels)");
    cboLeftColor = AddColor("cboLeftColor", "Left Channel Color", "Color");
    cboRightColor = AddColor("cboRightColor", "Right Channel Color", "Color");
    Finish([this] { return PaneMarkup(); });
}

void frmSound::SetSource(const QString& source) {
    txtSource->setText(source);
}

BackgroundSoundFields frmSound::BackgroundSound() const {
    return {txtSource->text(), cboLoop->currentText()};
}

EmbeddedSoundFields frmSound::EmbeddedSound() const {
    return {txtEmbedSource->text(), chkAutoStart->isChecked(), chkHidden->isChecked()};
}

AudioscopeFields frmSound::Audioscope() const {
    return {cboAlignment->currentText(), cboBorder->currentText(),    txtWidth->text(),
            txtHeight->text(),           cboLeftColor->currentText(), cboRightColor->currentText()};
}

QString frmSound::PaneMarkup() const {
    switch (VisiblePane()) {
        case EmbeddedSoundPane:
            return EmbeddedSoundMarkup(EmbeddedSound());
        case AudioscopePane:
            return AudioscopeMarkup(Audioscope());
        default:
            return BackgroundSoundMarkup(BackgroundSound());
    }
}

}  // namespace vellum
