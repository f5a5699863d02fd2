// Graphics: an image, a film or a world on the page, where it stands, and a filter over it.
#pragma once

#include "tools/framework/tool_dialog.h"

class QLabel;

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

class frmGraphics : public ToolDialog {
    Q_OBJECT
public:
    explicit frmGraphics(Workbench& bench);
    [[nodiscard]] GraphicsFields Fields() const;

    // Fills in a file: its bare name, and its size in pixels when it is an image of a kind that is measured.
    void SetFile(const QString& path);

private:
    void AddPositioning();
    void AddImageMap();
    void AddFilters();
    void ShowImageMap(bool on);
    void SetFilterColor();
    void Measure(const QString& path);

    QComboBox* cboMediaType;
    QLineEdit* txtURL;
    QLineEdit* txtHeight;
    QLineEdit* txtWidth;
    QLineEdit* txtHSpace;
    QLineEdit* txtVSpace;
    QComboBox* cboBorder;
    QComboBox* cboAlignment;
    QLineEdit* txtDescription;
    QComboBox* cboTransparency;
    QCheckBox* chkImageMap;
    QLineEdit* txtImageMap;
    QComboBox* cboFilterType;
    QLabel* lblFilterColor;
    QLineEdit* txtStrength;
    QString filterColor_;
};

}  // namespace vellum
