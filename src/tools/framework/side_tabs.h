// Tabs that stand one below the other, to the left of their panes, with captions that read as any text does.
#pragma once

#include <QTabBar>
#include <QTabWidget>

namespace vellum {

// The arrow keys walk up and down.
class SideTabBar : public QTabBar {
    Q_OBJECT
public:
    using QTabBar::QTabBar;

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

class SideTabWidget : public QTabWidget {
    Q_OBJECT
public:
    explicit SideTabWidget(QWidget* parent = nullptr);
};

}  // namespace vellum
