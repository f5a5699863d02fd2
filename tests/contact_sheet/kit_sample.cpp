#include "tests/contact_sheet/kit_sample.h"

#include "tools/framework/color_ramp.h"
#include "values/color_hex.h"

#include <QFileInfo>
#include <QLabel>

namespace vellum::contact_sheet {

KitSample::KitSample(Workbench& bench) : ToolDialog(bench, "KitSample", "Sample of the Form Kit") {
    AddPane("Lists");
    AddSlides();
    AddPane("Colors");
    AddGradient();
    Finish([] { return QString(); });
}

void KitSample::AddSlides() {
    AddLists({.columns = {{.entries = sources_,
                           .list = {"List1", "Sources"},
                           .line = {"txtSRC", "Source"},
                           .button = {"cmdSRC", "Find"},
                           .find = [this] { return QFileInfo(PickFile("All Files|*.*")).fileName(); }},
                          {.entries = captions_, .list = {"List2", "Captions"}, .line = {"txtCaption", "Caption"}}},
              .add = {"cmdAdd", "Add Item"},
              .remove = {"cmdRemove", "Remove Item"},
              .entry = [this](const QStringList& typed) { return NewSlide(typed); }});
}

QStringList KitSample::NewSlide(const QStringList& typed) {
    if (!typed.contains(QString())) return typed;
    bench_.Ask().Message(this, "Both boxes must be filled.");
    return {};
}

void KitSample::AddGradient() {
    AddSwatch(first_, "lblGradient1", "Color 1");
    AddSwatch(last_, "lblGradient2", "Color 2");
    AddText(steps_, "txtSteps", "Steps");
    auto* const ramp = new QLabel;
    AddField("Ramp", ramp);
    Follow([this, ramp] {
        QString cells;
        for (const QString& color : ColorRamp(first_, last_, steps_.toInt())) {
            cells += "<span style=\"background-color: " + color + "\">&nbsp;&nbsp;&nbsp;</span>";
        }
        ramp->setText(cells);
    });
    AddLists({.columns = {{.entries = colors_, .list = {"BCList1", "More Colors"}}},
              .add = {"cmdAddColor", "Add Color"},
              .remove = {"cmdRemoveColor", "Remove Color"},
              .entry = [this](const QStringList& /*typed*/) {
                  const auto color = bench_.Ask().PickColor(this, 0);
                  return color ? QStringList(ColorToHex(*color)) : QStringList();
              }});
}

}  // namespace vellum::contact_sheet
