// Turns text into markup.
#pragma once

#include <QString>

namespace vellum {

struct RichText;

// Plain text with CR LF line ends as markup: angle brackets and double quotes as entities, each pair of blanks as one
// entity, a break at each line end. The ampersand stays as it is, so entities that were typed go through.
[[nodiscard]] QString ConvertPlainText(QString text);

// Text with formats as markup: a styled div for each paragraph, a span wherever the format changes. Brackets, quotes
// and pairs of blanks become entities, save for one that follows another of its kind at once; a tab becomes as many
// hard blanks as fill its room in letters of its size. A size with a fraction opens a span anew at each character.
[[nodiscard]] QString ConvertRichText(const RichText& rich);

}  // namespace vellum
