// A document window with the live preview beside or below the editor.
#pragma once

#include "browser/browser_surface.h"
#include "preview/preview_pipeline.h"
#include "shell/document_window.h"
#include "shell/layout.h"
#include "widgets/tab_strip.h"

#include <QCheckBox>
#include <QSlider>
#include <QTimer>

namespace vellum {

class Form16 : public DocumentWindow, public PreviewHost {
    Q_OBJECT
public:
    explicit Form16(Workbench& workbench, QWidget* parent = nullptr);

    BrowserSurface* const WebBrowser1;
    QSlider* const Slider1;
    TabStrip* const TabStrip1;
    QCheckBox* const Check1;
    QTimer* const Timer1;  // once, 400 ms after the load: the first view
    bool PreviewSplitVertical = true;
    QString CachePath;  // the path of the last copy for the visual editor

    void EditVisually();  // tab 3: writes that copy

    PreviewPipeline& Pipeline() override { return pipeline_; }

protected:
    void LayOut() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void NameControls();
    void WireControls();
    void LoadSplit();
    void ShowFirstView();
    void RunTab(int index);
    void FollowHandle(int value);
    void Apply();
    [[nodiscard]] WindowSize Sizes() const;

    QWidget* const bar_;  // holds the preview commands and the AutoPreview box
    PreviewPipeline pipeline_;
    PaneLayout layout_;
    bool applying_ = false;
};

}  // namespace vellum
