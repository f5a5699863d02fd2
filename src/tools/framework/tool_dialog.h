// What every tool is: a modal form whose fields become one piece of markup.
#pragma once

#include "tools/framework/field_form.h"

#include <functional>
#include <optional>
#include <vector>

namespace vellum {

// Whether Cancel gives the keyboard to the document's text.
enum class OnCancel { Leave, FocusText };

// A tool derives from this, adds its fields and ends with Finish. Access keys are handed out then, so that captions
// need none.
class ToolDialog : public FieldForm {
    Q_OBJECT
public:
    // What OK came to; nothing while the tool is open and after Cancel.
    [[nodiscard]] const std::optional<QString>& Markup() const { return markup_; }
    [[nodiscard]] OnCancel AfterCancel() const { return onCancel_; }

    // A tool that is shown again has come to nothing yet.
    int exec() override;
    // Also gives the main window back to the author.
    void done(int result) override;

protected:
    // What OK writes; nothing, and the tool stays open, when the fields don't do.
    using Build = std::function<std::optional<QString>()>;

    ToolDialog(Workbench& bench, const QString& name, const QString& caption);

    // `build` is what OK does while the pane shows; without it, what Finish is given.
    void AddPane(const QString& caption, const QString& toolTip = {}, const Build& build = {});
    // The last call of a constructor: OK, or the button that stands in its place, and Cancel. Without anything to
    // build, Cancel alone.
    QPushButton* Finish(const Build& build = {}, OnCancel onCancel = OnCancel::Leave,
                        const Captioned& button = {QStringLiteral("cmdOK"), QStringLiteral("&OK")});
    // Closes the tool and leaves the text to whoever opened it.
    void HandOver(const QString& markup);

private:
    void FocusFirstField();  // of the pane that shows, or of the form

    std::vector<Build> paneBuilds_;
    std::optional<QString> markup_;
    OnCancel onCancel_ = OnCancel::Leave;
};

// The text that is selected in the active document; empty without one.
[[nodiscard]] QString SelectedText(const Workbench& bench);

// What follows when a tool has closed: its markup goes into the document, or the keyboard to the text.
void CloseTool(Workbench& bench, std::optional<QString> markup, OnCancel onCancel);

// Opens a tool, with its fields at their defaults or as they are given. The tool is gone before its markup goes into
// the document.
template <typename Tool, typename... Fields>
void ShowTool(Workbench& bench, const Fields&... fields) {
    std::optional<QString> markup;
    OnCancel onCancel{};
    {
        Tool tool(bench, fields...);
        tool.exec();
        markup = tool.Markup();
        onCancel = tool.AfterCancel();
    }
    CloseTool(bench, std::move(markup), onCancel);
}

}  // namespace vellum
