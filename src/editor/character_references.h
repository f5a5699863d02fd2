// Characters of a page as references like "&#8364;", which stand in any encoding.
//
// Offsets count from 0, a line end as the text has it.
#pragma once

#include "values/text_range.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace vellum {

// The places of a page where a reference isn't read, but taken as it stands.
enum class ReferenceBar { Name, Script, StyleSheet, Comment, ServerBlock, Section, UnfinishedTag };

struct BarredRange {
    TextRange range;
    ReferenceBar bar;

    bool operator==(const BarredRange&) const = default;
};

// All of them, ascending, told cautiously: where one kind of reader reads references and another doesn't, they are not
// read.
[[nodiscard]] std::vector<BarredRange> FindReferenceBars(QStringView page);

// Whether a file holds markup, by its name, and by its text where the name doesn't tell.
[[nodiscard]] bool IsMarkupFile(const QString& path, QStringView text);

// Why the first of these ranges that can't be written as references can't, for a person, as in "one stands in a
// script". Empty when all can. The ranges ascend.
[[nodiscard]] std::optional<QString> WhyNoReferences(const QString& path, QStringView text,
                                                     std::span<const TextRange> ranges);

// Every character as a decimal reference.
[[nodiscard]] QString AsReferences(QStringView characters);

}  // namespace vellum
