// Style Sheet Editor: the properties of many elements as a sheet, or those of one as a style attribute.
#pragma once

#include "tools/framework/tool_dialog.h"
#include "tools/styles/style_sheets.h"

class QListWidget;
class QStackedWidget;

namespace vellum {

class StyleSample;

// What the editor writes: a sheet, with style tags or, in a page of its own, without them; one element's tags; or an
// attribute.
enum class StyleMode { Sheet, NewSheet, Inline, InTag };

class CSS : public ToolDialog {
    Q_OBJECT
public:
    explicit CSS(Workbench& bench, StyleMode mode = StyleMode::Sheet);
    ~CSS() override;

private:
    void AddSubject();
    void AddElements();
    void AddSample();
    void AddPages();
    void AddPage(StylePage page);
    void AddProperty(std::size_t index);
    void AddSwatchOf(std::size_t index, QComboBox* box);

    // What is typed as a new element; nothing when there is none, or no room for it.
    [[nodiscard]] QStringList NewElement(const QString& typed);
    [[nodiscard]] int SelectedRow() const;  // -1 without a selection
    void LoadRow();
    void RemoveRow(int row);
    // What a box does after each edit.
    void Keep(std::size_t index, QComboBox* box);
    [[nodiscard]] QString Shown() const;  // the element that the sample is of
    [[nodiscard]] QString Build() const;

    StyleMode mode_;
    StyleValues values_;  // in the boxes
    QStringList elements_{QStringLiteral("body")};
    bool withTags_;
    QString element_ = QStringLiteral("div");
    QListWidget* List1 = nullptr;  // of a sheet
    StyleSample* sample_ = nullptr;
};

// Opens the editor for the inside of a tag. Its attribute goes straight to the caret, as a step of undo.
void ShowInTagStyle(Workbench& bench);

}  // namespace vellum
