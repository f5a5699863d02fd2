// The Settings dialog: eight panels behind a row of tabs, and the purge of all preferences.
#pragma once

#include "shell/settings_fields.h"
#include "tools/framework/field_form.h"

class QTableWidget;

namespace vellum {

class frmSettings : public FieldForm {
    Q_OBJECT
public:
    frmSettings(Workbench& workbench, SettingsTarget& target);

    // OK: purges when that is checked; otherwise saves and closes, or names the field that can't be taken and stays.
    void accept() override;

private:
    // The panels, in the order of the tabs.
    void AddEditorPane();
    void AddColorPane();
    void AddFileTypesPane();
    void AddCustomPane();
    void AddFtpPane();
    void AddXmlPane();
    void AddDefinitionsPane();
    void AddPreviewPane();

    void AddTagColor(int index, const QString& caption);
    [[nodiscard]] QTableWidget* MakeButtonGrid();
    void AddBrowser(int index);
    void ChooseBrowser(int index);

    SettingsTarget& target_;
    SettingsFields fields_;
    bool purge_ = false;
    QLineEdit* txtRate = nullptr;
    QLineEdit* txtPercent = nullptr;
};

}  // namespace vellum
