#include "shell/settings_fields.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "values/number_rules.h"

#include <cmath>

namespace vellum {
namespace {

using F = SettingsFields;

constexpr const SettingKey* tagColorKeys[tagColorCount] = {&keys::tablesColor,   &keys::framesColor, &keys::linksColor,
                                                           &keys::commentsColor, &keys::aspColor,    &keys::otherColor};
constexpr const SettingKey* browserKeys[externalBrowserCount] = {&keys::browser1, &keys::browser2, &keys::browser3};

// The checks that the editor's options mirror.
constexpr std::pair<bool F::*, const SettingKey*> optionChecks[] = {
    {&F::colorCodingOff, &keys::colorOnOff}, {&F::aspBold, &keys::aspBold},
    {&F::wordWrap, &keys::wordWrap},         {&F::autoTab, &keys::autoTab},
    {&F::popupTag, &keys::popupTag},         {&F::autoQuote, &keys::autoQuote},
    {&F::autoCase, &keys::autoCase},         {&F::autoEmptySlash, &keys::autoEmptySlash}};
constexpr std::pair<bool F::*, const SettingKey*> definitionChecks[] = {{&F::dtdSmil, &keys::dtdSmil},
                                                                        {&F::dtdSvg, &keys::dtdSvg},
                                                                        {&F::dtdOpen, &keys::dtdOpen},
                                                                        {&F::dtdWml, &keys::dtdWml},
                                                                        {&F::dtdX3d, &keys::dtdX3d}};
constexpr std::pair<QString F::*, const SettingKey*> texts[] = {{&F::ftpUrl, &keys::ftpUrl},
                                                                {&F::ftpUserName, &keys::ftpUserName},
                                                                {&F::ftpPassword, &keys::ftpPassword},
                                                                {&F::editPercent, &keys::editPercent}};

bool ReadTruth(const SettingsStore& store, const SettingKey& key) {
    return TruthValue(ReadSetting(store, key));
}

// A whole number from the store; `fallback` when it lies outside 0 to `last`.
int ReadIndex(const SettingsStore& store, const SettingKey& key, int last, int fallback) {
    const double stored = ReadNumberSetting(store, key);
    return stored >= 0 && stored <= last ? static_cast<int>(stored) : fallback;
}

void WriteCheck(SettingsStore& store, const SettingKey& key, bool checked) {
    WriteSetting(store, key, checked ? QStringLiteral("1") : QStringLiteral("0"));
}

void WriteColor(SettingsStore& store, const SettingKey& key, ColorNumber color) {
    WriteSetting(store, key, QString::number(color));
}

void WriteList(SettingsStore& store, const SettingKey& count, const SettingKey& entry, const QStringList& list) {
    WriteSetting(store, count, QString::number(list.size()));
    for (int i = 0; i < list.size(); ++i) WriteSetting(store, entry, i, list.at(i));
}

void WriteValues(const SettingsFields& fields, SettingsStore& store) {
    for (const auto& [field, key] : optionChecks) WriteCheck(store, *key, fields.*field);
    for (const auto& [field, key] : definitionChecks) WriteCheck(store, *key, fields.*field);
    WriteCheck(store, keys::dtdMath, fields.dtdMath);
    for (const auto& [field, key] : texts) WriteSetting(store, *key, fields.*field);
    for (int i = 0; i < tagColorCount; ++i) WriteColor(store, *tagColorKeys[i], fields.tagColors[i]);
    WriteColor(store, keys::foreColor, fields.foreColor);
    WriteColor(store, keys::backColor, fields.backColor);
    for (int i = 0; i < externalBrowserCount; ++i) WriteSetting(store, *browserKeys[i], fields.browsers[i]);
    WriteSetting(store, keys::dtdXhtml, QString::number(fields.xhtmlVariant));
    WriteSetting(store, keys::fontSize, fields.fontSize);
    WriteSetting(store, keys::fontName, fields.fontName);
    WriteSetting(store, keys::refreshRate, fields.refreshRate);
    WriteSetting(store, keys::verticalMain, fields.splitVertical ? QStringLiteral("True") : QStringLiteral("False"));
}

// The rate in force is a whole number, whatever stands in the settings.
void TakeOptions(const SettingsFields& fields, Workbench& workbench) {
    EditorOptions options = ReadEditorOptions(workbench.Settings());
    options.RefreshRate = static_cast<std::int16_t>(std::trunc(LeadingNumber(fields.refreshRate)));
    workbench.Options().Set(options);
}

void ApplyLists(const SettingsFields& fields, SettingsStore& store, SettingsTarget& target) {
    WriteList(store, keys::graphicsCount, keys::graphicsEntry, fields.imageTypes);
    target.SetImageTypes(fields.imageTypes);
    WriteList(store, keys::docTypesCount, keys::docTypesEntry, fields.documentTypes);
    target.SetDocumentTypes(fields.documentTypes);
    for (int row = 0; row < customButtonCount; ++row) {
        WriteSetting(store, keys::customCaption, row, fields.customCaptions[row]);
        target.SetCustomCaption(row, fields.customCaptions[row]);
        WriteSetting(store, keys::customText, row, fields.customTexts[row]);
    }
    WriteList(store, keys::customTagsCount, keys::customTagsEntry, fields.customTags);
}

void LoadLists(SettingsFields& fields, const SettingsStore& store, const Workbench& workbench) {
    fields.documentTypes = workbench.DocumentTypes();
    fields.imageTypes = workbench.ImageTypes();
    for (int row = 0; row < customButtonCount; ++row) {
        fields.customCaptions[row] = ReadSetting(store, keys::customCaption, row);
        fields.customTexts[row] = ReadSetting(store, keys::customText, row);
    }
    fields.customTags = ReadListSetting(store, keys::customTagsCount, keys::customTagsEntry).value_or(QStringList());
}

}  // namespace

SettingsFields LoadSettingsFields(Workbench& workbench) {
    constexpr int lastXhtmlVariant = 2;
    const SettingsStore& store = workbench.Settings();
    const EditorOptions& options = workbench.Options().Now();
    SettingsFields fields;
    fields.fontSize = options.EditorFontSize;
    fields.fontName = options.EditorFontName;
    fields.foreColor = options.foreColor;
    fields.backColor = options.backColor;
    fields.wordWrap = options.wordWrap;
    fields.autoTab = options.autoTab;
    fields.popupTag = options.popupTag;
    fields.lowerCase = ReadTruth(store, keys::lowerCase);
    fields.colorCodingOff = options.colorCodingOff;
    fields.tagColors = {options.TablesColor,   options.FramesColor, options.LinksColor,
                        options.CommentsColor, options.AspColor,    options.OtherColor};
    fields.aspBold = options.aspBold;
    LoadLists(fields, store, workbench);
    for (const auto& [field, key] : texts) fields.*field = ReadSetting(store, *key);
    for (const auto& [field, key] : definitionChecks) fields.*field = ReadTruth(store, *key);
    fields.autoCase = options.AutoCase;
    fields.autoQuote = options.AutoQuote;
    fields.autoEmptySlash = options.AutoEmptySlash;
    fields.xhtmlVariant = ReadIndex(store, keys::dtdXhtml, lastXhtmlVariant, 0);
    for (int i = 0; i < externalBrowserCount; ++i) fields.browsers[i] = ReadSetting(store, *browserKeys[i]);
    fields.refreshRate = QString::number(options.RefreshRate);
    fields.splitVertical = ReadSetting(store, keys::verticalMain) == QLatin1String("True");
    return fields;
}

bool IsValidRefreshRate(const QString& text) {
    const double rate = LeadingNumber(text);
    return IsNumeric(text) && rate >= 1 && rate <= 30;
}

bool IsValidEditPercent(const QString& text) {
    const double percent = LeadingNumber(text);
    return IsNumeric(text) && percent >= 0 && percent <= 100;
}

std::optional<QString> ValidateSettings(const SettingsFields& fields) {
    if (!IsValidRefreshRate(fields.refreshRate)) {
        return QStringLiteral("Refresh Rate Needs to be between 1 and 30 seconds.");
    }
    if (!IsValidEditPercent(fields.editPercent)) {
        return QStringLiteral("Percent of editing space must be between 0 and 100.");
    }
    return std::nullopt;
}

void ApplySettings(const SettingsFields& fields, Workbench& workbench, SettingsTarget& target) {
    SettingsStore& store = workbench.Settings();
    const SettingsStore::Batch batch(store);
    WriteValues(fields, store);
    if (fields.colorCodingOff) target.PaintActiveDocument(fields.foreColor);
    TakeOptions(fields, workbench);
    ApplyLists(fields, store, target);
    target.AddTags();
    workbench.Smartcolor();
}

void PurgeSettings(Workbench& workbench, SettingsTarget& target) {
    workbench.Settings().DeleteApplication(preferencesApplication);
    target.ApplyEditorFont(workbench.Options()->EditorFontName, keys::fontSize.fallback.toString());
    if (const Document* document = workbench.ActiveDocument()) document->Text1->SetSelStart(0);
}

}  // namespace vellum
