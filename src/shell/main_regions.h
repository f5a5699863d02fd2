// The main window's regions: the bars, the document windows, the website panel and the status bar; how they are laid
// out, dragged and walked through.
#pragma once

#include "shell/layout.h"

#include <QMainWindow>

class QLineEdit;
class QListWidget;
class QMdiArea;

namespace vellum {

class ColorBar;
class EditSurface;
class MainToolbar;
class StatusBar;
class TabStrip;
class WebsitePanel;

class MainRegions : public QMainWindow {
    Q_OBJECT
public:
    MainRegions();

    // From the top.
    MainToolbar* const Picture1;
    ColorBar* const Picture14;
    TabStrip* const clrbutton;
    QWidget* const Picture15;  // custom bar
    TabStrip* const TabStrip2;
    TabStrip* const TabStrip1;  // tag bar
    QMdiArea* const area;       // the document windows
    WebsitePanel* const Picture11;
    StatusBar* const StatusBar1;

    // Hidden helpers.
    QListWidget* const List4;        // image file types
    QListWidget* const lstDocTypes;  // document file types
    QListWidget* const List6;        // font names
    EditSurface* const RichTextBox1;
    QLineEdit* const Text5;  // the count of open documents

    // The region that mnuViewItem(index) shows and hides.
    [[nodiscard]] QWidget* Region(int index) const;
    // An item of the menus; null when there is none of that name.
    [[nodiscard]] QAction* Item(const QString& name) const;

    void ShowLaidOut();  // shows the window, which is laid out from then on
    void ApplyLayout();
    void ColorBarSetup();  // paints the colour bar

    // Of the website panel, in twips.
    [[nodiscard]] int PanelHeight() const { return layout_.panelHeight; }
    void SetPanelHeight(int twips);

    // Gives the keyboard to the next pane that takes it, or with -1 to the one before.
    void StepPane(int step);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void BuildBars();
    void BuildColumn();
    void BuildHelpers();
    void PlaceLists();
    void DragPanel(int pointerY, DragPhase phase);

    MainLayout layout_;
    bool laidOut_ = false;
};

}  // namespace vellum
