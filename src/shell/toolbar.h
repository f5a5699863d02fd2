// The main toolbar: two arrays of buttons, each with its tooltip and its hint.
#pragma once

#include "shell/commands.h"

#include <QToolButton>
#include <QWidget>

#include <span>

namespace vellum {

enum class ButtonArray { Command44, Command93 };

struct ToolbarButton {
    ButtonArray array;
    int index;
    const char* icon;
    const char* toolTip;
    const char* hint;  // empty: the hint line stays as it is
    bool startsGroup;
    Command command{};
};

// In the order in which they stand.
[[nodiscard]] std::span<const ToolbarButton> ToolbarButtons();

class MainToolbar : public QWidget {
    Q_OBJECT
public:
    explicit MainToolbar(QWidget* parent = nullptr);

    void Connect(MDIform1& window);  // lets the buttons run their commands

    [[nodiscard]] QToolButton* Button(ButtonArray array, int index) const;  // null when there is none

signals:
    void Hint(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace vellum
