// The words of the script languages, and the emoticons, that the reference tree lists.
#pragma once

#include "editor/reference_tree.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum {

struct VocabularyGroup {
    QString name;
    NodeKind kind = NodeKind::Text;  // of its items
    QStringList items;
};

[[nodiscard]] std::vector<VocabularyGroup> JScriptVocabulary();
[[nodiscard]] std::vector<VocabularyGroup> VbScriptVocabulary();
[[nodiscard]] const QStringList& Emoticons();

}  // namespace vellum
