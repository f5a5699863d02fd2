// A row of tabs that act as commands: a click on any tab reports it, the current one too.
#pragma once

#include <QTabBar>

namespace vellum {

// Tabs are told by an index from 1. Return and Space report the tab with the focus.
class TabStrip : public QTabBar {
    Q_OBJECT
public:
    explicit TabStrip(QWidget* parent = nullptr);

    // Adds a tab at the end and returns its index from 1. Captions show as they are, "&" too.
    int AddTab(const QString& caption, const QString& toolTip = {}, const QIcon& icon = {});
    [[nodiscard]] QString Caption(int index) const;
    void SetCaption(int index, const QString& caption);

signals:
    void TabClicked(int index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int pressed_ = -1;  // the tab that the left button went down on, from 0
};

}  // namespace vellum
