// Ready-made scripts that are made of a few fields. What was typed goes in as it stands.
#pragma once

#include "tools/framework/text_grid.h"
#include "values/units.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vellum {

// A picture that grows when the page opens.
struct PopupImageFields {
    QString begin = "2";  // its widths, in pixels
    QString end;
    QString image;
    QString id = "Popup1";
};
// Nothing while a field is empty.
[[nodiscard]] std::optional<QString> PopupImageScript(const PopupImageFields& fields);

// One of the colours as the page's background, by chance.
[[nodiscard]] QString RandomColorScript(const QStringList& colors);

// One of the texts, each a row, by chance.
[[nodiscard]] QString RandomTextScript(const GridRows& texts);

// A list of links that opens.
struct LinkboxFields {
    QString name = "LinkBox";
    QString caption;           // what it shows at first
    GridRows links{{"", ""}};  // a listing and its address each
};
[[nodiscard]] QString LinkboxScript(const LinkboxFields& fields);

// A message that runs through the browser's status bar.
[[nodiscard]] QString StatusMessageScript(const QString& message);

// A link of a picture that is another one under the pointer.
struct RolloverFields {
    QString mainImage;
    QString rollImage;
    QString url;
};
[[nodiscard]] QString RolloverScript(const RolloverFields& fields, const QString& name);
// The name of a rollover, from two draws between 0 and 1.
[[nodiscard]] QString RolloverName(double first, double second);

// A background that goes from one colour towards another, and back to the page's own.
struct FadeFields {
    ColorNumber first = 0;
    ColorNumber last = 0;
    QString steps = "20";
};
// The colours that come; none when the steps are no number from 1 on, or more than 32767.
[[nodiscard]] QStringList FadeColors(const FadeFields& fields);
[[nodiscard]] QString FadeScript(const QStringList& colors);

}  // namespace vellum
