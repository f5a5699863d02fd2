#include "tools/media/frm_sound.h"

#include "tools/framework/attributes.h"
#include "tools/framework/values.h"

#include <utility>

namespace vellum {
namespace {

constexpr auto soundFiles = "Sound Files (*.AU;*.MID;*.RMI;*.WAV)|*.AU;*MID;*RMI;*.WAV";

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

frmSound::frmSound(Workbench& bench, BackgroundSoundFields background)
    : ToolDialog(bench, "frmSound", "Background Sounds"), background_(std::move(background)) {
    AddPane("    BGSOUND", {}, [this] { return BackgroundSoundMarkup(background_); });
    AddFile(background_.source, "txtSource", "Source", "Find", soundFiles);
    AddCombo(background_.loop, "cboLoop", "Loop", {"INFINITE", "1", "2", "3", "4", "5", "10", "20", "50", "100"});
    AddPane("      EMBED", {}, [this] { return EmbeddedSoundMarkup(embedded_); });
    AddFile(embedded_.source, "txtEmbedSource", "Source", "Find", soundFiles);
    AddCheck(embedded_.autoStart, "chkAutoStart", "Start music on page load");
    AddCheck(embedded_.hidden, "chkHidden", "Controls Hidden");
    AddPane("AUDIOSCOPE (WebTV)", {}, [this] { return AudioscopeMarkup(audioscope_); });
    AddCombo(audioscope_.alignment, "cboAlignment", "Alignment",
             {"absbottom", "absmiddle", "baseline", "bottom", "left", "middle", "right", "texttop", "top"});
    AddCombo(audioscope_.border, "cboBorder", "Border", Numbers(1, 10));
    AddText(audioscope_.width, "txtWidth", "Width (Pixels)");
    AddText(audioscope_.height, "txtHeight", "Height (Pixels)");
    AddColor(audioscope_.leftColor, "cboLeftColor", "Left Channel Color", "Color");
    AddColor(audioscope_.rightColor, "cboRightColor", "Right Channel Color", "Color");
    Finish();
}

}  // namespace vellum
