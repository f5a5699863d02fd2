// Paragraph Builder: a small word processor whose text becomes a paragraph of the page.
#pragma once

#include "tools/framework/tool_dialog.h"
#include "tools/text/rich_surface.h"

#include <array>
#include <functional>

class QHBoxLayout;
class QMenu;
class QToolButton;

namespace vellum {

[[nodiscard]] QString ParagraphMarkup(const RichText& rich);

// A file is read and written as RTF when its full name says so anywhere, else as plain text.
[[nodiscard]] bool IsRtfName(const QString& path);

class frmParagraphs : public ToolDialog {
    Q_OBJECT
public:
    explicit frmParagraphs(Workbench& bench);

private:
    void AddMenus();
    void AddItem(QMenu& menu, const QString& name, const QString& caption, const QKeySequence& key,
                 const std::function<void()>& picked);
    void AddTools();
    void AddFonts(QHBoxLayout& row);
    void AddStyles(QHBoxLayout& row);
    void AddAlignments(QHBoxLayout& row);
    QToolButton* AddTool(QHBoxLayout& row, const QString& name, const QString& caption, const QString& toolTip,
                         const QString& icon, const std::function<void()>& pressed);
    void AddFontColor(QHBoxLayout& row);

    void ShowSelection();
    void ShowFont();
    void PickFontColor();
    void OpenText();
    void SaveText();
    void Load(const RichText& rich);

    RichSurface* Text1;
    QComboBox* Combo1;  // sizes
    QComboBox* Combo2;  // fonts
    std::array<QToolButton*, 4> styles_{};
    std::array<QToolButton*, 3> alignments_{};
    QToolButton* bullet_ = nullptr;
    QPushButton* fontColor_ = nullptr;
};

}  // namespace vellum
