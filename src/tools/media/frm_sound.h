// Background Sounds: a sound with the page, a player in it, or a picture of what is heard.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct BackgroundSoundFields {
    QString source;
    QString loop = "INFINITE";  // how often it plays
};

struct EmbeddedSoundFields {
    QString source;
    bool autoStart = false;
    bool hidden = false;
};

struct AudioscopeFields {
    QString alignment;
    QString border;
    QString width;  // pixels
    QString height;
    QString leftColor;
    QString rightColor;
};

[[nodiscard]] QString BackgroundSoundMarkup(const BackgroundSoundFields& fields);
[[nodiscard]] QString EmbeddedSoundMarkup(const EmbeddedSoundFields& fields);
// The height comes out exactly when there is a width.
[[nodiscard]] QString AudioscopeMarkup(const AudioscopeFields& fields);

class frmSound : public ToolDialog {
    Q_OBJECT
public:
    // Opens with a background sound.
    explicit frmSound(Workbench& bench, BackgroundSoundFields background = {});

private:
    BackgroundSoundFields background_;
    EmbeddedSoundFields embedded_;
    AudioscopeFields audioscope_;
};

}  // namespace vellum
