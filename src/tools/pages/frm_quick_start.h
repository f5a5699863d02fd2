// QuickStart: the frame of a new page, from the document type to the closing tags.
#pragma once

#include "tools/framework/tool_dialog.h"

#include <array>
#include <optional>

class QLabel;

namespace vellum {

struct QuickStartFields {
    QString documentType =
        R"(<!DOCTYPE html PUBLIC "-//W3C//DTD XHTML 1.0 Transitional//EN" "DTD/xhtml1-transitional.dtd">)";
    QString title;
    QString leftMargin;  // pixels
    QString topMargin;
    bool linksStyleSheet = false;
    QString styleSheet;

    QString textColor;
    QString linkColor;
    QString visitedColor;
    QString activeColor;
    QString backgroundColor;
    QString backgroundImage;
    bool watermark = false;  // comes out only with a background image

    QString keywords;
    bool hasTransition = false;
    int transition = -1;    // which of TransitionNames
    QString seconds = "0";  // until the page is loaded again; empty or "0" for never
    bool goesElsewhere = false;
    QString newUrl;  // in its place

    QString instructions;  // of the television browser, as the next two
    QString credits;
    QString logo;
};

[[nodiscard]] QString QuickStartMarkup(const QuickStartFields& fields);

// The document types that are offered.
[[nodiscard]] const QStringList& DocumentTypeLines();
// How a page may come in.
[[nodiscard]] const QStringList& TransitionNames();

class frmQuickStart : public ToolDialog {
    Q_OBJECT
public:
    explicit frmQuickStart(Workbench& bench);

private:
    static constexpr std::size_t previewCount = 5;

    void AddTitle();
    void AddColors();
    void AddMeta();
    void AddTelevision();
    void AddTransition();
    void AddPreview(std::size_t index);
    void ShowPreviews();
    // A field is on while a check is.
    void Gate(const bool& check, const QStringList& names);

    QuickStartFields fields_;
    std::array<QLabel*, previewCount> previews_{};
    std::array<std::optional<ColorNumber>, previewCount> shown_{};
};

}  // namespace vellum
