// Premade Scripts: ready-made scripts, chosen from a list or made of a few fields.
#pragma once

#include "tools/framework/tool_dialog.h"
#include "tools/scripts/premade_scripts.h"
#include "tools/scripts/script_wizards.h"

namespace vellum {

class frmScriptWizard : public ToolDialog {
    Q_OBJECT
public:
    explicit frmScriptWizard(Workbench& bench);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddPremade();
    void AddPopupImage();
    void AddRandom();
    void AddLinkbox();
    void AddRollover();
    void AddFade();
    void AddChoices(ScriptLanguage language, const QString& name, const QString& caption);
    void ShowColors();
    void ShowFade();
    [[nodiscard]] std::optional<QString> BuildPopupImage();
    [[nodiscard]] std::optional<QString> BuildFade();

    PopupImageFields popup_;
    QStringList colors_;
    GridRows texts_{{""}};
    LinkboxFields linkbox_;
    QString message_;
    RolloverFields rollover_;
    FadeFields fade_;
};

}  // namespace vellum
