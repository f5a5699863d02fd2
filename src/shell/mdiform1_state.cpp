// The main window's load and stop: what is restored and what is written.
#include "editor/document.h"
#include "settings/settings_keys.h"
#include "shell/color_bar.h"
#include "shell/document_window.h"
#include "shell/mdiform1.h"
#include "shell/status_bar.h"
#include "shell/toolbar.h"
#include "surface/edit_surface.h"
#include "system/programs.h"
#include "values/number_rules.h"
#include "values/units.h"
#include "website/website_panel.h"
#include "widgets/tab_strip.h"

#include <QGuiApplication>
#include <QListWidget>
#include <QScreen>

#include <algorithm>

namespace vellum {
namespace {

constexpr int stateNormal = 0;
constexpr int stateMinimised = 1;
constexpr int stateMaximised = 2;

QString TruthText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// A window that no screen shows any more comes back to the first one.
QRect OnScreen(const QRect& place) {
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().intersects(place.adjusted(20, 0, -20, 0))) return place;
    }
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    return {room.topLeft(), place.size().boundedTo(room.size())};
}

// A whole number that any screen can hold.
int LengthSetting(const SettingsStore& store, const SettingKey& key) {
    return static_cast<int>(std::clamp(ReadNumberSetting(store, key), -1e6, 1e6));
}

QStringList Entries(const QListWidget& list) {
    QStringList entries;
    for (int i = 0; i < list.count(); ++i) entries << list.item(i)->text();
    return entries;
}

void Replace(QListWidget& list, const QStringList& entries) {
    list.clear();
    list.addItems(entries);
}

void RestoreList(const SettingsStore& store, const SettingKey& count, const SettingKey& entry, QListWidget& list) {
    if (const auto entries = ReadListSetting(store, count, entry)) Replace(list, *entries);
}

}  // namespace

void MDIform1::Load(const QString& commandLine, const std::function<void()>& splashDone) {
    SetHint("Getting Data From Computer");
    StoreFonts();
    RestoreWindow();
    ColorBarSetup();
    Options().Set(ReadEditorOptions(settings_));
    SetWrapChecked(Options()->wordWrap);
    RestoreTypes();
    for (int row = 0; row < 6; ++row) TabStrip2->SetCaption(row + 2, ReadCustomCaption(settings_, row));
    RestoreView();
    RestoreRecentFiles();
    RestoreWebsite();
    TellDocumentCount();
    AddTags();
    splashDone();
    laidOut_ = true;
    show();
    ApplyLayout();
    MakeFirstDocument(commandLine);
    ColorSpanStart = 0;
    ColorSpanLength = 0;
    Document* document = ActiveDocument();
    document->SetSaver(true);
    SetHint({});
    Smartcolor();
    // What was lost comes before the tips, which keep away from a page that has text.
    recovery_.OfferLost(*this);
    const Document* const active = ActiveDocument();
    if (active && active->Text1->Length() == 0) startup();
}

void MDIform1::StoreFonts() {
    const SettingsStore::Batch batch(settings_);
    Replace(*List6, fontNames_);
    WriteSetting(settings_, keys::fontsNumber, NumberText(static_cast<double>(fontNames_.size())));
    for (int i = 0; i < fontNames_.size(); ++i) WriteSetting(settings_, keys::fontsEntry, i, fontNames_.at(i));
}

void MDIform1::RestoreWindow() {
    const int state = LengthSetting(settings_, keys::windowState);
    const bool known =
        settings_.Contains(keys::windowWidth.application, keys::windowWidth.section, keys::windowWidth.key);
    const auto pixels = [this](const SettingKey& key) { return PixelsFromTwips(LengthSetting(settings_, key)); };
    if (state == stateNormal || known) {
        setGeometry(OnScreen({pixels(keys::windowLeft), pixels(keys::windowTop), pixels(keys::windowWidth),
                              pixels(keys::windowHeight)}));
    } else if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        resize(screen->availableSize() * 4 / 5);
    }
    if (state == stateMaximised) setWindowState(Qt::WindowMaximized);
    if (state == stateMinimised) setWindowState(Qt::WindowMinimized);
}

void MDIform1::RestoreTypes() {
    RestoreList(settings_, keys::graphicsCount, keys::graphicsEntry, *List4);
    RestoreList(settings_, keys::docTypesCount, keys::docTypesEntry, *lstDocTypes);
}

void MDIform1::RestoreView() {
    static constexpr const SettingKey* viewKeys[] = {&keys::picture1, &keys::picture14, &keys::picture15,
                                                     &keys::picture11};
    for (int i = 0; i < 4; ++i) {
        if (ReadSetting(settings_, *viewKeys[i]) != QLatin1String("False")) continue;
        Region(i)->hide();
        Item(QStringLiteral("mnuViewItem(%1)").arg(i))->setChecked(false);
    }
    SetPanelHeight(LengthSetting(settings_, keys::pic11Height));
}

void MDIform1::RestoreRecentFiles() {
    for (int i = 0; i < RecentFileList::slotCount; ++i) {
        files_.Recent().SetSlot(i, ReadSetting(settings_, keys::recentFile, i));
    }
    ShowRecentFiles();
}

// A place that has gone ends the stretch and leaves the panel at the program's own directory.
void MDIform1::RestoreWebsite() {
    const QString own = OwnDirectory();
    Picture11->SetDirectory(own);
    Picture11->SetFilePath(own);
    const auto place = [this, &own](const SettingKey& key) {
        const QString stored = ReadSetting(settings_, key);
        return stored.isEmpty() ? own : stored;
    };
    if (!Picture11->SetDrive(place(keys::drive))) return;
    if (!Picture11->SetDirectory(place(keys::director))) return;
    Picture11->SetFilePath(place(keys::filePath));
}

void MDIform1::MakeFirstDocument(const QString& commandLine) {
    if (!usePreview_) {
        if (QAction* item = Item("mnuVisualItem")) item->setEnabled(false);
    }
    auto* document = qobject_cast<DocumentWindow*>(CreateDocument());
    document->SetCaption("New 1");
    document->showMaximized();
    NewDocCount = 1;
    if (!commandLine.isEmpty() && document->LoadFile(commandLine)) document->SetCaption(commandLine);
}

void MDIform1::WriteState() {
    const SettingsStore::Batch batch(settings_);
    WriteSetting(settings_, keys::picture1, TruthText(!Picture1->isHidden()));
    WriteSetting(settings_, keys::picture11, TruthText(!Picture11->isHidden()));
    WriteSetting(settings_, keys::pic11Height, NumberText(layout_.panelHeight));
    WriteSetting(settings_, keys::picture14, TruthText(!Picture14->isHidden()));
    WriteSetting(settings_, keys::picture15, TruthText(!Picture15->isHidden()));
    const QRect place = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    WriteSetting(settings_, keys::windowTop, NumberText(TwipsFromPixels(place.top())));
    WriteSetting(settings_, keys::windowLeft, NumberText(TwipsFromPixels(place.left())));
    WriteSetting(settings_, keys::windowWidth, NumberText(TwipsFromPixels(place.width())));
    WriteSetting(settings_, keys::windowHeight, NumberText(TwipsFromPixels(place.height())));
    const int state = isMinimized() ? stateMinimised : isMaximized() ? stateMaximised : stateNormal;
    WriteSetting(settings_, keys::windowState, NumberText(state));
    WriteSetting(settings_, keys::drive, Picture11->Drive());
    WriteSetting(settings_, keys::director, Picture11->Directory());
    WriteSetting(settings_, keys::filePath, Picture11->FilePath());
    for (int i = 0; i < RecentFileList::slotCount; ++i) {
        WriteSetting(settings_, keys::recentFile, i, files_.Recent().Slot(i));
    }
}

QStringList MDIform1::ImageTypes() const {
    return Entries(*List4);
}
QStringList MDIform1::DocumentTypes() const {
    return Entries(*lstDocTypes);
}
void MDIform1::SetImageTypes(const QStringList& types) {
    Replace(*List4, types);
}
void MDIform1::SetDocumentTypes(const QStringList& types) {
    Replace(*lstDocTypes, types);
}
void MDIform1::SetCustomCaption(int row, const QString& caption) {
    TabStrip2->SetCaption(row + 2, caption);
}

}  // namespace vellum
