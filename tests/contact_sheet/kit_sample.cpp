#include "tests/contact_sheet/kit_sample.h"

#include "tools/framework/color_ramp.h"
#include "values/color_hex.h"

#include <QFileInfo>
#include <QLabel>
#include <QStackedWidget>

namespace vellum::contact_sheet {

KitSample::KitSample(Workbench& bench) : ToolDialog(bench, "KitSample", "Sample of the Form Kit") {
    AddPane("Lists");
    AddSlides();
    AddPane("Colors");
    AddGradient();
    AddPane("Options");
    AddInput();
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

void KitSample::AddInput() {
    AddFrame("Input", [this] {
        AddOption(kind_, Kind::Button, "optButton", "Button");
        AddOption(kind_, Kind::Password, "optPassword", "Password");
        AddOption(kind_, Kind::Textbox, "optTextbox", "Textbox");
    });
    NextColumn();
    QStackedWidget* const panes = AddStack("picInput", {[this] { AddText(label_, "txtLabel", "Button Label"); },
                                                        [this] {
                                                            AddText(width_, "txtWidth", "Width (In Spaces)");
                                                            AddText(length_, "txtLength", "Maximum Length");
                                                        },
                                                        [this] { AddText(contents_, "txtContents", "Contents"); }});
    Follow([this, panes] { panes->setCurrentIndex(static_cast<int>(kind_)); });
    AddCheck(disabled_, "chkDisabled", "Input Disabled");
    ShowWhile(AddFrame("Disabled", [this] { AddText(reason_, "txtReason", "Reason"); }), [this] { return disabled_; });
}

}  // namespace vellum::contact_sheet
