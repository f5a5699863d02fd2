// The markup of one control of a form, of any of twelve kinds.
#pragma once

#include "tools/framework/text_grid.h"

#include <QString>

namespace vellum {

enum class InputKind {
    Checkbox,
    Hidden,
    Image,
    Password,
    Radio,
    Reset,
    Submit,
    Text,
    Textbox,
    Listbox,
    Button,
    FileSearch
};

// Each kind looks at its own fields and at the common ones.
struct InputFields {
    InputKind kind = InputKind::Button;

    QString name;
    QString id;
    QString className;
    QString title;
    QString accessKey;
    bool disabled = false;

    QString checkboxValue;
    bool checked = false;

    QString hiddenValue;

    QString alignment;  // of an image
    QString source;

    QString width;      // of a line in blanks: a password, a text or a file
    QString maxLength;  // of a password or text, as the next one
    QString lineValue;

    QString radioValue;
    QString radioText;  // comes after the tag

    QString label;  // of a button, and of those that reset and submit

    QString columns;  // of a text box, in characters
    QString rows;
    QString contents;

    GridRows entries{{"", ""}};  // of a list box, each a value and its text
    QString listSize;
    bool multiple = false;
};

// An empty field is left out; an entry of a list box comes out as it is, also an empty one.
[[nodiscard]] QString InputMarkup(const InputFields& fields);

}  // namespace vellum
