// The main window's status bar: six panels, told by an index from 1. The third is the hint line.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include <array>

namespace vellum {

class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    static constexpr int panelCount = 6;

    explicit StatusBar(QWidget* parent = nullptr);

    void SetPanel(int panel, const QString& text);
    [[nodiscard]] QString Panel(int panel) const;

private:
    std::array<QLabel*, panelCount> panels_{};
};

}  // namespace vellum
