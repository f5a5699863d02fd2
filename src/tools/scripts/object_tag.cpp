#include "tools/scripts/object_tag.h"

#include "settings/settings_keys.h"
#include "values/number_rules.h"

namespace vellum {
namespace {

QString FlagText(bool flag) {
    return flag ? QStringLiteral("True") : QStringLiteral("False");
}

std::int16_t ReadSize(const SettingsStore& store, const SettingKey& key) {
    return ToInt16(ReadNumberSetting(store, key)).value_or(ToInt16(LeadingNumber(key.fallback)).value_or(0));
}

// All of it, quotes included, in the letter case of the options.
QString Cased(const QString& word, TagCase tagCase) {
    switch (tagCase) {
        case TagCase::Upper:
            return word.toUpper();
        case TagCase::Lower:
            return word.toLower();
        case TagCase::FirstUpper:
            return word.left(1).toUpper() + word.mid(1).toLower();
    }
    return word;
}

}  // namespace

ObjectOptions ReadObjectOptions(const SettingsStore& store) {
    const double tagCase = ReadNumberSetting(store, keys::optionsTagCase);
    return {.byClassId = TruthValue(ReadSetting(store, keys::optionsTagClassID)),
            .object = TruthValue(ReadSetting(store, keys::optionsObj)),
            .tagCase = tagCase == 1   ? TagCase::Lower
                       : tagCase == 2 ? TagCase::FirstUpper
                                      : TagCase::Upper,
            .severalLines = TruthValue(ReadSetting(store, keys::optionsLines)),
            .width = ReadSize(store, keys::optionsWidth),
            .height = ReadSize(store, keys::optionsHeight),
            .withCodeBase = TruthValue(ReadSetting(store, keys::optionsInclCode)),
            .codeBase = ReadSetting(store, keys::optionsCode)};
}

void WriteObjectOptions(SettingsStore& store, const ObjectOptions& options) {
    const SettingsStore::Batch batch(store);
    WriteSetting(store, keys::optionsTagClassID, FlagText(options.byClassId));
    WriteSetting(store, keys::optionsObj, FlagText(options.object));
    WriteSetting(store, keys::optionsTagCase, QString::number(static_cast<int>(options.tagCase)));
    WriteSetting(store, keys::optionsLines, FlagText(options.severalLines));
    WriteSetting(store, keys::optionsWidth, QString::number(options.width));
    WriteSetting(store, keys::optionsHeight, QString::number(options.height));
    WriteSetting(store, keys::optionsInclCode, options.withCodeBase ? QStringLiteral("1") : QStringLiteral("0"));
    WriteSetting(store, keys::optionsCode, options.codeBase);
}

QString BuildObjTag(const Control& control, const ObjectOptions& options) {
    const QString lineEnd = options.severalLines ? QStringLiteral("\r\n") : QString();
    const QString start = lineEnd + (options.severalLines ? u'\t' : u' ');
    const auto cased = [&](const char* word) { return Cased(word, options.tagCase); };
    const QString tag = cased(options.object ? "object" : "insert");
    QString element = '<' + tag + start + cased("id=\"") + control.name + '"' + start;
    if (!options.byClassId && !control.programId.isEmpty()) {
        element += cased("CLASSID=\"ProgID:") + control.programId + '"';
    } else {
        element += cased("CLASSID=\"ClsID:") + RemoveBraces(control.classId) + '"';
    }
    element += start + cased("width") + '=' + QString::number(options.width);
    element += start + cased("height") + '=' + QString::number(options.height);
    if (options.withCodeBase) element += start + cased("CodeBase=\"") + options.codeBase + '"';
    return element + " >" + lineEnd + "</" + tag + '>';
}

QString ObjectMarkup(const std::vector<Control>& controls, const ObjectOptions& options) {
    QString markup = "<!-- Begin Object Tag -->\r\n";
    for (const Control& control : controls) markup += BuildObjTag(control, options) + "\r\n";
    return markup + "<!--End Object Tag -->";
}

QString RemoveBraces(const QString& text) {
    const qsizetype first = text.startsWith(u'{') ? 1 : 0;
    return text.mid(first, text.size() - first - (text.endsWith(u'}') ? 1 : 0));
}

}  // namespace vellum
