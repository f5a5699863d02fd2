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
    explicit frmSound(Workbench& bench);

    // Of the background sound, which is the pane that opens.
    void SetSource(const QString& source);

    [[nodiscard]] BackgroundSoundFields BackgroundSound() const;
    [[nodiscard]] EmbeddedSoundFields EmbeddedSound() const;
    [[nodiscard]] AudioscopeFields Audioscope() const;

private:
    [[nodiscard]] QString PaneMarkup() const;

    QLineEdit* txtSource;
    QComboBox* cboLoop;
    QLineEdit* txtEmbedSource;
    QCheckBox* chkAutoStart;
    QCheckBox* chkHidden;
    QComboBox* cboAlignment;
    QComboBox* cboBorder;
    QLineEdit* txtWidth;
    QLineEdit* txtHeight;
    QComboBox* cboLeftColor;
    QComboBox* cboRightColor;
};

}  // namespace vellum
