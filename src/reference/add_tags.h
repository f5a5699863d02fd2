// Fills the reference tree: the document types that the author has enabled, the character sets, the script languages
// and the lists of the author's own.
#pragma once

#include "reference/dtd_reader.h"

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QStringList>

namespace vellum {

class SettingsStore;

// Empties the tree and builds all of it from the files in `dtdFolder`; its first root is bold then. What can't be read
// leaves its branch incomplete, and the next ones are read.
void AddTags(ReferenceTree& tree, const SettingsStore& settings, const QString& dtdFolder,
             const CaptionHook& caption = {});

// The branches after the character sets; each adds those of the next. `index` is afterwards that of the last node.
void AddTags3(ReferenceTree& tree, const SettingsStore& settings, int& index);  // JScript
void AddTags5(ReferenceTree& tree, const SettingsStore& settings, int& index);  // VBScript
void AddTags4(ReferenceTree& tree, const SettingsStore& settings, int& index);  // dates, emoticons, own tags

// A moment in the seven named formats: general date, long, medium and short date, long, medium and short time.
[[nodiscard]] QStringList DateTimeTexts(const QDateTime& moment, const QLocale& locale);

}  // namespace vellum
