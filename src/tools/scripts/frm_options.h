// Options of the object tags, with the element that they come to.
#pragma once

#include "tools/framework/field_form.h"
#include "tools/scripts/object_tag.h"

#include <optional>

class QPlainTextEdit;

namespace vellum {

// What is told in the place of controls when there are none.
inline constexpr auto noControls = "No controls registered.";

class frmOptions : public FieldForm {
    Q_OBJECT
public:
    // `control` is shown as an example.
    frmOptions(Workbench& bench, std::optional<Control> control);

private:
    void AddChoices();
    void AddSizes();
    void AddPreview();
    void ShowPreview();
    void ResetDefaults();
    void Save();
    // The texts of the size fields from the options, and the other way.
    void ShowSizes();
    void TakeSizes();

    ObjectOptions options_;
    QString width_;
    QString height_;
    std::optional<Control> control_;
    QPlainTextEdit* preview_ = nullptr;
};

}  // namespace vellum
