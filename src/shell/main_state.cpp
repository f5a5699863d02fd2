#include "shell/main_state.h"

#include "files/paths.h"
#include "settings/settings_keys.h"
#include "shell/main_regions.h"
#include "shell/recent_files.h"
#include "shell/twip_geometry.h"
#include "values/number_rules.h"
#include "values/units.h"
#include "website/website_panel.h"
#include "widgets/tab_strip.h"

#include <QAction>
#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <vector>

namespace vellum {
namespace {

constexpr int stateNormal = 0;
constexpr int stateMinimised = 1;
constexpr int stateMaximised = 2;

// The visibility of the regions, by the index of their item.
constexpr const SettingKey* regionKeys[] = {&keys::picture1, &keys::picture14, &keys::picture15, &keys::picture11};

QString TruthText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// A whole number, small enough to reckon with.
int LengthSetting(const SettingsStore& settings, const SettingKey& key) {
    return static_cast<int>(std::clamp(ReadNumberSetting(settings, key), -1e6, 1e6));
}

TwipRect RoomOf(const QScreen& screen) {
    const QRect room = screen.availableGeometry();
    return {TwipsFromPixels(room.left()), TwipsFromPixels(room.top()), TwipsFromPixels(room.width()),
            TwipsFromPixels(room.height())};
}

TwipRect StoredPlace(const QWidget& window, const SettingsStore& settings) {
    std::vector<TwipRect> screens;
    for (const QScreen* screen : QGuiApplication::screens()) screens.push_back(RoomOf(*screen));
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return PlaceOnScreens({LengthSetting(settings, keys::windowLeft), LengthSetting(settings, keys::windowTop),
                           LengthSetting(settings, keys::windowWidth), LengthSetting(settings, keys::windowHeight)},
                          screens,
                          {.leastWidth = TwipsFromPixels(least.width()),
                           .leastHeight = TwipsFromPixels(least.height()),
                           .titleBar = TwipsFromPixels(titleBar)});
}

void RestorePlace(QWidget& window, const SettingsStore& settings) {
    const int state = LengthSetting(settings, keys::windowState);
    const bool known =
        settings.Contains(keys::windowWidth.application, keys::windowWidth.section, keys::windowWidth.key);
    if (state == stateNormal || known) {
        SetTwipGeometry(&window, StoredPlace(window, settings));
    } else if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        window.resize(screen->availableSize() * 4 / 5);
    }
    if (state == stateMaximised) window.setWindowState(Qt::WindowMaximized);
    if (state == stateMinimised) window.setWindowState(Qt::WindowMinimized);
}

void RestoreList(const SettingsStore& settings, const SettingKey& count, const SettingKey& entry, QListWidget& list) {
    const auto entries = ReadListSetting(settings, count, entry);
    if (!entries) return;
    list.clear();
    list.addItems(*entries);
}

void RestoreView(MainRegions& window, const SettingsStore& settings) {
    int index = 0;
    for (const SettingKey* key : regionKeys) {
        const int region = index++;
        if (ReadSetting(settings, *key) != QLatin1String("False")) continue;
        window.Region(region)->hide();
        window.Item(QStringLiteral("mnuViewItem(%1)").arg(region))->setChecked(false);
    }
    const QScreen* screen = window.screen();
    const int stored = LengthSetting(settings, keys::pic11Height);
    window.SetPanelHeight(screen ? RestoredPanelHeight(stored, RoomOf(*screen).height) : stored);
}

// Where one of them has gone, the panel stays at the program's own directory.
void RestoreWebsite(WebsitePanel& panel, const SettingsStore& settings) {
    const QString own = OwnDirectory();
    const auto place = [&](const SettingKey& key) {
        const QString stored = ReadSetting(settings, key);
        return stored.isEmpty() ? own : stored;
    };
    const bool restored = panel.SetDrive(place(keys::drive)) && panel.SetDirectory(place(keys::director)) &&
                          panel.SetFilePath(place(keys::filePath));
    if (restored) return;
    panel.SetDirectory(own);
    panel.SetFilePath(own);
}

void WritePlace(const QWidget& window, SettingsStore& settings) {
    const QRect place = window.isMaximized() || window.isMinimized() ? window.normalGeometry() : window.geometry();
    WriteSetting(settings, keys::windowTop, NumberText(TwipsFromPixels(place.top())));
    WriteSetting(settings, keys::windowLeft, NumberText(TwipsFromPixels(place.left())));
    WriteSetting(settings, keys::windowWidth, NumberText(TwipsFromPixels(place.width())));
    WriteSetting(settings, keys::windowHeight, NumberText(TwipsFromPixels(place.height())));
    const int state = window.isMinimized() ? stateMinimised : window.isMaximized() ? stateMaximised : stateNormal;
    WriteSetting(settings, keys::windowState, NumberText(state));
}

}  // namespace

void RestoreState(MainRegions& window, RecentFileList& recent, const SettingsStore& settings) {
    RestorePlace(window, settings);
    RestoreList(settings, keys::graphicsCount, keys::graphicsEntry, *window.List4);
    RestoreList(settings, keys::docTypesCount, keys::docTypesEntry, *window.lstDocTypes);
    for (int row = 0; row < 6; ++row)
        window.TabStrip2->SetCaption(row + 2, ReadSetting(settings, keys::customCaption, row));
    RestoreView(window, settings);
    for (int slot = 0; slot < RecentFileList::slotCount; ++slot) {
        recent.SetSlot(slot, ReadSetting(settings, keys::recentFile, slot));
    }
    RestoreWebsite(*window.Picture11, settings);
}

void WriteState(const MainRegions& window, const RecentFileList& recent, SettingsStore& settings) {
    const SettingsStore::Batch batch(settings);
    int region = 0;
    for (const SettingKey* key : regionKeys) {
        WriteSetting(settings, *key, TruthText(!window.Region(region++)->isHidden()));
    }
    WriteSetting(settings, keys::pic11Height, NumberText(window.PanelHeight()));
    WritePlace(window, settings);
    WriteSetting(settings, keys::drive, window.Picture11->Drive());
    WriteSetting(settings, keys::director, window.Picture11->Directory());
    WriteSetting(settings, keys::filePath, window.Picture11->FilePath());
    for (int slot = 0; slot < RecentFileList::slotCount; ++slot) {
        WriteSetting(settings, keys::recentFile, slot, recent.Slot(slot));
    }
}

void StoreFonts(MainRegions& window, const QStringList& fontNames, SettingsStore& settings) {
    const SettingsStore::Batch batch(settings);
    window.List6->clear();
    window.List6->addItems(fontNames);
    WriteSetting(settings, keys::fontsNumber, NumberText(static_cast<double>(fontNames.size())));
    for (int i = 0; i < fontNames.size(); ++i) WriteSetting(settings, keys::fontsEntry, i, fontNames.at(i));
}

}  // namespace vellum
