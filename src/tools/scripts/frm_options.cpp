#include "tools/scripts/frm_options.h"

#include "tools/framework/access_keys.h"
#include "values/number_rules.h"

#include <QFontDatabase>
#include <QIntValidator>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <limits>

namespace vellum {
namespace {

constexpr int largestSize = std::numeric_limits<std::int16_t>::max();

}  // namespace

frmOptions::frmOptions(Workbench& bench, std::optional<Control> control)
    : FieldForm(bench, "frmOptions", "Options"),
      options_(ReadObjectOptions(bench.Settings())),
      control_(std::move(control)) {
    ShowSizes();
    AddFrame({}, [this] { AddChoices(); });
    AddSizes();
    AddPreview();
    auto* const reset = new QPushButton("Defaults");
    reset->setObjectName("cmdDefaults");
    connect(reset, &QPushButton::clicked, this, &frmOptions::ResetDefaults);
    AddClosingRow(
        {"cmdOK", "&OK"},
        [this] {
            Save();
            accept();
        },
        reset);
    findChild<QPushButton*>("cmdCancel")->setText("Cancel");  // its letter is that of a frame
    SetAccessKeys(*this);
}

void frmOptions::AddChoices() {
    AddFrame("&Default", [this] {
        AddOption(options_.byClassId, true, "optID(0)", "ClassID");
        AddOption(options_.byClassId, false, "optID(1)", "ProgID");
    });
    AddFrame("&Tag", [this] {
        AddOption(options_.object, true, "optTag(0)", "OBJECT");
        AddOption(options_.object, false, "optTag(1)", "INSERT");
    });
    NextColumn();
    AddFrame("&Case", [this] {
        AddOption(options_.tagCase, TagCase::Upper, "optCase(0)", "CAPS");
        AddOption(options_.tagCase, TagCase::Lower, "optCase(1)", "lower");
        AddOption(options_.tagCase, TagCase::FirstUpper, "optCase(2)", "Mixed");
    });
    NextColumn();
    AddFrame("&Lines", [this] {
        AddOption(options_.severalLines, true, "optLine(0)", "Multi");
        AddOption(options_.severalLines, false, "optLine(1)", "Single");
    });
}

void frmOptions::AddSizes() {
    constexpr int digits = 6;
    for (const auto& [field, name, caption] :
         {std::tuple{&width_, "txtWidth", "&Width"}, std::tuple{&height_, "txtHeight", "&Height"}}) {
        QLineEdit* const line = AddText(*field, name, caption);
        line->setValidator(new QIntValidator(0, largestSize, line));
        SetFieldWidth(line, digits);
    }
    AddCheck(options_.withCodeBase, "chkCode", "&Include CodeBase=");
    Beside();
    QLineEdit* const code = AddText(options_.codeBase, "txtCode");
    Follow([this, code] { code->setEnabled(options_.withCodeBase); });
}

void frmOptions::AddPreview() {
    constexpr int lines = 10;
    constexpr int width = 64;  // in characters, which a class identifier needs
    constexpr int tabWidth = 4;
    preview_ = new QPlainTextEdit;
    preview_->setObjectName("txtPreview");
    preview_->setReadOnly(true);
    preview_->setTabChangesFocus(true);
    preview_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const QFontMetrics metrics = preview_->fontMetrics();
    preview_->setTabStopDistance(tabWidth * metrics.averageCharWidth());
    preview_->setMinimumSize(width * metrics.averageCharWidth(), lines * metrics.lineSpacing());
    AddGrowing(preview_, "Preview");
    Follow([this] { ShowPreview(); });
}

void frmOptions::ShowPreview() {
    TakeSizes();
    preview_->setPlainText(control_ ? BuildObjTag(*control_, options_) : QString(noControls));
}

void frmOptions::ShowSizes() {
    width_ = QString::number(options_.width);
    height_ = QString::number(options_.height);
}

void frmOptions::TakeSizes() {
    const auto size = [](const QString& text) {
        return static_cast<std::int16_t>(std::clamp(LeadingNumber(text), 0.0, static_cast<double>(largestSize)));
    };
    options_.width = size(width_);
    options_.height = size(height_);
}

void frmOptions::ResetDefaults() {
    options_ = {};
    ShowSizes();
    ShowFields();
}

void frmOptions::Save() {
    WriteObjectOptions(bench_.Settings(), options_);
}

}  // namespace vellum
