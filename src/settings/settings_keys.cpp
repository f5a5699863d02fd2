#include "settings/settings_keys.h"

#include "values/number_rules.h"

namespace vellum {
namespace {

QString EntryKey(const SettingKey& family, int index) {
    return family.key.toString() + QString::number(index);
}

}  // namespace

QString ReadSetting(const SettingsStore& store, const SettingKey& key) {
    return store.Read(key.application, key.section, key.key, key.fallback.toString());
}

bool WriteSetting(SettingsStore& store, const SettingKey& key, const QString& value) {
    return store.Write(key.application, key.section, key.key, value);
}

QString ReadSetting(const SettingsStore& store, const SettingKey& family, int index) {
    return store.Read(family.application, family.section, EntryKey(family, index),
                      family.fallback.toString().replace(QLatin1String("%1"), QString::number(index + 1)));
}

bool WriteSetting(SettingsStore& store, const SettingKey& family, int index, const QString& value) {
    return store.Write(family.application, family.section, EntryKey(family, index), value);
}

std::optional<QStringList> ReadListSetting(const SettingsStore& store, const SettingKey& count,
                                           const SettingKey& family) {
    constexpr int mostEntries = 32767;
    const double entries = ReadNumberSetting(store, count);
    if (entries == -1 || entries > mostEntries) return std::nullopt;
    QStringList list;
    for (int i = 0; i < entries; ++i) list << ReadSetting(store, family, i);
    return list;
}

double ReadNumberSetting(const SettingsStore& store, const SettingKey& key) {
    return LeadingNumber(ReadSetting(store, key));
}

}  // namespace vellum
