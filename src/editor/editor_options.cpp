#include "editor/editor_options.h"

#include "settings/settings_keys.h"
#include "values/number_rules.h"

namespace vellum {
namespace {

ColorNumber ReadColor(const SettingsStore& settings, const SettingKey& key) {
    constexpr double largest = 0xFFFFFF;
    const double stored = ReadNumberSetting(settings, key);
    return static_cast<ColorNumber>(stored >= 0 && stored <= largest ? stored : LeadingNumber(key.fallback));
}

bool IsOn(const SettingsStore& settings, const SettingKey& key) {
    return ReadNumberSetting(settings, key) == 1;
}

}  // namespace

EditorOptions ReadEditorOptions(const SettingsStore& settings) {
    return {
        .TablesColor = ReadColor(settings, keys::tablesColor),
        .FramesColor = ReadColor(settings, keys::framesColor),
        .LinksColor = ReadColor(settings, keys::linksColor),
        .CommentsColor = ReadColor(settings, keys::commentsColor),
        .OtherColor = ReadColor(settings, keys::otherColor),
        .AspColor = ReadColor(settings, keys::aspColor),
        .foreColor = ReadColor(settings, keys::foreColor),
        .backColor = ReadColor(settings, keys::backColor),
        .colorCodingOff = TruthValue(ReadSetting(settings, keys::colorOnOff)),
        .aspBold = IsOn(settings, keys::aspBold),
        .EditorFontName = ReadSetting(settings, keys::fontName),
        .EditorFontSize = ReadSetting(settings, keys::fontSize),
        .wordWrap = IsOn(settings, keys::wordWrap),
        .autoTab = IsOn(settings, keys::autoTab),
        .popupTag = IsOn(settings, keys::popupTag),
        .AutoQuote = IsOn(settings, keys::autoQuote),
        .AutoEmptySlash = IsOn(settings, keys::autoEmptySlash),
        .AutoCase = IsOn(settings, keys::autoCase),
        .RefreshRate = ToInt16(ReadNumberSetting(settings, keys::refreshRate)).value_or(0),
    };
}

void SharedOptions::Set(const EditorOptions& options) {
    now_ = options;
    emit Changed();
}

}  // namespace vellum
