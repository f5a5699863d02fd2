// The words of the script languages, and the emoticons, that the reference tree lists.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum {

struct VocabularyGroup {
    QString name;
    QStringList items;
};

[[nodiscard]] std::vector<VocabularyGroup> JScriptVocabulary();
[[nodiscard]] std::vector<VocabularyGroup> VbScriptVocabulary();
[[nodiscard]] const QStringList& Emoticons();

}  // namespace vellum
