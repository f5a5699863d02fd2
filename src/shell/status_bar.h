// The main window's status bar: six panels, told by their names.
#pragma once

#include <QLabel>
#include <QStatusBar>

#include <array>

namespace vellum {

enum class StatusPanel;

class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    static constexpr int panelCount = 6;

    explicit StatusBar(QWidget* parent = nullptr);

    void SetPanel(StatusPanel panel, const QString& text);

private:
    std::array<QLabel*, panelCount> panels_{};
};

}  // namespace vellum
