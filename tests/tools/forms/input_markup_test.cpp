#include "tools/forms/input_markup.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

constexpr InputKind allKinds[] = {InputKind::Checkbox, InputKind::Hidden,  InputKind::Image,  InputKind::Password,
                                  InputKind::Radio,    InputKind::Reset,   InputKind::Submit, InputKind::Text,
                                  InputKind::Textbox,  InputKind::Listbox, InputKind::Button, InputKind::FileSearch};

// Every field of every kind, so that what a kind doesn't have would show.
InputFields Full(InputKind kind) {
    return {.kind = kind,
            .name = "n",
            .id = "i",
            .className = "c",
            .title = "t",
            .accessKey = "k",
            .disabled = true,
            .checkboxValue = "yes",
            .checked = true,
            .hiddenValue = "secret",
            .alignment = "TOP",
            .source = "go.gif",
            .width = "20",
            .maxLength = "8",
            .lineValue = "calf",
            .radioValue = "one",
            .radioText = "The first",
            .label = "Send",
            .columns = "40",
            .rows = "5",
            .contents = "Dear\r\nfriend",
            .entries = {{"a", "A"}, {"", ""}, {"<\"", "&"}},
            .listSize = "3",
            .multiple = true};
}

TEST(InputMarkupOf, EveryKindEmpty) {
    const std::pair<InputKind, const char*> kinds[] = {
        {InputKind::Checkbox, "<input type=\"checkbox\" />"},
        {InputKind::Hidden, "<input type=\"hidden\" />"},
        {InputKind::Image, "<input type=\"image\" />"},
        {InputKind::Password, "<INPUT TYPE=\"password\" />"},
        {InputKind::Radio, "<input type=\"radio\" />"},
        {InputKind::Reset, "<input type=\"reset\" />"},
        {InputKind::Submit, "<input type=\"submit\" />"},
        {InputKind::Text, "<input type=\"text\" />"},
        {InputKind::Textbox, "<textarea></textarea>"},
        {InputKind::Listbox, "<select>\r\n<option value=\"\"></option>\r\n</select>"},
        {InputKind::Button, "<button></button>"},
        {InputKind::FileSearch, "<input type=\"file\" />"},
    };
    for (const auto& [kind, markup] : kinds) EXPECT_EQ(InputMarkup({.kind = kind}), markup);
    EXPECT_EQ(InputMarkup({}), "<button></button>") << "the kind to begin with";
}

TEST(InputMarkupOf, EveryKindFull) {
    const QString common = " name=\"n\" id=\"i\" class=\"c\" title=\"t\" accesskey=\"k\" disabled=\"disabled\"";
    const std::pair<InputKind, const char*> kinds[] = {
        {InputKind::Checkbox, "<input type=\"checkbox\"%1 value=\"yes\" checked=\"checked\" />"},
        {InputKind::Hidden, "<input type=\"hidden\"%1 value=\"secret\" />"},
        {InputKind::Image, "<input type=\"image\"%1 align=\"TOP\" src=\"go.gif\" />"},
        {InputKind::Password, "<INPUT TYPE=\"password\"%1 size=\"20\" maxlength=\"8\" value=\"calf\" />"},
        {InputKind::Radio, "<input type=\"radio\"%1 value=\"one\" />The first"},
        {InputKind::Reset, "<input type=\"reset\"%1 value=\"Send\" />"},
        {InputKind::Submit, "<input type=\"submit\"%1 value=\"Send\" />"},
        {InputKind::Text, "<input type=\"text\"%1 size=\"20\" maxlength=\"8\" value=\"calf\" />"},
        {InputKind::Textbox, "<textarea%1 cols=\"40\" rows=\"5\">Dear\r\nfriend</textarea>"},
        {InputKind::Listbox,
         "<select%1 size=\"3\" multiple=\"multiple\">\r\n"
         "<option value=\"a\">A</option>\r\n"
         "<option value=\"\"></option>\r\n"
         "<option value=\"<\"\">&</option>\r\n"
         "</select>"},
        {InputKind::Button, "<button%1>Send</button>"},
        {InputKind::FileSearch, "<input type=\"file\"%1 size=\"20\" />"},
    };
    for (const auto& [kind, markup] : kinds) EXPECT_EQ(InputMarkup(Full(kind)), QString(markup).arg(common));
}

TEST(InputMarkupOf, EachCommonFieldInEveryKind) {
    const std::pair<InputFields, const char*> common[] = {
        {{.name = "x\""}, " name=\"x\"\""},       {{.id = "x"}, " id=\"x\""},
        {{.className = "x"}, " class=\"x\""},     {{.title = "x"}, " title=\"x\""},
        {{.accessKey = "x"}, " accesskey=\"x\""}, {{.disabled = true}, " disabled=\"disabled\""}};
    for (const InputKind kind : allKinds) {
        for (const auto& [field, attribute] : common) {
            InputFields with = field;
            with.kind = kind;
            QString without = InputMarkup({.kind = kind});
            // Before the end of the first tag.
            const qsizetype end = without.contains(" />") ? without.indexOf(" />") : without.indexOf('>');
            EXPECT_EQ(InputMarkup(with), without.insert(end, attribute));
        }
    }
}

TEST(InputMarkupOf, EachFieldOfAKindByItself) {
    const std::pair<InputFields, const char*> fields[] = {
        {{.kind = InputKind::Checkbox, .checkboxValue = "x"}, "<input type=\"checkbox\" value=\"x\" />"},
        {{.kind = InputKind::Checkbox, .checked = true}, "<input type=\"checkbox\" checked=\"checked\" />"},
        {{.kind = InputKind::Image, .alignment = "x"}, "<input type=\"image\" align=\"x\" />"},
        {{.kind = InputKind::Image, .source = "x"}, "<input type=\"image\" src=\"x\" />"},
        {{.kind = InputKind::Password, .width = "x"}, "<INPUT TYPE=\"password\" size=\"x\" />"},
        {{.kind = InputKind::Password, .maxLength = "x"}, "<INPUT TYPE=\"password\" maxlength=\"x\" />"},
        {{.kind = InputKind::Password, .lineValue = "x"}, "<INPUT TYPE=\"password\" value=\"x\" />"},
        {{.kind = InputKind::Text, .width = "x"}, "<input type=\"text\" size=\"x\" />"},
        {{.kind = InputKind::Text, .maxLength = "x"}, "<input type=\"text\" maxlength=\"x\" />"},
        {{.kind = InputKind::Text, .lineValue = "x"}, "<input type=\"text\" value=\"x\" />"},
        {{.kind = InputKind::Radio, .radioValue = "x"}, "<input type=\"radio\" value=\"x\" />"},
        {{.kind = InputKind::Radio, .radioText = "x"}, "<input type=\"radio\" />x"},
        {{.kind = InputKind::Textbox, .columns = "x"}, "<textarea cols=\"x\"></textarea>"},
        {{.kind = InputKind::Textbox, .rows = "x"}, "<textarea rows=\"x\"></textarea>"},
        {{.kind = InputKind::Textbox, .contents = "<x>"}, "<textarea><x></textarea>"},
        {{.kind = InputKind::Listbox, .entries = {}}, "<select>\r\n</select>"},
        {{.kind = InputKind::Listbox, .entries = {}, .listSize = "x"}, "<select size=\"x\">\r\n</select>"},
        {{.kind = InputKind::Listbox, .entries = {}, .multiple = true}, "<select multiple=\"multiple\">\r\n</select>"},
        {{.kind = InputKind::Listbox, .entries = {{"x", ""}, {"", "y"}}},
         "<select>\r\n<option value=\"x\"></option>\r\n<option value=\"\">y</option>\r\n</select>"},
    };
    for (const auto& [field, markup] : fields) EXPECT_EQ(InputMarkup(field), markup);
}

}  // namespace
}  // namespace vellum
