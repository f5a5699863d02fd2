#include "shell/settings_fields.h"

#include "editor/document.h"
#include "editor/workbench.h"
#include "settings/settings_keys.h"
#include "values/number_rules.h"

#include <cmath>

namespace vellum {
namespace {

constexpr const SettingKey* tagColorKeys[tagColorCount] = {&keys::tablesColor,   &keys::framesColor, &keys::linksColor,
                                                           &keys::commentsColor, &keys::aspColor,    &keys::otherColor};
constexpr const SettingKey* browserKeys[externalBrowserCount] = {&keys::browser1, &keys::browser2, &keys::browser3};

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

void WriteColors(const SettingsFields& fields, SettingsStore& store) {
    WriteCheck(store, keys::colorOnOff, fields.colorCodingOff);
    for (int i = 0; i < tagColorCount; ++i) WriteColor(store, *tagColorKeys[i], fields.tagColors[i]);
    WriteCheck(store, keys::aspBold, fields.aspBold);
    WriteColor(store, keys::foreColor, fields.foreColor);
    WriteColor(store, keys::backColor, fields.backColor);
}

void WriteDefinitions(const SettingsFields& fields, SettingsStore& store) {
    WriteSetting(store, keys::dtdXhtml, QString::number(fields.xhtmlVariant));
    WriteCheck(store, keys::dtdMath, fields.dtdMath);
    WriteCheck(store, keys::dtdSmil, fields.dtdSmil);
    WriteCheck(store, keys::dtdSvg, fields.dtdSvg);
    WriteCheck(store, keys::dtdOpen, fields.dtdOpen);
    WriteCheck(store, keys::dtdWml, fields.dtdWml);
    WriteCheck(store, keys::dtdX3d, fields.dtdX3d);
}

void WriteEditor(const SettingsFields& fields, SettingsStore& store) {
    WriteSetting(store, keys::fontSize, fields.fontSize);
    WriteSetting(store, keys::fontName, fields.fontName);
    WriteCheck(store, keys::wordWrap, fields.wordWrap);
    WriteCheck(store, keys::autoTab, fields.autoTab);
    WriteCheck(store, keys::popupTag, fields.popupTag);
    WriteCheck(store, keys::autoQuote, fields.autoQuote);
    WriteCheck(store, keys::autoEmptySlash, fields.autoEmptySlash);
    WriteCheck(store, keys::autoCase, fields.autoCase);
}

void WritePreview(const SettingsFields& fields, SettingsStore& store) {
    for (int i = 0; i < externalBrowserCount; ++i) WriteSetting(store, *browserKeys[i], fields.browsers[i]);
    WriteSetting(store, keys::refreshRate, fields.refreshRate);
    WriteSetting(store, keys::verticalMain, fields.splitVertical ? QStringLiteral("True") : QStringLiteral("False"));
    WriteSetting(store, keys::editPercent, fields.editPercent);
}

void WriteUpload(const SettingsFields& fields, SettingsStore& store) {
    WriteSetting(store, keys::ftpUrl, fields.ftpUrl);
    WriteSetting(store, keys::ftpPassword, fields.ftpPassword);
    WriteSetting(store, keys::ftpUserName, fields.ftpUserName);
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
    fields.ftpUrl = ReadSetting(store, keys::ftpUrl);
    fields.ftpUserName = ReadSetting(store, keys::ftpUserName);
    fields.ftpPassword = ReadSetting(store, keys::ftpPassword);
    fields.autoCase = options.AutoCase;
    fields.autoQuote = options.AutoQuote;
    fields.autoEmptySlash = options.AutoEmptySlash;
    fields.xhtmlVariant = ReadIndex(store, keys::dtdXhtml, lastXhtmlVariant, 0);
    fields.dtdSmil = ReadTruth(store, keys::dtdSmil);
    fields.dtdSvg = ReadTruth(store, keys::dtdSvg);
    fields.dtdOpen = ReadTruth(store, keys::dtdOpen);
    fields.dtdWml = ReadTruth(store, keys::dtdWml);
    fields.dtdX3d = ReadTruth(store, keys::dtdX3d);
    for (int i = 0; i < externalBrowserCount; ++i) fields.browsers[i] = ReadSetting(store, *browserKeys[i]);
    fields.refreshRate = QString::number(options.RefreshRate);
    fields.splitVertical = ReadSetting(store, keys::verticalMain) == QLatin1String("True");
    fields.editPercent = ReadSetting(store, keys::editPercent);
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
    WriteColors(fields, store);
    WriteDefinitions(fields, store);
    WriteEditor(fields, store);
    WritePreview(fields, store);
    WriteUpload(fields, store);
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
