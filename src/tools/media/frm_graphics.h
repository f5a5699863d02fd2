// Graphics: an image, a film or a world on the page, where it stands, and a filter over it.
#pragma once

#include "tools/framework/tool_dialog.h"

namespace vellum {

struct GraphicsFields {
    QString mediaType = "src";
    QString url;
    QString height;
    QString width;
    QString hspace;
    QString vspace;
    QString border;
    QString alignment;
    QString description;
    QString transparency;  // of the television browser
    bool imageMap = false;
    QString mapName;  // goes out only with an image map, then also when it is empty
    QString filterType;
    QString filterColor;  // "#RRGGBB"; empty when none was set
    QString strength;
};

// A filter type that is none of the known ones gives no style.
[[nodiscard]] QString GraphicsMarkup(const GraphicsFields& fields);

// The fields of a file: its bare name, and its size in pixels when it is an image of a kind that is measured.
[[nodiscard]] GraphicsFields GraphicsOf(const QString& path);

class frmGraphics : public ToolDialog {
    Q_OBJECT
public:
    explicit frmGraphics(Workbench& bench, GraphicsFields fields = {});

private:
    void AddPositioning();
    void AddFilters();
    void AddFilterColor();

    GraphicsFields fields_;
};

}  // namespace vellum
